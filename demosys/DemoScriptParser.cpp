#include "demosys/DemoScriptParser.h"

#include <exception>
#include <algorithm>
#include <iostream>
#include <vector>

#include "demosys/Data.h"
#include "demosys/DataEffectPool.h"
#include "demosys/DataEventPool.h"
#include "demosys/EffectDefinition.h"
#include "demosys/EffectDefinitionParser.h"
#include "demosys/ParameterGroup.h"
#include "demosys/ParameterReader.h"
#include "demosys/Parameters.h"
#include "demosys/QLNDemosys.h"
#include "demosys/ScriptDefaults.h"
#include "demosys/ValueType.h"
#include "qlnutils/File.h"
#include "qlnutils/StringTokenizer.h"
#include "qlnutils/StringUtils.h"

std::string DemoScriptParser::header = "{QLNDS1}";

namespace {

const char* const systemParameters = "system_parameters";
const char* const effectParameters = "effect_parameters";

std::string mismatchingBrackets(const std::string& name) {
    return "Error parsing demoscript!\nBlock have mismatching brackets\nBlock : '" + name + "'\n";
}

// A definition's defaults built here rather than by the definition itself, so that a
// .def parameter without a "default" attribute reads as an empty value instead of
// failing the lookup.
ParameterGroup* defaultsOf(EffectDefinition* definition) {
    ParameterGroup* defaults = new ParameterGroup();
    if (definition == nullptr || !definition->hasParameters()) return defaults;
    Parameters* declared = definition->getParameters();
    for (int i = 0; i < declared->size(); ++i) {
        ParameterGroup* attributes = declared->getValue(i);
        std::string value = ParameterReader::text(attributes, "default");
        defaults->addParameter(declared->getKey(i), value);
    }
    return defaults;
}

}  // namespace

DemoScriptParser::DemoScriptParser(std::string fileName)
    : fileName(fileName),
      scriptDefaults(nullptr),
      currentGroup(nullptr),
      errorMessage("Unknown error"),
      valid(true),
      doParseDefaults(false),
      debug(false) {
    std::string text;
    if (!File::readWholeFile(fileName, text)) {
        errorMessage = "DemoScriptParser : '" + fileName + "' not found!";
        valid = false;
        return;
    }
    scriptText = stripComments(text);
    lines = ScriptLines(text);
}

DemoScriptParser::~DemoScriptParser() {
    delete scriptDefaults;
    delete currentGroup;
}

void DemoScriptParser::setDebug(bool value) { debug = value; }

void DemoScriptParser::parseDefaults(bool value) { doParseDefaults = value; }

bool DemoScriptParser::isValid() { return valid; }

std::string DemoScriptParser::getErrorMessage() { return errorMessage; }

int DemoScriptParser::getErrorLine() { return valid ? 0 : lines.line(errorBegin); }

std::size_t DemoScriptParser::getErrorBegin() { return lines.fileOffset(errorBegin); }

std::size_t DemoScriptParser::getErrorEnd() {
    return errorEnd > errorBegin ? lines.fileOffset(errorEnd - 1) + 1 : getErrorBegin();
}

int DemoScriptParser::getLine(const std::string& block, const std::string& key) {
    auto found = lineIndex.find(key.empty() ? block : block + '\n' + key);
    return found == lineIndex.end() ? 0 : found->second;
}

void DemoScriptParser::mark(std::size_t begin, std::size_t end) {
    markBegin = begin;
    markEnd = end;
}

void DemoScriptParser::markStatement(const std::string& key) {
    auto found = statementAt.find(key);
    if (found == statementAt.end())
        mark(blockBegin, blockEnd);
    else
        mark(found->second.first, found->second.second);
}

ScriptDefaults* DemoScriptParser::getScriptDefaults() { return scriptDefaults; }

std::string DemoScriptParser::getTimelineText() { return timelineText; }

Parameters* DemoScriptParser::getParameterGroup(std::string name) {
    std::map<std::string, Parameters*>::iterator found = collections.find(name);
    return found == collections.end() ? nullptr : found->second;
}

void DemoScriptParser::addParameterGroup(std::string name, Parameters* parameters) {
    collections[name] = parameters;
}

