#pragma once
// Drives demo time frame by frame and reads every finished frame back: frame k is drawn
// at demo time floor(k * 1000 / fps), however long drawing and writing take.
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "demo/capture/CaptureOptions.h"

class FrameSink;
class ProgressReport;

class FrameCapture {
public:
    FrameCapture(const CaptureOptions& options, FrameSink* sink, ProgressReport* progress);
    ~FrameCapture();

    // Installs the clock; offset is where the timeline starts (the script's start position).
    bool begin(uint32_t offsetMs);
    // Called by the demo driver before each frame: whether the frame is drawn in full.
    bool frameStarting();
    // Called by the demo driver between drawing and swapping.
    void frameDrawn();

    int64_t firstWritten() const { return first; }
    int64_t lastWritten() const { return lastDone; }
    int64_t framesWritten() const { return count; }
    bool failed() const { return failure; }

private:
    static unsigned int ticks();
    bool readBack(std::vector<uint8_t>& rgb);

    CaptureOptions options;
    FrameSink* sink;
    ProgressReport* progress;
    int64_t frame = 0;       // index of the frame being drawn
    int64_t first = 0;
    int64_t last = -1;       // inclusive, after clipping to the stop time
    int64_t lastDone = -1;
    int64_t count = 0;
    uint32_t offset = 0;
    bool failure = false;
    bool runStarted = false;
    bool wasShown = true;
    std::FILE* timecodes = nullptr;
};
