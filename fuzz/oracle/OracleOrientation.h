// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "fuzz/oracle/OracleNumbers.h"

namespace camera::oracle {

/// x, y, z, w.
using Quaternion = std::array<Real, 4>;

/// 4 q q^T for the quaternion q of a rotation: each row is q by a factor (Bar-Itzhack, "New Method for Extracting the
/// Quaternion from a Rotation Matrix", 2000).
inline Matrix4 quaternionProducts(const Matrix3& m) {
    const Real x = m[0][0], y = m[1][1], z = m[2][2];
    const Real xy = m[0][1] + m[1][0], xz = m[0][2] + m[2][0], yz = m[1][2] + m[2][1];
    const Real wx = m[2][1] - m[1][2], wy = m[0][2] - m[2][0], wz = m[1][0] - m[0][1];
    return {{{1.0L + x - y - z, xy, xz, wx},
             {xy, 1.0L - x + y - z, yz, wy},
             {xz, yz, 1.0L - x - y + z, wz},
             {wx, wy, wz, 1.0L + x + y + z}}};
}

/// The sign is told: w is positive where the trace is, else the component of the largest diagonal element is. A
/// matrix that is no rotation has the quaternion that the chosen row gives.
inline Quaternion quaternionOf(Judgement& judge, const Matrix3& m) {
    const Matrix4 products = quaternionProducts(m);
    std::size_t row = 3;
    if (judge.atMost(products[3][3], 1.0L)) {
        row = judge.below(products[0][0], products[1][1]) ? 1 : 0;
        row = judge.below(products[row][row], products[2][2]) ? 2 : row;
    }
    const Real square = products[row][row];
    judge.cancels(1.0L + std::abs(m[0][0]) + std::abs(m[1][1]) + std::abs(m[2][2]), square);
    const Real factor = 0.5L / std::sqrt(square);
    Quaternion q = products[row];
    for (Real& component : q) {
        component *= factor;
    }
    return q;
}

/// Whether the columns are of unit length and square to each other.
inline bool isRotation(const Matrix3& m, Real within) {
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j <= i; ++j) {
            if (!(std::abs(dot(column(m, i), column(m, j)) - (i == j ? 1.0L : 0.0L)) < within)) {
                return false;
            }
        }
    }
    return true;
}

/// v + 2 w (u x v) + 2 u x (u x v), column by column, with u the first three and w the last of q; of any length.
inline Matrix3 rotationOf(const Quaternion& q) {
    const Vector u{q[0], q[1], q[2]};
    const auto turn = [&](Vector v) {
        const Vector t = 2.0L * cross(u, v);
        return v + q[3] * t + cross(u, t);
    };
    return fromColumns(turn({1.0L, 0.0L, 0.0L}), turn({0.0L, 1.0L, 0.0L}), turn({0.0L, 0.0L, 1.0L}));
}

} // namespace camera::oracle
