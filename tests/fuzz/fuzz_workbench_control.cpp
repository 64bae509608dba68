// Workbench control input: whatever arrives on the pipe comes out as the same text cut
// into lines, and the time and range readers accept only what they can stand by.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "demo/tool/ControlInput.h"
#include "demo/tool/WorkbenchOptions.h"
#include "demosys/QLNTime.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > 32768) return 0;  // stays inside one pipe buffer
    int ends[2];
    if (pipe(ends) != 0) return 0;
    std::string sent(reinterpret_cast<const char*>(data), size);
    if (write(ends[1], sent.data(), sent.size()) != static_cast<ssize_t>(sent.size())) abort();
    close(ends[1]);
    ControlInput input(ends[0]);
    std::string joined;
    for (int polls = 0; polls < 4 && !input.closed(); ++polls) {
        for (const std::string& line : input.poll()) {
            if (line.find('\n') != std::string::npos) abort();
            joined += line + "\n";
            long long t = WorkbenchOptions::parseTime(line);
            if (t >= 0 && QLNTime(static_cast<unsigned int>(t)).getTicks() != t) abort();
            long long from = -1, to = -1;
            if (WorkbenchOptions::parseRange(line, from, to) && !(from >= 0 && to > from)) abort();
        }
    }
    close(ends[0]);
    if (!input.closed()) abort();
    // Same text, line ends aside (a carriage return before a line end is dropped).
    std::string expected;
    for (size_t i = 0; i < sent.size(); ++i)
        if (!(sent[i] == '\r' && i + 1 < sent.size() && sent[i + 1] == '\n')) expected += sent[i];
    if (!expected.empty() && expected.back() != '\n') expected += '\n';
    if (joined != expected) abort();
    return 0;
}
