#pragma once
// What the start, stop and modify events share: the owned time and parameter group, and
// resolving again whenever the parameters change.
#include "demosys/Event.h"

class Effect;

class TimedEvent : public Event {
public:
    ~TimedEvent() override;
    TimedEvent(const TimedEvent&) = delete;
    TimedEvent& operator=(const TimedEvent&) = delete;

    // Takes ownership and resolves the event from the new group.
    void setParameters(ParameterGroup* parameters) override;
    ParameterGroup* getParameters() override;
    // Takes ownership.
    void setTime(QLNTime* time) override;
    QLNTime* getTime() override;
    // Reads what the event needs from its parameters.
    virtual void init() = 0;

protected:
    TimedEvent(QLNTime* time, ParameterGroup* parameters) : parameters(parameters), time(time) {}
    // The instance that "object" names in the effect pool; null without a group, key or pool.
    Effect* objectEffect() const;

    ParameterGroup* parameters;  // owned
    QLNTime* time;               // owned
};
