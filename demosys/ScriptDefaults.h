#pragma once
// Every loaded effect definition by name. Owns the definitions.
#include <map>
#include <string>

class EffectDefinition;
class ParameterGroup;

class ScriptDefaults {
public:
    ScriptDefaults();
    ~ScriptDefaults();
    ScriptDefaults(const ScriptDefaults&) = delete;
    ScriptDefaults& operator=(const ScriptDefaults&) = delete;

    int size() const;
    bool exists(std::string name) const;
    // Stores under name, replacing (without deleting) an earlier definition.
    void addEffectDefinition(std::string name, EffectDefinition* definition);
    // Null for an unknown name, and the lookup leaves an empty entry behind, so exists()
    // turns true: test exists() first.
    EffectDefinition* getEffectDefinition(std::string name);
    // Null for an unknown name; otherwise a new group owned by the caller.
    ParameterGroup* getDefaults(std::string name) const;
    std::string toString() const;

private:
    std::map<std::string, EffectDefinition*> definitions;
};
