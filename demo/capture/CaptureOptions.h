#pragma once
// Command line of the frame-exact capture program.
#include <cstdint>
#include <string>

struct CaptureOptions {
    enum Format { PNG, RAW };

    std::string script;          // demoscript name inside resources/scripts/, "" = the default
    int fps = 60;
    int64_t firstFrame = 0;      // inclusive
    int64_t lastFrame = -1;      // inclusive; -1 = until the demo stops
    int width = 0;               // 0 = the script's screen size
    int height = 0;
    int chunkIndex = 0;          // --chunk I/N: the I-th of N equal parts of the demo
    int chunkCount = 0;          // 0 = no chunk
    std::string outDir = "capture";
    Format format = PNG;
    bool audio = true;
    bool discard = false;        // draw every frame but read none back (to measure drawing alone)
    bool overwrite = false;
    std::string timecodes;       // file listing each written frame with its demo time, "" = none
    int pngLevel = 1;            // zlib level: fast by default, the frames are intermediates
    bool help = false;
    bool count = false;          // print the number of frames the capture would write, then exit
    bool join = false;           // join the range WAVs in the output folder into audio.wav
    bool wholeDemo = true;       // no range asked for: the music is audio.wav

    // Frame ranges of a demo that starts at startMs and stops at stopMs: [begin, end).

    // Demo time of frame k in milliseconds: floor(k * 1000 / fps).
    static uint32_t frameTime(int64_t frame, int fps);
    // The first frame whose time is at or after ms.
    static int64_t firstFrameAtOrAfter(uint32_t ms, int fps);

    // Turns the chunk or the asked range into concrete frames within the demo's
    // [start, stop); false with a message when nothing is left.
    bool resolveRange(uint32_t startMs, uint32_t stopMs, std::string& error);
    std::string audioName() const;

    // Reads argv; on a bad argument returns false with a message for the user.
    bool parse(int argc, char** argv, std::string& error);
    static std::string usage();
};
