#pragma once
// Linked shader programs by alias. Owns them.
#include <string>

#include "demosys/DataMapPool.h"

class Shader;

class DataShaderPool : public DataMapPool<Shader> {
public:
    ~DataShaderPool() override;

    void addShader(std::string name, Shader* shader);
    // An unknown name is entered with no shader and null comes back.
    Shader* getShader(std::string name);
    bool exists(std::string name);

    int size() override;
    std::string toString() override;
};
