#pragma once
// Puts an effect into the running set: layer from "p2" (default 50), render target
// from "p3" (a framebuffer object name).
#include <string>

#include "demosys/TimedEvent.h"

class Effect;

class EventStartEffect : public TimedEvent {
public:
    EventStartEffect();
    explicit EventStartEffect(QLNTime* time);
    EventStartEffect(QLNTime* time, ParameterGroup* parameters);

    void execute() override;
    Event* getInstance() override;
    std::string toString() override;
    // Resolves layer, object and effect from the parameters.
    void init() override;

private:
    int layer;
    std::string object;
    Effect* effect;  // owned by the effect pool
};
