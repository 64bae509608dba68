#pragma once
// Common base of the named resource pools kept in Data.
#include <string>

class DataPool {
public:
    DataPool();
    virtual ~DataPool();
    virtual int size();
    virtual std::string toString();

protected:
    // Entry counter of the pools that count in the base; others keep their own.
    int poolSize;
};
