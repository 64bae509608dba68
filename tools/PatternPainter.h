#pragma once
// Seamlessly tiling textures for the effects that repeat or scroll their pictures:
// the two tunnel walls, the plasma of the height-map flight and the cube wall picture.
#include "tools/Picture.h"

namespace qlntools {

class PatternPainter {
public:
    // 256 × 256 RGB: riveted metal plates with glowing seams (the outer tunnel).
    static Picture tunnelOuter();
    // 256 × 256 RGBA: a glowing diamond lattice, transparent between the lines (the inner tunnel).
    static Picture tunnelInner();
    // 256 × 256 RGB: a colourful plasma built from whole sine periods.
    static Picture plasma();
    // 256 × 256 RGB: rainbow stripes with a checker and a heart, to be broken into cubes.
    static Picture cubes();
};

}  // namespace qlntools
