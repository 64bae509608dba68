#include "demo/ScrollWipe.h"

void ScrollWipe::init() { reset(); }

void ScrollWipe::reset() { angle = 90.0f; }

// The two directions are not mirror images: up slides half as far and keeps its base.
float ScrollWipe::offsetFor(int height, float wave) {
    return direction == 0 ? height * wave - height : (height / 2) * wave;
}

void ScrollWipe::advance(unsigned int time) {
    angle += getFrameTicks(time) * 0.04f;
    if (angle > 180.0f) angle = 180.0f;
}

Effect* ScrollWipe::getInstance() { return new ScrollWipe(); }
