#pragma once
// One sync line of the timeline: from its time on, the named tracks feed the float
// arguments of one method of an effect instance, frame by frame.
#include <string>
#include <vector>

struct SyncBinding {
    std::string object;
    std::string method;
    std::vector<std::string> tracks;  // one per float argument, in argument order
    unsigned int start = 0;           // ms
};
