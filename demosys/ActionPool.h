#pragma once
// The effects running now, drawn once per frame in layer order. Owns nothing: the
// effects belong to the effect pool.
#include <map>
#include <string>

class Effect;

class ActionPool {
public:
    // Layers 0..100; anything else is dropped silently.
    void addEffect(std::string name, Effect* effect, int layer);
    bool removeEffect(std::string name);
    void removeAll();
    int countEffects();
    // Whether an instance of that name has been started and not stopped since.
    bool isRunning(const std::string& name) const;
    void execute(unsigned int time);
    std::string toString();

private:
    // Sort key "LLL_name": lexical order is layer order, then byte order of the names.
    std::map<std::string, Effect*> effects;
    std::map<std::string, std::string> aliasTable;  // instance name -> sort key
};
