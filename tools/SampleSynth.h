#pragma once
// Synthesised 8-bit instruments for the demo's music. Drums are recorded at
// 16574 Hz, the rate of the note C-3, and are triggered at C-3. Tonal instruments
// hold whole cycles of 64 samples, so their loops are seamless and every note of
// the period table plays in tune: A-1 sounds at about 109 Hz, A-3 at about 436 Hz.
#include "tools/ModSample.h"

namespace qlntools {

class SampleSynth {
public:
    static constexpr double drumRate = 16574.0;
    static constexpr int cycle = 64;

    static ModSample kick();
    static ModSample snare();
    static ModSample hihat();
    // A plucked, filtered saw whose brightness decays over the first cycles, then loops.
    static ModSample bass();
    // Two detuned saw-square oscillators (128 and 129 cycles in one loop): a chorused lead.
    static ModSample lead();
    // A 25% pulse for arpeggiated chords, at the given default volume.
    static ModSample chord(const char* name, int volume);
};

}  // namespace qlntools
