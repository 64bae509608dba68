#pragma once
// Splits a string at a set of single-character delimiters. Empty tokens (and tokens made
// only of blanks) never appear; there is no quoting.
#include <string>
#include <vector>

class StringTokenizer {
public:
    StringTokenizer(std::string source, std::string delimiters, bool returnDelimiters);
    StringTokenizer(std::string source, std::string delimiters);
    explicit StringTokenizer(std::string source);

    // The next token, or "" once every token has been handed out.
    std::string getNext();
    // Skips n tokens.
    void getNext(int n);
    bool hasMoreTokens() const;
    // The total number of tokens, not the number remaining.
    int countTokens() const;
    // Rewinds the index only: an exhausted tokenizer stays exhausted.
    void reset();

private:
    void tokenize(const std::string& delimiterText);
    bool isDelimiter(char c) const;
    void addToken(const std::string& token);

    int tokenCount = 0;
    int currentIndex = 0;
    std::vector<std::string> tokens;
    std::vector<char> delimiters;
    std::string source;
    int sourceLength = 0;
    bool hasMore = true;
    bool returnDelimiters = false;
};
