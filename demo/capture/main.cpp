// democapture: plays a demoscript through the same driver, loader, timeline and effects
// as the demo program, with a driven clock, and writes every frame plus the music of
// the same range. See CaptureOptions::usage() for the command line.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "demo/DemoEffects.h"
#include "demo/capture/AudioSegment.h"
#include "demo/capture/CaptureOptions.h"
#include "demo/capture/FrameCapture.h"
#include "demo/capture/PngFrameSink.h"
#include "demo/capture/ProgressReport.h"
#include "demo/capture/RawFrameSink.h"
#include "demo/capture/ScriptSettings.h"
#include "demosys/Demo.h"
#include "demosys/QLNDemosys.h"
#include "demosys/ScreenMetrics.h"
#include "demosys/Sound.h"
#include "demosys/Timeline.h"

namespace fs = std::filesystem;

static int usageError(const std::string& message) {
    std::cerr << "democapture: " << message << "\n(democapture --help lists the options)" << std::endl;
    return 2;
}

// Without a display, run again under a private X server of at least the output size.
static void runUnderXvfbIfNeeded(int argc, char** argv, const CaptureOptions& options) {
    const char* display = std::getenv("DISPLAY");
    if ((display && *display) || std::getenv("QLN_CAPTURE_UNDER_XVFB")) return;
    setenv("QLN_CAPTURE_UNDER_XVFB", "1", 1);
    std::string screen = "-screen 0 " + std::to_string(std::max(options.width, 1280)) + "x" +
                         std::to_string(std::max(options.height, 720)) + "x24 -noreset";
    // xvfb-run -a takes the first free display from its start number; chunks started together
    // would all pick the same one, so each process starts its search somewhere else.
    std::string serverNumber = std::to_string(100 + getpid() % 20000);
    std::vector<char*> args = {const_cast<char*>("xvfb-run"), const_cast<char*>("-a"), const_cast<char*>("-n"),
                               serverNumber.data(), const_cast<char*>("-s"), screen.data()};
    for (int i = 0; i < argc; ++i) args.push_back(argv[i]);
    args.push_back(nullptr);
    std::cerr << "democapture: no display, starting a private X server (xvfb-run)" << std::endl;
    execvp("xvfb-run", args.data());
    std::cerr << "democapture: no display and xvfb-run cannot be started: " << std::strerror(errno) << std::endl;
    std::exit(2);
}

// The output folder must exist (it is created) and take files; nothing in it is replaced
// unless the user asks for it.
static bool prepareOutput(const CaptureOptions& options, std::string& error) {
    if (!options.timecodes.empty() && !options.overwrite && fs::exists(options.timecodes)) {
        error = "'" + options.timecodes + "' would be overwritten; remove it or pass --overwrite";
        return false;
    }
    // Raw video without sound, or nothing written at all, needs no folder.
    if ((options.format == CaptureOptions::RAW || options.discard) && !options.audio) return true;
    std::error_code code;
    fs::create_directories(options.outDir, code);
    if (!fs::is_directory(options.outDir)) {
        error = "cannot create the output folder '" + options.outDir + "'" + (code ? ": " + code.message() : "");
        return false;
    }
    // One probe name per process: chunks run side by side write into the same folder.
    std::string probe = options.outDir + "/.democapture-probe-" + std::to_string(getpid());
    int fd = open(probe.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0644);
    if (fd < 0) {
        error = "cannot write into the output folder '" + options.outDir + "': " + std::strerror(errno);
        return false;
    }
    close(fd);
    unlink(probe.c_str());
    if (options.overwrite) return true;

    std::vector<std::string> existing;
    if (options.audio && fs::exists(options.outDir + "/" + options.audioName()))
        existing.push_back(options.audioName());
    if (options.format == CaptureOptions::PNG) {
        for (const auto& entry : fs::directory_iterator(options.outDir, code)) {
            std::string name = entry.path().filename().string();
            long long index = -1;
            char tail[8] = {0};
            if (std::sscanf(name.c_str(), "frame_%lld.%4s", &index, tail) == 2 && std::string(tail) == "png" &&
                index >= options.firstFrame && index <= options.lastFrame)
                existing.push_back(name);
        }
    }
    if (!existing.empty()) {
        error = "'" + options.outDir + "/" + existing.front() + "'" +
                (existing.size() > 1 ? " and " + std::to_string(existing.size() - 1) + " more files" : "") +
                " would be overwritten; remove them or pass --overwrite";
        return false;
    }
    return true;
}

