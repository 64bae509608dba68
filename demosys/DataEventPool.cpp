#include "demosys/DataEventPool.h"

#include "demosys/Event.h"

DataEventPool::~DataEventPool() { disposeEntries("[Dispose eventPool]"); }

void DataEventPool::addEvent(std::string name, Event* event) { put(name, event); }

Event* DataEventPool::getEvent(std::string name) { return find(name); }

bool DataEventPool::exist(std::string name) { return contains(name); }

int DataEventPool::size() { return entryCount(); }

std::string DataEventPool::toString() {
    if (size() == 0) return "EventPool { EMPTY }\n";
    return "EventPool {\n" + listEntries("    ") + "}\n";
}
