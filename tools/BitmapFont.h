#pragma once
// The demo's own 8×8 bitmap font: bold capitals, digits and some punctuation.
// Lower-case letters share the capital shapes. Every glyph keeps its right column
// and bottom row empty, so glyphs set side by side are spaced by one pixel.
#include <string>

namespace qlntools {

class BitmapFont {
public:
    static constexpr int size = 8;

    // Whether the font has a shape for c (the blank counts as one).
    static bool has(char c);
    // Whether the pixel (x, y) of the glyph for c is set; x to the right, y downwards.
    static bool pixel(char c, int x, int y);

private:
    static const char* const* rows(char c);
};

}  // namespace qlntools
