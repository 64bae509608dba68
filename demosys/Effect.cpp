#include "demosys/Effect.h"

#include <GL/glew.h>

#include <iostream>

Effect::Effect() : parameters(nullptr), startTime(0), modifyTime(0), lastCalled(0), renderTarget(nullptr) {}

Effect::~Effect() {}

void Effect::draw(unsigned int) {
    std::cout << "Fallback draw method! This should never happen!" << std::endl;
}

void Effect::init() {}

void Effect::reset() {}

void Effect::modify(std::string, ParameterGroup*) {}

void Effect::musicEvent() {
    std::cout << "Fallback music event method called! This should never happen!" << std::endl;
}

Effect* Effect::getInstance() { return new Effect(); }

// A step above a second is a first frame or a seek, not real frame time.
static const unsigned int maxFrameStep = 1000;
static const unsigned int substituteFrameStep = 16;

unsigned int Effect::getFrameTicks(unsigned int now) {
    unsigned int step = now - lastCalled;
    return step <= maxFrameStep ? step : substituteFrameStep;
}

float Effect::getFrameTime(unsigned int now) {
    float step = static_cast<float>(now - lastCalled);
    return step > 1000.0f ? 16.0f : step;
}

unsigned int Effect::getModifyTicks(unsigned int now) { return now - modifyTime; }

float Effect::getModifyTime(unsigned int now) { return static_cast<float>(now - modifyTime); }

bool Effect::pixelsDiscarded() { return GLEW_VERSION_3_0 && glIsEnabled(GL_RASTERIZER_DISCARD); }
