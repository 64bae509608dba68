#pragma once
// The font image of the text writer: 17 columns × 4 rows of glyph cells, cells
// numbered row by row from the top left. The cell of each character follows the
// writer's glyph table (a–z in cells 0–25, the blank in 28, digits 2–9 in 34–41,
// 0 in 42, "." 43, "!" 44, "+" 52, "'" 53, the heart "*" 54; the digit 1 shares "i").
#include <string>

#include "tools/Picture.h"

namespace qlntools {

class FontImageMaker {
public:
    static constexpr int columns = 17;
    static constexpr int rows = 4;
    static constexpr int cellSize = 32;

    // The character drawn in a cell, or 0 for an empty cell.
    static char cellCharacter(int cell);
    static Picture paint();
};

}  // namespace qlntools
