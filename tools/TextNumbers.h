#pragma once
// Strict, locale-independent number parsing for the text formats the tools read:
// the whole word must be the number.
#include <string_view>

namespace qlntools {

class TextNumbers {
public:
    // A finite decimal number such as 1, -0.5, +2.5e3.
    static bool parseDouble(std::string_view word, double& value);
    // A whole number in the range of long long.
    static bool parseInteger(std::string_view word, long long& value);
};

}  // namespace qlntools
