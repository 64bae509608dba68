#pragma once
// The demo's music: a four-channel ProTracker module in A minor at 125 BPM and
// speed 6, so one row lasts 120 ms, a beat (4 rows) 480 ms, a bar (16 rows)
// 1.92 s and a pattern (4 bars) 7.68 s. Ten patterns play for 76.8 s:
//   0 intro (chords, hats)  1 build-up (kick, bass)  2 theme A  3 theme B
//   2 theme A  3 theme B  4 break  5 theme A with fill  3 theme B  6 outro.
// Channels: 1 drums, 2 bass, 3 lead, 4 arpeggio chords.
#include <string>

#include "tools/ProTrackerModule.h"

namespace qlntools {

class MusicComposer {
public:
    static constexpr int bpm = 125;
    static constexpr int speed = 6;
    static constexpr int rowMilliseconds = 120;  // speed × 2.5 s / bpm
    static constexpr int rowsPerBeat = 4;

    static ProTrackerModule compose();
};

}  // namespace qlntools
