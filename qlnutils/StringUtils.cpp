#include "qlnutils/StringUtils.h"

#include "qlnutils/StringTokenizer.h"

bool StringUtils::charIsTrimable(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

std::string StringUtils::trim(std::string text) {
    size_t first = 0;
    while (first < text.size() && charIsTrimable(text[first])) ++first;
    size_t last = text.size();
    while (last > first && charIsTrimable(text[last - 1])) --last;
    return text.substr(first, last - first);
}

bool StringUtils::isBool(std::string text) { return text == "true" || text == "false"; }

bool StringUtils::isInt(std::string text) {
    if (text.empty()) return false;
    if (text[0] == '-') text.erase(0, 1);
    for (char c : text)
        if (c < '0' || c > '9') return false;
    return true;
}

bool StringUtils::isFloat(std::string text) {
    if (text.empty()) return false;
    if (text[0] == '-') text.erase(0, 1);
    StringTokenizer parts(text, ".");
    if (parts.countTokens() != 2) return false;
    std::string whole = parts.getNext();
    std::string fraction = parts.getNext();
    return isInt(whole) && isInt(fraction);
}

std::string StringUtils::zeroPad(std::string text, unsigned int length) {
    if (text.size() < length) text.insert(0, length - text.size(), '0');
    return text;
}
