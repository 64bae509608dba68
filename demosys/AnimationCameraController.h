#pragma once
// Plays an animation on the global camera between two demo times; the animation and its
// times are kept as for an object's path.
#include "demosys/AnimationObjectController.h"

class AnimationCameraController : public AnimationObjectController {
public:
    // Outside [start, end] (both included) nothing happens.
    void animate(unsigned int time);
};
