#include "demosys/ParameterReader.h"

#include "demosys/DataTexturePool.h"
#include "demosys/ParameterGroup.h"
#include "demosys/QLNDemosys.h"
#include "qlnutils/QLNUtils.h"

bool ParameterReader::has(const ParameterGroup* group, const std::string& key) {
    return group != nullptr && group->exist(key);
}

std::string ParameterReader::text(const ParameterGroup* group, const std::string& key, const std::string& fallback) {
    return has(group, key) ? group->getParameter(key) : fallback;
}

float ParameterReader::number(const ParameterGroup* group, const std::string& key, float fallback) {
    return has(group, key) ? QLNUtils::string2Float(group->getParameter(key)) : fallback;
}

int ParameterReader::integer(const ParameterGroup* group, const std::string& key, int fallback) {
    return has(group, key) ? QLNUtils::string2Int(group->getParameter(key)) : fallback;
}

Texture* ParameterReader::texture(const ParameterGroup* group, const std::string& key) {
    if (!has(group, key) || QLNDemosys::texturePool == nullptr) return nullptr;
    return QLNDemosys::texturePool->getTexture(group->getParameter(key));
}

QLNTime ParameterReader::time(const ParameterGroup* group, const std::string& key) {
    QLNTime time;
    time.setTimeAsString(text(group, key));
    return time;
}
