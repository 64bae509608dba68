#include "demosys/DataShaderPool.h"

#include <iostream>
#include <set>

#include "demosys/Shader.h"

DataShaderPool::DataShaderPool() {}

DataShaderPool::~DataShaderPool() {
    std::set<Shader*> deleted;
    for (auto& entry : shaders)
        if (entry.second && deleted.insert(entry.second).second) delete entry.second;
    for (Shader* shader : replaced)
        if (deleted.insert(shader).second) delete shader;
}

void DataShaderPool::addShader(std::string name, Shader* shader) {
    auto found = shaders.find(name);
    if (found != shaders.end() && found->second && found->second != shader) replaced.push_back(found->second);
    shaders[name] = shader;
}

// Deliberately the plain subscript: a miss leaves the name behind with no shader.
Shader* DataShaderPool::getShader(std::string name) { return shaders[name]; }

bool DataShaderPool::exists(std::string name) { return shaders.count(name) > 0; }

int DataShaderPool::size() { return (int)shaders.size(); }

std::string DataShaderPool::toString() {
    std::cout << "Shaders in pool : " << size();
    std::string text = "ShaderPool {\n";
    for (auto& entry : shaders)
        text += "  " + entry.first + " = " + (entry.second ? entry.second->toString() : std::string("NULL")) + "\n";
    if (shaders.empty()) text += "<Empty>\n";
    text += "}\n";
    return text;
}
