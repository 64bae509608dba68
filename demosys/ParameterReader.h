#pragma once
// Reading script parameters and call arguments with defaults. A null group or a missing key
// gives the fallback; a present value converts as QLNUtils does (text that is no number reads 0).
#include <string>

#include "demosys/QLNTime.h"

class ParameterGroup;
class Texture;

class ParameterReader {
public:
    static bool has(const ParameterGroup* group, const std::string& key);
    static std::string text(const ParameterGroup* group, const std::string& key, const std::string& fallback = "");
    static float number(const ParameterGroup* group, const std::string& key, float fallback = 0.0f);
    static int integer(const ParameterGroup* group, const std::string& key, int fallback = 0);
    // The texture the value names; null for a missing key, pool or alias.
    static Texture* texture(const ParameterGroup* group, const std::string& key);
    // A missing key gives the zero time.
    static QLNTime time(const ParameterGroup* group, const std::string& key);
};
