#include "demosys/ScriptDefaults.h"

#include "demosys/EffectDefinition.h"
#include "demosys/ParameterGroup.h"

ScriptDefaults::ScriptDefaults() = default;

ScriptDefaults::~ScriptDefaults() {
    for (auto& entry : definitions) delete entry.second;
}

int ScriptDefaults::size() const { return static_cast<int>(definitions.size()); }

bool ScriptDefaults::exists(std::string name) const { return definitions.count(name) != 0; }

void ScriptDefaults::addEffectDefinition(std::string name, EffectDefinition* definition) {
    definitions[name] = definition;
}

EffectDefinition* ScriptDefaults::getEffectDefinition(std::string name) { return definitions[name]; }

ParameterGroup* ScriptDefaults::getDefaults(std::string name) const {
    auto found = definitions.find(name);
    if (found == definitions.end() || !found->second) return nullptr;
    return found->second->getDefaults();
}

std::string ScriptDefaults::toString() const {
    std::string text = "ScriptDefaults {\n";
    for (const auto& [name, definition] : definitions)
        text += "Definition : " + name + "\n" + (definition ? definition->toString() : "") + "\n";
    return text + "}\n";
}
