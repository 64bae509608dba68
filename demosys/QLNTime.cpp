#include "demosys/QLNTime.h"

#include "qlnutils/QLNUtils.h"
#include "qlnutils/StringUtils.h"

QLNTime::QLNTime() = default;

QLNTime::QLNTime(unsigned int ticks)
    : minutes(static_cast<int>(ticks / 60000)),
      seconds(static_cast<int>(ticks % 60000 / 1000)),
      milliseconds(static_cast<int>(ticks % 60000 % 1000)),
      ticks(ticks) {}

QLNTime::QLNTime(int minutes, int seconds, int milliseconds)
    : minutes(minutes), seconds(seconds), milliseconds(milliseconds) {
    updateTicks();
}

QLNTime::QLNTime(std::string text) { setTimeAsString(std::move(text)); }

int QLNTime::getMinutes() const { return minutes; }
int QLNTime::getSeconds() const { return seconds; }
int QLNTime::getMilliseconds() const { return milliseconds; }
unsigned int QLNTime::getTicks() const { return ticks; }
double QLNTime::getTicksAsDouble() const { return static_cast<double>(ticks); }
bool QLNTime::isValid() const { return valid; }

void QLNTime::setMinutes(int value) {
    minutes = value;
    updateTicks();
}

void QLNTime::setSeconds(int value) {
    seconds = value;
    updateTicks();
}

void QLNTime::setMilliseconds(int value) {
    milliseconds = value;
    updateTicks();
}

void QLNTime::reset() {
    minutes = seconds = milliseconds = 0;
    ticks = 0;
}

void QLNTime::updateTicks() { ticks = time2uint(minutes, seconds, milliseconds); }

unsigned int QLNTime::time2uint(int minutes, int seconds, int milliseconds) {
    // Unsigned arithmetic: huge script values wrap instead of overflowing.
    return static_cast<unsigned int>(minutes) * 60000u + static_cast<unsigned int>(seconds) * 1000u +
           static_cast<unsigned int>(milliseconds);
}

void QLNTime::setTimeAsString(std::string text) {
    valid = true;
    StringTokenizer parts(text, ":");
    if (parts.countTokens() != 3) {
        reset();
        valid = false;
        return;
    }
    int* fields[3] = {&minutes, &seconds, &milliseconds};
    for (int* field : fields) {
        std::string token = parts.getNext();
        if (StringUtils::isInt(token))
            *field = QLNUtils::string2Int(token);
        else
            valid = false;
    }
    if (valid)
        updateTicks();
    else
        reset();
}

std::string QLNTime::toString() const {
    return "(" + forceStringLength(QLNUtils::uint2string(ticks), 10) + ")-[" +
           forceStringLength(QLNUtils::int2string(minutes), 2) + ":" +
           forceStringLength(QLNUtils::int2string(seconds), 2) + ":" +
           forceStringLength(QLNUtils::int2string(milliseconds), 3) + "]";
}

std::string QLNTime::forceStringLength(std::string text, unsigned int length) {
    return StringUtils::zeroPad(text, length);
}
