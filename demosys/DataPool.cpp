#include "demosys/DataPool.h"

#include "qlnutils/QLNUtils.h"

DataPool::DataPool() : poolSize(0) {}

DataPool::~DataPool() {}

int DataPool::size() { return poolSize; }

std::string DataPool::toString() { return "DataPool { size = " + QLNUtils::int2string(poolSize) + " }\n"; }
