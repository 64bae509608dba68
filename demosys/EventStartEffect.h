#pragma once
// Puts an effect into the running set: layer from "p2" (default 50), render target
// from "p3" (a framebuffer object name).
#include <string>

#include "demosys/Event.h"

class Effect;

class EventStartEffect : public Event {
public:
    EventStartEffect();
    explicit EventStartEffect(QLNTime* time);
    EventStartEffect(QLNTime* time, ParameterGroup* parameters);
    ~EventStartEffect() override;
    EventStartEffect(const EventStartEffect&) = delete;
    EventStartEffect& operator=(const EventStartEffect&) = delete;

    void execute() override;
    void setParameters(ParameterGroup* parameters) override;
    ParameterGroup* getParameters() override;
    void setTime(QLNTime* time) override;
    QLNTime* getTime() override;
    Event* getInstance() override;
    std::string toString() override;
    // Resolves layer, object and effect from the parameters.
    void init();

private:
    ParameterGroup* parameters;  // owned
    QLNTime* time;               // owned
    int layer;
    std::string object;
    Effect* effect;  // owned by the effect pool
};
