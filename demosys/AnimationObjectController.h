#pragma once
// An animation and its playing time for the path of an object; it has no playback of its own.
#include "demosys/QLNTime.h"

class Animation;

class AnimationObjectController {
public:
    AnimationObjectController();

    void setAnimation(Animation* animation);  // not owned
    Animation* getAnimation();
    void setStartTime(unsigned int ticks);
    void setStartTime(QLNTime time);
    void setEndTime(unsigned int ticks);
    void setEndTime(QLNTime time);

protected:
    Animation* animation;
    QLNTime startTime;
    QLNTime endTime;
};
