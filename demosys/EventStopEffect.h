#pragma once
// Takes an effect out of the running set.
#include <string>

#include "demosys/Event.h"

class EventStopEffect : public Event {
public:
    EventStopEffect();
    explicit EventStopEffect(QLNTime* time);
    EventStopEffect(QLNTime* time, ParameterGroup* parameters);
    ~EventStopEffect() override;
    EventStopEffect(const EventStopEffect&) = delete;
    EventStopEffect& operator=(const EventStopEffect&) = delete;

    void execute() override;
    void setParameters(ParameterGroup* parameters) override;
    ParameterGroup* getParameters() override;
    void setTime(QLNTime* time) override;
    QLNTime* getTime() override;
    Event* getInstance() override;
    std::string toString() override;
    void init();

private:
    ParameterGroup* parameters;  // owned
    QLNTime* time;               // owned
    std::string object;
};
