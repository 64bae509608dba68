#pragma once
// The event prototypes ("start", "stop", "modify") by name. Owns them.
#include <string>

#include "demosys/DataMapPool.h"

class Event;

class DataEventPool : public DataMapPool<Event> {
public:
    ~DataEventPool() override;
    void addEvent(std::string name, Event* event);
    // Null for an unknown name.
    Event* getEvent(std::string name);
    bool exist(std::string name);
    int size() override;
    std::string toString() override;
};
