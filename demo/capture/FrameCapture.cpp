#include "demo/capture/FrameCapture.h"

#include <GL/glew.h>

#include <cstring>
#include <vector>

#include "demo/capture/FrameSink.h"
#include "demo/capture/ProgressReport.h"
#include "demosys/QLNDemosys.h"

namespace {
FrameCapture* active = nullptr;
}

FrameCapture::FrameCapture(const CaptureOptions& options, FrameSink* sink, ProgressReport* progress)
    : options(options), sink(sink), progress(progress) {}

FrameCapture::~FrameCapture() {
    if (timecodes) std::fclose(timecodes);
    if (active == this) {
        QLNDemosys::setTickSource(nullptr);
        active = nullptr;
    }
}

bool FrameCapture::begin(uint32_t offsetMs, uint32_t stopMs) {
    offset = offsetMs;
    stop = stopMs;
    // Demo time cannot go back before the start position: the first drawn frame is the
    // first one at or after it. Frames before the range are drawn but not read back, so
    // every frame is the same whether a capture starts at 0 or in the middle.
    frame = CaptureOptions::firstFrameAtOrAfter(offset, options.fps);
    first = std::max(frame, options.firstFrame);
    int64_t lastBeforeStop = CaptureOptions::firstFrameAtOrAfter(stop, options.fps);
    if (CaptureOptions::frameTime(lastBeforeStop, options.fps) > stop) --lastBeforeStop;
    last = options.lastFrame < 0 ? lastBeforeStop : std::min(options.lastFrame, lastBeforeStop);
    if (progress) progress->setTotal(last >= first ? last - first + 1 : 0);
    runStarted = false;
    active = this;
    QLNDemosys::setTickSource(&FrameCapture::ticks);
    if (!options.timecodes.empty()) timecodes = std::fopen(options.timecodes.c_str(), "w");
    return options.timecodes.empty() || timecodes;
}

unsigned int FrameCapture::ticks() {
    FrameCapture* self = active;
    // The driver reads the clock once to set the start of demo time, then once per frame.
    if (!self->runStarted) {
        self->runStarted = true;
        return 0;
    }
    return CaptureOptions::frameTime(self->frame, self->options.fps) - self->offset;
}

bool FrameCapture::readBack(std::vector<uint8_t>& rgb) {
    const int w = options.width, h = options.height;
    const size_t row = static_cast<size_t>(w) * 3;
    std::vector<uint8_t> bottomUp(row * h);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadBuffer(GL_BACK);
    glReadPixels(0, 0, w, h, GL_RGB, GL_UNSIGNED_BYTE, bottomUp.data());
    if (glGetError() != GL_NO_ERROR) return false;
    rgb.resize(row * h);
    for (int y = 0; y < h; ++y) std::memcpy(&rgb[row * y], &bottomUp[row * (h - 1 - y)], row);
    return true;
}

void FrameCapture::frameDrawn() {
    if (frame >= first && frame <= last && !failure) {
        std::vector<uint8_t> rgb;
        if (!options.discard && !(readBack(rgb) && sink->put(frame, std::move(rgb)))) {
            failure = true;
        } else {
            lastDone = frame;
            if (timecodes)
                std::fprintf(timecodes, "%lld %u\n", static_cast<long long>(frame), QLNDemosys::getMillisecondsElapsed());
            ++count;
            if (progress) progress->frameDone();
        }
    }
    if (frame >= last || failure) QLNDemosys::setQuit(true);
    ++frame;
}
