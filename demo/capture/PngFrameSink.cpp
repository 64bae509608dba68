#include "demo/capture/PngFrameSink.h"

#include <cerrno>
#include <cstring>

#include "qlnutils/PngWriter.h"

namespace {
// Frames waiting for the writer: enough to hide a slow disk, bounded so memory stays small.
const size_t maxQueued = 8;
}

PngFrameSink::PngFrameSink(std::string dir, int width, int height, int level)
    : dir(std::move(dir)), width(width), height(height), level(level) {
    writer = std::thread(&PngFrameSink::writerLoop, this);
}

PngFrameSink::~PngFrameSink() { finish(); }

std::string PngFrameSink::fileName(const std::string& dir, int64_t frame) {
    char name[64];
    std::snprintf(name, sizeof name, "/frame_%06lld.png", static_cast<long long>(frame));
    return dir + name;
}

bool PngFrameSink::put(int64_t frame, std::vector<uint8_t>&& rgb) {
    std::unique_lock<std::mutex> guard(lock);
    changed.wait(guard, [&] { return queue.size() < maxQueued || !failure.empty(); });
    if (!failure.empty()) return false;
    queue.emplace_back(frame, std::move(rgb));
    changed.notify_all();
    return true;
}

bool PngFrameSink::finish() {
    {
        std::lock_guard<std::mutex> guard(lock);
        closing = true;
        changed.notify_all();
    }
    if (writer.joinable()) writer.join();
    std::lock_guard<std::mutex> guard(lock);
    return failure.empty();
}

std::string PngFrameSink::error() const {
    std::lock_guard<std::mutex> guard(lock);
    return failure;
}

void PngFrameSink::writerLoop() {
    for (;;) {
        std::pair<int64_t, std::vector<uint8_t>> item;
        {
            std::unique_lock<std::mutex> guard(lock);
            changed.wait(guard, [&] { return !queue.empty() || closing; });
            if (queue.empty()) return;
            item = std::move(queue.front());
            queue.pop_front();
            changed.notify_all();
        }
        std::string path = fileName(dir, item.first);
        if (!writePng(path, item.second)) {
            std::lock_guard<std::mutex> guard(lock);
            if (failure.empty()) failure = "cannot write " + path + ": " + std::strerror(errno);
            queue.clear();
            changed.notify_all();
            return;
        }
    }
}

bool PngFrameSink::writePng(const std::string& path, const std::vector<uint8_t>& rgb) {
    return PngWriter::write(path, rgb.data(), width, height, 3, level);
}
