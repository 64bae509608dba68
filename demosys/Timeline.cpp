#include "demosys/Timeline.h"

#include <iostream>
#include <iterator>

#include "demosys/Event.h"
#include "demosys/QLNDemosys.h"
#include "demosys/QLNTime.h"

Timeline::Timeline() : nextEvent(0), offset(0), halted(false), lastWatch(0) {}

Timeline::~Timeline() {
    std::cout << "[Disposing Timeline Events]" << std::endl;
    // The multimap holds each event once, also when init() ran more than once.
    for (auto& entry : events) delete entry.second;
    events.clear();
    eventList.clear();
    std::cout << "[Disposing Timeline Checkpoints]" << std::endl;
    for (auto& entry : checkpoints) delete entry.second;
    checkpoints.clear();
}

void Timeline::addEvent(unsigned int ticks, Event* event) {
    // A multimap inserts after the equal keys already present: same-time events keep their order.
    events.insert({ticks, event});
}

void Timeline::addCheckpoint(QLNTime* time) {
    if (!time) return;
    QLNTime*& stored = checkpoints[time->getTicks()];
    if (stored != time) delete stored;
    stored = time;
}

bool Timeline::checpointExists(QLNTime* time) { return time && checkpoints.count(time->getTicks()) > 0; }

int Timeline::countCheckpoints() { return static_cast<int>(checkpoints.size()); }

QLNTime* Timeline::getCheckpoint(unsigned int index) {
    if (index >= checkpoints.size()) return nullptr;
    return std::next(checkpoints.begin(), index)->second;
}

unsigned int Timeline::getOffset() { return offset; }

void Timeline::setOffset(unsigned int ticks) { offset = ticks; }

void Timeline::init() {
    nextEvent = 0;
    lastWatch = 0;
    offset = 0;
    for (auto& entry : events) {
        eventList.push_back(entry.second);
        eventListTicks.push_back(entry.first);
    }
}

unsigned int Timeline::eventTicks(size_t index) {
    Event* event = eventList[index];
    QLNTime* time = event ? event->getTime() : nullptr;
    return time ? time->getTicks() : eventListTicks[index];
}

void Timeline::watch() {
    if (halted || nextEvent >= eventList.size()) return;
    unsigned int previous = lastWatch;
    unsigned int now = QLNDemosys::getMillisecondsElapsed();
    lastWatch = now;
    while (nextEvent < eventList.size()) {
        unsigned int ticks = eventTicks(nextEvent);
        // An event before the previous frame holds back all later ones; demo time only grows.
        if (ticks < previous || ticks > now) break;
        Event* event = eventList[nextEvent];
        nextEvent++;
        if (event) event->execute();
    }
}

void Timeline::moveTo(unsigned int ticks) {
    offset = ticks;
    nextEvent = 0;
    lastWatch = 0;
    watch();
}

std::string Timeline::toString() {
    std::string text;
    for (auto& entry : events) text += QLNTime(entry.first).toString() + " = " + (entry.second ? entry.second->toString() : "");
    return text;
}
