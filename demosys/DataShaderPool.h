#pragma once
// Linked shader programs by alias.
#include <map>
#include <string>
#include <vector>

#include "demosys/DataPool.h"

class Shader;

class DataShaderPool : public DataPool {
public:
    DataShaderPool();
    ~DataShaderPool() override;

    void addShader(std::string name, Shader* shader);
    // An unknown name is entered with no shader and null comes back.
    Shader* getShader(std::string name);
    bool exists(std::string name);

    int size() override;
    std::string toString() override;

private:
    std::map<std::string, Shader*> shaders;
    // Shaders whose name was taken again: out of the pool, deleted with it.
    std::vector<Shader*> replaced;
};
