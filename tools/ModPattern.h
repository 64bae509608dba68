#pragma once
// One pattern of a four-channel ProTracker module: 64 rows, one cell per channel.
#include <array>

namespace qlntools {

struct ModCell {
    int sample = 0;  // 1..31, 0 = keep the channel's instrument
    int period = 0;  // Amiga period, 0 = no new note
    int effect = 0;  // 0x0..0xF
    int param = 0;   // 0x00..0xFF
};

struct ModPattern {
    static constexpr int rows = 64;
    static constexpr int channels = 4;
    std::array<std::array<ModCell, channels>, rows> cells{};
};

}  // namespace qlntools
