#pragma once
// Whole pictures read back and compared. The software rasteriser may round a colour
// differently from one frame to the next, so "the same picture" allows a step of 2.
#include <GL/glew.h>

#include <cstdint>
#include <cstdlib>
#include <vector>

namespace framebytes {

// RGB bytes of the bound framebuffer, bottom row first.
inline std::vector<uint8_t> read(int width, int height) {
    std::vector<uint8_t> bytes(size_t(width) * height * 3);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, bytes.data());
    return bytes;
}

// Number of colour bytes that differ by more than the tolerance.
inline size_t differing(const std::vector<uint8_t>& a, const std::vector<uint8_t>& b, int tolerance = 2) {
    if (a.size() != b.size()) return a.size() > b.size() ? a.size() : b.size();
    size_t count = 0;
    for (size_t i = 0; i < a.size(); ++i) count += std::abs(int(a[i]) - int(b[i])) > tolerance;
    return count;
}

inline bool same(const std::vector<uint8_t>& a, const std::vector<uint8_t>& b) { return differing(a, b) == 0; }

}  // namespace framebytes
