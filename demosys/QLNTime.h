#pragma once
// A point in demo time, both as minutes:seconds:milliseconds and as total milliseconds
// (ticks). The parts are never normalised: 0:75:2000 is a legal value.
#include <string>

class QLNTime {
public:
    QLNTime();
    QLNTime(unsigned int ticks);
    QLNTime(int minutes, int seconds, int milliseconds);
    QLNTime(std::string text);

    int getMinutes() const;
    int getSeconds() const;
    int getMilliseconds() const;
    unsigned int getTicks() const;
    double getTicksAsDouble() const;
    // False after a text that could not be read; the value is then zero.
    bool isValid() const;

    void setMinutes(int value);
    void setSeconds(int value);
    void setMilliseconds(int value);
    void reset();
    // Reads "mm:ss:mmm"; each part is a plain integer of any size.
    void setTimeAsString(std::string text);
    // "(0000083456)-[01:23:456]"
    std::string toString() const;

    static unsigned int time2uint(int minutes, int seconds, int milliseconds);
    // Left-pads with "0"; never cuts a longer text.
    static std::string forceStringLength(std::string text, unsigned int length);

private:
    void updateTicks();

    int minutes = 0;
    int seconds = 0;
    int milliseconds = 0;
    unsigned int ticks = 0;
    bool valid = true;
};
