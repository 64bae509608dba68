#include "demo/BounceWipe.h"

#include <GL/glew.h>

#include <cmath>

#include "demosys/GLHelpers.h"
#include "demosys/QLNDemosys.h"
#include "demosys/ScreenMetrics.h"

BounceWipe::BounceWipe() : angle(90.0f), speed(0.0f), divisor(2.0f), offset(0.0f), direction(0) {}

void BounceWipe::init() { reset(); }

void BounceWipe::reset() {
    angle = 90.0f;
    speed = 0.0f;
    divisor = 2.0f;
}

void BounceWipe::modify(std::string method, ParameterGroup*) {
    if (method == "down") {
        direction = 0;
        angle = 90.0f;
    } else if (method == "up") {
        direction = 1;
        angle = 90.0f;
    }
}

void BounceWipe::draw(unsigned int time) {
    ScreenMetrics* screen = QLNDemosys::screenMetrics;
    if (!screen) return;
    const int width = screen->getWidth();
    const int height = screen->getHeight();
    offset = (height / divisor) * std::sin(angle * GLHelpers::piFloat / 180.0f);
    const int shift = static_cast<int>(offset);
    if (direction == 0)
        glViewport(0, shift, width, height + shift);
    else
        glViewport(0, -shift, width, height - shift);
    if (angle >= 180.0f) {
        angle = 0.0f;
        divisor *= 2.0f;
    }
    const float step = getFrameTime(time) * 0.1f * 0.0625f;
    angle += speed + step;
    speed += step;
}

Effect* BounceWipe::getInstance() { return new BounceWipe(); }
