#pragma once
// One sync track: keys by row, each with a value and a kind that says how the value moves
// on towards the next key. Evaluated once per frame, so a lookup allocates nothing.
#include <map>
#include <string>

class SyncTrack {
public:
    // The kinds as they are numbered in track files and on the editor's wire.
    enum KeyType { STEP = 0, LINEAR = 1, SMOOTH = 2, RAMP = 3, KEY_TYPES = 4 };
    struct Key {
        float value;
        unsigned char type;
    };

    explicit SyncTrack(std::string name);

    const std::string& getName() const;
    // A key already at the row is replaced; type must be below KEY_TYPES.
    void setKey(unsigned int row, float value, unsigned char type);
    void deleteKey(unsigned int row);
    void clear();
    const std::map<unsigned int, Key>& getKeys() const;

    // The value at a (fractional) row: the first key's value before it, the last key's
    // after it, 0 without keys.
    double getValue(double row) const;

private:
    std::string name;
    std::map<unsigned int, Key> keys;
};
