// The small math the effects move things with: vectors, matrices, rotations, and moving a
// value between two demo times linearly or along a quarter cosine.
#include <gtest/gtest.h>

#include <cmath>

#include "demosys/Camera.h"
#include "demosys/Interpolate.h"
#include "demosys/Matrix.h"
#include "demosys/Quaternion.h"
#include "demosys/Vector.h"

namespace {

using Vec3 = Vector<float, 3>;
using Mat4 = Matrix<float, 4, 4, 16>;

::testing::AssertionResult near(const Vec3& got, const Vec3& want) {
    for (int i = 0; i < 3; ++i)
        if (std::abs(got[i] - want[i]) > 1e-4f)
            return ::testing::AssertionFailure() << got[0] << "," << got[1] << "," << got[2];
    return ::testing::AssertionSuccess();
}

TEST(Math, VectorsMatricesAndRotations) {
    Vec3 a(1, 2, 3), b(4, 5, 6);
    EXPECT_EQ(a + b, Vec3(5, 7, 9));
    EXPECT_EQ(b - a, Vec3(3, 3, 3));
    EXPECT_EQ(2.0f * a, a * 2.0f);
    EXPECT_EQ(b / 2.0f, Vec3(2, 2.5f, 3));
    EXPECT_EQ(-a, Vec3(-1, -2, -3));
    EXPECT_FLOAT_EQ(a.dot(b), 32.0f);
    EXPECT_EQ(Vec3(1, 0, 0).cross(Vec3(0, 1, 0)), Vec3(0, 0, 1));
    EXPECT_FLOAT_EQ((Vector<float, 2>(3, 4).length()), 5.0f);
    EXPECT_EQ(Vec3().normalised(), Vec3()) << "a zero vector must not turn into NaNs";
    EXPECT_EQ(Vec3(0, 10, -4).linearInterpolate(Vec3(10, 20, 4), 0.25f), Vec3(2.5f, 12.5f, -2));

    Mat4 t = Mat4::translation(1, 2, 3), s = Mat4::scaling(2, 3, 4);
    EXPECT_EQ(t[12], 1.0f) << "translation sits in the last column, as OpenGL stores it";
    EXPECT_TRUE(near((t * s).transformPoint(Vec3(1, 1, 1)), Vec3(3, 5, 7)));
    EXPECT_TRUE(near((s * t).transformPoint(Vec3(1, 1, 1)), Vec3(4, 9, 16)));
    EXPECT_EQ(t.transposed().at(3, 0), 1.0f);

    Quaternion<float> q;
    Vec3 yAxis(0, 1, 0);
    q.axisAngleRotation(yAxis, 3.1415927f / 2);
    float m[16];
    q.fillGLMatrix(m);
    EXPECT_TRUE(near(Mat4(m).transformPoint(Vec3(1, 0, 0)), Vec3(0, 0, -1))) << "right-handed";
}

TEST(Math, InterpolationFollowsTheClockAndEasesAtOneEnd) {
    Interpolate move;
    move.setTime(QLNTime(0, 0, 0), QLNTime(0, 1, 0));
    move.setValues(0.0f, 10.0f);
    EXPECT_FLOAT_EQ(move.linearInterpolate(500), 5.0f);
    EXPECT_FLOAT_EQ(move.linearInterpolate(2000), 20.0f) << "no clamping";
    EXPECT_TRUE(move.validTime(0));
    EXPECT_TRUE(move.validTime(1000));
    EXPECT_FALSE(move.validTime(1001));
    EXPECT_NEAR(move.cosInterpolateVector(500, true)[0], 7.0711f, 1e-3);
    EXPECT_NEAR(move.cosInterpolateVector(500, false)[0], 2.9289f, 1e-3);
    EXPECT_NEAR(move.cosInterpolateVector(1000, false)[0], 10.0f, 1e-4);
    move.setTime(QLNTime(0, 2, 0), QLNTime(0, 4, 0));
    move.setVectors(Vec3(0, 0, 0), Vec3(2, -4, 8));
    EXPECT_TRUE(near(move.linearInterpolateVector(3000), Vec3(1, -2, 4)));
    move.setTime(QLNTime(0, 1, 0), QLNTime(0, 1, 0));
    EXPECT_FALSE(move.validTime(1000)) << "an empty span is never valid";
}

TEST(Math, TheFreeCameraClampsEachSteeringStep) {
    Camera camera;
    camera.changePitch(-7);
    EXPECT_FLOAT_EQ(camera.getPitch(), -5.0f);
    camera.changeHeading(-7);
    EXPECT_FLOAT_EQ(camera.getHeading(), 5.0f);
    camera.changeVelocity(-150);
    EXPECT_FLOAT_EQ(camera.getVelocity(), 100.0f);
    camera.reset();
    EXPECT_FLOAT_EQ(camera.getPitch(), 0.0f);
    EXPECT_EQ(camera.getPosition(), Vec3(0, 0, 0));
}

}  // namespace
