#pragma once
// The demo's events in time order, fired once per frame by watch(), plus the script's
// checkpoints and the seek offset added to the demo clock.
#include <map>
#include <string>
#include <vector>

class Event;
class QLNTime;

class Timeline {
public:
    Timeline();
    ~Timeline();
    Timeline(const Timeline&) = delete;
    Timeline& operator=(const Timeline&) = delete;

    // After any events of the same time. The timeline owns the event.
    void addEvent(unsigned int ticks, Event* event);
    // The timeline owns the time; one at the same ticks replaces the stored one.
    void addCheckpoint(QLNTime* time);
    bool checpointExists(QLNTime* time);
    int countCheckpoints();
    // The index-th checkpoint in time order; null past the end.
    QLNTime* getCheckpoint(unsigned int index);
    unsigned int getOffset();
    void setOffset(unsigned int ticks);

    // Flattens the events into firing order; call once, when the timeline is complete.
    void init();
    // Fires every event due between the previous and the current demo time.
    void watch();
    // Seeks: demo time gains the offset and every event up to it is replayed at once.
    void moveTo(unsigned int ticks);
    std::string toString();

private:
    unsigned int eventTicks(size_t index);

    std::multimap<unsigned int, Event*> events;
    // watch() resumes at nextEvent and stops at the first event beyond now, so a frame
    // with nothing due costs the same however long the script is.
    std::vector<Event*> eventList;
    std::vector<unsigned int> eventListTicks;  // the addEvent ticks, for events without a time
    std::map<unsigned int, QLNTime*> checkpoints;
    size_t nextEvent;
    unsigned int offset;
    bool halted;
    unsigned int lastWatch;
};
