#pragma once
// What the timeline does once the reader has accepted it: declarations that add nothing,
// times not written mm:ss:mmm, layers and render targets that do not exist, and the
// warnings of a dry run of the events in time order (calls on effects that are not
// running, stops before starts, events after the end, effects and resources nothing
// uses, effects drawn after a tunnel's culling state).
#include <map>
#include <set>
#include <string>
#include <vector>

class Diagnostics;
class DemoScriptParser;
class ScriptReading;

class TimelineCheck {
public:
    TimelineCheck(ScriptReading& script, Diagnostics& diagnostics);
    void run();

private:
    enum Kind { Start, Stop, Call };
    struct Event {
        unsigned int time;
        Kind kind;
        std::string object;
        std::string method;
        int layer;
        int line;
    };
    struct Running {
        int layer;
        int line;
    };

    void readDeclaration(int line, const std::string& text);
    void readPlain(int line, const std::string& declaration);
    void readCall(int line, const std::string& object, const std::string& method, std::vector<std::string> args);
    bool checkTime(int line, const std::string& text, const std::string& what);
    void playEvents();
    void checkCulling(const std::map<std::string, Running>& running, int line);
    void checkUnused();
    std::string classOf(const std::string& instance);

    ScriptReading& script;
    DemoScriptParser& parser;
    Diagnostics& diagnostics;
    std::vector<Event> events;
    std::set<std::string> usedNames;
    std::set<std::string> started;
    std::set<std::string> reportedCulling;
    // The face culling a frame leaves behind; the demo starts with back faces culled.
    struct {
        bool enabled = true;
        bool front = false;
        std::string tunnel;
    } culling;
};
