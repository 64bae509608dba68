// Script time texts: an unreadable text must give the invalid zero time, a readable one
// consistent ticks.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "demosys/QLNTime.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string text(reinterpret_cast<const char*>(data), size);
    QLNTime time(1, 2, 3);
    time.setTimeAsString(text);
    if (time.isValid()) {
        if (time.getTicks() != QLNTime::time2uint(time.getMinutes(), time.getSeconds(), time.getMilliseconds()))
            abort();
    } else if (time.getTicks() != 0 || time.getMinutes() != 0 || time.getSeconds() != 0 ||
               time.getMilliseconds() != 0) {
        abort();
    }
    std::string printed = time.toString();
    if (printed.size() < 24 || printed.front() != '(' || printed.back() != ']') abort();

    QLNTime split(time.getTicks());
    if (split.getTicks() != time.getTicks()) abort();
    if (QLNTime::time2uint(split.getMinutes(), split.getSeconds(), split.getMilliseconds()) != split.getTicks())
        abort();
    return 0;
}
