#pragma once
// Calls one scripted method of an effect: Effect::modify(method, parameters).
#include <string>

#include "demosys/TimedEvent.h"

class Effect;

class EventModifyEffect : public TimedEvent {
public:
    EventModifyEffect();
    explicit EventModifyEffect(QLNTime* time);
    EventModifyEffect(QLNTime* time, ParameterGroup* parameters);

    void execute() override;
    Event* getInstance() override;
    std::string toString() override;
    std::string getMethod();
    void init() override;

private:
    std::string method;
    Effect* effect;  // owned by the effect pool
};
