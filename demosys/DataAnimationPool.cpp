#include "demosys/DataAnimationPool.h"

#include <iostream>

#include "demosys/Animation.h"

DataAnimationPool::~DataAnimationPool() {
    std::cout << "[Dispose animationPool]" << std::endl;
    for (auto& entry : animations) {
        std::cout << " -> delete " << entry.first << std::endl;
        delete entry.second;
    }
}

void DataAnimationPool::addAnimation(std::string name, Animation* animation) {
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
