#include "demo/capture/CaptureOptions.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "demosys/QLNTime.h"

uint32_t CaptureOptions::frameTime(int64_t frame, int fps) {
    return static_cast<uint32_t>(frame * 1000 / fps);
}

int64_t CaptureOptions::firstFrameAtOrAfter(uint32_t ms, int fps) {
    // ceil(ms * fps / 1000) is the smallest k with k * 1000 / fps >= ms.
    return (static_cast<int64_t>(ms) * fps + 999) / 1000;
}

static bool readInt(const std::string& text, int64_t& value) {
    if (text.empty()) return false;
    char* end = nullptr;
    long long parsed = std::strtoll(text.c_str(), &end, 10);
    if (*end != '\0' || parsed < 0) return false;
    value = parsed;
    return true;
}

// Times are written as the script writes them: mm:ss:mmm.
static bool readTime(const std::string& text, uint32_t& ms) {
    int colons = 0;
    for (char c : text) {
        if (c == ':') ++colons;
        else if (c < '0' || c > '9') return false;
    }
    if (colons != 2) return false;
    QLNTime time(text);
    if (!time.isValid()) return false;
    ms = time.getTicks();
    return true;
}

bool CaptureOptions::parse(int argc, char** argv, std::string& error) {
    bool haveFrom = false, haveTo = false, haveFrames = false;
    uint32_t fromMs = 0, toMs = 0;
    for (int i = 1; i < argc; ++i) {
        std::string arg = argv[i];
        auto value = [&](std::string& out) {
            if (i + 1 >= argc) {
                error = "option " + arg + " needs a value";
                return false;
            }
            out = argv[++i];
            return true;
        };
        std::string v;
        if (arg == "-h" || arg == "--help") {
            help = true;
        } else if (arg == "--fps") {
            int64_t n;
            if (!value(v)) return false;
            if (!readInt(v, n) || n < 1 || n > 1000) {
                error = "bad frame rate '" + v + "': a whole number from 1 to 1000";
                return false;
            }
            fps = static_cast<int>(n);
        } else if (arg == "--from" || arg == "--to") {
            if (!value(v)) return false;
            uint32_t& ms = arg == "--from" ? fromMs : toMs;
            if (!readTime(v, ms)) {
                error = "bad time '" + v + "' for " + arg + ": write it as mm:ss:mmm, e.g. 01:05:250";
                return false;
            }
            (arg == "--from" ? haveFrom : haveTo) = true;
        } else if (arg == "--chunk") {
            if (!value(v)) return false;
            size_t slash = v.find('/');
            int64_t i = 0, n = 0;
            if (slash == std::string::npos || !readInt(v.substr(0, slash), i) || !readInt(v.substr(slash + 1), n) ||
                n < 1 || n > 100000 || i >= n) {
                error = "bad chunk '" + v + "': write I/N with 0 <= I < N";
                return false;
            }
            chunkIndex = static_cast<int>(i);
            chunkCount = static_cast<int>(n);
        } else if (arg == "--frames") {
            if (!value(v)) return false;
            size_t dash = v.find('-');
            int64_t a = 0, b = -1;
            bool ok = dash != std::string::npos && readInt(v.substr(0, dash), a) &&
                      (dash + 1 == v.size() || readInt(v.substr(dash + 1), b));
            if (!ok || (b >= 0 && b < a)) {
                error = "bad frame range '" + v + "': write FIRST-LAST or FIRST- (LAST included)";
                return false;
            }
            firstFrame = a;
            lastFrame = b;
            haveFrames = true;
        } else if (arg == "--size") {
            if (!value(v)) return false;
            size_t x = v.find('x');
            int64_t w = 0, h = 0;
            if (x == std::string::npos || !readInt(v.substr(0, x), w) || !readInt(v.substr(x + 1), h) || w < 16 ||
                h < 16 || w > 8192 || h > 8192) {
                error = "bad size '" + v + "': write WIDTHxHEIGHT, each from 16 to 8192";
                return false;
            }
            width = static_cast<int>(w);
            height = static_cast<int>(h);
        } else if (arg == "--out") {
            if (!value(outDir)) return false;
            if (outDir.empty()) {
                error = "the output folder name is empty";
                return false;
            }
        } else if (arg == "--raw") {
            format = RAW;
        } else if (arg == "--png-level") {
            int64_t n;
            if (!value(v)) return false;
            if (!readInt(v, n) || n > 9) {
                error = "bad PNG compression level '" + v + "': 0 to 9";
                return false;
            }
            pngLevel = static_cast<int>(n);
        } else if (arg == "--timecodes") {
            if (!value(timecodes)) return false;
        } else if (arg == "--discard") {
            discard = true;
            audio = false;
        } else if (arg == "--no-audio") {
            audio = false;
        } else if (arg == "--count") {
            count = true;
        } else if (arg == "--join") {
            join = true;
        } else if (arg == "--overwrite") {
            overwrite = true;
        } else if (!arg.empty() && arg[0] == '-') {
            error = "unknown option '" + arg + "'";
            return false;
        } else if (script.empty()) {
            script = arg;
        } else {
            error = "more than one demoscript named: '" + script + "' and '" + arg + "'";
            return false;
        }
    }
    if (int(haveFrames) + int(haveFrom || haveTo) + int(chunkCount > 0) > 1) {
        error = "give one of a time range (--from/--to), a frame range (--frames) or a chunk (--chunk)";
        return false;
    }
    wholeDemo = !haveFrames && !haveFrom && !haveTo && chunkCount == 0;
    if (haveFrom) firstFrame = firstFrameAtOrAfter(fromMs, fps);
    if (haveTo) {
        if (haveFrom && toMs <= fromMs) {
            error = "the time range is empty: --to must lie after --from";
            return false;
        }
        // Frames strictly before the end time.
        lastFrame = firstFrameAtOrAfter(toMs, fps) - 1;
        if (lastFrame < firstFrame) {
            error = "the time range holds no frame at " + std::to_string(fps) + " frames per second";
            return false;
        }
    }
    if (lastFrame >= 0 && frameTime(lastFrame, fps) > 0xFFFFFFFFu / 2) {
        error = "the range ends too late";
        return false;
    }
    return true;
}

