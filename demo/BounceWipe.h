#pragma once
// Bounces every effect drawn after it in the same frame: the viewport jumps up (or down)
// and falls back, each bounce half as high as the one before.
#include "demosys/Effect.h"

class BounceWipe : public Effect {
public:
    BounceWipe();

    void draw(unsigned int time) override;
    void init() override;
    void reset() override;
    void modify(std::string method, ParameterGroup* parameters) override;
    Effect* getInstance() override;

private:
    float angle;     // phase of the current bounce, degrees
    float speed;     // grows every frame and is never reset: the bounces speed up
    float divisor;   // doubled at the end of every bounce
    float offset;    // viewport shift, pixels
    int direction;   // 0 = down, 1 = up
};
