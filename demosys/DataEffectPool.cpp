#include "demosys/DataEffectPool.h"

#include <iostream>
#include <iterator>
#include <set>

#include "demosys/Effect.h"

DataEffectPool::~DataEffectPool() {
    std::cout << "[Dispose effectPool]" << std::endl;
    // A value entered under two names is deleted once.
    std::set<Effect*> deleted;
    for (auto& entry : effects) {
        std::cout << " -> delete " << entry.first << std::endl;
        if (entry.second && deleted.insert(entry.second).second) delete entry.second;
    }
    for (Effect* value : replaced)
        if (deleted.insert(value).second) delete value;
}

void DataEffectPool::addEffect(std::string name, Effect* effect) {
    auto found = effects.find(name);
    if (found != effects.end() && found->second && found->second != effect) replaced.push_back(found->second);
    effects[name] = effect;
}

Effect* DataEffectPool::getEffect(std::string name) { return effects[name]; }

bool DataEffectPool::exist(std::string name) { return effects.count(name) > 0; }

std::string DataEffectPool::getKey(int index) {
    if (index < 0 || index >= static_cast<int>(effects.size())) return "";
    auto entry = effects.begin();
    std::advance(entry, index);
    return entry->first;
}

void DataEffectPool::removeEffect(std::string name) { effects.erase(name); }

int DataEffectPool::size() { return static_cast<int>(effects.size()); }

std::string DataEffectPool::toString() {
    std::string text = "EffectPool {\n";
    for (auto& entry : effects) text += "    " + entry.first + " = Effect\n";
    return text + "}\n";
}
