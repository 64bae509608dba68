#pragma once
// Trimming and the type tests the script validator applies to values.
#include <string>

class StringUtils {
public:
    // Blank, tab, line feed and carriage return.
    static bool charIsTrimable(char c);
    static std::string trim(std::string text);
    static bool isBool(std::string text);
    // Digits with an optional leading '-'; a lone "-" passes.
    static bool isInt(std::string text);
    // Two integer parts around '.', the fraction is required: "5" and "5." are not floats.
    static bool isFloat(std::string text);
    // Prefixes "0" until the text is length characters long; never cuts a longer text.
    static std::string zeroPad(std::string text, unsigned int length);
};
