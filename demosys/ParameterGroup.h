#pragma once
// One named block of "key = value" entries, kept as text and ordered by key.
#include <map>
#include <string>

class ParameterGroup {
public:
    ParameterGroup();
    explicit ParameterGroup(std::string name);

    int size() const;
    std::string getGroupName() const;
    void setGroupName(std::string name);
    bool exist(std::string key) const;
    // Inserts, or replaces the value of an existing key.
    void addParameter(std::string key, std::string value);
    // A missing key is a programming error and throws std::logic_error: test exist() first.
    std::string getParameter(std::string key) const;
    // The i-th key or value in key order; "" when i is out of range.
    std::string getKey(int i) const;
    std::string getValue(int i) const;
    std::string toString() const;

private:
    std::string groupName;
    std::map<std::string, std::string> entries;
};
