#pragma once
// Off-screen render targets by alias.
#include <map>
#include <string>
#include <vector>

#include "demosys/DataPool.h"

class FrameBufferObject;

class DataFBOPool : public DataPool {
public:
    DataFBOPool();
    ~DataFBOPool() override;

    void addFBO(std::string name, FrameBufferObject* fbo);
    // Null, with a line on standard output, for an unknown name.
    FrameBufferObject* getFBO(std::string name);
    bool exists(std::string name);

    int size() override;
    std::string toString() override;

private:
    std::map<std::string, FrameBufferObject*> fbos;
    // Targets whose name was taken again: out of the pool, deleted with it.
    std::vector<FrameBufferObject*> replaced;
};
