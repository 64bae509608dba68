#include "demosys/DataEffectPool.h"

#include "demosys/Effect.h"

DataEffectPool::~DataEffectPool() { disposeEntries("[Dispose effectPool]"); }

void DataEffectPool::addEffect(std::string name, Effect* effect) { put(name, effect); }

Effect* DataEffectPool::getEffect(std::string name) { return entries[name]; }

bool DataEffectPool::exist(std::string name) { return contains(name); }

std::string DataEffectPool::getKey(int index) {
    auto entry = entryAt(index);
    return entry == entries.end() ? "" : entry->first;
}

void DataEffectPool::removeEffect(std::string name) { entries.erase(name); }

int DataEffectPool::size() { return entryCount(); }

std::string DataEffectPool::toString() {
    std::string text = "EffectPool {\n";
    for (auto& entry : entries) text += "    " + entry.first + " = Effect\n";
    return text + "}\n";
}
