#include "demosys/DataBinaryPool.h"

#include <iostream>
#include <iterator>

#include "demosys/Binary.h"
#include "qlnutils/QLNUtils.h"

DataBinaryPool::~DataBinaryPool() {
    std::cout << "[Dispose binaryPool]" << std::endl;
    for (auto& entry : binaries) {
        std::cout << " -> delete " << entry.first << std::endl;
        delete entry.second;
    }
}

void DataBinaryPool::addData(std::string name, Binary* binary) {
    poolSize++;
    binaries[name] = binary;
}

Binary* DataBinaryPool::getData(std::string name) {
    auto entry = binaries.find(name);
    return entry == binaries.end() ? nullptr : entry->second;
}

Binary* DataBinaryPool::getData(int index) {
    if (index < 0 || index >= static_cast<int>(binaries.size())) return nullptr;
    auto entry = binaries.begin();
    std::advance(entry, index);
    return entry->second;
}

bool DataBinaryPool::exist(std::string name) { return binaries.count(name) > 0; }

std::string DataBinaryPool::toString() {
    // The label predates the blobs; kept as the report has always shown it.
    std::string text = "DataBinaryPool {\n    num3dObjects = " + QLNUtils::int2string(poolSize) + "\n";
    for (auto& entry : binaries)
        text += "    " + entry.first + " = " + (entry.second ? entry.second->toString() : "");
    return text + "}\n";
}
