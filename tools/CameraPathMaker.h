#pragma once
// The camera path file ("QLNANI1"): a closed flight around the origin at a distance
// of about seven units, rising and sinking, always facing the centre. Keyframes are
// 22.5 degrees apart; one extra keyframe before and two after the circle let
// Catmull-Rom playback run the whole loop.
#include <string>

namespace qlntools {

class CameraPathMaker {
public:
    static constexpr int loopKeyframes = 16;
    static std::string text();
};

}  // namespace qlntools
