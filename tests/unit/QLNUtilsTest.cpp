#include <gtest/gtest.h>

#include <climits>

#include "qlnutils/QLNUtils.h"

namespace {

TEST(QLNUtilsTest, WritesNumbersInDecimal) {
    EXPECT_EQ(QLNUtils::int2string(0), "0");
    EXPECT_EQ(QLNUtils::int2string(-1234), "-1234");
    EXPECT_EQ(QLNUtils::int2string(INT_MIN), "-2147483648");
    EXPECT_EQ(QLNUtils::uint2string(4294967295u), "4294967295");
}

TEST(QLNUtilsTest, WritesFloatsInTheShortestDefaultForm) {
    EXPECT_EQ(QLNUtils::float2string(1.5f), "1.5");
    EXPECT_EQ(QLNUtils::float2string(2.0f), "2");
    EXPECT_EQ(QLNUtils::float2string(-0.25f), "-0.25");
    EXPECT_EQ(QLNUtils::float2string(3.14159265f), "3.14159");
    EXPECT_EQ(QLNUtils::float2string(1234567.0f), "1.23457e+06");
}

TEST(QLNUtilsTest, ReadsTheLeadingNumberAndIgnoresTheRest) {
    EXPECT_EQ(QLNUtils::string2Int("42"), 42);
    EXPECT_EQ(QLNUtils::string2Int("-7"), -7);
    EXPECT_EQ(QLNUtils::string2Int("12abc"), 12);
    EXPECT_EQ(QLNUtils::string2Int("007"), 7);
    EXPECT_EQ(QLNUtils::string2Int("3.9"), 3);
    EXPECT_FLOAT_EQ(QLNUtils::string2Float("0.5"), 0.5f);
    EXPECT_FLOAT_EQ(QLNUtils::string2Float("-1.25;"), -1.25f);
    EXPECT_FLOAT_EQ(QLNUtils::string2Float("10"), 10.0f);
}

TEST(QLNUtilsTest, TextWithoutANumberReadsAsZero) {
    EXPECT_EQ(QLNUtils::string2Int(""), 0);
    EXPECT_EQ(QLNUtils::string2Int("abc"), 0);
    EXPECT_EQ(QLNUtils::string2Int("-"), 0);
    EXPECT_FLOAT_EQ(QLNUtils::string2Float("x1.0"), 0.0f);
}

TEST(QLNUtilsTest, NumbersSurviveTheRoundTrip) {
    for (int value : {0, 1, -1, 65535, INT_MAX, INT_MIN})
        EXPECT_EQ(QLNUtils::string2Int(QLNUtils::int2string(value)), value);
    for (float value : {0.0f, 0.5f, -2.75f, 100.125f})
        EXPECT_FLOAT_EQ(QLNUtils::string2Float(QLNUtils::float2string(value)), value);
}

}  // namespace
