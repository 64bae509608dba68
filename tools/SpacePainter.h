#pragma once
// A deep-space backdrop: a dark gradient, soft nebula clouds and scattered stars.
#include "tools/Picture.h"

namespace qlntools {

class SpacePainter {
public:
    // 512 × 384 RGB.
    static Picture background();
};

}  // namespace qlntools
