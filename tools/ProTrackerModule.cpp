#include "tools/ProTrackerModule.h"

namespace qlntools {

namespace {

const int periods[36] = {856, 808, 762, 720, 678, 640, 604, 570, 538, 508, 480, 453,
                         428, 404, 381, 360, 339, 320, 302, 285, 269, 254, 240, 226,
                         214, 202, 190, 180, 170, 160, 151, 143, 135, 127, 120, 113};

void putWord(std::string& out, int value) {
    out.push_back(char((value >> 8) & 0xFF));
    out.push_back(char(value & 0xFF));
}

void putText(std::string& out, const std::string& text, size_t width) {
    for (size_t i = 0; i < width; ++i) out.push_back(i < text.size() ? text[i] : '\0');
}

}  // namespace

int ProTrackerModule::period(int octave, int semitone) {
    if (octave < 1 || octave > 3 || semitone < 0 || semitone > 11) return 0;
    return periods[(octave - 1) * 12 + semitone];
}

int ProTrackerModule::period(const std::string& name) {
    static const char* const names[12] = {"C-", "C#", "D-", "D#", "E-", "F-", "F#", "G-", "G#", "A-", "A#", "B-"};
    if (name.size() != 3 || name[2] < '1' || name[2] > '3') return 0;
    for (int s = 0; s < 12; ++s)
        if (name.compare(0, 2, names[s]) == 0) return period(name[2] - '0', s);
    return 0;
}

bool ProTrackerModule::encode(std::string& out, std::string& error) const {
    out.clear();
    if (samples.size() > 31 || order.empty() || order.size() > 128 || patterns.empty() || patterns.size() > 64) {
        error = "module: 1..31 samples, 1..128 orders and 1..64 patterns are allowed";
        return false;
    }
    int highest = 0;
    for (int p : order) {
        if (p < 0 || p >= int(patterns.size())) {
            error = "module: order names pattern " + std::to_string(p) + " that does not exist";
            return false;
        }
        highest = p > highest ? p : highest;
    }
    // Players count the patterns from the order list, so every pattern must be played.
    if (highest + 1 != int(patterns.size())) {
        error = "module: pattern " + std::to_string(patterns.size() - 1) + " is never played";
        return false;
    }
    putText(out, title, 20);
    for (size_t i = 0; i < 31; ++i) {
        if (i >= samples.size()) {
            putText(out, "", 22);
            putWord(out, 0);
            out.push_back(0);
            out.push_back(0);
            putWord(out, 0);
            putWord(out, 1);
            continue;
        }
        const ModSample& s = samples[i];
        if (s.data.size() % 2 != 0 || s.data.size() > 131070 || s.volume < 0 || s.volume > 64 || s.loopStart % 2 ||
            s.loopLength % 2 || s.loopStart < 0 || s.loopLength < 0 ||
            size_t(s.loopStart + s.loopLength) > s.data.size()) {
            error = "module: sample '" + s.name + "' has an odd length, a bad volume or a loop outside its data";
            return false;
        }
        putText(out, s.name, 22);
        putWord(out, int(s.data.size() / 2));
        out.push_back(0);  // finetune
        out.push_back(char(s.volume));
        putWord(out, s.loopLength > 0 ? s.loopStart / 2 : 0);
        putWord(out, s.loopLength > 0 ? s.loopLength / 2 : 1);
    }
    out.push_back(char(order.size()));
    out.push_back(char(127));
    for (size_t i = 0; i < 128; ++i) out.push_back(char(i < order.size() ? order[i] : 0));
    out += "M.K.";
    for (const ModPattern& pattern : patterns)
        for (const auto& row : pattern.cells)
            for (const ModCell& c : row) {
                if (c.sample < 0 || c.sample > 31 || c.period < 0 || c.period > 0xFFF || c.effect < 0 ||
                    c.effect > 0xF || c.param < 0 || c.param > 0xFF) {
                    error = "module: a pattern cell is out of range";
                    out.clear();
                    return false;
                }
                out.push_back(char((c.sample & 0xF0) | (c.period >> 8)));
                out.push_back(char(c.period & 0xFF));
                out.push_back(char(((c.sample & 0x0F) << 4) | c.effect));
                out.push_back(char(c.param));
            }
    for (const ModSample& s : samples) out.append(reinterpret_cast<const char*>(s.data.data()), s.data.size());
    return true;
}

}  // namespace qlntools