// Joins the range WAVs of the output folder into audio.wav.
static int joinAudio(const CaptureOptions& options) {
    std::string path = options.outDir + "/audio.wav", error;
    if (!options.overwrite && fs::exists(path))
        return usageError("'" + path + "' would be overwritten; remove it or pass --overwrite");
    if (!AudioSegment::join(options.outDir, path, error)) {
        std::cerr << "democapture: " << error << std::endl;
        return 1;
    }
    std::cerr << "democapture: music joined into " << path << std::endl;
    return 0;
}

int main(int argc, char** argv) {
    CaptureOptions options;
    std::string error;
    if (!options.parse(argc, argv, error)) return usageError(error);
    if (options.help) {
        std::cout << CaptureOptions::usage();
        return 0;
    }
    if (options.join) return joinAudio(options);

    // The script decides the size (unless asked otherwise) and which frames the demo has.
    // Its log waits until standard output is known (it may carry the video).
    std::ostringstream startLog;
    std::streambuf* console = std::cout.rdbuf(startLog.rdbuf());
    std::string scriptName = options.script;
    std::vector<char*> demoArgs = {argv[0], scriptName.data(), nullptr};
    Demo demo(scriptName.empty() ? 1 : 2, demoArgs.data());
    registerDemoEffects(demo);
    ScriptSettings script;
    bool readable = script.read(options.script, error);
    std::cout.rdbuf(console);
    if (!readable) {
        std::cerr << "democapture: the demoscript cannot be read:\n" << error << std::endl;
        return 1;
    }
    if (options.width == 0) {
        options.width = script.width >= 16 ? script.width : 640;
        options.height = script.height >= 16 ? script.height : 480;
    }
    if (!options.resolveRange(script.startMs, script.stopMs, error)) return usageError(error);
    if (options.count) {
        std::cout << options.lastFrame - options.firstFrame + 1 << std::endl;
        return 0;
    }
    if (!prepareOutput(options, error)) return usageError(error);
    runUnderXvfbIfNeeded(argc, argv, options);
    // The music is written to a file, not heard: no sound device is needed.
    setenv("SDL_AUDIODRIVER", "dummy", 0);
    setenv("SDL_VIDEODRIVER", "x11", 0);

    // Raw video owns standard output; the engine's log moves to standard error.
    std::FILE* video = nullptr;
    if (options.format == CaptureOptions::RAW) {
        std::cout.flush();
        int videoFd = dup(STDOUT_FILENO);
        dup2(STDERR_FILENO, STDOUT_FILENO);
        video = fdopen(videoFd, "wb");
    }
    std::cout << startLog.str();

    ScreenMetrics metrics;
    metrics.setFullscreen(false);
    metrics.setFullscreenOverride(true);
    metrics.setResolution(options.width, options.height);

    demo.load(&metrics);
    demo.init();

    int status = 0;
    std::unique_ptr<FrameSink> sink;
    if (options.format == CaptureOptions::RAW)
        sink.reset(new RawFrameSink(video));
    else
        sink.reset(new PngFrameSink(options.outDir, options.width, options.height, options.pngLevel));
    ProgressReport progress(-1);
    FrameCapture capture(options, sink.get(), &progress);

    if (!demo.isValid()) {
        status = 1;
    } else {
        if (!capture.begin(QLNDemosys::timeline ? QLNDemosys::timeline->getOffset() : 0)) {
            std::cerr << "democapture: cannot write the time codes to '" << options.timecodes << "'" << std::endl;
            status = 2;
        } else {
            std::cerr << "democapture: " << options.width << "x" << options.height << " at " << options.fps
                      << " fps, frames " << capture.firstWritten() << "-" << options.lastFrame << std::endl;
            demo.setFrameFilter([&capture] { return capture.frameStarting(); });
            demo.setFrameObserver([&capture] { capture.frameDrawn(); });
            demo.run();
            bool written = sink->finish();
            progress.finish();
            if (capture.failed() || !written) {
                std::cerr << "democapture: " << (sink->error().empty() ? "reading a frame back failed" : sink->error())
                          << std::endl;
                status = 1;
            }
            if (status == 0 && options.audio && QLNDemosys::sound && capture.framesWritten() > 0) {
                std::string path = options.outDir + "/" + options.audioName();
                if (!AudioSegment::write(*QLNDemosys::sound, path, capture.firstWritten(), capture.lastWritten() + 1,
                                         options.fps, error)) {
                    std::cerr << "democapture: " << error << std::endl;
                    status = 1;
                } else {
                    std::cerr << "democapture: music of the range written to " << path << std::endl;
                }
            }
            std::cerr << "democapture: " << capture.framesWritten() << " frames written" << std::endl;
        }
    }
    sink.reset();
    demo.dispose();
    if (video) std::fclose(video);
    return status;
}
