#pragma once
// Calls one scripted method of an effect: Effect::modify(method, parameters).
#include <string>

#include "demosys/Event.h"

class Effect;

class EventModifyEffect : public Event {
public:
    EventModifyEffect();
    explicit EventModifyEffect(QLNTime* time);
    EventModifyEffect(QLNTime* time, ParameterGroup* parameters);
    ~EventModifyEffect() override;
    EventModifyEffect(const EventModifyEffect&) = delete;
    EventModifyEffect& operator=(const EventModifyEffect&) = delete;

    void execute() override;
    void setParameters(ParameterGroup* parameters) override;
    ParameterGroup* getParameters() override;
    void setTime(QLNTime* time) override;
    QLNTime* getTime() override;
    Event* getInstance() override;
    std::string toString() override;
    std::string getMethod();
    void init();

private:
    ParameterGroup* parameters;  // owned
    QLNTime* time;               // owned
    std::string method;
    Effect* effect;  // owned by the effect pool
};
