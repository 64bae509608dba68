#pragma once
// Fixed-size matrix stored column-major, the layout glLoadMatrixf / glMultMatrixf expect:
// element (row, column) lives at values[column * R + row].
#include <ostream>

#include "demosys/Vector.h"

template <typename T, int R, int C, int S>
class Matrix {
    static_assert(R * C == S, "storage size must be rows times columns");

public:
    // Zero everywhere, except the diagonal of a square matrix, which is one.
    Matrix() {
        for (int i = 0; i < S; ++i) values[i] = T(0);
        if (R == C)
            for (int i = 0; i < R; ++i) at(i, i) = T(1);
    }
    explicit Matrix(const T* columnMajor) {
        for (int i = 0; i < S; ++i) values[i] = columnMajor[i];
    }

    static Matrix identity() { return Matrix(); }
    static Matrix zero() {
        Matrix m;
        for (int i = 0; i < S; ++i) m.values[i] = T(0);
        return m;
    }

    static constexpr int rows() { return R; }
    static constexpr int columns() { return C; }
    T* data() { return values; }
    const T* data() const { return values; }

    // Element by its column-major index, as OpenGL numbers them.
    T& operator[](int i) { return values[i]; }
    const T& operator[](int i) const { return values[i]; }

    T& at(int row, int column) { return values[column * R + row]; }
    const T& at(int row, int column) const { return values[column * R + row]; }

    template <int C2, int S2>
    Matrix<T, R, C2, R * C2> operator*(const Matrix<T, C, C2, S2>& other) const {
        Matrix<T, R, C2, R * C2> result = Matrix<T, R, C2, R * C2>::zero();
        for (int r = 0; r < R; ++r)
            for (int c = 0; c < C2; ++c) {
                T sum = T(0);
                for (int k = 0; k < C; ++k) sum += at(r, k) * other.at(k, c);
                result.at(r, c) = sum;
            }
        return result;
    }

    Vector<T, R> operator*(const Vector<T, C>& v) const {
        Vector<T, R> result;
        for (int r = 0; r < R; ++r) {
            T sum = T(0);
            for (int k = 0; k < C; ++k) sum += at(r, k) * v[k];
            result[r] = sum;
        }
        return result;
    }

    Matrix<T, C, R, S> transposed() const {
        Matrix<T, C, R, S> result = Matrix<T, C, R, S>::zero();
        for (int r = 0; r < R; ++r)
            for (int c = 0; c < C; ++c) result.at(c, r) = at(r, c);
        return result;
    }

    // Homogeneous 4x4 helpers: a point gets w = 1, so translation applies.
    static Matrix translation(T x, T y, T z) {
        static_assert(R == 4 && C == 4, "translation needs a 4x4 matrix");
        Matrix m;
        m.at(0, 3) = x;
        m.at(1, 3) = y;
        m.at(2, 3) = z;
        return m;
    }
    static Matrix scaling(T x, T y, T z) {
        static_assert(R == 4 && C == 4, "scaling needs a 4x4 matrix");
        Matrix m;
        m.at(0, 0) = x;
        m.at(1, 1) = y;
        m.at(2, 2) = z;
        return m;
    }
    Vector<T, 3> transformPoint(const Vector<T, 3>& p) const {
        static_assert(R == 4 && C == 4, "points are transformed by a 4x4 matrix");
        Vector<T, 4> h = *this * Vector<T, 4>(p[0], p[1], p[2], T(1));
        return Vector<T, 3>(h[0], h[1], h[2]);
    }

    friend bool operator==(const Matrix& a, const Matrix& b) {
        for (int i = 0; i < S; ++i)
            if (a.values[i] != b.values[i]) return false;
        return true;
    }
    friend bool operator!=(const Matrix& a, const Matrix& b) { return !(a == b); }

    friend std::ostream& operator<<(std::ostream& out, const Matrix& m) {
        for (int r = 0; r < R; ++r) {
            out << "[";
            for (int c = 0; c < C; ++c) out << (c ? ", " : "") << m.at(r, c);
            out << "]\n";
        }
        return out;
    }

private:
    T values[S];
};
