#include "tools/TextNumbers.h"

#include <charconv>
#include <cmath>

namespace qlntools {

bool TextNumbers::parseDouble(std::string_view word, double& value) {
    if (!word.empty() && word[0] == '+') word.remove_prefix(1);
    if (word.empty() || word[0] == '+') return false;
    auto [end, ec] = std::from_chars(word.data(), word.data() + word.size(), value, std::chars_format::general);
    return ec == std::errc() && end == word.data() + word.size() && std::isfinite(value);
}

bool TextNumbers::parseInteger(std::string_view word, long long& value) {
    if (!word.empty() && word[0] == '+') word.remove_prefix(1);
    if (word.empty() || word[0] == '+') return false;
    auto [end, ec] = std::from_chars(word.data(), word.data() + word.size(), value);
    return ec == std::errc() && end == word.data() + word.size();
}

}  // namespace qlntools
