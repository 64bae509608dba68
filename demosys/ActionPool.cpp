#include "demosys/ActionPool.h"

#include <iostream>

#include "demosys/Effect.h"
#include "demosys/FrameBufferObject.h"
#include "qlnutils/QLNUtils.h"
#include "qlnutils/StringUtils.h"

static const unsigned int topLayer = 100;

void ActionPool::addEffect(std::string name, Effect* effect, int layer) {
    if (static_cast<unsigned int>(layer) > topLayer) return;
    std::string key = StringUtils::zeroPad(QLNUtils::int2string(layer), 3) + "_" + name;
    effects[key] = effect;
    aliasTable[name] = key;
}

static void reportRemoveError(const std::string& name) {
    std::cout << "ERROR: ActionPool - error removing '" << name << "' from ActonPool" << std::endl;
}

bool ActionPool::isRunning(const std::string& name) const { return aliasTable.count(name) != 0; }

bool ActionPool::removeEffect(std::string name) {
    auto alias = aliasTable.find(name);
    if (alias == aliasTable.end()) {
        reportRemoveError(name);
        return false;
    }
    std::string key = alias->second;
    aliasTable.erase(alias);
    auto entry = effects.find(key);
    if (entry == effects.end()) {
        reportRemoveError(name);
        return false;
    }
    effects.erase(entry);
    return true;
}

void ActionPool::removeAll() {
    effects.clear();
    aliasTable.clear();
}

int ActionPool::countEffects() { return static_cast<int>(effects.size()); }

void ActionPool::execute(unsigned int time) {
    for (auto& entry : effects) {
        Effect* effect = entry.second;
        if (!effect) continue;
        FrameBufferObject* target = effect->getRenderTarget();
        if (target) {
            target->bind();
            effect->draw(time);
            effect->setLastCalled(time);
            target->release();
        } else {
            effect->draw(time);
            effect->setLastCalled(time);
        }
    }
}

std::string ActionPool::toString() {
    std::string text = "ActionPool {\n    Effects:\n";
    for (auto& entry : effects) text += "        " + entry.first + " - Effect\n";
    text += "    AliasTable:\n";
    for (auto& alias : aliasTable) text += "        " + alias.first + " - " + alias.second + "\n";
    return text + "}\n";
}
