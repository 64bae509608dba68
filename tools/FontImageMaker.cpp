#include "tools/FontImageMaker.h"

#include "tools/BitmapFont.h"
#include "tools/Mask.h"

namespace qlntools {

namespace {

// Cells the writer never looks up still get sensible characters, for other users of the image.
const char layout[FontImageMaker::columns * FontImageMaker::rows + 1] =
    "abcdefghijklmnopqrstuvwxyz"  // 0-25
    ",? :()01"                    // 26-33 (28 is the blank)
    "23456789"                    // 34-41
    "0.!-\"=/#"                   // 42-49
    "\0\0+'*"                     // 50-54
    "\0\0\0\0\0\0\0\0\0\0\0\0\0";  // 55-67

const int scale = 4;  // font pixels are 4 × 4 image pixels
const int inset = 1;  // glyph offset inside its cell, leaving room for the outline

Color fillColor(int y) {
    // A warm gradient from pale yellow through orange to pink, top to bottom of the glyph.
    const Color top(1.0f, 1.0f, 0.85f), middle(1.0f, 0.72f, 0.18f), bottom(0.95f, 0.22f, 0.48f);
    float t = float(y) / float(7 * scale - 1);
    return t < 0.5f ? top.mix(middle, t * 2) : middle.mix(bottom, (t - 0.5f) * 2);
}

void paintCell(Picture& picture, int cell, char c) {
    const int left = (cell % FontImageMaker::columns) * FontImageMaker::cellSize;
    const int top = (cell / FontImageMaker::columns) * FontImageMaker::cellSize;
    const int size = FontImageMaker::cellSize;
    Mask glyph(size, size);
    glyph.drawText(std::string(1, c), inset, inset, scale);
    Mask outline = glyph.dilated(1);
    Mask shadow = outline.shifted(2, 2);
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x) {
            Color out(0, 0, 0, 0);
            if (shadow.at(x, y) > 0) out = Color(0.04f, 0.02f, 0.18f, 0.85f);
            if (outline.at(x, y) > 0) out = Color(0.02f, 0.01f, 0.06f, 1.0f);
            if (glyph.at(x, y) > 0) {
                int gy = y - inset;
                Color fill = fillColor(gy);
                // Bevel: light on the upper edge of each stroke, dark on its lower edge.
                int px = (x - inset) / scale, py = gy / scale, sub = gy % scale;
                if (sub == 0 && !BitmapFont::pixel(c, px, py - 1)) fill = fill.mix(Color(1, 1, 1), 0.55f);
                if (sub == scale - 1 && !BitmapFont::pixel(c, px, py + 1)) fill = fill * 0.7f;
                out = fill.withAlpha(1.0f);
            }
            picture.set(left + x, top + y, out);
        }
}

}  // namespace

char FontImageMaker::cellCharacter(int cell) {
    if (cell < 0 || cell >= columns * rows) return 0;
    return layout[cell];
}

Picture FontImageMaker::paint() {
    Picture picture(columns * cellSize, rows * cellSize);
    for (int cell = 0; cell < columns * rows; ++cell) {
        char c = cellCharacter(cell);
        if (c != 0 && c != ' ') paintCell(picture, cell, c);
    }
    return picture;
}

}  // namespace qlntools
