// Moving a value between two demo times, linearly and along a quarter cosine.
#include <gtest/gtest.h>

#include "demosys/Interpolate.h"

static Interpolate oneSecondFromZeroToTen() {
    Interpolate move;
    move.setTime(QLNTime(0, 0, 0), QLNTime(0, 1, 0));
    move.setValues(0.0f, 10.0f);
    return move;
}

TEST(Interpolate, LinearFollowsTimeAndExtrapolatesOutsideTheRange) {
    Interpolate move = oneSecondFromZeroToTen();
    EXPECT_FLOAT_EQ(0.0f, move.linearInterpolate(0));
    EXPECT_FLOAT_EQ(5.0f, move.linearInterpolate(500));
    EXPECT_FLOAT_EQ(10.0f, move.linearInterpolate(1000));
    EXPECT_FLOAT_EQ(20.0f, move.linearInterpolate(2000));  // no clamping

    Vector<float, 3> value = move.linearInterpolateVector(250);
    EXPECT_FLOAT_EQ(2.5f, value[0]);
    EXPECT_EQ(0.0f, value[1]);
    EXPECT_EQ(0.0f, value[2]);

    move.setTime(QLNTime(0, 2, 0), QLNTime(0, 4, 0));
    move.setVectors(Vector<float, 3>(0, 0, 0), Vector<float, 3>(2, -4, 8));
    Vector<float, 3> half = move.linearInterpolateVector(3000);
    EXPECT_FLOAT_EQ(1.0f, half[0]);
    EXPECT_FLOAT_EQ(-2.0f, half[1]);
    EXPECT_FLOAT_EQ(4.0f, half[2]);
    EXPECT_FLOAT_EQ(-1.0f, move.linearInterpolateVector(1000)[0]);  // before the start
}

TEST(Interpolate, ValidTimeIsTheClosedRangeOfTwoDifferentTimes) {
    Interpolate move = oneSecondFromZeroToTen();
    EXPECT_TRUE(move.validTime(0));
    EXPECT_TRUE(move.validTime(1000));
    EXPECT_FALSE(move.validTime(1001));
    move.setTime(QLNTime(0, 1, 0), QLNTime(0, 2, 0));
    EXPECT_FALSE(move.validTime(999));
    EXPECT_TRUE(move.validTime(1000));
    move.setTime(QLNTime(0, 1, 0), QLNTime(0, 1, 0));
    EXPECT_FALSE(move.validTime(1000));
}

TEST(Interpolate, CosineEasesAtOneEndAndReachesTheOtherAlmostExactly) {
    Interpolate move = oneSecondFromZeroToTen();
    for (bool easeOut : {true, false}) {
        EXPECT_NEAR(0.0f, move.cosInterpolateVector(0, easeOut)[0], 1e-4) << easeOut;
        EXPECT_NEAR(10.0f, move.cosInterpolateVector(1000, easeOut)[0], 1e-4) << easeOut;
    }
    // Ease out: more than half the way after half the time; ease in: less.
    EXPECT_NEAR(7.0711f, move.cosInterpolateVector(500, true)[0], 1e-3);
    EXPECT_NEAR(2.9289f, move.cosInterpolateVector(500, false)[0], 1e-3);
    // The quarter turn is a hair short of pi/2: the far end misses by about 1.3e-6.
    EXPECT_NE(0.0f, move.cosInterpolateVector(0, true)[0]);
    EXPECT_NEAR(1.3e-5f, move.cosInterpolateVector(0, true)[0], 2e-6f);
}

TEST(Interpolate, SettersCopyTimesAndValues) {
    Interpolate move;
    move.setStartValue(4.0f).setStopValue(8.0f);
    QLNTime start("00:01:000");
    QLNTime stop(0, 0, 3000);
    move.setStartTime(start);
    move.setStopTime(stop);
    EXPECT_FLOAT_EQ(6.0f, move.linearInterpolate(2000));
    move.setStartVector(Vector<float, 3>(0, 10, 0));
    move.setStopVector(Vector<float, 3>(0, 20, 0));
    EXPECT_FLOAT_EQ(15.0f, move.linearInterpolateVector(2000)[1]);
}
