// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cmath>

#include "math/Tolerances.h"

namespace qel::api::camera::math {

/// A point or a vector of three coordinates.
struct Vec3 {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    friend constexpr bool operator==(const Vec3&, const Vec3&) noexcept = default;
};

/// Homogeneous coordinates: a point has w = 1, a vector w = 0.
struct Vec4 {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    double w = 0.0;

    friend constexpr bool operator==(const Vec4&, const Vec4&) noexcept = default;
};

[[nodiscard]] constexpr Vec3 operator+(const Vec3& a, const Vec3& b) noexcept {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

[[nodiscard]] constexpr Vec3 operator-(const Vec3& a, const Vec3& b) noexcept {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

[[nodiscard]] constexpr Vec3 operator-(const Vec3& v) noexcept { return {-v.x, -v.y, -v.z}; }

[[nodiscard]] constexpr Vec3 operator*(const Vec3& v, double factor) noexcept {
    return {v.x * factor, v.y * factor, v.z * factor};
}

[[nodiscard]] constexpr Vec4 operator*(const Vec4& v, double factor) noexcept {
    return {v.x * factor, v.y * factor, v.z * factor, v.w * factor};
}

[[nodiscard]] constexpr double dot(const Vec3& a, const Vec3& b) noexcept { return a.x * b.x + a.y * b.y + a.z * b.z; }

[[nodiscard]] constexpr Vec3 cross(const Vec3& a, const Vec3& b) noexcept {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

[[nodiscard]] inline double length(const Vec3& v) noexcept { return std::sqrt(dot(v, v)); }

/// Scales v to length 1 and returns the length it had. Only an exact zero is degenerate: it is left alone and 0
/// returned. A length whose square overflows or underflows counts as what the square became.
inline double normalise3(Vec3& v) noexcept {
    const double squaredLength = dot(v, v);
    if (squaredLength == 0.0) {
        return 0.0;
    }
    const double vectorLength = std::sqrt(squaredLength);
    if (vectorLength == 0.0) {
        return 0.0;
    }
    v = {v.x / vectorLength, v.y / vectorLength, v.z / vectorLength};
    return vectorLength;
}

/// The same rule for the pair (a, b), as the angles of a frustum need it.
inline void normalise2(double& a, double& b) noexcept {
    const double squaredLength = a * a + b * b;
    if (squaredLength == 0.0) {
        return;
    }
    const double pairLength = std::sqrt(squaredLength);
    if (pairLength == 0.0) {
        return;
    }
    a /= pairLength;
    b /= pairLength;
}

/// Whether v has no usable length: exactly zero, or at most the tolerance. A NaN length is not negligible.
[[nodiscard]] inline bool isNegligible(const Vec3& v) noexcept {
    const double squaredLength = dot(v, v);
    return squaredLength == 0.0 || std::sqrt(squaredLength) <= tolerance;
}

} // namespace qel::api::camera::math
