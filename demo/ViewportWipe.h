#pragma once
// What the bounce and scroll wipes share: "down" and "up" restart the wave, and every frame
// the viewport is shifted by an offset that follows sin(angle) for the effects drawn after it.
#include "demosys/Effect.h"

class ViewportWipe : public Effect {
public:
    void draw(unsigned int time) override;
    void modify(std::string method, ParameterGroup* parameters) override;

protected:
    ViewportWipe() : angle(90.0f), offset(0.0f), direction(0) {}
    // The shift in pixels for a screen of this height at sin(angle) = wave.
    virtual float offsetFor(int height, float wave) = 0;
    // Moves the wave on after the frame's viewport is set.
    virtual void advance(unsigned int time) = 0;

    float angle;    // degrees
    float offset;   // viewport shift, pixels
    int direction;  // 0 = down, 1 = up
};
