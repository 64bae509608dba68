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
    int width = 640;
    int height = 480;
    std::string outDir = "capture";
    Format format = PNG;
    bool audio = true;
    bool discard = false;        // draw every frame but read none back (to measure drawing alone)
    bool overwrite = false;
    std::string timecodes;       // file listing each written frame with its demo time, "" = none
    int pngLevel = 1;            // zlib level: fast by default, the frames are intermediates
    bool help = false;

    // Demo time of frame k in milliseconds: floor(k * 1000 / fps).
    static uint32_t frameTime(int64_t frame, int fps);
    // The first frame whose time is at or after ms.
    static int64_t firstFrameAtOrAfter(uint32_t ms, int fps);

    // Reads argv; on a bad argument returns false with a message for the user.
    bool parse(int argc, char** argv, std::string& error);
    static std::string usage();
};
