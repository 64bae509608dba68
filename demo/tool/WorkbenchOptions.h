#pragma once
// Command line of the workbench: demotool [demoscript.txt] [options].
#include <string>

struct WorkbenchOptions {
    std::string script;            // name inside resources/scripts/, "" = the default
    long long start = -1;          // ms, -1 = the script's own start
    int checkpoint = 0;            // the script's N-th checkpoint (from 1), 0 = none
    long long loopStart = -1, loopEnd = -1;
    double bpm = 0;                // 0 = the script's "bpm" if it has one, else seconds
    bool control = false;          // take commands on standard input
    bool overlay = true;
    bool help = false;
    bool sync = false;             // link to a sync editor
    std::string syncAddress;       // "host:port", "" = 127.0.0.1:1338

    bool parse(int argc, char** argv, std::string& error);
    static std::string usage();
    // "mm:ss:mmm" to milliseconds; -1 when the text is no time.
    static long long parseTime(const std::string& text);
    // "mm:ss:mmm-mm:ss:mmm" with a start before the end.
    static bool parseRange(const std::string& text, long long& from, long long& to);
};
