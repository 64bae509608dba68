#include "demosys/ScriptLines.h"

#include <algorithm>

namespace {

bool blank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

}  // namespace

// Mirrors the stripper: each line is cut at "//", trimmed, and kept with one CR after
// it when anything is left.
ScriptLines::ScriptLines(const std::string& text) {
    std::size_t stripped = 0;
    std::size_t start = 0;
    int line = 1;
    while (start <= text.size()) {
        std::size_t end = text.find_first_of("\r\n", start);
        if (end == std::string::npos) end = text.size();
        std::size_t stop = std::min(end, text.find("//", start));
        std::size_t first = start;
        while (first < stop && blank(text[first])) ++first;
        std::size_t last = stop;
        while (last > first && blank(text[last - 1])) --last;
        if (last > first) {
            kept.push_back({stripped, first, line});
            stripped += last - first + 1;
        }
        // A CR directly followed by LF ends one line, not two.
        bool crlf = end < text.size() && text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n';
        if (end < text.size() && !crlf) ++line;
        start = end + 1;
    }
}

const ScriptLines::Kept* ScriptLines::find(std::size_t position) const {
    if (kept.empty()) return nullptr;
    auto after = std::upper_bound(kept.begin(), kept.end(), position,
                                  [](std::size_t p, const Kept& k) { return p < k.stripped; });
    if (after == kept.begin()) return &kept.front();
    return &*(after - 1);
}

int ScriptLines::line(std::size_t position) const {
    const Kept* k = find(position);
    return k == nullptr ? 1 : k->line;
}

std::size_t ScriptLines::fileOffset(std::size_t position) const {
    const Kept* k = find(position);
    return k == nullptr ? 0 : k->file + (position - k->stripped);
}
