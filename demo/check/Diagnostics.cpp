#include "demo/check/Diagnostics.h"

#include <algorithm>
#include <tuple>

void Diagnostics::error(const std::string& file, int line, const std::string& message) {
    add(file, line, true, message);
    ++errorCount;
}

void Diagnostics::warning(const std::string& file, int line, const std::string& message) {
    add(file, line, false, message);
    ++warningCount;
}

void Diagnostics::add(const std::string& file, int line, bool isError, const std::string& message) {
    // The engine's messages end in a line break of their own.
    std::string text = message;
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
    findings.push_back({file, line, isError, text, findings.size()});
}

void Diagnostics::print(std::ostream& out) const {
    std::vector<Finding> sorted = findings;
    std::stable_sort(sorted.begin(), sorted.end(), [](const Finding& a, const Finding& b) {
        return std::make_tuple(!a.isError, a.file, a.line, a.order) <
               std::make_tuple(!b.isError, b.file, b.line, b.order);
    });
    for (const Finding& f : sorted)
        out << f.file << ':' << f.line << ": " << (f.isError ? "error" : "warning") << ": " << f.message << '\n';
}
