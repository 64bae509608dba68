#include "demosys/AnimationCameraController.h"

#include "demosys/Animation.h"
#include "demosys/QLNDemosys.h"

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
