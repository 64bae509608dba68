#pragma once
// One raw RGB24 video stream, frame after frame (for ffmpeg -f rawvideo).
#include <cstdio>

#include "demo/capture/FrameSink.h"

class RawFrameSink : public FrameSink {
public:
    explicit RawFrameSink(std::FILE* out) : out(out) {}
    bool put(int64_t frame, std::vector<uint8_t>&& rgb) override;
    bool finish() override;
    std::string error() const override { return failure; }

private:
    std::FILE* out;
    std::string failure;
};
