#include "demosys/DataAnimationPool.h"

#include "demosys/Animation.h"

DataAnimationPool::~DataAnimationPool() { disposeEntries("[Dispose animationPool]"); }

void DataAnimationPool::addAnimation(std::string name, Animation* animation) {
    numAnimations++;
    put(name, animation);
}

Animation* DataAnimationPool::getAnimation(std::string name) { return find(name); }

bool DataAnimationPool::exist(std::string name) { return contains(name); }

int DataAnimationPool::size() { return numAnimations; }

std::string DataAnimationPool::toString() { return "AnimationPool {\n" + listEntries("    ") + "}\n"; }
