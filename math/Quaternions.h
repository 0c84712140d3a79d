// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cmath>
#include <cstddef>

#include "math/Matrices.h"
#include "math/Vectors.h"

namespace qel::api::camera::math {

/// A quaternion, scalar last. A new one is the identity.
template <class Number>
struct BasicQuaternion {
    Number x = Number(0);
    Number y = Number(0);
    Number z = Number(0);
    Number w = Number(1);

    friend constexpr bool operator==(const BasicQuaternion&, const BasicQuaternion&) noexcept = default;
};

using Quat = BasicQuaternion<double>;
using Quatf = BasicQuaternion<float>;

/// The Hamilton product: the rotation b, then the rotation a.
[[nodiscard]] constexpr Quat operator*(const Quat& a, const Quat& b) noexcept {
    return {a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y, a.w * b.y - a.x * b.z + a.y * b.w + a.z * b.x,
            a.w * b.z + a.x * b.y - a.y * b.x + a.z * b.w, a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z};
}

[[nodiscard]] inline double length(const Quat& q) noexcept {
    return std::sqrt(q.x * q.x + q.y * q.y + q.z * q.z + q.w * q.w);
}

/// The quaternion (sin(angle) axis, cos(angle)), which turns by twice the angle about a unit axis.
[[nodiscard]] inline Quat quaternionOfHalfAngle(const Vec3& axis, double angle) noexcept {
    const double sine = std::sin(angle);
    return {sine * axis.x, sine * axis.y, sine * axis.z, std::cos(angle)};
}

/// q (v, 0) q*, evaluated from the right. q is not normalised: its squared length scales the result.
[[nodiscard]] constexpr Vec3 rotateByQuaternion(const Quat& q, const Vec3& v) noexcept {
    const Vec3 axis{q.x, q.y, q.z};
    const Vec3 t = v * q.w - cross(v, axis);
    const double tw = dot(axis, v);
    return t * q.w + axis * tw + cross(axis, t);
}

/// Writes the rotation of q, which is not normalised, into m and marks m as holding a rotation.
constexpr Mat3& quaternionToMat3(const Quat& q, Mat3& m) noexcept {
    const double x2 = 2.0 * q.x;
    const double y2 = 2.0 * q.y;
    const double z2 = 2.0 * q.z;
    m(0, 0) = 1.0 - (q.y * y2 + q.z * z2);
    m(1, 0) = q.x * y2 + q.w * z2;
    m(2, 0) = q.x * z2 - q.w * y2;
    m(0, 1) = q.x * y2 - q.w * z2;
    m(1, 1) = 1.0 - (q.x * x2 + q.z * z2);
    m(2, 1) = q.y * z2 + q.w * x2;
    m(0, 2) = q.x * z2 + q.w * y2;
    m(1, 2) = q.y * z2 - q.w * x2;
    m(2, 2) = 1.0 - (q.x * x2 + q.y * y2);
    m.mKind = withRotation(m.mKind);
    return m;
}

[[nodiscard]] constexpr Mat3 mat3FromQuaternion(const Quat& q) noexcept {
    Mat3 m;
    return quaternionToMat3(q, m);
}

/// The rotation in the upper-left 3x3 of a Mat3 or a Mat4 as a quaternion. Shoemake, "Animating Rotation with
/// Quaternion Curves", SIGGRAPH 1985: the largest of the four components comes from a square root, so that the
/// others divide by nothing small.
template <std::size_t Size>
[[nodiscard]] inline Quat toQuaternion(const BasicMatrix<double, Size, Size>& m) noexcept {
    static_assert(Size >= 3);
    const double trace = m(0, 0) + m(1, 1) + m(2, 2);
    if (trace > 0.0) {
        const double root = std::sqrt(trace + 1.0);
        const double s = 0.5 / root;
        return {(m(2, 1) - m(1, 2)) * s, (m(0, 2) - m(2, 0)) * s, (m(1, 0) - m(0, 1)) * s, root / 2.0};
    }

    constexpr std::array<std::size_t, 3> next{1, 2, 0};
    std::size_t i = m(1, 1) > m(0, 0) ? 1 : 0;
    if (m(2, 2) > m(i, i)) {
        i = 2;
    }
    const std::size_t j = next[i];
    const std::size_t k = next[j];
    const double root = std::sqrt(m(i, i) - (m(j, j) + m(k, k)) + 1.0);
    const double s = root == 0.0 ? 0.0 : 0.5 / root;
    std::array<double, 3> axis{};
    axis[i] = root / 2.0;
    axis[j] = (m(j, i) + m(i, j)) * s;
    axis[k] = (m(k, i) + m(i, k)) * s;
    return {axis[0], axis[1], axis[2], (m(k, j) - m(j, k)) * s};
}

[[nodiscard]] inline Quat mat3ToQuaternion(const Mat3& m) noexcept { return toQuaternion(m); }
[[nodiscard]] inline Quat mat4ToQuaternion(const Mat4& m) noexcept { return toQuaternion(m); }

} // namespace qel::api::camera::math
