#include "qlnutils/QLNUtils.h"

#include <sstream>

std::string QLNUtils::int2string(int value) {
    std::ostringstream out;
    out << value;
    return out.str();
}

std::string QLNUtils::uint2string(unsigned int value) {
    std::ostringstream out;
    out << value;
    return out.str();
}

std::string QLNUtils::float2string(float value) {
    std::ostringstream out;
    out << value;
    return out.str();
}

int QLNUtils::string2Int(std::string text) {
    std::istringstream in(text);
    int value = 0;
    in >> value;
    return value;
}

float QLNUtils::string2Float(std::string text) {
    std::istringstream in(text);
    float value = 0.0f;
    in >> value;
    return value;
}
