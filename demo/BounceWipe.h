#pragma once
// Bounces every effect drawn after it in the same frame: the viewport jumps up (or down)
// and falls back, each bounce half as high as the one before.
#include "demo/ViewportWipe.h"

class BounceWipe : public ViewportWipe {
public:
    BounceWipe();

    void init() override;
    void reset() override;
    Effect* getInstance() override;

protected:
    float offsetFor(int height, float wave) override;
    void advance(unsigned int time) override;

private:
    float speed;    // grows every frame and is never reset: the bounces speed up
    float divisor;  // doubled at the end of every bounce
};
