#include "demosys/DataBinaryPool.h"

#include <iostream>
#include <iterator>
#include <set>

#include "demosys/Binary.h"
#include "qlnutils/QLNUtils.h"

DataBinaryPool::~DataBinaryPool() {
    std::cout << "[Dispose binaryPool]" << std::endl;
    // A value entered under two names is deleted once.
    std::set<Binary*> deleted;
    for (auto& entry : binaries) {
        std::cout << " -> delete " << entry.first << std::endl;
        if (entry.second && deleted.insert(entry.second).second) delete entry.second;
    }
    for (Binary* value : replaced)
        if (deleted.insert(value).second) delete value;
}

void DataBinaryPool::addData(std::string name, Binary* binary) {
    auto found = binaries.find(name);
    if (found != binaries.end() && found->second && found->second != binary) replaced.push_back(found->second);
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
