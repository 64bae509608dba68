#include "tools/Mask.h"

#include <algorithm>

#include "tools/BitmapFont.h"

namespace qlntools {

Mask::Mask(int width, int height)
    : w(std::max(0, width)), h(std::max(0, height)), v(size_t(w) * size_t(h), 0.0f) {}

float Mask::at(int x, int y) const {
    return (x < 0 || y < 0 || x >= w || y >= h) ? 0.0f : v[size_t(y) * w + x];
}

void Mask::set(int x, int y, float value) {
    if (x >= 0 && y >= 0 && x < w && y < h) v[size_t(y) * w + x] = value;
}

int Mask::textWidth(const std::string& text, int scale) {
    return text.empty() ? 0 : (int(text.size()) * BitmapFont::size - 1) * scale;
}

void Mask::drawText(const std::string& text, int left, int top, int scale) {
    for (size_t i = 0; i < text.size(); ++i) {
        int glyphLeft = left + int(i) * BitmapFont::size * scale;
        for (int gy = 0; gy < BitmapFont::size; ++gy)
            for (int gx = 0; gx < BitmapFont::size; ++gx) {
                if (!BitmapFont::pixel(text[i], gx, gy)) continue;
                for (int y = 0; y < scale; ++y)
                    for (int x = 0; x < scale; ++x) set(glyphLeft + gx * scale + x, top + gy * scale + y, 1.0f);
            }
    }
}

Mask Mask::boxBlurred(int radius, bool horizontal) const {
    Mask out(w, h);
    const float norm = 1.0f / float(2 * radius + 1);
    const int lines = horizontal ? h : w, length = horizontal ? w : h;
    for (int line = 0; line < lines; ++line) {
        auto sample = [&](int i) { return horizontal ? at(i, line) : at(line, i); };
        // A running sum over the window; samples outside the mask count as empty.
        double sum = 0;
        for (int k = -radius; k <= radius; ++k) sum += sample(k);
        for (int i = 0; i < length; ++i) {
            float value = float(sum) * norm;
            if (horizontal) out.v[size_t(line) * w + i] = value;
            else out.v[size_t(i) * w + line] = value;
            sum += sample(i + radius + 1) - sample(i - radius);
        }
    }
    return out;
}

Mask Mask::blurred(int radius) const {
    if (radius <= 0) return *this;
    Mask m = *this;
    for (int pass = 0; pass < 3; ++pass) m = m.boxBlurred(radius, true).boxBlurred(radius, false);
    return m;
}

Mask Mask::dilated(int radius) const {
    Mask out(w, h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            float best = 0;
            for (int dy = -radius; dy <= radius; ++dy)
                for (int dx = -radius; dx <= radius; ++dx)
                    if (dx * dx + dy * dy <= radius * radius) best = std::max(best, at(x + dx, y + dy));
            out.v[size_t(y) * w + x] = best;
        }
    return out;
}

Mask Mask::thresholded(float edge, float softness) const {
    Mask out(w, h);
    for (size_t i = 0; i < v.size(); ++i) {
        float t = softness > 0 ? (v[i] - (edge - softness)) / (2 * softness) : (v[i] >= edge ? 1.0f : 0.0f);
        t = std::min(1.0f, std::max(0.0f, t));
        out.v[i] = t * t * (3 - 2 * t);
    }
    return out;
}

Mask Mask::shifted(int dx, int dy) const {
    Mask out(w, h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) out.v[size_t(y) * w + x] = at(x - dx, y - dy);
    return out;
}

}  // namespace qlntools
