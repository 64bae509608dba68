#pragma once
// A plain white test cube four units in front of the current view, turned by 45
// degrees. Its translation and turn stay on the model-view matrix for the effects that
// follow in the same frame.
#include "demosys/Effect.h"

class BouncingCubeEffect : public Effect {
public:
    BouncingCubeEffect();
    virtual ~BouncingCubeEffect();

    virtual void draw(unsigned int time);
    virtual void init();
    virtual void reset();
    virtual Effect* getInstance();

private:
    float bounce;
};
