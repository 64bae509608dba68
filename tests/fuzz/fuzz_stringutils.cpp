// Type tests and number conversions on arbitrary text.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "qlnutils/QLNUtils.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string text(reinterpret_cast<const char*>(data), size);

    std::string trimmed = StringUtils::trim(text);
    if (!trimmed.empty() && (StringUtils::charIsTrimable(trimmed.front()) || StringUtils::charIsTrimable(trimmed.back())))
        abort();
    if (StringUtils::trim(trimmed) != trimmed) abort();
    if (text.find(trimmed) == std::string::npos) abort();

    if (StringUtils::isBool(text) && text != "true" && text != "false") abort();

    bool isInt = StringUtils::isInt(text);
    bool isFloat = StringUtils::isFloat(text);
    if (isInt && isFloat) abort();
    if (isFloat && text.find('.') == std::string::npos) abort();

    int number = QLNUtils::string2Int(text);
    float real = QLNUtils::string2Float(text);
    std::string back = QLNUtils::int2string(number);
    if (QLNUtils::string2Int(back) != number) abort();
    QLNUtils::float2string(real);
    QLNUtils::uint2string(static_cast<unsigned int>(number));

    // A short integer text reads back as the same digits.
    size_t digits = text.size() - (!text.empty() && text[0] == '-');
    if (isInt && digits > 0 && digits <= 9) {
        long long expected = 0;
        for (char c : text)
            if (c != '-') expected = expected * 10 + (c - '0');
        if (text[0] == '-') expected = -expected;
        if (number != expected) abort();
    }
    return 0;
}
