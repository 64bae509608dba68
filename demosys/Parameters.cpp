#include "demosys/Parameters.h"

#include <iterator>

#include "demosys/ParameterGroup.h"

Parameters::Parameters() = default;

Parameters::~Parameters() {
    for (auto& entry : groups) delete entry.second;
}

int Parameters::size() const { return static_cast<int>(groups.size()); }

void Parameters::addGroup(std::string name, ParameterGroup* group) {
    if (group) group->setGroupName(name);
    groups[name] = group;
}

bool Parameters::exist(std::string name) const { return groups.count(name) != 0; }

ParameterGroup* Parameters::getGroup(std::string name) const {
    auto found = groups.find(name);
    return found == groups.end() ? nullptr : found->second;
}

std::string Parameters::getKey(int i) const {
    if (i < 0 || i >= size()) return "";
    return std::next(groups.begin(), i)->first;
}

ParameterGroup* Parameters::getValue(int i) const {
    if (i < 0 || i >= size()) return nullptr;
    return std::next(groups.begin(), i)->second;
}

std::string Parameters::toString() const {
    std::string text;
    for (const auto& entry : groups)
        if (entry.second) text += entry.second->toString();
    return text;
}