// "//" starts a comment anywhere on a line, even inside a value. What is left of each
// line is trimmed; empty lines go; the rest is joined with a CR after each line.
std::string DemoScriptParser::stripComments(const std::string& text) {
    std::string result;
    result.reserve(text.size());
    std::string::size_type start = 0;
    // The next "//" at or after the line start: searched again only once passed, so a
    // long script without comments is not scanned to its end for every line.
    std::string::size_type comment = text.find("//");
    while (start <= text.size()) {
        std::string::size_type end = text.find_first_of("\r\n", start);
        if (end == std::string::npos) end = text.size();
        std::string::size_type length = end - start;
        if (comment != std::string::npos && comment < start) comment = text.find("//", start);
        if (comment < end) length = comment - start;
        std::string line = StringUtils::trim(text.substr(start, length));
        if (!line.empty()) {
            result += line;
            result += '\r';
        }
        start = end + 1;
    }
    return StringUtils::trim(result);
}

DataEffectPool* DemoScriptParser::templatePool() {
    if (QLNDemosys::data == nullptr) return nullptr;
    return dynamic_cast<DataEffectPool*>(QLNDemosys::data->getData("effectTemplatePool"));
}

DataEventPool* DemoScriptParser::eventTemplates() {
    if (QLNDemosys::data == nullptr) return nullptr;
    return dynamic_cast<DataEventPool*>(QLNDemosys::data->getData("eventPool"));
}

void DemoScriptParser::fail(const std::string& message) {
    errorBegin = markBegin;
    errorEnd = markEnd;
    valid = false;
    errorMessage = message;
    delete currentGroup;
    currentGroup = nullptr;
}

// Blocks of the same name replace each other; the replaced group is not kept anywhere.
void DemoScriptParser::storeGroup(Parameters* collection, const std::string& name, ParameterGroup* group) {
    ParameterGroup* previous = collection->exist(name) ? collection->getGroup(name) : nullptr;
    collection->addGroup(name, group);
    if (previous != group) delete previous;
}

bool DemoScriptParser::parse() {
    if (!valid) return false;
    collections[systemParameters] = new Parameters();
    collections[effectParameters] = new Parameters();

    StringTokenizer tokens(scriptText, "{}", true);
    std::string head = tokens.getNext();
    head += tokens.getNext();
    head += tokens.getNext();
    // Tokens are found again in the text, in order, to know where each one is.
    std::size_t cursor = scriptText.find('}');
    cursor = cursor == std::string::npos ? 0 : cursor + 1;
    mark(0, cursor);
    if (!checkHeader(head)) {
        fail("Error while parsing demoscript!\nInvalid Script Header\nHeader : '" + head + "'\n");
        return false;
    }

    while (tokens.hasMoreTokens()) {
        std::string rawName = tokens.getNext();
        std::string name = StringUtils::trim(stripComments(rawName));
        blockBegin = std::min(scriptText.find(StringUtils::trim(rawName), cursor), scriptText.size());
        cursor = blockBegin + StringUtils::trim(rawName).size();
        mark(blockBegin, cursor);
        lineIndex[isEffectDefinition(name) ? getEffectName(name) : name] = lines.line(blockBegin);
        if (StringUtils::trim(tokens.getNext()) != "{") {
            fail(mismatchingBrackets(name));
            return false;
        }
        std::string rawBody = tokens.getNext();
        std::string body = stripComments(rawBody);
        bodyBegin = std::min(scriptText.find(rawBody, cursor), scriptText.size());
        cursor = bodyBegin + rawBody.size();
        blockEnd = cursor;
        if (body == "}") continue;  // an empty block makes no group at all
        if (StringUtils::trim(tokens.getNext()) != "}") {
            fail(mismatchingBrackets(name));
            return false;
        }
        blockEnd = ++cursor;
        mark(blockBegin, blockEnd);
        if (!parseBlock(name, body)) return false;
    }
    return valid;
}

bool DemoScriptParser::parseBlock(const std::string& name, const std::string& body) {
    if (name == "timeline") {
        timelineBegin = bodyBegin;
        timelineText = body;
        return true;
    }
    if (!selectCurrentGroup(name) || !readStatements(name, body)) return false;
    if (isEffectDefinition(name)) return storeEffectBlock(name);

    storeGroup(collections[systemParameters], name, currentGroup);
    currentGroup = nullptr;
    // The definitions' directory is known from here on.
    if (name == "paths" && doParseDefaults) return loadDefinitions();
    return true;
}

