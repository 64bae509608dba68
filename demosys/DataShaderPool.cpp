#include "demosys/DataShaderPool.h"

#include <iostream>

#include "demosys/Shader.h"

DataShaderPool::~DataShaderPool() { disposeEntries(); }

void DataShaderPool::addShader(std::string name, Shader* shader) { put(name, shader); }

// Deliberately the plain subscript: a miss leaves the name behind with no shader.
Shader* DataShaderPool::getShader(std::string name) { return entries[name]; }

bool DataShaderPool::exists(std::string name) { return contains(name); }

int DataShaderPool::size() { return entryCount(); }

std::string DataShaderPool::toString() {
    std::cout << "Shaders in pool : " << size();
    return "ShaderPool {\n" + listEntries("  ", "NULL", "\n") + (entries.empty() ? "<Empty>\n" : "") + "}\n";
}
