#include "qlnutils/StringTokenizer.h"

#include <algorithm>
#include <limits>

#include "qlnutils/StringUtils.h"

StringTokenizer::StringTokenizer(std::string source, std::string delimiters, bool returnDelimiters)
    : source(std::move(source)), returnDelimiters(returnDelimiters) {
    tokenize(delimiters);
}

StringTokenizer::StringTokenizer(std::string source, std::string delimiters)
    : StringTokenizer(std::move(source), std::move(delimiters), false) {}

StringTokenizer::StringTokenizer(std::string source) : StringTokenizer(std::move(source), " ", false) {}

bool StringTokenizer::isDelimiter(char c) const {
    return std::find(delimiters.begin(), delimiters.end(), c) != delimiters.end();
}

void StringTokenizer::addToken(const std::string& token) {
    // Blank-only tokens vanish, but kept tokens keep their blanks.
    if (!StringUtils::trim(token).empty()) tokens.push_back(token);
}

void StringTokenizer::tokenize(const std::string& delimiterText) {
    delimiters.assign(delimiterText.begin(), delimiterText.end());
    sourceLength = static_cast<int>(source.size());
    std::string current;
    for (char c : source) {
        if (!isDelimiter(c)) {
            current += c;
            continue;
        }
        addToken(current);
        if (returnDelimiters) tokens.push_back(std::string(1, c));
        current.clear();
    }
    addToken(current);
    tokenCount = static_cast<int>(tokens.size());
    currentIndex = 0;
    if (tokenCount == 0) hasMore = false;
}

std::string StringTokenizer::getNext() {
    if (!hasMore) return "";
    ++currentIndex;
    if (currentIndex == tokenCount) hasMore = false;
    int index = currentIndex - 1;
    if (index < 0 || index >= tokenCount) return "";
    return tokens[index];
}

void StringTokenizer::getNext(int n) {
    long long index = static_cast<long long>(currentIndex) + n;
    index = std::clamp<long long>(index, std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    currentIndex = static_cast<int>(index);
    if (currentIndex >= tokenCount) hasMore = false;
}

bool StringTokenizer::hasMoreTokens() const { return hasMore; }

int StringTokenizer::countTokens() const { return tokenCount; }

void StringTokenizer::reset() { currentIndex = 0; }
