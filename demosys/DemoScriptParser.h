#pragma once
// Reads a demoscript: checks its header, strips comments, cuts it into blocks, merges
// each block with the defaults of its .def definition and validates effect blocks.
// The results are the collections "system_parameters" and "effect_parameters" and,
// through parseTimeline, the timeline built from the script's timeline block.
#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "demosys/ScriptLines.h"
#include "demosys/SyncBinding.h"

class Parameters;
class ParameterGroup;
class ScriptDefaults;
class Timeline;
class DataEffectPool;
class DataEventPool;

class DemoScriptParser {
public:
    static std::string header;

    // Reads the file and strips its comments; a missing file leaves the parser invalid.
    explicit DemoScriptParser(std::string fileName);
    // Deletes the loaded definitions. The two collections are not deleted: whoever
    // parses takes them over (the loader hands them to the shared system state).
    ~DemoScriptParser();
    DemoScriptParser(const DemoScriptParser&) = delete;
    DemoScriptParser& operator=(const DemoScriptParser&) = delete;

    void setDebug(bool debug);
    void parseDefaults(bool parse);

    // Reads the blocks; returns isValid(). Does nothing once the parser is invalid.
    bool parse();
    // The timeline block as a new Timeline owned by the caller; null if the parser is
    // invalid beforehand. Afterwards isValid() tells whether every declaration was read.
    Timeline* parseTimeline();

    Parameters* getParameterGroup(std::string name);
    void addParameterGroup(std::string name, Parameters* parameters);
    ScriptDefaults* getScriptDefaults();
    std::string getTimelineText();
    // The timeline's sync lines, checked against the definitions, in script order.
    const std::vector<SyncBinding>& getSyncBindings() const;

    bool isValid();
    std::string getErrorMessage();
    // Where the error lies: the file line of the failing block, statement or declaration
    // (0 while there is none) and its byte range in the file.
    int getErrorLine();
    std::size_t getErrorBegin();
    std::size_t getErrorEnd();
    // The file line of a block (an effect block by its instance name) or of one of its
    // statements; 0 when there is none. Blocks read before an error only.
    int getLine(const std::string& block, const std::string& key = "");
    // Each timeline declaration read so far, trimmed, with its file line.
    const std::vector<std::pair<int, std::string>>& getDeclarations() const { return declarationLines; }

    bool isEffectDefinition(std::string blockName);
    std::string getEffectName(std::string blockName);
    std::string getEffectClass(std::string blockName);
    std::string reverseLookup(std::string value);
    std::string errorStringOMP(std::string object, std::string method, std::string parameter);
    std::string forceStringLength(std::string text, unsigned int length);
    bool checkHeader(std::string text);

private:
    static std::string stripComments(const std::string& text);
    static DataEffectPool* templatePool();
    static DataEventPool* eventTemplates();

    void fail(const std::string& message);
    // The part of the stripped text being read: an error is placed there.
    void mark(std::size_t begin, std::size_t end);
    void markStatement(const std::string& key);
    bool parseBlock(const std::string& name, const std::string& body);
    bool selectCurrentGroup(const std::string& name);
    bool readStatements(const std::string& name, const std::string& body);
    bool storeEffectBlock(const std::string& name);
    bool validateEntry(const std::string& instance, const std::string& className,
                       const std::string& key, const std::string& value);
    bool loadDefinitions();
    void storeGroup(Parameters* collection, const std::string& name, ParameterGroup* group);

    // The event templates are looked up once per timeline and handed along.
    bool readDeclaration(Timeline* timeline, DataEventPool* templates, std::string text);
    bool readCall(Timeline* timeline, DataEventPool* templates, const std::string& object,
                  const std::string& methodPart);
    bool readMethodCall(Timeline* timeline, DataEventPool* templates, const std::string& object,
                        const std::string& className, const std::string& method, ParameterGroup* arguments,
                        int count);
    bool readPlainDeclaration(Timeline* timeline, const std::string& declaration);
    bool readSyncCall(const std::string& object, ParameterGroup* arguments, int count);

    std::string fileName;
    std::string timelineText;
    std::string scriptText;
    std::map<std::string, Parameters*> collections;
    ScriptDefaults* scriptDefaults;
    ParameterGroup* currentGroup;
    std::string errorMessage;
    bool valid;
    bool doParseDefaults;
    bool debug;
    std::vector<SyncBinding> syncBindings;

    ScriptLines lines;
    std::size_t markBegin = 0, markEnd = 0;
    std::size_t errorBegin = 0, errorEnd = 0;
    std::size_t blockBegin = 0, blockEnd = 0, bodyBegin = 0, timelineBegin = 0;
    std::map<std::string, std::pair<std::size_t, std::size_t>> statementAt;
    std::map<std::string, int> lineIndex;
    std::vector<std::pair<int, std::string>> declarationLines;
};
