#pragma once
// The event prototypes ("start", "stop", "modify") by name. Owns them.
#include <map>
#include <string>
#include <vector>

#include "demosys/DataPool.h"

class Event;

class DataEventPool : public DataPool {
public:
    ~DataEventPool() override;
    void addEvent(std::string name, Event* event);
    // Null for an unknown name.
    Event* getEvent(std::string name);
    bool exist(std::string name);
    int size() override;
    std::string toString() override;

private:
    std::map<std::string, Event*> events;
    // Values whose name was taken again: out of the pool, deleted with it.
    std::vector<Event*> replaced;
};
