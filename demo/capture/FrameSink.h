#pragma once
// Where captured frames go: numbered PNG files written on a second thread, or one raw
// RGB24 stream. Frames arrive top row first.
#include <cstdint>
#include <string>
#include <vector>

class FrameSink {
public:
    virtual ~FrameSink() = default;
    // Takes the pixels (width * height * 3 bytes); false once writing has failed.
    virtual bool put(int64_t frame, std::vector<uint8_t>&& rgb) = 0;
    // Waits for everything to be written; false if anything failed.
    virtual bool finish() = 0;
    virtual std::string error() const = 0;
};
