#pragma once
// The demo's name in chrome letters: the logo (transparent, for blending over
// anything) and the three title pictures that the title screen flickers through.
#include "tools/Picture.h"

namespace qlntools {

class LogoPainter {
public:
    // 512 × 128 RGBA: "QUILLON" in chrome with a dark outline and a cyan glow, "DEMOSYSTEM" below.
    static Picture logo();
    // 512 × 384 RGB full-screen title pictures; variant 0, 1 or 2 differ in colour and glitch.
    static Picture title(int variant);
};

}  // namespace qlntools
