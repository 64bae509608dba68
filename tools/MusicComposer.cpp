#include "tools/MusicComposer.h"

#include <sstream>
#include <vector>

#include "tools/SampleSynth.h"

namespace qlntools {

namespace {

enum Sample { Kick = 1, Snare, Hihat, Bass, Lead, Chord, ChordSoft };
enum Channel { Drums = 0, BassLine = 1, Melody = 2, Chords = 3 };

// Note names to their place in the period table, 0 = C-1 .. 35 = B-3; -1 if unknown.
int noteIndex(const std::string& name) {
    static const char* const names[12] = {"C-", "C#", "D-", "D#", "E-", "F-", "F#", "G-", "G#", "A-", "A#", "B-"};
    if (name.size() != 3 || name[2] < '1' || name[2] > '3') return -1;
    for (int s = 0; s < 12; ++s)
        if (name.compare(0, 2, names[s]) == 0) return (name[2] - '1') * 12 + s;
    return -1;
}

int periodOf(int index) {
    if (index < 0) index = 0;
    if (index > 35) index = 35;
    return ProTrackerModule::period(index / 12 + 1, index % 12);
}

void note(ModPattern& p, int row, int channel, int sample, int index, int effect = 0, int param = 0) {
    ModCell& c = p.cells[size_t(row)][size_t(channel)];
    c.sample = sample;
    c.period = periodOf(index);
    c.effect = effect;
    c.param = param;
}

void effect(ModPattern& p, int row, int channel, int effect, int param) {
    ModCell& c = p.cells[size_t(row)][size_t(channel)];
    c.effect = effect;
    c.param = param;
}

// One bar of 16 rows for each channel. Empty texts leave the channel alone for the bar.
struct Bar {
    std::string chord;   // "A-2 37": root note and arpeggio offsets; "-" silences the chords
    std::string bass;    // "A-1 r.r.o...": root, then per row r root, o octave, f fifth, . hold, - cut
    std::string drums;   // per row K kick, S snare, H hat, h soft hat, . nothing
    std::string melody;  // eight tokens of two rows: note, "..." hold (with vibrato), "===" cut
};

struct PatternPlan {
    Bar bars[4];
    int chordSample;
    int melodyVolume;  // set on every melody note; 0 keeps the sample's own volume
};

void writeBar(ModPattern& p, int bar, const Bar& b, const PatternPlan& plan) {
    const int top = bar * 16;
    if (b.chord == "-") {
        effect(p, top, Chords, ProTrackerModule::SetVolume, 0);
    } else if (!b.chord.empty()) {
        int root = noteIndex(b.chord.substr(0, 3));
        int arp = std::stoi(b.chord.substr(4), nullptr, 16);
        for (int r = 0; r < 16; ++r) {
            if (r % 2 == 0) note(p, top + r, Chords, plan.chordSample, root, ProTrackerModule::Arpeggio, arp);
            else effect(p, top + r, Chords, ProTrackerModule::Arpeggio, arp);
        }
    }
    if (b.bass.size() > 4) {
        int root = noteIndex(b.bass.substr(0, 3));
        for (int r = 0; r < 16 && size_t(r) + 4 < b.bass.size(); ++r) {
            switch (b.bass[size_t(r) + 4]) {
                case 'r': note(p, top + r, BassLine, Bass, root); break;
                case 'o': note(p, top + r, BassLine, Bass, root + 12); break;
                case 'f': note(p, top + r, BassLine, Bass, root + 7); break;
                case '-': effect(p, top + r, BassLine, ProTrackerModule::SetVolume, 0); break;
                default: break;
            }
        }
    }
    const int drumNote = noteIndex("C-3");
    for (int r = 0; r < 16 && size_t(r) < b.drums.size(); ++r) {
        switch (b.drums[size_t(r)]) {
            case 'K': note(p, top + r, Drums, Kick, drumNote); break;
            case 'S': note(p, top + r, Drums, Snare, drumNote); break;
            case 'H': note(p, top + r, Drums, Hihat, drumNote); break;
            case 'h': note(p, top + r, Drums, Hihat, drumNote, ProTrackerModule::SetVolume, 14); break;
            default: break;
        }
    }
    std::istringstream tokens(b.melody);
    std::string token;
    for (int step = 0; step < 8 && tokens >> token; ++step) {
        int row = top + step * 2;
        if (token == "===") {
            effect(p, row, Melody, ProTrackerModule::SetVolume, 0);
        } else if (token == "...") {
            effect(p, row, Melody, ProTrackerModule::Vibrato, 0x43);
            effect(p, row + 1, Melody, ProTrackerModule::Vibrato, 0x43);
        } else if (noteIndex(token) >= 0) {
            if (plan.melodyVolume > 0)
                note(p, row, Melody, Lead, noteIndex(token), ProTrackerModule::SetVolume, plan.melodyVolume);
            else
                note(p, row, Melody, Lead, noteIndex(token));
        }
    }
}

std::vector<PatternPlan> plans() {
    // Chords of the theme: Am F C G, arpeggiated; C is voiced over G to stay close to the others.
    const std::string Am = "A-2 37", F = "F-2 47", C = "G-2 59", G = "G-2 47";
    const std::string pump = "r.r.o.r.r.r.o.r.";
    const std::string bassA = "A-1 " + pump, bassF = "F-1 " + pump, bassC = "C-2 " + pump, bassG = "G-1 " + pump;
    const std::string drive = "K.H.S.H.K.HKS.H.", fill = "K.H.S.H.K.S.SSSS", floor = "K.H.K.H.K.H.K.H.";
    const std::string melodyA[4] = {"E-3 ... ... D-3 E-3 ... A-3 ...", "G-3 ... E-3 ... D-3 ... C-3 ...",
                                    "E-3 ... ... D-3 E-3 ... G-3 ...", "D-3 ... ... ... B-2 ... D-3 ..."};
    const std::string melodyB[4] = {"A-3 ... G-3 ... E-3 ... G-3 A-3", "A-3 ... ... ... G-3 ... F-3 ...",
                                    "E-3 ... G-3 ... C-3 ... E-3 ...", "D-3 ... ... ... ... ... === ..."};
    std::vector<PatternPlan> out;
    // 0: intro, the chords alone with soft hats, a long bass note per bar.
    out.push_back({{{Am, "A-1 r...............", "..h...h...h...h.", ""},
                    {F, "F-1 r...............", "..h...h...h...h.", ""},
                    {C, "C-2 r...............", "..h...h...h...h.", ""},
                    {G, "G-1 r...............", "..H...H...H.H.HH", ""}},
                   ChordSoft, 0});
    // 1: build-up, four to the floor and the pumping bass.
    out.push_back({{{Am, bassA, floor, ""}, {F, bassF, floor, ""}, {C, bassC, floor, ""},
                    {G, bassG, "K.H.K.H.S.H.SSSS", ""}},
                   Chord, 0});
    // 2: theme A.
    out.push_back({{{Am, bassA, drive, melodyA[0]}, {F, bassF, drive, melodyA[1]}, {C, bassC, drive, melodyA[2]},
                    {G, bassG, drive, melodyA[3]}},
                   Chord, 0});
    // 3: theme B, with a fill into the next pattern.
    out.push_back({{{Am, bassA, drive, melodyB[0]}, {F, bassF, drive, melodyB[1]}, {C, bassC, drive, melodyB[2]},
                    {G, bassG, fill, melodyB[3]}},
                   Chord, 0});
    // 4: break, soft chords and a quiet melody over long bass notes.
    out.push_back({{{F, "F-1 r.......r.......", "h...h...h...h...", "C-3 ... ... ... A-2 ... ... ..."},
                    {G, "G-1 r.......r.......", "h...h...h...h...", "B-2 ... ... ... D-3 ... ... ..."},
                    {Am, "A-1 r.......r.......", "h...h...h...h...", "C-3 ... B-2 ... A-2 ... ... ..."},
                    {Am, "A-1 r.......r.....r.", "h...h...H.H.SSSS", "... ... ... ... === ... ... ..."}},
                   ChordSoft, 24});
    // 5: theme A again, climbing at the end.
    out.push_back({{{Am, bassA, drive, melodyA[0]}, {F, bassF, drive, melodyA[1]}, {C, bassC, drive, melodyA[2]},
                    {G, bassG, fill, "D-3 ... E-3 ... G-3 ... B-3 ..."}},
                   Chord, 0});
    // 6: outro, the theme's chords slowly, ending on A minor; everything stops at row 60.
    out.push_back({{{Am, "A-1 r...............", "K.......h.......", "A-3 ... ... ... ... ... ... ..."},
                    {F, "F-1 r...............", "h.......h.......", "... ... ... ... C-3 ... ... ..."},
                    {G, "G-1 r...............", "h.......h.......", "B-2 ... ... ... D-3 ... ... ..."},
                    {Am, "A-1 r...........-...", "K...............", "A-2 ... ... ... ... ... === ..."}},
                   ChordSoft, 28});
    return out;
}

}  // namespace

ProTrackerModule MusicComposer::compose() {
    ProTrackerModule module;
    module.title = "quillon";
    module.samples = {SampleSynth::kick(), SampleSynth::snare(), SampleSynth::hihat(), SampleSynth::bass(),
                      SampleSynth::lead(), SampleSynth::chord("chord", 24), SampleSynth::chord("chord soft", 12)};
    for (const PatternPlan& plan : plans()) {
        ModPattern pattern;
        for (int bar = 0; bar < 4; ++bar) writeBar(pattern, bar, plan.bars[bar], plan);
        module.patterns.push_back(pattern);
    }
    // Tempo and speed, stated on the first row rather than left to the players' defaults.
    effect(module.patterns[0], 0, Drums, ProTrackerModule::SetSpeed, speed);
    effect(module.patterns[0], 0, Melody, ProTrackerModule::SetSpeed, bpm);
    // The last chord stops with the others.
    ModPattern& outro = module.patterns.back();
    for (int row = 60; row < ModPattern::rows; ++row) outro.cells[size_t(row)][Chords] = ModCell();
    effect(outro, 60, Chords, ProTrackerModule::SetVolume, 0);
    module.order = {0, 1, 2, 3, 2, 3, 4, 5, 3, 6};
    return module;
}

}  // namespace qlntools
