#pragma once
// A coverage grid (0 = empty, 1 = covered) for shaping letters: set text, round it,
// grow outlines and soften glows before the painters colour it.
#include <string>
#include <vector>

namespace qlntools {

class Mask {
public:
    Mask(int width, int height);

    int width() const { return w; }
    int height() const { return h; }
    float at(int x, int y) const;
    void set(int x, int y, float v);

    // Sets text in the bitmap font, each font pixel a scale × scale block, top-left at (left, top).
    void drawText(const std::string& text, int left, int top, int scale);
    // Width in pixels of text set at the given scale (without the last glyph's spacing column).
    static int textWidth(const std::string& text, int scale);

    // Three box blurs of the given radius: close to a Gaussian, and exact in integers of passes.
    Mask blurred(int radius) const;
    // Maximum over a disc of the given radius.
    Mask dilated(int radius) const;
    // Smooth step from edge - softness to edge + softness: turns a blurred mask into soft-edged shapes.
    Mask thresholded(float edge, float softness) const;
    Mask shifted(int dx, int dy) const;

private:
    Mask boxBlurred(int radius, bool horizontal) const;
    int w, h;
    std::vector<float> v;
};

}  // namespace qlntools
