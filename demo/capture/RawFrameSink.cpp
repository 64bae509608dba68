#include "demo/capture/RawFrameSink.h"

#include <cerrno>
#include <cstring>

bool RawFrameSink::put(int64_t, std::vector<uint8_t>&& rgb) {
    if (!failure.empty()) return false;
    if (std::fwrite(rgb.data(), 1, rgb.size(), out) != rgb.size()) {
        failure = std::string("cannot write the video stream: ") + std::strerror(errno);
        return false;
    }
    return true;
}

bool RawFrameSink::finish() {
    if (std::fflush(out) != 0 && failure.empty())
        failure = std::string("cannot write the video stream: ") + std::strerror(errno);
    return failure.empty();
}
