#include <gtest/gtest.h>

#include "demosys/QLNTime.h"

namespace {

void expectParts(const QLNTime& time, int minutes, int seconds, int milliseconds, unsigned int ticks) {
    EXPECT_EQ(time.getMinutes(), minutes);
    EXPECT_EQ(time.getSeconds(), seconds);
    EXPECT_EQ(time.getMilliseconds(), milliseconds);
    EXPECT_EQ(time.getTicks(), ticks);
}

TEST(QLNTimeTest, ConstructsFromPartsOrTicks) {
    QLNTime zero;
    expectParts(zero, 0, 0, 0, 0);
    EXPECT_TRUE(zero.isValid());

    QLNTime parts(1, 23, 456);
    expectParts(parts, 1, 23, 456, 83456);
    EXPECT_TRUE(parts.isValid());
    EXPECT_DOUBLE_EQ(parts.getTicksAsDouble(), 83456.0);

    expectParts(QLNTime(59999u), 0, 59, 999, 59999);
    expectParts(QLNTime(60000u), 1, 0, 0, 60000);
    expectParts(QLNTime(4294967295u), 71582, 47, 295, 4294967295u);
    EXPECT_DOUBLE_EQ(QLNTime(4294967295u).getTicksAsDouble(), 4294967295.0);
}

TEST(QLNTimeTest, PartsAreNeverNormalised) {
    QLNTime time(0, 75, 2000);
    expectParts(time, 0, 75, 2000, 77000);
    EXPECT_EQ(QLNTime::time2uint(2, 3, 4), 123004u);
}

TEST(QLNTimeTest, SettersRecomputeTheTicks) {
    QLNTime time;
    time.setMinutes(30);
    EXPECT_EQ(time.getTicks(), 1800000u);
    time.setSeconds(5);
    time.setMilliseconds(7);
    expectParts(time, 30, 5, 7, 1805007);
    time.reset();
    expectParts(time, 0, 0, 0, 0);
    EXPECT_TRUE(time.isValid());
}

TEST(QLNTimeTest, ReadsScriptTimes) {
    QLNTime time("00:10:000");
    expectParts(time, 0, 10, 0, 10000);
    EXPECT_TRUE(time.isValid());

    QLNTime loose("1:2:5");  // the millisecond part is a number, not a fraction
    expectParts(loose, 1, 2, 5, 62005);

    QLNTime big("120:75:2000");
    expectParts(big, 120, 75, 2000, 7277000);
    EXPECT_TRUE(big.isValid());

    QLNTime negative("-1:0:0");
    EXPECT_TRUE(negative.isValid());
    EXPECT_EQ(negative.getMinutes(), -1);
}

TEST(QLNTimeTest, UnreadableTextGivesTheInvalidZeroTime) {
    for (const char* text : {"10:000", "1:2:3:4", "01:xx:500", "", "::", "1:2: 3", "+1:0:0", "1.5:0:0"}) {
        QLNTime time(std::string{text});
        SCOPED_TRACE(text);
        expectParts(time, 0, 0, 0, 0);
        EXPECT_FALSE(time.isValid());
    }
}

TEST(QLNTimeTest, ReadingAgainReplacesTheValue) {
    QLNTime time("02:00:000");
    time.setTimeAsString("bad");
    EXPECT_FALSE(time.isValid());
    expectParts(time, 0, 0, 0, 0);
    time.setTimeAsString("00:01:500");
    EXPECT_TRUE(time.isValid());
    expectParts(time, 0, 1, 500, 1500);

    QLNTime lateFailure("05:06:zz");
    expectParts(lateFailure, 0, 0, 0, 0);
    EXPECT_FALSE(lateFailure.isValid());
}

TEST(QLNTimeTest, EmptyFieldsBetweenColonsVanish) {
    // Runs of colons are one delimiter, so "1::2:3" still reads as three parts.
    QLNTime time("1::2:3");
    EXPECT_TRUE(time.isValid());
    expectParts(time, 1, 2, 3, 62003);
}

TEST(QLNTimeTest, PrintsPaddedTicksAndParts) {
    EXPECT_EQ(QLNTime(1, 23, 456).toString(), "(0000083456)-[01:23:456]");
    EXPECT_EQ(QLNTime().toString(), "(0000000000)-[00:00:000]");
    EXPECT_EQ(QLNTime(123, 5, 7).toString(), "(0007385007)-[123:05:007]");
    EXPECT_EQ(QLNTime(4294967295u).toString(), "(4294967295)-[71582:47:295]");
}

TEST(QLNTimeTest, PaddingNeverCuts) {
    EXPECT_EQ(QLNTime::forceStringLength("7", 3), "007");
    EXPECT_EQ(QLNTime::forceStringLength("1234", 2), "1234");
    EXPECT_EQ(QLNTime::forceStringLength("", 2), "00");
    EXPECT_EQ(QLNTime::forceStringLength("abc", 0), "abc");
}

}  // namespace