bool DemoScriptParser::selectCurrentGroup(const std::string& name) {
    delete currentGroup;
    currentGroup = nullptr;
    if (name == "paths" || !doParseDefaults) {
        currentGroup = new ParameterGroup();
        return true;
    }
    if (isEffectDefinition(name)) {
        std::string className = getEffectClass(name);
        if (scriptDefaults == nullptr || !scriptDefaults->exists(className)) {
            fail("Error parsing demoscript!\nDefaults for block '" + className + "' not found!\n" +
                 "Possible Cause :\n" + "- There is no .def file for the block\n" +
                 "- Block name have a spelling error?\n" +
                 "- paths { } is not the first block in the demoscript?\n");
            return false;
        }
        currentGroup = defaultsOf(scriptDefaults->getEffectDefinition(className));
        return true;
    }
    if (scriptDefaults != nullptr && scriptDefaults->exists(name)) {
        currentGroup = defaultsOf(scriptDefaults->getEffectDefinition(name));
        if (debug) std::cout << "block name : " << name << "\n" << currentGroup->toString() << std::endl;
    } else {
        currentGroup = new ParameterGroup();
    }
    return true;
}

bool DemoScriptParser::readStatements(const std::string& name, const std::string& body) {
    StringTokenizer statements(body, ";");
    statementAt.clear();
    std::size_t cursor = bodyBegin;
    while (statements.hasMoreTokens()) {
        std::string statement = StringUtils::trim(statements.getNext());
        std::size_t at = std::min(scriptText.find(statement, cursor), scriptText.size());
        cursor = at + statement.size();
        mark(at, cursor);
        StringTokenizer pieces(statement, "=");
        std::string key = StringUtils::trim(pieces.getNext());
        std::string value = StringUtils::trim(pieces.getNext());
        std::string start = "Error while parsing demoscript!\nBlock : '" + name + "'\nError: Parameter '" + key;
        if (StringTokenizer(key, " \n\t\r").countTokens() != 1) {
            fail(start + "' is not a single word.\nProbable cause: Semocolon forgotten or misplaced");
            return false;
        }
        if (pieces.countTokens() > 2) {
            fail(start + "' have too many tokens.\nValue : '" + value +
                 "'\nProbable cause: Semocolon forgotten or misplaced");
            return false;
        }
        if (pieces.countTokens() < 2) {
            fail(start + "' dont seem to have a value\nProbable cause: Semocolon misplaced or no assigned value ('" +
                 key + " = ;')");
            return false;
        }
        currentGroup->addParameter(key, value);
        statementAt[key] = std::make_pair(at, cursor);
        lineIndex[(isEffectDefinition(name) ? getEffectName(name) : name) + '\n' + key] = lines.line(at);
    }
    return true;
}

bool DemoScriptParser::storeEffectBlock(const std::string& name) {
    std::string instance = getEffectName(name);
    std::string className = getEffectClass(name);
    std::string start = "Error while parsing demoscript!\nBlock : '" + instance + "' (Effect Definition)\n";
    mark(blockBegin, blockEnd);

    DataEffectPool* templates = templatePool();
    if (templates == nullptr || !templates->exist(className)) {
        fail(start + "Error : Effect template '" + className + "' do not exist!\n" +
             "Probable cause : Spelling error or your effect template is not added to the Demosys.\n");
        return false;
    }
    Parameters* effects = collections[effectParameters];
    if (effects->exist(instance)) {
        fail(start + "Error : Redefinition of scriptobject '" + instance + "'\n" +
             "Probable cause : You have two or more effects with identical names\n" + "Effect names must be unique!\n");
        return false;
    }
    if (doParseDefaults) {
        for (int i = 0; i < currentGroup->size(); ++i) {
            if (!validateEntry(instance, className, currentGroup->getKey(i), currentGroup->getValue(i))) return false;
        }
    }
    currentGroup->addParameter("class", className);
    storeGroup(effects, instance, currentGroup);
    currentGroup = nullptr;
    return true;
}

