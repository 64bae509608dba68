// Splits arbitrary text at delimiters taken from the input and checks what the tokens promise.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "qlnutils/StringTokenizer.h"
#include "qlnutils/StringUtils.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 2) return 0;
    size_t delimiterCount = data[0] % 8;
    bool returnDelimiters = data[1] & 1;
    int skip = static_cast<int8_t>(data[1]) >> 1;
    size_t offset = 2;
    if (size - offset < delimiterCount) return 0;
    std::string delimiters(reinterpret_cast<const char*>(data + offset), delimiterCount);
    offset += delimiterCount;
    std::string source(reinterpret_cast<const char*>(data + offset), size - offset);

    StringTokenizer tokenizer(source, delimiters, returnDelimiters);
    int count = 0;
    size_t searchFrom = 0;
    while (tokenizer.hasMoreTokens()) {
        std::string token = tokenizer.getNext();
        ++count;
        if (token.empty()) abort();
        bool isDelimiterToken = returnDelimiters && token.size() == 1 && delimiters.find(token[0]) != std::string::npos;
        if (!isDelimiterToken) {
            if (StringUtils::trim(token).empty()) abort();
            for (char c : token)
                if (delimiters.find(c) != std::string::npos) abort();
        }
        // Tokens come out in source order.
        size_t at = source.find(token, searchFrom);
        if (at == std::string::npos) abort();
        searchFrom = at + token.size();
        if (count > tokenizer.countTokens()) abort();
    }
    if (count != tokenizer.countTokens()) abort();
    if (!tokenizer.getNext().empty()) abort();

    StringTokenizer skipping(source, delimiters, returnDelimiters);
    skipping.getNext(skip);
    for (int i = 0; i < tokenizer.countTokens() + 130 && skipping.hasMoreTokens(); ++i) skipping.getNext();
    if (skipping.hasMoreTokens()) abort();
    skipping.reset();
    skipping.getNext();
    return 0;
}
