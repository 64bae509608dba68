#pragma once
// Loaded 3-D scenes by alias.
#include <map>
#include <string>
#include <vector>

#include "demosys/DataPool.h"

class QLNScene;

class DataObjectPool : public DataPool {
public:
    DataObjectPool();
    ~DataObjectPool() override;

    void addObject(std::string name, QLNScene* scene);
    QLNScene* getObject(std::string name);
    // The index-th scene in name order; null past the end.
    QLNScene* getObject(int index);
    bool exists(std::string name);

    std::string toString() override;

private:
    std::map<std::string, QLNScene*> objects;
    // Scenes whose name was taken again: out of the pool, deleted with it.
    std::vector<QLNScene*> replaced;
};
