#pragma once
// Off-screen render targets by alias. Owns them.
#include <string>

#include "demosys/DataMapPool.h"

class FrameBufferObject;

class DataFBOPool : public DataMapPool<FrameBufferObject> {
public:
    ~DataFBOPool() override;

    void addFBO(std::string name, FrameBufferObject* fbo);
    // Null, with a line on standard output, for an unknown name.
    FrameBufferObject* getFBO(std::string name);
    bool exists(std::string name);

    int size() override;
    std::string toString() override;
};
