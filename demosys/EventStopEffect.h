#pragma once
// Takes an effect out of the running set.
#include <string>

#include "demosys/TimedEvent.h"

class EventStopEffect : public TimedEvent {
public:
    EventStopEffect();
    explicit EventStopEffect(QLNTime* time);
    EventStopEffect(QLNTime* time, ParameterGroup* parameters);

    void execute() override;
    Event* getInstance() override;
    std::string toString() override;
    void init() override;

private:
    std::string object;
};
