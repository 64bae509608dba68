#include "demosys/DataFBOPool.h"

#include <iostream>

#include "demosys/FrameBufferObject.h"

DataFBOPool::~DataFBOPool() { disposeEntries(); }

void DataFBOPool::addFBO(std::string name, FrameBufferObject* fbo) { put(name, fbo); }

FrameBufferObject* DataFBOPool::getFBO(std::string name) {
    if (!contains(name)) {
        std::cout << "FrameBufferObject::getFBO(" << name << ") cannot find the requested VBO" << std::endl;
        return nullptr;
    }
    return find(name);
}

bool DataFBOPool::exists(std::string name) { return contains(name); }

int DataFBOPool::size() { return entryCount(); }

std::string DataFBOPool::toString() { return "FBOPool {\n" + listEntries("  ", "NULL", "\n") + "}\n"; }
