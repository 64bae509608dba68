#pragma once
// One instrument of a ProTracker module: signed 8-bit sound, default volume and loop.
#include <cstdint>
#include <string>
#include <vector>

namespace qlntools {

struct ModSample {
    std::string name;          // up to 22 characters
    std::vector<int8_t> data;  // even length, at most 131070 bytes
    int volume = 64;           // 0..64
    int loopStart = 0;         // bytes, even
    int loopLength = 0;        // bytes, even; 0 = plays once
};

}  // namespace qlntools
