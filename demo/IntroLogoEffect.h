#pragma once
// The intro logo: a mesh from the object pool, turning slowly under the scene light, seen
// from a camera that flies a path from the animation pool on a Catmull-Rom spline.
#include "demosys/AnimationCameraController.h"
#include "demosys/Effect.h"

class Animation;
class QLNScene;

class IntroLogoEffect : public Effect {
public:
    IntroLogoEffect();

    void draw(unsigned int time) override;
    void init() override;
    void reset() override;
    void modify(std::string method, ParameterGroup* parameters) override;
    Effect* getInstance() override;

private:

    QLNScene* object;        // not owned; null draws nothing
    Animation* path;         // not owned; null keeps the camera still
    AnimationCameraController flight;
    bool flightSet;          // "fly" gave the flight's times; otherwise it starts with the effect
    unsigned int flightStart, flightEnd;
    unsigned int duration;   // ms of a flight that starts with the effect
    float spin;              // degrees per second about the vertical axis
};
