#include "demo/ScrollWipe.h"

#include <GL/glew.h>

#include <cmath>

#include "demosys/GLHelpers.h"
#include "demosys/QLNDemosys.h"
#include "demosys/ScreenMetrics.h"

ScrollWipe::ScrollWipe() : angle(90.0f), offset(0.0f), direction(0) {}

void ScrollWipe::init() { reset(); }

void ScrollWipe::reset() { angle = 90.0f; }

void ScrollWipe::modify(std::string method, ParameterGroup*) {
    if (method == "down") {
        direction = 0;
        angle = 90.0f;
    } else if (method == "up") {
        direction = 1;
        angle = 90.0f;
    }
}

void ScrollWipe::draw(unsigned int time) {
    ScreenMetrics* screen = QLNDemosys::screenMetrics;
    if (!screen) return;
    const int width = screen->getWidth();
    const int height = screen->getHeight();
    const float wave = std::sin(angle * GLHelpers::piFloat / 180.0f);
    // The two directions are not mirror images: up slides half as far and keeps its base.
    if (direction == 0) {
        offset = height * wave - height;
        const int shift = static_cast<int>(offset);
        glViewport(0, shift, width, height + shift);
    } else {
        offset = (height / 2) * wave;
        const int shift = static_cast<int>(offset);
        glViewport(0, -shift, width, height - shift);
    }
    angle += getFrameTicks(time) * 0.04f;
    if (angle > 180.0f) angle = 180.0f;
}

Effect* ScrollWipe::getInstance() { return new ScrollWipe(); }
