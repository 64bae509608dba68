#include "tools/EffectTables.h"

#include <memory>

#include "demosys/EffectDefinition.h"
#include "demosys/EffectDefinitionParser.h"
#include "demosys/ParameterGroup.h"
#include "demosys/Parameters.h"

namespace EffectTables {

namespace {

const std::string openMark = "<!-- tables: ";
const std::string closeMark = "<!-- end tables -->";

std::string attribute(ParameterGroup* group, const std::string& key) {
    return group->exist(key) ? group->getParameter(key) : "";
}

std::string allowed(ParameterGroup* parameter) {
    std::string type = attribute(parameter, "type");
    if (type == "bool") return "true, false, 1, 0";
    if (type == "float") return "a number with a fractional part, such as 1.0";
    if (type == "int") return "a whole number";
    std::string values = attribute(parameter, "values");
    if (values == "<string>" || values.empty()) return "any text; block[key] names a resource";
    std::string list;
    for (char c : values) list += c == ',' ? std::string(", ") : std::string(1, c);
    return list;
}

}  // namespace

std::string tables(const std::string& definitionDir, const std::string& className) {
    EffectDefinitionParser parser(definitionDir + className + ".def");
    std::unique_ptr<EffectDefinition> definition(parser.parse());
    if (!definition) return "";
    std::string text;
    Parameters* parameters = definition->hasParameters() ? definition->getParameters() : nullptr;
    if (parameters != nullptr && parameters->size() > 0) {
        text += "| parameter | type | default | allowed values |\n|---|---|---|---|\n";
        for (int i = 0; i < parameters->size(); ++i) {
            ParameterGroup* p = parameters->getValue(i);
            text += "| `" + parameters->getKey(i) + "` | " + attribute(p, "type") + " | `" + attribute(p, "default") +
                    "` | " + allowed(p) + " |\n";
        }
    } else {
        text += "No parameters.\n";
    }
    text += "\n";
    Parameters* methods = definition->hasMethods() ? definition->getMethods() : nullptr;
    if (methods != nullptr && methods->size() > 0) {
        text += "| method | arguments |\n|---|---|\n";
        for (int i = 0; i < methods->size(); ++i) {
            ParameterGroup* arguments = methods->getValue(i);
            std::string list;
            for (int k = 0; k < arguments->size(); ++k) list += (k > 0 ? ", " : "") + arguments->getValue(k);
            text += "| `" + methods->getKey(i) + "` | `" + list + "` |\n";
        }
    } else {
        text += "No methods: only `start` and `stop`.\n";
    }
    return text;
}

std::string refresh(const std::string& page, const std::string& definitionDir) {
    std::string result;
    size_t at = 0;
    while (true) {
        size_t open = page.find(openMark, at);
        size_t nameEnd = open == std::string::npos ? open : page.find(" -->\n", open);
        size_t close = nameEnd == std::string::npos ? nameEnd : page.find(closeMark, nameEnd);
        if (close == std::string::npos) break;
        std::string className = page.substr(open + openMark.size(), nameEnd - open - openMark.size());
        result += page.substr(at, nameEnd + 5 - at) + tables(definitionDir, className);
        at = close;
    }
    return result + page.substr(at);
}

}  // namespace EffectTables
