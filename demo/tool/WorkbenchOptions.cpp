#include "demo/tool/WorkbenchOptions.h"

#include <vector>

#include "demosys/QLNTime.h"
#include "demosys/SyncEditorClient.h"
#include "qlnutils/StringUtils.h"

long long WorkbenchOptions::parseTime(const std::string& text) {
    int colons = 0;
    for (char c : text) {
        if (c == ':') ++colons;
        else if (c < '0' || c > '9') return -1;
    }
    if (colons != 2 || text.size() > 12) return -1;
    QLNTime time(text);
    return time.isValid() ? static_cast<long long>(time.getTicks()) : -1;
}

bool WorkbenchOptions::parseRange(const std::string& text, long long& from, long long& to) {
    size_t dash = text.find('-');
    if (dash == std::string::npos) return false;
    from = parseTime(text.substr(0, dash));
    to = parseTime(text.substr(dash + 1));
    return from >= 0 && to > from;
}

std::string WorkbenchOptions::usage() {
    return "usage: demotool [demoscript.txt] [options]\n"
           "  --start mm:ss:mmm        open at this demo time\n"
           "  --checkpoint N           open at the script's N-th checkpoint (from 1)\n"
           "  --loop mm:ss:mmm-mm:ss:mmm  play this range over and over\n"
           "  --bpm N                  beat grid for seeking (default: the script's, else seconds)\n"
           "  --control                read commands from standard input, one per line\n"
           "  --sync [host:port]       edit the sync tracks live in a sync editor (default 127.0.0.1:1338)\n"
           "  --no-overlay             start with the overlay hidden (O shows it)\n"
           "  --help                   this text\n";
}

bool WorkbenchOptions::parse(int argc, char** argv, std::string& error) {
    std::vector<std::string> scripts;
    for (int i = 1; i < argc; ++i) {
        std::string arg = argv[i];
        bool hasValue = i + 1 < argc;
        std::string value = hasValue ? argv[i + 1] : "";
        if (arg == "--help" || arg == "-h") {
            help = true;
        } else if (arg == "--control") {
            control = true;
        } else if (arg == "--sync") {
            sync = true;
            // The address is optional: a following word with a colon is one, anything else is not.
            if (hasValue && value.find(':') != std::string::npos && value[0] != '-') syncAddress = argv[++i];
            std::string host;
            unsigned short port;
            if (!SyncEditorClient::parseAddress(syncAddress, host, port)) {
                error = "--sync takes host:port, not '" + syncAddress + "'";
                return false;
            }
        } else if (arg == "--no-overlay") {
            overlay = false;
        } else if (arg == "--start" || arg == "--checkpoint" || arg == "--loop" || arg == "--bpm") {
            if (!hasValue) {
                error = arg + " needs a value";
                return false;
            }
            ++i;
            if (arg == "--start" && (start = parseTime(value)) < 0) {
                error = "--start takes a time as mm:ss:mmm, not '" + value + "'";
                return false;
            }
            if (arg == "--checkpoint" && (!StringUtils::isInt(value) || (checkpoint = std::stoi(value)) < 1)) {
                error = "--checkpoint takes a number from 1, not '" + value + "'";
                return false;
            }
            if (arg == "--loop" && !parseRange(value, loopStart, loopEnd)) {
                error = "--loop takes mm:ss:mmm-mm:ss:mmm with the start first, not '" + value + "'";
                return false;
            }
            bool number = StringUtils::isInt(value) || StringUtils::isFloat(value);
            if (arg == "--bpm" && (!number || (bpm = std::stod(value)) <= 0 || bpm > 1000)) {
                error = "--bpm takes a tempo between 0 and 1000, not '" + value + "'";
                return false;
            }
        } else if (arg.empty() || arg[0] != '-') {
            scripts.push_back(arg);
        } else {
            error = "unknown option '" + arg + "'";
            return false;
        }
    }
    if (scripts.size() > 1) error = "one demoscript only, not " + std::to_string(scripts.size());
    if (!scripts.empty()) script = scripts.front();
    return scripts.size() <= 1;
}
