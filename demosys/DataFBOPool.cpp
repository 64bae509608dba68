#include "demosys/DataFBOPool.h"

#include <iostream>
#include <set>

#include "demosys/FrameBufferObject.h"

DataFBOPool::DataFBOPool() {}

DataFBOPool::~DataFBOPool() {
    std::set<FrameBufferObject*> deleted;
    for (auto& entry : fbos)
        if (entry.second && deleted.insert(entry.second).second) delete entry.second;
    for (FrameBufferObject* fbo : replaced)
        if (deleted.insert(fbo).second) delete fbo;
}

void DataFBOPool::addFBO(std::string name, FrameBufferObject* fbo) {
    auto found = fbos.find(name);
    if (found != fbos.end() && found->second && found->second != fbo) replaced.push_back(found->second);
    fbos[name] = fbo;
}

FrameBufferObject* DataFBOPool::getFBO(std::string name) {
    auto found = fbos.find(name);
    if (found == fbos.end()) {
        std::cout << "FrameBufferObject::getFBO(" << name << ") cannot find the requested VBO" << std::endl;
        return nullptr;
    }
    return found->second;
}

bool DataFBOPool::exists(std::string name) { return fbos.count(name) > 0; }

int DataFBOPool::size() { return (int)fbos.size(); }

std::string DataFBOPool::toString() {
    std::string text = "FBOPool {\n";
    for (auto& entry : fbos)
        text += "  " + entry.first + " = " + (entry.second ? entry.second->toString() : std::string("NULL")) + "\n";
    text += "}\n";
    return text;
}
