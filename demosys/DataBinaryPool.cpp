#include "demosys/DataBinaryPool.h"

#include "demosys/Binary.h"
#include "qlnutils/QLNUtils.h"

DataBinaryPool::~DataBinaryPool() { disposeEntries("[Dispose binaryPool]"); }

void DataBinaryPool::addData(std::string name, Binary* binary) {
    poolSize++;
    put(name, binary);
}

Binary* DataBinaryPool::getData(std::string name) { return find(name); }

Binary* DataBinaryPool::getData(int index) {
    auto entry = entryAt(index);
    return entry == entries.end() ? nullptr : entry->second;
}

bool DataBinaryPool::exist(std::string name) { return contains(name); }

std::string DataBinaryPool::toString() {
    // The label predates the blobs; kept as the report has always shown it.
    return "DataBinaryPool {\n    num3dObjects = " + QLNUtils::int2string(poolSize) + "\n" + listEntries("    ") +
           "}\n";
}
