#include "demosys/AnimationObjectController.h"

AnimationObjectController::AnimationObjectController() : animation(nullptr) {}

void AnimationObjectController::setAnimation(Animation* value) { animation = value; }
Animation* AnimationObjectController::getAnimation() { return animation; }
void AnimationObjectController::setStartTime(unsigned int ticks) { startTime = QLNTime(ticks); }
void AnimationObjectController::setStartTime(QLNTime time) { startTime = time; }
void AnimationObjectController::setEndTime(unsigned int ticks) { endTime = QLNTime(ticks); }
void AnimationObjectController::setEndTime(QLNTime time) { endTime = time; }
