#pragma once
// A four-channel ProTracker module ("M.K."), written byte-exact: 20-byte title,
// 31 sample headers, song length, order list, patterns, then the sample data.
#include <string>
#include <vector>

#include "tools/ModPattern.h"
#include "tools/ModSample.h"

namespace qlntools {

class ProTrackerModule {
public:
    // Effect numbers used by the composer.
    enum Effect { Arpeggio = 0x0, Vibrato = 0x4, VolumeSlide = 0xA, SetVolume = 0xC, PatternBreak = 0xD,
                  Extended = 0xE, SetSpeed = 0xF };

    std::string title;
    std::vector<ModSample> samples;  // at most 31; sample number k + 1 in the patterns
    std::vector<ModPattern> patterns;
    std::vector<int> order;          // pattern numbers, at most 128

    // The Amiga period of a note: octave 1..3, semitone 0 (C) .. 11 (B), finetune 0.
    static int period(int octave, int semitone);
    // Note names as the trackers write them: "C-2", "F#1", "A-3".
    static int period(const std::string& name);

    // The module file; empty with an error for out-of-range content.
    bool encode(std::string& bytes, std::string& error) const;
};

}  // namespace qlntools
