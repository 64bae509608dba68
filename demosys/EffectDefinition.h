#pragma once
// What one effect definition file declares about an effect class: its parameters, each a
// group of attributes with a "default", and its methods, each a group of argument details.
#include <string>

class ParameterGroup;
class Parameters;

class EffectDefinition {
public:
    EffectDefinition();
    explicit EffectDefinition(std::string name);
    ~EffectDefinition();
    EffectDefinition(const EffectDefinition&) = delete;
    EffectDefinition& operator=(const EffectDefinition&) = delete;

    std::string getName() const;
    // Both take ownership.
    void setParameters(Parameters* parameters);
    void setMethods(Parameters* methods);
    bool hasParameters() const;
    bool hasMethods() const;
    bool hasParameter(std::string name) const;
    bool hasMethod(std::string name) const;
    // Null when the section or the entry is missing.
    ParameterGroup* getParameter(std::string name) const;
    ParameterGroup* getMethod(std::string name) const;
    Parameters* getParameters() const;
    Parameters* getMethods() const;
    // A new group (owned by the caller) mapping each parameter to its "default".
    ParameterGroup* getDefaults() const;
    std::string toString() const;

private:
    std::string name;
    Parameters* parameters = nullptr;
    Parameters* methods = nullptr;
};
