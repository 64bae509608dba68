#pragma once
// One blended colour over the whole screen, moved from one RGBA value to another over
// a scripted span; every music event flashes it grey.
#include <string>

#include "demosys/Effect.h"
#include "demosys/Vector.h"

class ParameterGroup;
class QLNTime;

class FadeEffect : public Effect {
public:
    FadeEffect();
    virtual ~FadeEffect();

    virtual void draw(unsigned int time);
    virtual void init();
    virtual void reset();
    virtual void modify(std::string method, ParameterGroup* params);
    virtual void musicEvent();
    virtual Effect* getInstance();

private:
    double progress;
    double spareProgress;  // reset to 1.0, never read
    QLNTime* start;
    QLNTime* end;
    Vector<float, 4> colour;
    Vector<float, 4> fromColour;
    Vector<float, 4> toColour;
};
