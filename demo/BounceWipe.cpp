#include "demo/BounceWipe.h"

BounceWipe::BounceWipe() : speed(0.0f), divisor(2.0f) {}

void BounceWipe::init() { reset(); }

void BounceWipe::reset() {
    angle = 90.0f;
    speed = 0.0f;
    divisor = 2.0f;
}

float BounceWipe::offsetFor(int height, float wave) { return (height / divisor) * wave; }

void BounceWipe::advance(unsigned int time) {
    if (angle >= 180.0f) {
        angle = 0.0f;
        divisor *= 2.0f;
    }
    const float step = getFrameTime(time) * 0.1f * 0.0625f;
    angle += speed + step;
    speed += step;
}

Effect* BounceWipe::getInstance() { return new BounceWipe(); }
