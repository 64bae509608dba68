#include "demo/capture/PngFrameSink.h"

#include <png.h>

#include <cerrno>
#include <cstring>

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
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file) return false;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    if (!png || !info || setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        std::fclose(file);
        return false;
    }
    png_init_io(png, file);
    png_set_compression_level(png, level);
    // Sub filtering alone: most of the gain of adaptive filtering at a fraction of the cost.
    png_set_filter(png, PNG_FILTER_TYPE_BASE, level <= 1 ? PNG_FILTER_SUB : PNG_ALL_FILTERS);
    png_set_IHDR(png, info, width, height, 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    for (int y = 0; y < height; ++y)
        png_write_row(png, const_cast<png_bytep>(rgb.data() + static_cast<size_t>(y) * width * 3));
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    bool ok = std::fflush(file) == 0;
    return std::fclose(file) == 0 && ok;
}
