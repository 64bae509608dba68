#pragma once
// The opening screen: an upper and a lower panel slide shut like doors and bounce open
// again with half the amplitude each time, faster every frame.
#include "demosys/Effect.h"

class StartEffect : public Effect {
public:
    StartEffect();

    void draw(unsigned int time) override;
    void init() override;
    void reset() override;
    Effect* getInstance() override;

private:
    float angle;    // phase of the door motion, degrees
    float speed;    // added to the angle every frame, and growing
    float offset;   // vertical displacement of the panels
    float divisor;  // amplitude divisor, doubled at every swing
};
