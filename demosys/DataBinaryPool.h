#pragma once
// Raw binary blobs by name. Owns them.
#include <string>

#include "demosys/DataMapPool.h"

class Binary;

class DataBinaryPool : public DataMapPool<Binary> {
public:
    ~DataBinaryPool() override;
    // Counts every add, also one that replaces an existing name.
    void addData(std::string name, Binary* binary);
    // Null for an unknown name.
    Binary* getData(std::string name);
    // The blob of the index-th name in key order; null past the end.
    Binary* getData(int index);
    bool exist(std::string name);
    std::string toString() override;
};
