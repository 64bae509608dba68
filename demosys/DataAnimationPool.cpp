#include "demosys/DataAnimationPool.h"

#include <iostream>
#include <set>

#include "demosys/Animation.h"

DataAnimationPool::~DataAnimationPool() {
    std::cout << "[Dispose animationPool]" << std::endl;
    // A value entered under two names is deleted once.
    std::set<Animation*> deleted;
    for (auto& entry : animations) {
        std::cout << " -> delete " << entry.first << std::endl;
        if (entry.second && deleted.insert(entry.second).second) delete entry.second;
    }
    for (Animation* value : replaced)
        if (deleted.insert(value).second) delete value;
}

void DataAnimationPool::addAnimation(std::string name, Animation* animation) {
    auto found = animations.find(name);
    if (found != animations.end() && found->second && found->second != animation) replaced.push_back(found->second);
    numAnimations++;
    animations[name] = animation;
}

Animation* DataAnimationPool::getAnimation(std::string name) {
    auto entry = animations.find(name);
    return entry == animations.end() ? nullptr : entry->second;
}

bool DataAnimationPool::exist(std::string name) { return animations.count(name) > 0; }

int DataAnimationPool::size() { return numAnimations; }

std::string DataAnimationPool::toString() {
    std::string text = "AnimationPool {\n";
    for (auto& entry : animations)
        text += "    " + entry.first + " = " + (entry.second ? entry.second->toString() : "");
    return text + "}\n";
}
