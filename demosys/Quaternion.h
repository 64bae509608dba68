#pragma once
// Rotation quaternion (w, x, y, z); the camera builds its view rotation from two of them.
#include <cmath>
#include <ostream>

#include "demosys/Vector.h"

template <typename T>
class Quaternion {
public:
    T w, x, y, z;

    Quaternion() : w(T(1)), x(T(0)), y(T(0)), z(T(0)) {}
    Quaternion(T w, T x, T y, T z) : w(w), x(x), y(y), z(z) {}

    // Rotation by angle (radians) about axis; the axis is expected to be of unit length.
    void axisAngleRotation(Vector<T, 3>& axis, T angle) {
        T half = angle / T(2);
        T s = std::sin(half);
        w = std::cos(half);
        x = s * axis[0];
        y = s * axis[1];
        z = s * axis[2];
    }

    // Column-major rotation matrix of a unit quaternion, ready for glMultMatrix.
    void fillGLMatrix(T* m) const {
        m[0] = T(1) - T(2) * (y * y + z * z);
        m[1] = T(2) * (x * y + z * w);
        m[2] = T(2) * (x * z - y * w);
        m[3] = T(0);
        m[4] = T(2) * (x * y - z * w);
        m[5] = T(1) - T(2) * (x * x + z * z);
        m[6] = T(2) * (y * z + x * w);
        m[7] = T(0);
        m[8] = T(2) * (x * z + y * w);
        m[9] = T(2) * (y * z - x * w);
        m[10] = T(1) - T(2) * (x * x + y * y);
        m[11] = T(0);
        m[12] = T(0);
        m[13] = T(0);
        m[14] = T(0);
        m[15] = T(1);
    }

    T length() const { return std::sqrt(w * w + x * x + y * y + z * z); }
    Quaternion conjugate() const { return Quaternion(w, -x, -y, -z); }

    // Hamilton product: applying b first, then a.
    friend Quaternion operator*(const Quaternion& a, const Quaternion& b) {
        return Quaternion(a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z,
                          a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y,
                          a.w * b.y + a.y * b.w + a.z * b.x - a.x * b.z,
                          a.w * b.z + a.z * b.w + a.x * b.y - a.y * b.x);
    }

    friend std::ostream& operator<<(std::ostream& out, const Quaternion& q) {
        return out << "(" << q.w << ", " << q.x << ", " << q.y << ", " << q.z << ")";
    }
};
