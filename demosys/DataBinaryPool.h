#pragma once
// Raw binary blobs by name. Owns them.
#include <map>
#include <string>
#include <vector>

#include "demosys/DataPool.h"

class Binary;

class DataBinaryPool : public DataPool {
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

private:
    std::map<std::string, Binary*> binaries;
    // Values whose name was taken again: out of the pool, deleted with it.
    std::vector<Binary*> replaced;
};
