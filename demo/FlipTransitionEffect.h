#pragma once
// Throws away the picture that earlier effects drew into a framebuffer: it spins and
// recedes as a card, and the framebuffer is cleared for the next frame.
#include "demosys/Effect.h"

class FrameBufferObject;

class FlipTransitionEffect : public Effect {
public:
    FlipTransitionEffect();

    void draw(unsigned int time) override;
    void init() override;
    void reset() override;
    void modify(std::string method, ParameterGroup* parameters) override;
    Effect* getInstance() override;

private:
    float angle;               // degrees
    float depth;               // distance pushed back so far
    FrameBufferObject* buffer; // not owned; null draws nothing
};
