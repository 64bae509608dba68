#pragma once
// Slides every effect drawn after it in the same frame off the screen, once.
#include "demosys/Effect.h"

class ScrollWipe : public Effect {
public:
    ScrollWipe();

    void draw(unsigned int time) override;
    void init() override;
    void reset() override;
    void modify(std::string method, ParameterGroup* parameters) override;
    Effect* getInstance() override;

private:
    float angle;     // degrees, from 90 to 180 over the slide
    float offset;    // viewport shift, pixels
    int direction;   // 0 = down, 1 = up
};
