#pragma once
// One timed line of the timeline. Concrete events are cloned from registered prototypes
// ("start", "stop", "modify") with getInstance().
#include <string>

class ParameterGroup;
class QLNTime;

class Event {
public:
    virtual ~Event();
    virtual void execute();
    // The event takes ownership of the group and the time it is given.
    virtual void setParameters(ParameterGroup* parameters);
    virtual ParameterGroup* getParameters();
    virtual void setTime(QLNTime* time);
    virtual QLNTime* getTime();
    virtual Event* getInstance();
    virtual std::string toString();
};
