#pragma once
// A named collection of ParameterGroups, ordered by name. Owns its groups.
#include <map>
#include <string>

class ParameterGroup;

class Parameters {
public:
    Parameters();
    ~Parameters();
    Parameters(const Parameters&) = delete;
    Parameters& operator=(const Parameters&) = delete;

    int size() const;
    // Renames the group to name and stores it, replacing (without deleting) an earlier one.
    void addGroup(std::string name, ParameterGroup* group);
    bool exist(std::string name) const;
    // Null when absent.
    ParameterGroup* getGroup(std::string name) const;
    // The i-th group name or group in name order; "" or null when i is out of range.
    std::string getKey(int i) const;
    ParameterGroup* getValue(int i) const;
    std::string toString() const;

private:
    std::map<std::string, ParameterGroup*> groups;
};
