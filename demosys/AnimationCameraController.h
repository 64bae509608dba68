#pragma once
// Plays an animation on the global camera between two demo times.
#include "demosys/QLNTime.h"

class Animation;

class AnimationCameraController {
public:
    AnimationCameraController();

    void setAnimation(Animation* animation);  // not owned
    Animation* getAnimation();
    void setStartTime(unsigned int ticks);
    void setStartTime(QLNTime time);
    void setEndTime(unsigned int ticks);
    void setEndTime(QLNTime time);
    // Outside [start, end] (both included) nothing happens.
    void animate(unsigned int time);

private:
    Animation* animation;
    QLNTime startTime;
    QLNTime endTime;
};
