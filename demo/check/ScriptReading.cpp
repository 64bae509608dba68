#include "demo/check/ScriptReading.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "demo/check/Diagnostics.h"
#include "demosys/DemoScriptParser.h"
#include "demosys/Parameters.h"
#include "demosys/Timeline.h"
#include "qlnutils/StringUtils.h"

namespace {

const std::string byteOrderMark = "\xEF\xBB\xBF";
// Far more than any script holds; it only bounds a reading that would not end.
const int maxReadings = 2000;

bool readFile(const std::string& path, std::string& text) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return false;
    std::ostringstream buffer;
    buffer << in.rdbuf();
    text = buffer.str();
    return true;
}

int lineAt(const std::string& text, size_t offset) {
    int line = 1;
    for (size_t i = 0; i < offset && i < text.size(); ++i) line += text[i] == '\n';
    return line;
}

bool startsWith(const std::string& text, const std::string& prefix) { return text.compare(0, prefix.size(), prefix) == 0; }

// Comments become blanks, so that positions and lines stay where they were.
std::string withoutComments(std::string text) {
    size_t at = 0;
    while ((at = text.find("//", at)) != std::string::npos) {
        size_t end = text.find_first_of("\r\n", at);
        if (end == std::string::npos) end = text.size();
        for (size_t i = at; i < end; ++i) text[i] = ' ';
        at = end;
    }
    return text;
}

}  // namespace

ScriptReading::ScriptReading(std::string scriptPath, Diagnostics& diagnostics)
    : scriptPath(std::move(scriptPath)), diagnostics(diagnostics) {}

ScriptReading::~ScriptReading() {
    releaseLast();
    if (!tempPath.empty()) std::remove(tempPath.c_str());
}

// Whoever parses owns the two collections the reader leaves behind.
void ScriptReading::releaseLast() {
    timeline.reset();
    if (!last) return;
    delete last->getParameterGroup("system_parameters");
    delete last->getParameterGroup("effect_parameters");
    last.reset();
}

bool ScriptReading::read() {
    if (!readFile(scriptPath, original)) {
        diagnostics.error(scriptPath, 0, "DemoScriptParser : '" + scriptPath + "' not found!");
        return false;
    }
    char name[] = "/tmp/democheck-XXXXXX";
    int fd = mkstemp(name);
    if (fd < 0) {
        diagnostics.error(scriptPath, 0, "cannot write a temporary copy of the script");
        return false;
    }
    close(fd);
    tempPath = name;

    working = original;
    checkText();
    for (int reading = 0; reading < maxReadings; ++reading) {
        bool finished = false;
        if (!readOnce(working, finished)) return false;
        if (finished) return true;
    }
    return false;
}

// Mistakes the reader passes over in silence, or reports in a way that hides the cause.
void ScriptReading::checkText() {
    if (startsWith(working, byteOrderMark)) {
        diagnostics.error(scriptPath, 1,
                          "the file starts with a UTF-8 byte-order mark, which the reader takes as part of the "
                          "header \"{QLNDS1}\"; save the file without one");
        working.replace(0, byteOrderMark.size(), "");
    }
    std::string text = withoutComments(working);
    for (size_t open = text.find('{'); open != std::string::npos; open = text.find('{', open + 1)) {
        size_t next = text.find_first_not_of(" \t\r\n", open + 1);
        if (next == std::string::npos || text[next] != '}') continue;
        size_t start = text.find_last_of("{};", open == 0 ? 0 : open - 1);
        start = start == std::string::npos || open == 0 ? 0 : start + 1;
        std::string block = text.substr(start, open - start);
        if (block.find('*') == std::string::npos) continue;
        std::string instance = StringUtils::trim(block.substr(0, block.find('*')));
        dropped.insert(instance);
        diagnostics.error(scriptPath, lineAt(text, text.find_first_not_of(" \t\r\n", start)),
                          "effect block '" + StringUtils::trim(block) +
                              "' is empty: the reader skips it, so every use of '" + instance +
                              "' fails with \"Script object '" + instance + "' not found\"; give it a parameter "
                              "such as 'comment = ...;'");
    }
}

bool ScriptReading::readOnce(const std::string& text, bool& finished) {
    {
        std::ofstream out(tempPath, std::ios::binary | std::ios::trunc);
        out << text;
    }
    releaseLast();
    last.reset(new DemoScriptParser(tempPath));
    last->parseDefaults(true);
    if (last->parse()) {
        timeline.reset(last->parseTimeline());
        if (last->isValid()) {
            finished = true;
            return true;
        }
    }
    std::string message = last->getErrorMessage();
    if (startsWith(message, "EffectDefinitionParser")) return definitionError(message);
    size_t begin = last->getErrorBegin();
    size_t end = last->getErrorEnd();
    bool fatal = message.find("Invalid Script Header") != std::string::npos ||
                 message.find("mismatching brackets") != std::string::npos || end <= begin || end > working.size();

    bool dependent = false;
    for (const std::string& instance : dropped)
        dependent = dependent || message.find("Script object '" + instance + "' not found") != std::string::npos;
    if (!dependent) diagnostics.error(scriptPath, last->getErrorLine(), message);
    if (fatal) return false;

    // A whole effect block that failed takes its instance with it.
    std::string span = working.substr(begin, end - begin);
    size_t brace = span.find('{');
    if (brace != std::string::npos && span.substr(0, brace).find('*') != std::string::npos)
        dropped.insert(StringUtils::trim(span.substr(0, span.find('*'))));
    blank(begin, end);
    return true;
}

void ScriptReading::blank(size_t begin, size_t end) {
    for (size_t i = begin; i < end && i < working.size(); ++i)
        if (working[i] != '\n' && working[i] != '\r') working[i] = ' ';
}

// Every definition is needed to read any block: a broken one ends the check.
bool ScriptReading::definitionError(const std::string& message) {
    // "File : PATH'\nblock name 'NAME' is not valid": the block is found in the file.
    const std::string fileMark = "File : ";
    const std::string nameMark = "'\nblock name '";
    size_t file = message.find(fileMark);
    size_t name = file == std::string::npos ? file : message.find(nameMark, file);
    size_t nameEnd = name == std::string::npos ? name : message.find("' is not valid", name);
    if (nameEnd != std::string::npos) {
        std::string path = message.substr(file + fileMark.size(), name - file - fileMark.size());
        std::string block = message.substr(name + nameMark.size(), nameEnd - name - nameMark.size());
        std::string defText;
        int line = 1;
        if (readFile(path, defText)) {
            size_t at = withoutComments(defText).find(block);
            if (at != std::string::npos) line = lineAt(defText, at);
        }
        diagnostics.error(path, line, message);
    } else {
        int line = last->getLine("paths", "definition");
        diagnostics.error(scriptPath, line > 0 ? line : last->getLine("paths"), message);
    }
    return false;
}
