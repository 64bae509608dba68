#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "qlnutils/StringTokenizer.h"

namespace {

std::vector<std::string> drain(StringTokenizer& tokenizer) {
    std::vector<std::string> tokens;
    while (tokenizer.hasMoreTokens()) tokens.push_back(tokenizer.getNext());
    return tokens;
}

using Tokens = std::vector<std::string>;

TEST(StringTokenizerTest, SplitsAtBlanksByDefaultAndDropsEmptyTokens) {
    StringTokenizer tokenizer("   a    b   ");
    EXPECT_EQ(tokenizer.countTokens(), 2);
    EXPECT_EQ(drain(tokenizer), (Tokens{"a", "b"}));

    StringTokenizer empty("");
    EXPECT_FALSE(empty.hasMoreTokens());
    EXPECT_EQ(empty.countTokens(), 0);
    EXPECT_EQ(empty.getNext(), "");

    StringTokenizer onlyDelimiters(";;;;", ";");
    EXPECT_FALSE(onlyDelimiters.hasMoreTokens());
}

TEST(StringTokenizerTest, KeepsBlanksAroundTokensButDropsBlankOnlyTokens) {
    StringTokenizer assignment("x = 1", "=");
    EXPECT_EQ(drain(assignment), (Tokens{"x ", " 1"}));

    StringTokenizer lines("one\n \t\r\n two \n", "\n");
    EXPECT_EQ(drain(lines), (Tokens{"one", " two "}));
}

TEST(StringTokenizerTest, AnyCharacterOfTheDelimiterTextSplits) {
    StringTokenizer tokenizer("a,b;c,,;d", ",;");
    EXPECT_EQ(drain(tokenizer), (Tokens{"a", "b", "c", "d"}));

    StringTokenizer quotes("say \"hello world\"");  // no quoting
    EXPECT_EQ(drain(quotes), (Tokens{"say", "\"hello", "world\""}));
}

TEST(StringTokenizerTest, ReturnsDelimitersAsTokensWhenAsked) {
    StringTokenizer braces("a{b}", "{}", true);
    EXPECT_EQ(drain(braces), (Tokens{"a", "{", "b", "}"}));

    StringTokenizer runs("{{x}}", "{}", true);
    EXPECT_EQ(runs.countTokens(), 5);
    EXPECT_EQ(drain(runs), (Tokens{"{", "{", "x", "}", "}"}));
}

TEST(StringTokenizerTest, CountsAllTokensWhileReading) {
    StringTokenizer tokenizer("a b c");
    EXPECT_EQ(tokenizer.getNext(), "a");
    EXPECT_EQ(tokenizer.countTokens(), 3);
    EXPECT_TRUE(tokenizer.hasMoreTokens());
    EXPECT_EQ(tokenizer.getNext(), "b");
    EXPECT_EQ(tokenizer.getNext(), "c");
    EXPECT_FALSE(tokenizer.hasMoreTokens());
    EXPECT_EQ(tokenizer.getNext(), "");
    EXPECT_EQ(tokenizer.getNext(), "");
}

TEST(StringTokenizerTest, ResetRewindsOnlyAnUnfinishedTokenizer) {
    StringTokenizer unfinished("a b c");
    unfinished.getNext();
    unfinished.getNext();
    unfinished.reset();
    EXPECT_EQ(unfinished.getNext(), "a");

    StringTokenizer finished("a b");
    drain(finished);
    finished.reset();
    EXPECT_FALSE(finished.hasMoreTokens());
    EXPECT_EQ(finished.getNext(), "");
}

TEST(StringTokenizerTest, SkippingAdvancesAndEndsAtTheLastToken) {
    StringTokenizer tokenizer("a b c d");
    tokenizer.getNext(2);
    EXPECT_TRUE(tokenizer.hasMoreTokens());
    EXPECT_EQ(tokenizer.getNext(), "c");
    tokenizer.getNext(1);
    EXPECT_FALSE(tokenizer.hasMoreTokens());
    EXPECT_EQ(tokenizer.getNext(), "");

    StringTokenizer far("a b");
    far.getNext(100);
    EXPECT_FALSE(far.hasMoreTokens());
    EXPECT_EQ(far.getNext(), "");
}

TEST(StringTokenizerTest, SkippingBackwardsNeverReadsOutsideTheTokens) {
    StringTokenizer tokenizer("a b");
    tokenizer.getNext(-3);
    EXPECT_TRUE(tokenizer.hasMoreTokens());
    for (int i = 0; i < 5; ++i) tokenizer.getNext();
    EXPECT_FALSE(tokenizer.hasMoreTokens());
}

}  // namespace
