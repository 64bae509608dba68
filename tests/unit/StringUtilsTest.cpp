#include <gtest/gtest.h>

#include "qlnutils/StringUtils.h"

namespace {

TEST(StringUtilsTest, TrimsBlanksTabsAndLineEndsOnly) {
    EXPECT_TRUE(StringUtils::charIsTrimable(' '));
    EXPECT_TRUE(StringUtils::charIsTrimable('\t'));
    EXPECT_TRUE(StringUtils::charIsTrimable('\n'));
    EXPECT_TRUE(StringUtils::charIsTrimable('\r'));
    EXPECT_FALSE(StringUtils::charIsTrimable('\v'));
    EXPECT_FALSE(StringUtils::charIsTrimable('\f'));
    EXPECT_FALSE(StringUtils::charIsTrimable('\0'));

    EXPECT_EQ(StringUtils::trim(" \t\r\n value = 1 \r\n"), "value = 1");
    EXPECT_EQ(StringUtils::trim("\vx\v"), "\vx\v");
    EXPECT_EQ(StringUtils::trim(" \t \n"), "");
    EXPECT_EQ(StringUtils::trim(""), "");
}

TEST(StringUtilsTest, BooleansAreExactLowerCaseWords) {
    EXPECT_TRUE(StringUtils::isBool("true"));
    EXPECT_TRUE(StringUtils::isBool("false"));
    EXPECT_FALSE(StringUtils::isBool("True"));
    EXPECT_FALSE(StringUtils::isBool(" true"));
    EXPECT_FALSE(StringUtils::isBool("1"));
    EXPECT_FALSE(StringUtils::isBool(""));
}

TEST(StringUtilsTest, IntegersAreDigitsWithAnOptionalMinus) {
    EXPECT_TRUE(StringUtils::isInt("0"));
    EXPECT_TRUE(StringUtils::isInt("-42"));
    EXPECT_TRUE(StringUtils::isInt("00012"));
    EXPECT_TRUE(StringUtils::isInt("123456789012345678901234567890"));
    EXPECT_TRUE(StringUtils::isInt("-"));  // nothing left to fail
    EXPECT_FALSE(StringUtils::isInt(""));
    EXPECT_FALSE(StringUtils::isInt("+1"));
    EXPECT_FALSE(StringUtils::isInt("--1"));
    EXPECT_FALSE(StringUtils::isInt(" 1"));
    EXPECT_FALSE(StringUtils::isInt("1 "));
    EXPECT_FALSE(StringUtils::isInt("1.0"));
    EXPECT_FALSE(StringUtils::isInt("12a"));
}

TEST(StringUtilsTest, FloatsNeedBothPartsAroundThePoint) {
    EXPECT_TRUE(StringUtils::isFloat("1.5"));
    EXPECT_TRUE(StringUtils::isFloat("-0.5"));
    EXPECT_TRUE(StringUtils::isFloat("100.000"));
    EXPECT_FALSE(StringUtils::isFloat("10"));
    EXPECT_FALSE(StringUtils::isFloat("5."));
    EXPECT_FALSE(StringUtils::isFloat(".5"));
    EXPECT_FALSE(StringUtils::isFloat("-.5"));
    EXPECT_FALSE(StringUtils::isFloat("1.2.3"));
    EXPECT_FALSE(StringUtils::isFloat("1e5"));
    EXPECT_FALSE(StringUtils::isFloat("1.0e5"));
    EXPECT_FALSE(StringUtils::isFloat(""));
    EXPECT_FALSE(StringUtils::isFloat("-"));
    EXPECT_FALSE(StringUtils::isFloat("a.b"));
}

TEST(StringUtilsTest, FloatQuirksOfTheSplitAreKept) {
    EXPECT_TRUE(StringUtils::isFloat("1..5"));  // the empty part between the points vanishes
    EXPECT_TRUE(StringUtils::isFloat("1.-5"));  // the fraction passes as an integer
    EXPECT_TRUE(StringUtils::isFloat("1.-"));
}

}  // namespace
