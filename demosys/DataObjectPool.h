#pragma once
// Loaded 3-D scenes by alias. Owns them.
#include <string>

#include "demosys/DataMapPool.h"

class QLNScene;

class DataObjectPool : public DataMapPool<QLNScene> {
public:
    ~DataObjectPool() override;

    // Counts every add, also one that replaces an existing name.
    void addObject(std::string name, QLNScene* scene);
    QLNScene* getObject(std::string name);
    // The index-th scene in name order; null past the end.
    QLNScene* getObject(int index);
    bool exists(std::string name);

    std::string toString() override;
};
