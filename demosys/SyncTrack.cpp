#include "demosys/SyncTrack.h"

#include <cmath>
#include <iterator>

SyncTrack::SyncTrack(std::string name) : name(std::move(name)) {}

const std::string& SyncTrack::getName() const { return name; }

void SyncTrack::setKey(unsigned int row, float value, unsigned char type) { keys[row] = Key{value, type}; }

void SyncTrack::deleteKey(unsigned int row) { keys.erase(row); }

void SyncTrack::clear() { keys.clear(); }

const std::map<unsigned int, SyncTrack::Key>& SyncTrack::getKeys() const { return keys; }

double SyncTrack::getValue(double row) const {
    if (keys.empty()) return 0.0;
    if (!(row >= 0.0)) return keys.begin()->second.value;
    // The key at or before the row is found from the row rounded down.
    double whole = std::floor(row);
    auto next = whole >= 4294967295.0 ? keys.end() : keys.upper_bound(static_cast<unsigned int>(whole));
    if (next == keys.begin()) return next->second.value;
    auto key = std::prev(next);
    if (next == keys.end()) return key->second.value;

    double from = key->second.value;
    double to = next->second.value;
    double t = (row - key->first) / (static_cast<double>(next->first) - key->first);
    switch (key->second.type) {
        case LINEAR: break;
        case SMOOTH: t = t * t * (3.0 - 2.0 * t); break;
        case RAMP: t = t * t; break;
        default: return from;
    }
    return from + (to - from) * t;
}
