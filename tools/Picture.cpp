#include "tools/Picture.h"

#include <cmath>

namespace qlntools {

Picture::Picture(int width, int height, Color fill)
    : w(width > 0 ? width : 0), h(height > 0 ? height : 0), pixels(size_t(w) * size_t(h), fill) {}

Color Picture::get(int x, int y) const {
    return contains(x, y) ? pixels[size_t(y) * w + x] : Color(0, 0, 0, 0);
}

Color Picture::getWrapped(int x, int y) const {
    if (w == 0 || h == 0) return Color(0, 0, 0, 0);
    x %= w;
    y %= h;
    if (x < 0) x += w;
    if (y < 0) y += h;
    return pixels[size_t(y) * w + x];
}

void Picture::set(int x, int y, const Color& c) {
    if (contains(x, y)) pixels[size_t(y) * w + x] = c;
}

void Picture::blend(int x, int y, const Color& c) {
    if (!contains(x, y)) return;
    Color& d = pixels[size_t(y) * w + x];
    float sa = std::min(1.0f, std::max(0.0f, c.a));
    float outA = sa + d.a * (1.0f - sa);
    if (outA <= 0.0f) {
        d = Color(0, 0, 0, 0);
        return;
    }
    auto channel = [&](float s, float dst) { return (s * sa + dst * d.a * (1.0f - sa)) / outA; };
    d = Color(channel(c.r, d.r), channel(c.g, d.g), channel(c.b, d.b), outA);
}

void Picture::add(int x, int y, const Color& c) {
    if (!contains(x, y)) return;
    Color& d = pixels[size_t(y) * w + x];
    d.r += c.r * c.a;
    d.g += c.g * c.a;
    d.b += c.b * c.a;
}

void Picture::draw(const Picture& other, int left, int top) {
    for (int y = 0; y < other.height(); ++y)
        for (int x = 0; x < other.width(); ++x) blend(left + x, top + y, other.get(x, y));
}

std::vector<uint8_t> Picture::toBytes(int channels) const {
    std::vector<uint8_t> bytes;
    bytes.reserve(pixels.size() * size_t(channels));
    auto quantize = [](float v) {
        float c = std::min(1.0f, std::max(0.0f, v));
        return uint8_t(std::lround(c * 255.0f));
    };
    for (const Color& c : pixels) {
        bytes.push_back(quantize(c.r));
        bytes.push_back(quantize(c.g));
        bytes.push_back(quantize(c.b));
        if (channels == 4) bytes.push_back(quantize(c.a));
    }
    return bytes;
}

}  // namespace qlntools
