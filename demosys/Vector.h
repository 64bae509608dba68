#pragma once
// Small fixed-size vector for positions, directions, colours and scales.
// Components are stored contiguously so data() can go straight to glVertex*v / glLight*v.
#include <cmath>
#include <ostream>

template <typename T, int N>
class Vector {
    static_assert(N >= 1, "a vector needs at least one component");

public:
    Vector() {
        for (int i = 0; i < N; ++i) values[i] = T(0);
    }
    explicit Vector(const T* source) {
        for (int i = 0; i < N; ++i) values[i] = source[i];
    }
    Vector(T x, T y) {
        static_assert(N == 2, "two components for Vector<T, 2>");
        values[0] = x;
        values[1] = y;
    }
    Vector(T x, T y, T z) {
        static_assert(N == 3, "three components for Vector<T, 3>");
        values[0] = x;
        values[1] = y;
        values[2] = z;
    }
    Vector(T x, T y, T z, T w) {
        static_assert(N == 4, "four components for Vector<T, 4>");
        values[0] = x;
        values[1] = y;
        values[2] = z;
        values[3] = w;
    }

    static constexpr int size() { return N; }
    T* data() { return values; }
    const T* data() const { return values; }

    T& operator[](int i) { return values[i]; }
    const T& operator[](int i) const { return values[i]; }

    T& x() { return values[0]; }
    T& y() { static_assert(N >= 2, "no y component"); return values[1]; }
    T& z() { static_assert(N >= 3, "no z component"); return values[2]; }
    T& w() { static_assert(N >= 4, "no w component"); return values[3]; }
    const T& x() const { return values[0]; }
    const T& y() const { static_assert(N >= 2, "no y component"); return values[1]; }
    const T& z() const { static_assert(N >= 3, "no z component"); return values[2]; }
    const T& w() const { static_assert(N >= 4, "no w component"); return values[3]; }

    Vector& operator+=(const Vector& other) {
        for (int i = 0; i < N; ++i) values[i] += other.values[i];
        return *this;
    }
    Vector& operator-=(const Vector& other) {
        for (int i = 0; i < N; ++i) values[i] -= other.values[i];
        return *this;
    }
    Vector& operator*=(T factor) {
        for (int i = 0; i < N; ++i) values[i] *= factor;
        return *this;
    }
    Vector& operator/=(T divisor) {
        for (int i = 0; i < N; ++i) values[i] /= divisor;
        return *this;
    }

    friend Vector operator+(Vector a, const Vector& b) { return a += b; }
    friend Vector operator-(Vector a, const Vector& b) { return a -= b; }
    friend Vector operator*(Vector a, T factor) { return a *= factor; }
    friend Vector operator*(T factor, Vector a) { return a *= factor; }
    friend Vector operator/(Vector a, T divisor) { return a /= divisor; }
    friend Vector operator-(Vector a) { return a *= T(-1); }

    friend bool operator==(const Vector& a, const Vector& b) {
        for (int i = 0; i < N; ++i)
            if (a.values[i] != b.values[i]) return false;
        return true;
    }
    friend bool operator!=(const Vector& a, const Vector& b) { return !(a == b); }

    T dot(const Vector& other) const {
        T sum = T(0);
        for (int i = 0; i < N; ++i) sum += values[i] * other.values[i];
        return sum;
    }

    Vector cross(const Vector& other) const {
        static_assert(N == 3, "the cross product is defined for three components");
        return Vector(values[1] * other.values[2] - values[2] * other.values[1],
                      values[2] * other.values[0] - values[0] * other.values[2],
                      values[0] * other.values[1] - values[1] * other.values[0]);
    }

    T length() const { return std::sqrt(dot(*this)); }

    // A zero vector stays zero rather than turning into NaNs.
    Vector normalised() const {
        T len = length();
        if (len == T(0)) return *this;
        return *this / len;
    }
    void normalise() { *this = normalised(); }

    // this * (1 - t) + other * t, per component.
    Vector linearInterpolate(const Vector& other, T t) const {
        Vector result;
        for (int i = 0; i < N; ++i) result.values[i] = values[i] * (T(1) - t) + other.values[i] * t;
        return result;
    }

    friend std::ostream& operator<<(std::ostream& out, const Vector& v) {
        out << "(";
        for (int i = 0; i < N; ++i) out << (i ? ", " : "") << v.values[i];
        return out << ")";
    }

private:
    T values[N];
};
