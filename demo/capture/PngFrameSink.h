#pragma once
// Numbered PNG files, compressed and written on a second thread while the next frame draws.
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

#include "demo/capture/FrameSink.h"

class PngFrameSink : public FrameSink {
public:
    PngFrameSink(std::string dir, int width, int height, int level);
    ~PngFrameSink() override;
    bool put(int64_t frame, std::vector<uint8_t>&& rgb) override;
    bool finish() override;
    std::string error() const override;
    static std::string fileName(const std::string& dir, int64_t frame);

private:
    void writerLoop();
    bool writePng(const std::string& path, const std::vector<uint8_t>& rgb);

    std::string dir;
    int width, height, level;
    std::thread writer;
    mutable std::mutex lock;
    std::condition_variable changed;
    std::deque<std::pair<int64_t, std::vector<uint8_t>>> queue;
    bool closing = false;
    std::string failure;
};
