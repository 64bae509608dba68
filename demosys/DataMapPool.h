#pragma once
// The one owning map under every resource pool: string keys in byte order, values owned.
// Adding under a taken key overwrites the pointer only; the old value stays its caller's.
#include <iostream>
#include <iterator>
#include <map>
#include <set>
#include <string>

#include "demosys/DataPool.h"

template <class Value>
class DataMapPool : public DataPool {
protected:
    DataMapPool() = default;
    DataMapPool(const DataMapPool&) = delete;
    DataMapPool& operator=(const DataMapPool&) = delete;

    void put(const std::string& key, Value* value) { entries[key] = value; }

    // Null for a missing key; nothing is entered.
    Value* find(const std::string& key) const {
        auto entry = entries.find(key);
        return entry == entries.end() ? nullptr : entry->second;
    }

    bool contains(const std::string& key) const { return entries.count(key) > 0; }

    int entryCount() const { return static_cast<int>(entries.size()); }

    // The index-th entry in key order, or end() past the last.
    typename std::map<std::string, Value*>::const_iterator entryAt(int index) const {
        if (index < 0 || index >= entryCount()) return entries.end();
        auto entry = entries.begin();
        std::advance(entry, index);
        return entry;
    }

    // One line per entry: indent, key, " = ", the value's own text (or ifNull), after.
    std::string listEntries(const char* indent, const char* ifNull = "", const char* after = "") const {
        std::string text;
        for (auto& entry : entries)
            text += indent + entry.first + " = " + (entry.second ? entry.second->toString() : ifNull) + after;
        return text;
    }

    // Deletes every value once in key order (a value entered under two keys is deleted once).
    // With a banner, logs it and one line per key, null values included.
    void disposeEntries(const char* banner = nullptr, const char* before = " -> delete ",
                        const char* after = "") {
        if (banner) std::cout << banner << std::endl;
        std::set<Value*> deleted;
        for (auto& entry : entries) {
            if (banner) std::cout << before << entry.first << after << std::endl;
            if (entry.second && deleted.insert(entry.second).second) delete entry.second;
        }
        entries.clear();
    }

    std::map<std::string, Value*> entries;
};
