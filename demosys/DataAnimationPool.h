#pragma once
// Camera and object paths by name. Owns them.
#include <string>

#include "demosys/DataMapPool.h"

class Animation;

class DataAnimationPool : public DataMapPool<Animation> {
public:
    ~DataAnimationPool() override;
    // Counts every add, also one that replaces an existing name.
    void addAnimation(std::string name, Animation* animation);
    // Null for an unknown name.
    Animation* getAnimation(std::string name);
    bool exist(std::string name);
    int size() override;
    std::string toString() override;

private:
    int numAnimations = 0;
};
