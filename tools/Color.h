#pragma once
// A linear RGBA colour with float channels in 0..1, the working unit of the picture tools.
#include <algorithm>

namespace qlntools {

struct Color {
    float r = 0, g = 0, b = 0, a = 1;

    Color() = default;
    Color(float red, float green, float blue, float alpha = 1.0f) : r(red), g(green), b(blue), a(alpha) {}

    static Color gray(float v, float alpha = 1.0f) { return Color(v, v, v, alpha); }

    Color operator*(float s) const { return Color(r * s, g * s, b * s, a); }
    Color operator+(const Color& o) const { return Color(r + o.r, g + o.g, b + o.b, a); }

    // Linear mix of all four channels: t = 0 gives this, t = 1 gives other.
    Color mix(const Color& other, float t) const {
        return Color(r + (other.r - r) * t, g + (other.g - g) * t, b + (other.b - b) * t, a + (other.a - a) * t);
    }

    Color withAlpha(float alpha) const { return Color(r, g, b, alpha); }

    Color clamped() const {
        auto c = [](float v) { return std::min(1.0f, std::max(0.0f, v)); };
        return Color(c(r), c(g), c(b), c(a));
    }
};

}  // namespace qlntools
