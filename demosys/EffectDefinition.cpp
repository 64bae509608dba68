#include "demosys/EffectDefinition.h"

#include "demosys/ParameterGroup.h"
#include "demosys/ParameterReader.h"
#include "demosys/Parameters.h"

EffectDefinition::EffectDefinition() = default;

EffectDefinition::EffectDefinition(std::string name) : name(std::move(name)) {}

EffectDefinition::~EffectDefinition() {
    delete parameters;
    delete methods;
}

std::string EffectDefinition::getName() const { return name; }

void EffectDefinition::setParameters(Parameters* value) {
    if (value != parameters) delete parameters;
    parameters = value;
}

void EffectDefinition::setMethods(Parameters* value) {
    if (value != methods) delete methods;
    methods = value;
}

bool EffectDefinition::hasParameters() const { return parameters != nullptr; }

bool EffectDefinition::hasMethods() const { return methods != nullptr; }

bool EffectDefinition::hasParameter(std::string parameter) const {
    return parameters && parameters->exist(parameter);
}

bool EffectDefinition::hasMethod(std::string method) const { return methods && methods->exist(method); }

ParameterGroup* EffectDefinition::getParameter(std::string parameter) const {
    return parameters ? parameters->getGroup(parameter) : nullptr;
}

ParameterGroup* EffectDefinition::getMethod(std::string method) const {
    return methods ? methods->getGroup(method) : nullptr;
}

Parameters* EffectDefinition::getParameters() const { return parameters; }

Parameters* EffectDefinition::getMethods() const { return methods; }

ParameterGroup* EffectDefinition::getDefaults() const {
    auto* defaults = new ParameterGroup();
    if (!parameters) return defaults;
    for (int i = 0; i < parameters->size(); ++i) {
        ParameterGroup* attributes = parameters->getValue(i);
        // The definition reader always writes a default; a missing one reads as empty.
        std::string value = ParameterReader::text(attributes, "default");
        defaults->addParameter(parameters->getKey(i), value);
    }
    return defaults;
}

std::string EffectDefinition::toString() const {
    std::string text = "EffectDefinition {\n";
    text += "effect = " + name + "\n";
    text += parameters ? parameters->toString() + "\n" : "No Parameters\n";
    text += methods ? methods->toString() + "\n" : "No methods\n";
    return text + "}\n";
}
