#include "demosys/DataObjectPool.h"

#include "demosys/QLNScene.h"

DataObjectPool::~DataObjectPool() { disposeEntries("[Dispose objectPool]"); }

void DataObjectPool::addObject(std::string name, QLNScene* scene) {
    put(name, scene);
    poolSize++;
}

QLNScene* DataObjectPool::getObject(std::string name) { return find(name); }

QLNScene* DataObjectPool::getObject(int index) {
    auto entry = entryAt(index);
    return entry == entries.end() ? nullptr : entry->second;
}

bool DataObjectPool::exists(std::string name) { return contains(name); }

std::string DataObjectPool::toString() { return "DataObjectPool {\n}\n"; }
