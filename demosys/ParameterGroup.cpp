#include "demosys/ParameterGroup.h"

#include <iterator>
#include <stdexcept>

ParameterGroup::ParameterGroup() : groupName("parameters") {}

ParameterGroup::ParameterGroup(std::string name) : groupName(std::move(name)) {}

int ParameterGroup::size() const { return static_cast<int>(entries.size()); }

std::string ParameterGroup::getGroupName() const { return groupName; }

void ParameterGroup::setGroupName(std::string name) { groupName = std::move(name); }

bool ParameterGroup::exist(std::string key) const { return entries.count(key) != 0; }

void ParameterGroup::addParameter(std::string key, std::string value) { entries[key] = std::move(value); }

std::string ParameterGroup::getParameter(std::string key) const {
    auto found = entries.find(key);
    if (found == entries.end()) throw std::logic_error("basic_string: construction from null is not valid");
    return found->second;
}

std::string ParameterGroup::getKey(int i) const {
    if (i < 0 || i >= size()) return "";
    return std::next(entries.begin(), i)->first;
}

std::string ParameterGroup::getValue(int i) const {
    if (i < 0 || i >= size()) return "";
    return std::next(entries.begin(), i)->second;
}

std::string ParameterGroup::toString() const {
    if (entries.empty()) return "ParameterGroup{ EMPTY }\n";
    std::string text = groupName + " {\n";
    for (const auto& [key, value] : entries) text += "    " + key + " = " + value + ";\n";
    return text + "}\n";
}