bool DemoScriptParser::validateEntry(const std::string& instance, const std::string& className,
                                     const std::string& key, const std::string& value) {
    std::string message = "Error while parsing demoscript!\nBlock : '" + instance + "' (Effect Definition)\n" +
                          "Parameter :  '" + key + "'\n";
    markStatement(key);
    EffectDefinition* definition = scriptDefaults->getEffectDefinition(className);
    if (definition == nullptr || !definition->hasParameter(key)) {
        fail(message + "Error :  Not defined as a valid parameter for " + className + "\n");
        return false;
    }
    ParameterGroup* attributes = definition->getParameter(key);
    std::string type = ParameterReader::text(attributes, "type");
    message += "Value :  '" + value + "'\n";

    ValueType::Kind kind = ValueType::ofParameter(type);
    if (kind != ValueType::String && kind != ValueType::Unknown) {
        if (ValueType::accepts(kind, value)) return true;
        fail(message + "Error :  value is not " + ValueType::parameterNoun(kind) + " as defined in " + className +
             ".def\n");
        return false;
    }
    if (kind == ValueType::String) {
        std::string options = ParameterReader::text(attributes, "values");
        if (options != "<string>") {
            bool allowed = false;
            StringTokenizer option(options, ",");
            while (option.hasMoreTokens() && !allowed) allowed = StringUtils::trim(option.getNext()) == value;
            if (!allowed) {
                fail(message + "Error :  value is not a valid option\n" + "Defined options are : " + options + "\n");
                return false;
            }
        }
        std::string resolved = reverseLookup(value);
        if (resolved.empty()) {
            fail(message + "Error : Reverse lookup failed\n");
            return false;
        }
        currentGroup->addParameter(key, resolved);
        return true;
    }
    message += "Param type : " + type + "\n" + "Error : Parameter type is not supported!";
    std::cerr << message << std::endl;
    fail(message);
    return false;
}

bool DemoScriptParser::loadDefinitions() {
    std::cout << "[Parsing .def files]" << std::endl;
    delete scriptDefaults;
    scriptDefaults = new ScriptDefaults();

    ParameterGroup* paths = collections[systemParameters]->getGroup("paths");
    std::string path = ParameterReader::text(paths, "definition");
    std::cout << "path = " << path << std::endl;

    std::vector<std::string> names;
    if (DataEffectPool* templates = templatePool()) {
        for (int i = 0; i < templates->size(); ++i) {
            names.push_back(templates->getKey(i));
            std::cout << "-> " << names.back() << std::endl;
        }
    }
    names.push_back("system");
    names.push_back("screen");
    names.push_back("sound");

    for (const std::string& name : names) {
        // The quote is left open in this line as it always was.
        if (debug) std::cout << "Loading definition : '" << path << name << ".def" << std::endl;
        EffectDefinitionParser parser(path + name + ".def");
        EffectDefinition* definition = parser.parse();
        if (definition == nullptr) {
            fail(parser.getErrorMessage());
            return false;
        }
        EffectDefinition* previous = scriptDefaults->exists(name) ? scriptDefaults->getEffectDefinition(name) : nullptr;
        scriptDefaults->addEffectDefinition(name, definition);
        delete previous;
    }
    return true;
}

std::string DemoScriptParser::reverseLookup(std::string value) {
    std::string::size_type open = value.find('[');
    std::string::size_type close = value.find(']');
    if (open == std::string::npos || close == std::string::npos) return value;
    std::string block = value.substr(0, open);
    // A "]" before the "[" makes the count wrap; substr then takes the rest of the text.
    std::string key = value.substr(open + 1, close - open - 1);
    Parameters* system = getParameterGroup(systemParameters);
    ParameterGroup* group = system != nullptr && system->exist(block) ? system->getGroup(block) : nullptr;
    if (group == nullptr || !group->exist(key)) return "";
    return key;
}

bool DemoScriptParser::isEffectDefinition(std::string blockName) {
    return blockName.find('*') != std::string::npos;
}

std::string DemoScriptParser::getEffectName(std::string blockName) {
    return StringUtils::trim(blockName.substr(0, blockName.find('*')));
}

std::string DemoScriptParser::getEffectClass(std::string blockName) {
    std::string::size_type star = blockName.find('*');
    if (star == std::string::npos) return "";
    std::string rest = blockName.substr(star + 1);
    return StringUtils::trim(rest.substr(0, rest.find('*')));
}

std::string DemoScriptParser::errorStringOMP(std::string object, std::string method, std::string parameter) {
    return "Error while parsing Timeline!\nobject : " + object + "\nmethod : " + method + "\nparameter : " + parameter +
           "\n";
}

std::string DemoScriptParser::forceStringLength(std::string text, unsigned int length) {
    return StringUtils::zeroPad(text, length);
}

bool DemoScriptParser::checkHeader(std::string text) { return text == header; }
