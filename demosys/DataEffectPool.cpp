#include "demosys/DataEffectPool.h"

#include <iostream>
#include <iterator>

#include "demosys/Effect.h"

DataEffectPool::~DataEffectPool() {
    std::cout << "[Dispose effectPool]" << std::endl;
    for (auto& entry : effects) {
        std::cout << " -> delete " << entry.first << std::endl;
        delete entry.second;
    }
}

void DataEffectPool::addEffect(std::string name, Effect* effect) { effects[name] = effect; }

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
