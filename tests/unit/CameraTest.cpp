#include <gtest/gtest.h>

#include "demosys/Camera.h"

TEST(Camera, StartsAtOriginLookingStraight) {
    Camera camera;
    EXPECT_EQ(camera.getPitch(), 0.0f);
    EXPECT_EQ(camera.getHeading(), 0.0f);
    EXPECT_EQ(camera.getVelocity(), 0.0f);
    EXPECT_EQ(camera.getPosition(), (Vector<float, 3>()));
}

TEST(Camera, PitchClampIsSymmetric) {
    Camera camera;
    camera.changePitch(3);
    EXPECT_FLOAT_EQ(camera.getPitch(), 3);
    camera.changePitch(-7);
    EXPECT_FLOAT_EQ(camera.getPitch(), -2) << "an oversized downward change lowers pitch by the step";
    camera.changePitch(7);
    EXPECT_FLOAT_EQ(camera.getPitch(), 3);
    camera.changePitch(5);
    EXPECT_FLOAT_EQ(camera.getPitch(), 8) << "a change equal to the step is clamped to the step";
    camera.changePitch(-4.5f);
    EXPECT_FLOAT_EQ(camera.getPitch(), 3.5f);
}

TEST(Camera, HeadingAndVelocityClampsAlwaysAddTheStep) {
    Camera camera;
    camera.changeHeading(-7);
    EXPECT_FLOAT_EQ(camera.getHeading(), 5) << "an oversized negative change turns the wrong way";
    camera.changeHeading(-5);
    EXPECT_FLOAT_EQ(camera.getHeading(), 0) << "exactly the step is not oversized";
    camera.changeHeading(-2);
    EXPECT_FLOAT_EQ(camera.getHeading(), -2);
    camera.changeHeading(90);
    EXPECT_FLOAT_EQ(camera.getHeading(), 3);

    camera.changeVelocity(-150);
    EXPECT_FLOAT_EQ(camera.getVelocity(), 100);
    camera.changeVelocity(-30);
    EXPECT_FLOAT_EQ(camera.getVelocity(), 70);
    camera.changeVelocity(-100);
    EXPECT_FLOAT_EQ(camera.getVelocity(), 170) << "exactly the limit is clamped too";
}

TEST(Camera, ResetClearsSteeringAndPosition) {
    Camera camera;
    camera.setPitch(20);
    camera.setHeading(30);
    camera.changeVelocity(4);
    camera.setPosition(Vector<float, 3>(1, 2, 3));
    camera.tiltLeft();
    camera.tiltRight();
    EXPECT_FLOAT_EQ(camera.getPitch(), 20) << "tilting does nothing";
    camera.reset();
    EXPECT_EQ(camera.getPitch(), 0.0f);
    EXPECT_EQ(camera.getHeading(), 0.0f);
    EXPECT_EQ(camera.getVelocity(), 0.0f);
    EXPECT_EQ(camera.getPosition(), (Vector<float, 3>()));
}
