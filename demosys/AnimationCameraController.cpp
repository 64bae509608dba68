#include "demosys/AnimationCameraController.h"

#include "demosys/Animation.h"
#include "demosys/QLNDemosys.h"

AnimationCameraController::AnimationCameraController() : animation(nullptr) {}

void AnimationCameraController::setAnimation(Animation* value) { animation = value; }
Animation* AnimationCameraController::getAnimation() { return animation; }
void AnimationCameraController::setStartTime(unsigned int ticks) { startTime = QLNTime(ticks); }
void AnimationCameraController::setStartTime(QLNTime time) { startTime = time; }
void AnimationCameraController::setEndTime(unsigned int ticks) { endTime = QLNTime(ticks); }
void AnimationCameraController::setEndTime(QLNTime time) { endTime = time; }

void AnimationCameraController::animate(unsigned int time) {
    if (!animation) return;
    if (time < startTime.getTicks() || time > endTime.getTicks()) return;
    float elapsed = static_cast<float>(time) - static_cast<float>(startTime.getTicks());
    float t = static_cast<float>(elapsed / (endTime.getTicksAsDouble() - startTime.getTicksAsDouble()));
    animation->next(t);
    QLNDemosys::camera.setPosition(animation->getPosition());
    QLNDemosys::camera.setPitch(animation->getPitch());
    QLNDemosys::camera.setHeading(animation->getHeading());
}
