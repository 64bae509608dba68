#pragma once
// Slides every effect drawn after it in the same frame off the screen, once.
#include "demo/ViewportWipe.h"

class ScrollWipe : public ViewportWipe {
public:
    void init() override;
    void reset() override;
    Effect* getInstance() override;

protected:
    float offsetFor(int height, float wave) override;
    // The angle runs from 90 to 180 over the slide.
    void advance(unsigned int time) override;
};
