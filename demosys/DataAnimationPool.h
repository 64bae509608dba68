#pragma once
// Camera and object paths by name. Owns them.
#include <map>
#include <string>
#include <vector>

#include "demosys/DataPool.h"

class Animation;

class DataAnimationPool : public DataPool {
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
    std::map<std::string, Animation*> animations;
    // Values whose name was taken again: out of the pool, deleted with it.
    std::vector<Animation*> replaced;
};
