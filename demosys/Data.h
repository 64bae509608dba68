#pragma once
// The registry of resource pools by name ("texturePool", "effectPool", ...). Owns the pools.
#include <map>
#include <string>

class DataPool;

class Data {
public:
    Data() = default;
    ~Data();
    Data(const Data&) = delete;
    Data& operator=(const Data&) = delete;

    // Replaces an entry of the same name without deleting its pool.
    void addData(std::string name, DataPool* pool);
    bool exist(std::string name);
    // Null for an unknown name; nothing is inserted.
    DataPool* getData(std::string name);
    std::string toString();

private:
    std::map<std::string, DataPool*> pools;
};
