#include "demosys/DataObjectPool.h"

#include <iostream>
#include <iterator>
#include <set>

#include "demosys/QLNScene.h"

DataObjectPool::DataObjectPool() {}

DataObjectPool::~DataObjectPool() {
    std::cout << "[Dispose objectPool]" << std::endl;
    std::set<QLNScene*> deleted;
    for (auto& entry : objects) {
        std::cout << " -> delete " << entry.first << std::endl;
        if (entry.second && deleted.insert(entry.second).second) delete entry.second;
    }
    for (QLNScene* scene : replaced)
        if (deleted.insert(scene).second) delete scene;
}

void DataObjectPool::addObject(std::string name, QLNScene* scene) {
    auto found = objects.find(name);
    if (found != objects.end() && found->second && found->second != scene) replaced.push_back(found->second);
    objects[name] = scene;
    poolSize++;
}

QLNScene* DataObjectPool::getObject(std::string name) {
    auto found = objects.find(name);
    return found == objects.end() ? nullptr : found->second;
}

QLNScene* DataObjectPool::getObject(int index) {
    if (index < 0 || index >= (int)objects.size()) return nullptr;
    auto entry = objects.begin();
    std::advance(entry, index);
    return entry->second;
}

bool DataObjectPool::exists(std::string name) { return objects.count(name) > 0; }

std::string DataObjectPool::toString() { return "DataObjectPool {\n}\n"; }
