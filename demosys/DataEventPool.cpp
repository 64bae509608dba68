#include "demosys/DataEventPool.h"

#include <iostream>
#include <set>

#include "demosys/Event.h"

DataEventPool::~DataEventPool() {
    std::cout << "[Dispose eventPool]" << std::endl;
    // A value entered under two names is deleted once.
    std::set<Event*> deleted;
    for (auto& entry : events) {
        std::cout << " -> delete " << entry.first << std::endl;
        if (entry.second && deleted.insert(entry.second).second) delete entry.second;
    }
    for (Event* value : replaced)
        if (deleted.insert(value).second) delete value;
}

void DataEventPool::addEvent(std::string name, Event* event) {
    auto found = events.find(name);
    if (found != events.end() && found->second && found->second != event) replaced.push_back(found->second);
    events[name] = event;
}

Event* DataEventPool::getEvent(std::string name) {
    auto entry = events.find(name);
    return entry == events.end() ? nullptr : entry->second;
}

bool DataEventPool::exist(std::string name) { return events.count(name) > 0; }

int DataEventPool::size() { return static_cast<int>(events.size()); }

std::string DataEventPool::toString() {
    if (size() == 0) return "EventPool { EMPTY }\n";
    std::string text = "EventPool {\n";
    for (auto& entry : events) text += "    " + entry.first + " = " + (entry.second ? entry.second->toString() : "");
    return text + "}\n";
}
