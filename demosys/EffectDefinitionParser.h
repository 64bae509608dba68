#pragma once
// Reads one effect definition file (.def): the parameters a script block of that kind
// may set, with their attributes, and the methods the timeline may call on it.
#include <string>

class EffectDefinition;
class Parameters;

class EffectDefinitionParser {
public:
    explicit EffectDefinitionParser(std::string fileName);

    // A new definition (owned by the caller, with an empty name) or null on error.
    EffectDefinition* parse();
    bool isValid();
    std::string getErrorMessage();

    // The steps of parse, usable on their own.
    bool loadFile(std::string fileName);
    Parameters* parseParameters(std::string body);
    Parameters* parseMethods(std::string body);
    std::string getName(std::string attribute);
    std::string getValue(std::string attribute);

private:
    std::string fileName;
    std::string content;
    std::string errorMessage;
    bool valid;
};
