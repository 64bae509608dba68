#pragma once
// Effect instances (and, as the template pool, the registered prototypes) by name. Owns them.
#include <string>

#include "demosys/DataMapPool.h"

class Effect;

class DataEffectPool : public DataMapPool<Effect> {
public:
    ~DataEffectPool() override;
    void addEffect(std::string name, Effect* effect);
    // Looks up through the map's subscript: an unknown name is entered with a null effect.
    Effect* getEffect(std::string name);
    bool exist(std::string name);
    // The index-th name in key order; "" past the end.
    std::string getKey(int index);
    // Forgets the entry without deleting the effect.
    void removeEffect(std::string name);
    int size() override;
    std::string toString() override;
};
