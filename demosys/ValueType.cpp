#include "demosys/ValueType.h"

#include "demosys/QLNTime.h"
#include "qlnutils/StringUtils.h"

ValueType::Kind ValueType::ofParameter(const std::string& word) {
    if (word == "float") return Float;
    if (word == "int") return Integer;
    if (word == "bool") return Bool;
    if (word == "string") return String;
    return Unknown;
}

ValueType::Kind ValueType::ofArgument(const std::string& word) {
    if (word == "<float>") return Float;
    if (word == "<integer>") return Integer;
    if (word == "<bool>") return Bool;
    if (word == "<string>") return String;
    if (word == "<time>" || word == "<event>") return Time;
    return Unknown;
}

bool ValueType::accepts(Kind kind, const std::string& text) {
    switch (kind) {
        case Float: return StringUtils::isFloat(text);
        case Integer: return StringUtils::isInt(text);
        case Bool: return StringUtils::isBool(text);
        case Time: return QLNTime(text).isValid();
        default: return true;
    }
}

std::string ValueType::parameterNoun(Kind kind) {
    switch (kind) {
        case Float: return "a float";
        case Integer: return "an int";
        case Bool: return "a bool";
        default: return "a string";
    }
}

std::string ValueType::argumentNoun(Kind kind) {
    switch (kind) {
        case Float: return "a float";
        case Integer: return "an integer";
        case Bool: return "a boolean";
        case Time: return "a valid (mm:ss:mmm) timestamp";
        default: return "a string";
    }
}
