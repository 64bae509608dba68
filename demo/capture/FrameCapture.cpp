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

bool FrameCapture::begin(uint32_t offsetMs) {
    offset = offsetMs;
    // Demo time cannot go back before the start position: the first drawn frame is the
    // first one at or after it. The range itself is already clipped to the demo.
    frame = CaptureOptions::firstFrameAtOrAfter(offset, options.fps);
    first = std::max(frame, options.firstFrame);
    last = options.lastFrame;
    if (progress) progress->setTotal(last >= first ? last - first + 1 : 0);
    runStarted = false;
    active = this;
    QLNDemosys::setTickSource(&FrameCapture::ticks);
    if (!options.timecodes.empty()) timecodes = std::fopen(options.timecodes.c_str(), "w");
    return options.timecodes.empty() || timecodes;
}

bool FrameCapture::frameStarting() {
    // Frames before the range run every effect, so that the range starts from the state a
    // full run leaves, but nothing is rasterised: no effect keeps pixels from one frame to
    // the next (framebuffers are painted afresh each frame), only its own fields.
    const bool shown = frame >= first;
    if (GLEW_VERSION_3_0 && shown != wasShown) {
        if (shown)
            glDisable(GL_RASTERIZER_DISCARD);
        else
            glEnable(GL_RASTERIZER_DISCARD);
    }
    wasShown = shown;
    return shown;
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
