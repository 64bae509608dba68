#pragma once
// An RGBA picture in float channels, rows stored top row first (as written to PNG).
#include <cstdint>
#include <vector>

#include "tools/Color.h"

namespace qlntools {

class Picture {
public:
    Picture(int width, int height, Color fill = Color(0, 0, 0, 0));

    int width() const { return w; }
    int height() const { return h; }
    bool contains(int x, int y) const { return x >= 0 && y >= 0 && x < w && y < h; }

    Color get(int x, int y) const;
    // Coordinates wrap around, for seamless tiling filters.
    Color getWrapped(int x, int y) const;
    void set(int x, int y, const Color& c);
    // Source-over compositing of c onto the pixel; pixels outside are ignored.
    void blend(int x, int y, const Color& c);
    // Adds c × its alpha to the pixel's colour (a glow), leaving the alpha as it is.
    void add(int x, int y, const Color& c);
    // Composites another picture at (left, top) with source-over.
    void draw(const Picture& other, int left, int top);

    // 8-bit channels, rounded and clamped; channels is 3 (RGB) or 4 (RGBA).
    std::vector<uint8_t> toBytes(int channels) const;

private:
    int w, h;
    std::vector<Color> pixels;
};

}  // namespace qlntools
