#include "demosys/Data.h"

#include "demosys/DataPool.h"

Data::~Data() {
    for (auto& entry : pools) delete entry.second;
    pools.clear();
}

void Data::addData(std::string name, DataPool* pool) { pools[name] = pool; }

bool Data::exist(std::string name) { return pools.count(name) > 0; }

DataPool* Data::getData(std::string name) {
    auto entry = pools.find(name);
    return entry == pools.end() ? nullptr : entry->second;
}

std::string Data::toString() {
    std::string text;
    for (auto& entry : pools)
        if (entry.second) text += entry.second->toString();
    return text;
}
