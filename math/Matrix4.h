// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Vector3.h"

namespace TAL
{

template <typename T>
struct Quat;
template <typename T>
struct Pose;

/// A 4-by-4 matrix, row-major, acting on column vectors: world = worldFromLocal * local. The identity
/// by default. Include Quat.h or Pose.h to build one from a rotation or a pose.
template <typename T>
struct Matrix4
{
    T M[4][4]; ///< M[row][column]

    constexpr Matrix4()
        : Matrix4(T(1), T(0), T(0), T(0), //
                  T(0), T(1), T(0), T(0), //
                  T(0), T(0), T(1), T(0), //
                  T(0), T(0), T(0), T(1))
    {
    }

    /// Row by row.
    constexpr Matrix4(T m00, T m01, T m02, T m03, //
                      T m10, T m11, T m12, T m13, //
                      T m20, T m21, T m22, T m23, //
                      T m30, T m31, T m32, T m33)
        : M{{m00, m01, m02, m03}, {m10, m11, m12, m13}, {m20, m21, m22, m23}, {m30, m31, m32, m33}}
    {
    }

    /// A quaternion that is not of unit length also scales, by the square of its length.
    explicit Matrix4(const Quat<T>& q)
        : Matrix4()
    {
        const T ww = q.w * q.w;
        const T xx = q.x * q.x;
        const T yy = q.y * q.y;
        const T zz = q.z * q.z;
        M[0][0] = ww + xx - yy - zz;
        M[0][1] = T(2) * (q.x * q.y - q.w * q.z);
        M[0][2] = T(2) * (q.x * q.z + q.w * q.y);
        M[1][0] = T(2) * (q.x * q.y + q.w * q.z);
        M[1][1] = ww - xx + yy - zz;
        M[1][2] = T(2) * (q.y * q.z - q.w * q.x);
        M[2][0] = T(2) * (q.x * q.z - q.w * q.y);
        M[2][1] = T(2) * (q.y * q.z + q.w * q.x);
        M[2][2] = ww - xx - yy + zz;
    }

    explicit Matrix4(const Pose<T>& pose)
        : Matrix4(pose.rotation)
    {
        SetTranslation(pose.translation);
    }

    void SetTranslation(const Vector3<T>& t)
    {
        M[0][3] = t.x;
        M[1][3] = t.y;
        M[2][3] = t.z;
    }

    static Matrix4 Scaling(const Vector3<T>& v)
    {
        Matrix4 result;
        result.M[0][0] = v.x;
        result.M[1][1] = v.y;
        result.M[2][2] = v.z;
        return result;
    }

    /// out = a * b. `out` may be either operand.
    static void Multiply(Matrix4& out, const Matrix4& a, const Matrix4& b)
    {
        Matrix4 product;
        for (int row = 0; row < 4; ++row) {
            for (int column = 0; column < 4; ++column) {
                product.M[row][column] = a.M[row][0] * b.M[0][column] + a.M[row][1] * b.M[1][column] +
                                         a.M[row][2] * b.M[2][column] + a.M[row][3] * b.M[3][column];
            }
        }
        out = product;
    }

    /// worldFromLocal *= localFromChild gives worldFromChild.
    Matrix4& operator*=(const Matrix4& b)
    {
        Multiply(*this, *this, b);
        return *this;
    }

    Matrix4& operator*=(T s)
    {
        for (auto& row : M) {
            for (T& entry : row) {
                entry *= s;
            }
        }
        return *this;
    }

    Matrix4 operator*(T s) const
    {
        Matrix4 result = *this;
        result *= s;
        return result;
    }

    T Determinant() const
    {
        return M[0][0] * Cofactor(0, 0) + M[0][1] * Cofactor(0, 1) + M[0][2] * Cofactor(0, 2) +
               M[0][3] * Cofactor(0, 3);
    }

    T Cofactor(int row, int column) const
    {
        const T subDet = SubDet(row, column);
        return (row + column) % 2 == 0 ? subDet : -subDet;
    }

    Matrix4 Adjugated() const
    {
        Matrix4 result;
        for (int row = 0; row < 4; ++row) {
            for (int column = 0; column < 4; ++column) {
                result.M[row][column] = Cofactor(column, row);
            }
        }
        return result;
    }

    /// A singular matrix yields infinities or NaN.
    Matrix4 Inverted() const { return Adjugated() * (T(1) / Determinant()); }

    /// A homogeneous transform of the point `v`, with the division by w.
    Vector3<T> Transform(const Vector3<T>& v) const
    {
        const T w = M[3][0] * v.x + M[3][1] * v.y + M[3][2] * v.z + M[3][3];
        const Vector3<T> transformed(M[0][0] * v.x + M[0][1] * v.y + M[0][2] * v.z + M[0][3],
                                     M[1][0] * v.x + M[1][1] * v.y + M[1][2] * v.z + M[1][3],
                                     M[2][0] * v.x + M[2][1] * v.y + M[2][2] * v.z + M[2][3]);
        return transformed * (T(1) / w);
    }

    /// The view matrix, viewFromWorld, of an eye that looks along its own -z.
    static Matrix4 LookAtRH(const Vector3<T>& eye, const Vector3<T>& at, const Vector3<T>& up)
    {
        const Vector3<T> z = (eye - at).Normalized();
        const Vector3<T> x = up.Cross(z).Normalized();
        const Vector3<T> y = z.Cross(x);
        return Matrix4(x.x, x.y, x.z, -x.Dot(eye), //
                       y.x, y.y, y.z, -y.Dot(eye), //
                       z.x, z.y, z.z, -z.Dot(eye), //
                       T(0), T(0), T(0), T(1));
    }

private:
    /// The determinant of the 3-by-3 matrix left on striking a row and a column.
    T SubDet(int struckRow, int struckColumn) const
    {
        const int r0 = struckRow == 0 ? 1 : 0;
        const int r1 = struckRow <= 1 ? 2 : 1;
        const int r2 = struckRow <= 2 ? 3 : 2;
        const int c0 = struckColumn == 0 ? 1 : 0;
        const int c1 = struckColumn <= 1 ? 2 : 1;
        const int c2 = struckColumn <= 2 ? 3 : 2;
        return M[r0][c0] * (M[r1][c1] * M[r2][c2] - M[r1][c2] * M[r2][c1]) -
               M[r0][c1] * (M[r1][c0] * M[r2][c2] - M[r1][c2] * M[r2][c0]) +
               M[r0][c2] * (M[r1][c0] * M[r2][c1] - M[r1][c1] * M[r2][c0]);
    }
};

} // namespace TAL
