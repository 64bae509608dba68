#pragma once
// A 5x7 pixel font compiled into the engine, so on-screen diagnostics need no texture
// of the demo's and still show when the demo's own resources are broken.

class OverlayFont {
public:
    static const int width = 5;
    static const int height = 7;
    // Seven rows of five bits, leftmost pixel in bit 4. Lower case draws as upper case;
    // characters the font lacks draw as '?'.
    static const unsigned char* glyph(char c);
};
