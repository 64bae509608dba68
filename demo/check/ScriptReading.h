#pragma once
// Reads a demoscript with the engine's own reader, as often as it takes to find every
// error: the engine stops at the first one, so each failing block, statement or timeline
// declaration is reported with its line, blanked out (lines kept) and the text read again.
#include <memory>
#include <set>
#include <string>

class DemoScriptParser;
class Diagnostics;
class Timeline;

class ScriptReading {
public:
    // The effect templates and event templates must be registered already.
    ScriptReading(std::string scriptPath, Diagnostics& diagnostics);
    ~ScriptReading();
    ScriptReading(const ScriptReading&) = delete;
    ScriptReading& operator=(const ScriptReading&) = delete;

    // False when the script could not be read to its end (no file, a bad header,
    // unbalanced braces or a broken .def file): nothing more is worth checking then.
    bool read();

    // The last reading, valid once read() is true: the parts of the script that read.
    DemoScriptParser& parser() { return *last; }
    const std::string& path() const { return scriptPath; }
    const std::string& text() const { return original; }

private:
    bool readOnce(const std::string& text, bool& finished);
    bool definitionError(const std::string& message);
    void checkText();
    void blank(size_t begin, size_t end);
    void releaseLast();

    std::string scriptPath;
    Diagnostics& diagnostics;
    std::string original;
    std::string working;
    std::string tempPath;
    std::unique_ptr<DemoScriptParser> last;
    std::unique_ptr<Timeline> timeline;
    // Instances whose block was dropped: the timeline's "not found" for them adds nothing.
    std::set<std::string> dropped;
};
