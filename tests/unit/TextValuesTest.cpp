// The text utilities the script readers stand on, each as a table of inputs and answers:
// splitting, trimming, the type tests, number conversion and script times.
#include <gtest/gtest.h>

#include <climits>

#include "demosys/QLNTime.h"
#include "qlnutils/QLNUtils.h"
#include "qlnutils/StringTokenizer.h"
#include "qlnutils/StringUtils.h"

namespace {

std::string drain(StringTokenizer& tokens) {
    std::string all;
    while (tokens.hasMoreTokens()) all += "[" + tokens.getNext() + "]";
    return all;
}

TEST(TextValues, TokenizerSplitsAtAnyDelimiterAndDropsBlankTokens) {
    struct Case {
        const char* text;
        const char* delimiters;  // null: the default blank
        bool returnDelimiters;
        const char* tokens;
    } cases[] = {
        {"   a    b   ", nullptr, false, "[a][b]"},
        {"", nullptr, false, ""},
        {";;;;", ";", false, ""},
        {"x = 1", "=", false, "[x ][ 1]"},
        {"one\n \t\r\n two \n", "\n", false, "[one][ two ]"},
        {"a,b;c,,;d", ",;", false, "[a][b][c][d]"},
        {"say \"hello world\"", nullptr, false, "[say][\"hello][world\"]"},
        {"{{x}}", "{}", true, "[{][{][x][}][}]"},
    };
    for (const Case& c : cases) {
        StringTokenizer tokens = c.delimiters ? StringTokenizer(c.text, c.delimiters, c.returnDelimiters)
                                              : StringTokenizer(c.text);
        EXPECT_EQ(drain(tokens), c.tokens) << c.text;
        EXPECT_EQ(tokens.getNext(), "") << "past the end";
    }
    StringTokenizer walk("a b c d");
    EXPECT_EQ(walk.getNext(), "a");
    EXPECT_EQ(walk.countTokens(), 4) << "counts all, read or not";
    walk.reset();
    walk.getNext(2);
    EXPECT_EQ(walk.getNext(), "c");
    walk.getNext(100);
    EXPECT_FALSE(walk.hasMoreTokens());
    walk.reset();
    EXPECT_FALSE(walk.hasMoreTokens()) << "a finished tokenizer stays finished";
}

TEST(TextValues, TypeTestsAndTrimmingFollowTheScriptRules) {
    struct Case {
        const char* text;
        bool isInt, isFloat, isBool;
    } cases[] = {
        {"0", true, false, false},      {"-42", true, false, false},   {"00012", true, false, false},
        {"-", true, false, false},      {"", false, false, false},     {"+1", false, false, false},
        {"--1", false, false, false},   {" 1", false, false, false},   {"12a", false, false, false},
        {"1.5", false, true, false},    {"-0.5", false, true, false},  {"5.", false, false, false},
        {".5", false, false, false},    {"1.2.3", false, false, false}, {"1e5", false, false, false},
        {"1..5", false, true, false},   {"1.-5", false, true, false},  {"true", false, false, true},
        {"false", false, false, true},  {"True", false, false, false}, {" true", false, false, false},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(StringUtils::isInt(c.text), c.isInt) << c.text;
        EXPECT_EQ(StringUtils::isFloat(c.text), c.isFloat) << c.text;
        EXPECT_EQ(StringUtils::isBool(c.text), c.isBool) << c.text;
    }
    EXPECT_EQ(StringUtils::trim(" \t\r\n value = 1 \r\n"), "value = 1");
    EXPECT_EQ(StringUtils::trim("\vx\v"), "\vx\v");
    EXPECT_EQ(StringUtils::trim(" \t \n"), "");
}

TEST(TextValues, NumbersReadTheirLeadingPartAndWriteInShortForm) {
    struct Case {
        const char* text;
        int integer;
        float real;
    } cases[] = {{"42", 42, 42.0f}, {"-7", -7, -7.0f},   {"12abc", 12, 12.0f}, {"3.9", 3, 3.9f},
                 {"-1.25;", -1, -1.25f}, {"", 0, 0.0f}, {"abc", 0, 0.0f},   {"x1.0", 0, 0.0f}};
    for (const Case& c : cases) {
        EXPECT_EQ(QLNUtils::string2Int(c.text), c.integer) << c.text;
        EXPECT_FLOAT_EQ(QLNUtils::string2Float(c.text), c.real) << c.text;
    }
    EXPECT_EQ(QLNUtils::int2string(INT_MIN), "-2147483648");
    EXPECT_EQ(QLNUtils::uint2string(4294967295u), "4294967295");
    EXPECT_EQ(QLNUtils::float2string(2.0f), "2");
    EXPECT_EQ(QLNUtils::float2string(3.14159265f), "3.14159");
    EXPECT_EQ(QLNUtils::float2string(1234567.0f), "1.23457e+06");
}

TEST(TextValues, ScriptTimesReadAndPrint) {
    struct Case {
        const char* text;
        bool valid;
        unsigned int ticks;
        const char* printed;
    } cases[] = {
        {"00:10:000", true, 10000, "(0000010000)-[00:10:000]"},
        {"1:2:5", true, 62005, "(0000062005)-[01:02:005]"},
        {"120:75:2000", true, 7277000, "(0007277000)-[120:75:2000]"},
        {"1::2:3", true, 62003, "(0000062003)-[01:02:003]"},
        {"10:000", false, 0, "(0000000000)-[00:00:000]"},
        {"1:2:3:4", false, 0, "(0000000000)-[00:00:000]"},
        {"05:06:zz", false, 0, "(0000000000)-[00:00:000]"},
        {"1:2: 3", false, 0, "(0000000000)-[00:00:000]"},
        {"+1:0:0", false, 0, "(0000000000)-[00:00:000]"},
        {"", false, 0, "(0000000000)-[00:00:000]"},
    };
    for (const Case& c : cases) {
        QLNTime time{std::string(c.text)};
        EXPECT_EQ(time.isValid(), c.valid) << c.text;
        EXPECT_EQ(time.getTicks(), c.ticks) << c.text;
        EXPECT_EQ(time.toString(), c.printed) << c.text;
    }
    QLNTime fromTicks(4294967295u);
    EXPECT_EQ(fromTicks.toString(), "(4294967295)-[71582:47:295]");
    QLNTime again("02:00:000");
    again.setTimeAsString("bad");
    EXPECT_FALSE(again.isValid());
    again.setTimeAsString("00:01:500");
    EXPECT_EQ(again.getTicks(), 1500u);
    again.setMinutes(30);
    again.setSeconds(5);
    again.setMilliseconds(7);
    EXPECT_EQ(again.toString(), "(0001805007)-[30:05:007]");
}

}  // namespace
