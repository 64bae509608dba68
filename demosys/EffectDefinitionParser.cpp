#include "demosys/EffectDefinitionParser.h"

#include <exception>
#include <memory>
#include <string>

#include "demosys/EffectDefinition.h"
#include "demosys/ParameterGroup.h"
#include "demosys/Parameters.h"
#include "qlnutils/File.h"
#include "qlnutils/StringTokenizer.h"
#include "qlnutils/StringUtils.h"

namespace {

// Each parameter is declared with exactly this many [key=value] attributes.
const int attributeCount = 3;

// A repeated name replaces the earlier group; the replaced one is ours to free.
void replaceGroup(Parameters* collection, const std::string& name, ParameterGroup* group) {
    ParameterGroup* previous = collection->exist(name) ? collection->getGroup(name) : nullptr;
    collection->addGroup(name, group);
    if (previous != group) delete previous;
}

// Argument positions as two digits so that key order is argument order.
std::string positionKey(int position) {
    return StringUtils::zeroPad(std::to_string(position), 2);
}

}  // namespace

EffectDefinitionParser::EffectDefinitionParser(std::string fileName)
    : fileName(fileName), content(), errorMessage(), valid(true) {}

bool EffectDefinitionParser::isValid() { return valid; }

std::string EffectDefinitionParser::getErrorMessage() { return errorMessage; }

bool EffectDefinitionParser::loadFile(std::string name) {
    if (!File::readWholeFile(name, content)) {
        errorMessage = "EffectDefinitionParser : '" + name + "' not found!";
        valid = false;
        return false;
    }
    return true;
}

EffectDefinition* EffectDefinitionParser::parse() {
    if (!loadFile(fileName)) return nullptr;

    std::unique_ptr<Parameters> parameters;
    std::unique_ptr<Parameters> methods;
    StringTokenizer blocks(content, "{}");
    while (blocks.hasMoreTokens()) {
        std::string name = StringUtils::trim(blocks.getNext());
        std::string body = StringUtils::trim(blocks.getNext());
        if (name == "parameters") {
            parameters.reset(parseParameters(body));
        } else if (name == "methods") {
            methods.reset(parseMethods(body));
        } else {
            valid = false;
            // The file name is closed by a quote that was never opened; the text is kept as it is.
            errorMessage = "EffectDefinitionParser : Invalid block name!\n";
            errorMessage += "File : " + fileName + "'\n";
            errorMessage += "block name '" + name + "' is not valid\n";
            errorMessage += "Valid blocks : parameters, methods\n";
            return nullptr;
        }
    }

    EffectDefinition* definition = new EffectDefinition();
    if (methods) definition->setMethods(methods.release());
    if (parameters) definition->setParameters(parameters.release());
    return definition;
}

Parameters* EffectDefinitionParser::parseParameters(std::string body) {
    Parameters* parameters = new Parameters();
    StringTokenizer statements(body, ";");
    while (statements.hasMoreTokens()) {
        StringTokenizer pieces(statements.getNext(), "[]");
        std::string name = StringUtils::trim(pieces.getNext());
        ParameterGroup* group = new ParameterGroup(name);
        for (int i = 0; i < attributeCount; ++i) {
            // A missing attribute reads as an empty text and so adds an empty key.
            std::string attribute = StringUtils::trim(pieces.getNext());
            group->addParameter(getName(attribute), getValue(attribute));
        }
        replaceGroup(parameters, name, group);
    }
    return parameters;
}

Parameters* EffectDefinitionParser::parseMethods(std::string body) {
    Parameters* methods = new Parameters();
    StringTokenizer statements(body, ";");
    while (statements.hasMoreTokens()) {
        StringTokenizer pieces(statements.getNext(), "()");
        std::string name = StringUtils::trim(pieces.getNext());
        ParameterGroup* group = new ParameterGroup(name);
        StringTokenizer arguments(StringUtils::trim(pieces.getNext()), ",");
        for (int position = 0; arguments.hasMoreTokens(); ++position) {
            group->addParameter(positionKey(position), StringUtils::trim(arguments.getNext()));
        }
        replaceGroup(methods, name, group);
    }
    return methods;
}

std::string EffectDefinitionParser::getName(std::string attribute) {
    return attribute.substr(0, attribute.find('='));
}

std::string EffectDefinitionParser::getValue(std::string attribute) {
    std::string::size_type first = attribute.find('=');
    if (first == std::string::npos) return "";
    std::string::size_type second = attribute.find('=', first + 1);
    if (second == std::string::npos) return attribute.substr(first + 1);
    return attribute.substr(first + 1, second - first - 1);
}
