#include "tools/PatternPainter.h"

#include <cmath>

#include "tools/BitmapFont.h"
#include "tools/Noise.h"

namespace qlntools {

namespace {

const double pi = 3.14159265358979323846;
const int size = 256;

// Cosine palette: smooth cyclic colour ramps from four coefficient triples.
Color palette(double t, const double a[3], const double b[3], const double c[3], const double d[3]) {
    auto ch = [&](int i) { return float(a[i] + b[i] * std::cos(2 * pi * (c[i] * t + d[i]))); };
    return Color(ch(0), ch(1), ch(2)).clamped();
}

}  // namespace

Picture PatternPainter::tunnelOuter() {
    Picture picture(size, size);
    Noise grain(7, 16);
    const int plate = 32;
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x) {
            int px = x % plate, py = y % plate;
            double n = grain.fractal(x / double(size), y / double(size), 4);
            Color metal = Color(0.22f, 0.20f, 0.38f).mix(Color(0.42f, 0.40f, 0.62f), float(n));
            // Bevel: lit from the top left.
            if (px < 2 || py < 2) metal = metal.mix(Color(0.8f, 0.8f, 1.0f), 0.35f);
            if (px > plate - 4 || py > plate - 4) metal = metal * 0.55f;
            // Rivets near the corners of every plate.
            for (int cy : {6, plate - 7})
                for (int cx : {6, plate - 7}) {
                    double d = std::hypot(px - cx, py - cy);
                    if (d < 2.6) metal = Color(0.75f, 0.75f, 0.85f).mix(Color(0.3f, 0.3f, 0.4f), float(d / 2.6));
                }
            // Seams between plates glow cyan, brighter along the tunnel than across it.
            int sx = std::min(px, plate - px), sy = std::min(py, plate - py);
            double seam = std::exp(-sx * 0.9) * 0.9 + std::exp(-sy * 0.9) * 0.5;
            Color lit = metal + Color(0.1f, 0.8f, 1.0f) * float(seam * 0.8);
            picture.set(x, y, lit.clamped());
        }
    return picture;
}

Picture PatternPainter::tunnelInner() {
    Picture picture(size, size);
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x) {
            double u = x / double(size), v = y / double(size);
            // Two families of diagonal lines make a diamond lattice; whole periods keep it seamless.
            double a = std::fabs(std::sin(pi * 4 * (u + v)));
            double b = std::fabs(std::sin(pi * 4 * (u - v)));
            double line = std::pow(1.0 - std::min(a, b), 12.0);
            double pulse = 0.5 + 0.5 * std::sin(2 * pi * 2 * v);
            Color c = Color(1.0f, 0.55f, 0.1f).mix(Color(1.0f, 0.95f, 0.6f), float(line));
            float alpha = float(std::min(1.0, line * (0.7 + 0.3 * pulse)));
            picture.set(x, y, c.withAlpha(alpha));
        }
    return picture;
}

Picture PatternPainter::plasma() {
    Picture picture(size, size);
    const double a[3] = {0.5, 0.5, 0.5}, b[3] = {0.5, 0.5, 0.5}, c[3] = {1.0, 1.0, 1.0}, d[3] = {0.0, 0.33, 0.67};
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x) {
            double u = 2 * pi * x / size, v = 2 * pi * y / size;
            double f = std::sin(2 * u) + std::sin(3 * v) + std::sin(u + 2 * v) + std::sin(3 * u - v) +
                       std::sin(2 * std::sin(u) + 2 * std::cos(v));
            picture.set(x, y, palette(f / 5.0 + 0.5, a, b, c, d));
        }
    return picture;
}

Picture PatternPainter::cubes() {
    Picture picture(size, size);
    const double a[3] = {0.6, 0.5, 0.5}, b[3] = {0.4, 0.5, 0.5}, c[3] = {1.0, 1.0, 1.0}, d[3] = {0.0, 0.1, 0.2};
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x) {
            Color stripe = palette((x + y) / double(size), a, b, c, d);
            bool checker = ((x / 32) + (y / 32)) % 2 == 0;
            picture.set(x, y, checker ? stripe : stripe * 0.7f);
        }
    // A big heart from the font, one font pixel per 24 image pixels, with a dark rim.
    const int scale = 24, left = (size - 7 * scale) / 2, top = (size - 7 * scale) / 2 + 4;
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x) {
            int gx = (x - left) / scale, gy = (y - top) / scale;
            if (x < left || y < top || !BitmapFont::pixel('*', gx, gy)) continue;
            int sx = (x - left) % scale, sy = (y - top) % scale;
            bool rim = (sx < 2 && !BitmapFont::pixel('*', gx - 1, gy)) ||
                       (sx >= scale - 2 && !BitmapFont::pixel('*', gx + 1, gy)) ||
                       (sy < 2 && !BitmapFont::pixel('*', gx, gy - 1)) ||
                       (sy >= scale - 2 && !BitmapFont::pixel('*', gx, gy + 1));
            float shade = 1.0f - 0.35f * float(y - top) / float(7 * scale);
            picture.set(x, y, rim ? Color(0.1f, 0.0f, 0.1f) : Color(1.0f, 0.15f, 0.35f) * shade);
        }
    return picture;
}

}  // namespace qlntools
