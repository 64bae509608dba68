#include <gtest/gtest.h>

#include <cmath>

#include "demosys/Matrix.h"
#include "demosys/Quaternion.h"
#include "demosys/Vector.h"

using Vec2 = Vector<float, 2>;
using Vec3 = Vector<float, 3>;
using Vec4 = Vector<float, 4>;
using Mat4 = Matrix<float, 4, 4, 16>;

namespace {

const float pi = 3.1415927f;

Mat4 rotationMatrix(const Quaternion<float>& q) {
    float m[16];
    q.fillGLMatrix(m);
    return Mat4(m);
}

void expectNear(const Vec3& actual, const Vec3& expected) {
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(actual[i], expected[i], 1e-5f) << "component " << i;
}

}  // namespace

TEST(Vector, ArithmeticAndGeometry) {
    Vec3 a(1, 2, 3);
    Vec3 b(4, 5, 6);
    EXPECT_EQ(a + b, Vec3(5, 7, 9));
    EXPECT_EQ(b - a, Vec3(3, 3, 3));
    EXPECT_EQ(2.0f * a, Vec3(2, 4, 6));
    EXPECT_EQ(a * 2.0f, Vec3(2, 4, 6));
    EXPECT_EQ(b / 2.0f, Vec3(2, 2.5f, 3));
    EXPECT_EQ(-a, Vec3(-1, -2, -3));
    EXPECT_FLOAT_EQ(a.dot(b), 32.0f);
    EXPECT_EQ(Vec3(1, 0, 0).cross(Vec3(0, 1, 0)), Vec3(0, 0, 1));
    EXPECT_FLOAT_EQ(Vec2(3, 4).length(), 5.0f);
    EXPECT_FLOAT_EQ(Vec3(0, 0, 7).normalised().length(), 1.0f);
    EXPECT_EQ(Vec3().normalised(), Vec3()) << "a zero vector must not turn into NaNs";
    EXPECT_EQ(Vec4(), Vec4(0, 0, 0, 0));

    Vec4 c(1, 2, 3, 4);
    c.x() = 9;
    c.w() += 1;
    EXPECT_EQ(c, Vec4(9, 2, 3, 5));
    EXPECT_EQ(c.data()[3], 5.0f);
}

TEST(Vector, LinearInterpolateBlendsEachComponent) {
    Vec3 from(0, 10, -4);
    Vec3 to(10, 20, 4);
    EXPECT_EQ(from.linearInterpolate(to, 0.0f), from);
    EXPECT_EQ(from.linearInterpolate(to, 1.0f), to);
    EXPECT_EQ(from.linearInterpolate(to, 0.25f), Vec3(2.5f, 12.5f, -2));
    // Outside [0, 1] it extrapolates rather than clamping.
    EXPECT_EQ(Vec2(0, 0).linearInterpolate(Vec2(1, 2), 2.0f), Vec2(2, 4));
}

TEST(Matrix, IdentityProductsAndTransforms) {
    Mat4 id;
    for (int i = 0; i < 16; ++i) EXPECT_EQ(id[i], (i % 5 == 0) ? 1.0f : 0.0f) << i;

    Mat4 t = Mat4::translation(1, 2, 3);
    EXPECT_EQ(t[12], 1.0f) << "translation sits in the last column, as OpenGL stores it";
    EXPECT_EQ(t[13], 2.0f);
    EXPECT_EQ(t[14], 3.0f);
    expectNear(t.transformPoint(Vec3(1, 1, 1)), Vec3(2, 3, 4));

    Mat4 s = Mat4::scaling(2, 3, 4);
    // Scale first, then translate.
    expectNear((t * s).transformPoint(Vec3(1, 1, 1)), Vec3(3, 5, 7));
    expectNear((s * t).transformPoint(Vec3(1, 1, 1)), Vec3(4, 9, 16));
    EXPECT_EQ(t * id, t);
    EXPECT_EQ(t.transposed().transposed(), t);
    EXPECT_EQ(t.transposed().at(3, 0), 1.0f);
}

TEST(Quaternion, AxisAngleRotationTurnsVectorsRightHanded) {
    Quaternion<float> q;
    EXPECT_EQ(q.w, 1.0f);
    EXPECT_EQ(rotationMatrix(q), Mat4()) << "the default quaternion is no rotation";

    Vec3 yAxis(0, 1, 0);
    q.axisAngleRotation(yAxis, pi / 2);
    EXPECT_NEAR(q.w, std::cos(pi / 4), 1e-6f);
    EXPECT_NEAR(q.y, std::sin(pi / 4), 1e-6f);
    expectNear(rotationMatrix(q).transformPoint(Vec3(1, 0, 0)), Vec3(0, 0, -1));

    Vec3 xAxis(1, 0, 0);
    q.axisAngleRotation(xAxis, pi / 2);
    expectNear(rotationMatrix(q).transformPoint(Vec3(0, 1, 0)), Vec3(0, 0, 1));

    float m[16];
    q.fillGLMatrix(m);
    EXPECT_EQ(m[3], 0.0f);
    EXPECT_EQ(m[12], 0.0f);
    EXPECT_EQ(m[15], 1.0f);
}

TEST(Quaternion, ProductComposesRotationsLikeMatrices) {
    Vec3 xAxis(1, 0, 0);
    Vec3 yAxis(0, 1, 0);
    Quaternion<float> a, b;
    a.axisAngleRotation(xAxis, 0.7f);
    b.axisAngleRotation(yAxis, -1.1f);

    Mat4 fromProduct = rotationMatrix(a * b);
    Mat4 fromMatrices = rotationMatrix(a) * rotationMatrix(b);
    for (int i = 0; i < 16; ++i) EXPECT_NEAR(fromProduct[i], fromMatrices[i], 1e-5f) << i;

    // Rotations about different axes do not commute.
    EXPECT_GT(std::fabs((a * b).z - (b * a).z), 0.1f);

    Quaternion<float> half, whole;
    half.axisAngleRotation(xAxis, pi / 2);
    whole.axisAngleRotation(xAxis, pi);
    Quaternion<float> twice = half * half;
    EXPECT_NEAR(twice.w, whole.w, 1e-6f);
    EXPECT_NEAR(twice.x, whole.x, 1e-6f);
    EXPECT_NEAR(twice.length(), 1.0f, 1e-6f);
}