bool CaptureOptions::resolveRange(uint32_t startMs, uint32_t stopMs, std::string& error) {
    // The demo's frames are those shown before its stop time.
    const int64_t begin = firstFrameAtOrAfter(startMs, fps);
    const int64_t end = firstFrameAtOrAfter(stopMs, fps);
    if (chunkCount > 0) {
        const int64_t frames = std::max<int64_t>(end - begin, 0);
        firstFrame = begin + frames * chunkIndex / chunkCount;
        lastFrame = begin + frames * (chunkIndex + 1) / chunkCount - 1;
    } else {
        if (lastFrame >= 0 && lastFrame < begin) {
            error = "the range ends before the demo's start position";
            return false;
        }
        firstFrame = std::max(firstFrame, begin);
        lastFrame = lastFrame < 0 ? end - 1 : std::min(lastFrame, end - 1);
    }
    if (firstFrame > lastFrame) {
        error = "the range holds no frame before the demo's stop time (" + QLNTime(stopMs).toString() + ")";
        return false;
    }
    return true;
}

std::string CaptureOptions::audioName() const {
    if (wholeDemo) return "audio.wav";
    char name[64];
    std::snprintf(name, sizeof name, "audio_%06lld-%06lld.wav", static_cast<long long>(firstFrame),
                  static_cast<long long>(lastFrame));
    return name;
}

std::string CaptureOptions::usage() {
    return "usage: democapture [demoscript.txt] [options]\n"
           "Plays a demoscript from resources/scripts/ with a driven clock and writes every frame.\n"
           "Frame k shows demo time floor(k * 1000 / fps) ms; nothing is skipped. The capture\n"
           "holds every frame before the script's stop time (a frame at the stop time is not\n"
           "written): at 60 fps a demo that stops at 01:00:000 gives frames 0-3599.\n"
           "  --fps N            frames per second (default 60)\n"
           "  --from mm:ss:mmm   first frame at or after this demo time\n"
           "  --to mm:ss:mmm     last frame before this demo time (default: the script's stop time)\n"
           "  --frames A-B       frame range, both ends included ('A-' runs to the end)\n"
           "  --chunk I/N        the I-th (from 0) of N equal frame ranges of the whole demo\n"
           "  --count            print the number of frames the capture would write and exit\n"
           "  --join             join the range WAVs in the output folder into one audio.wav\n"
           "  --size WxH         output size (default: the script's screen size)\n"
           "  --out DIR          output folder (default ./capture), created if missing\n"
           "  --raw              one raw RGB24 video stream on standard output instead of PNG files\n"
           "  --png-level N      PNG compression 0-9 (default 1)\n"
           "  --discard          draw every frame but write nothing (measures drawing alone)\n"
           "  --no-audio         do not write audio.wav\n"
           "  --timecodes FILE   list every written frame with its demo time in ms\n"
           "  --overwrite        replace files that exist (otherwise the capture refuses to start)\n";
}
