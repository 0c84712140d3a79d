// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <ostream>
#include <random>
#include <utility>

#include "math/Matrices.h"
#include "math/Pipeline.h"
#include "math/Quaternions.h"
#include "math/Vectors.h"

// How gtest shows the mathematics. It finds these by the namespace of what it shows.
namespace qel::api::camera::math {

inline void PrintTo(const Vec3& v, std::ostream* out) { *out << '(' << v.x << ", " << v.y << ", " << v.z << ')'; }

inline void PrintTo(const Vec4& v, std::ostream* out) {
    *out << '(' << v.x << ", " << v.y << ", " << v.z << ", " << v.w << ')';
}

inline void PrintTo(const Quat& q, std::ostream* out) {
    *out << '(' << q.x << ", " << q.y << ", " << q.z << ", " << q.w << ')';
}

inline void PrintTo(const Frustum& frustum, std::ostream* out) {
    const auto& [l, r, b, t, n, f] = frustum;
    *out << "left " << l << " right " << r << " bottom " << b << " top " << t << " near " << n << " far " << f;
}

inline void PrintTo(MatrixKind kind, std::ostream* out) { *out << "kind " << static_cast<std::uint32_t>(kind); }

template <class Number, std::size_t Rows, std::size_t Columns>
void PrintTo(const BasicMatrix<Number, Rows, Columns>& m, std::ostream* out) {
    PrintTo(m.mKind, out);
    for (std::size_t r = 0; r < Rows; ++r) {
        *out << (r == 0 ? " [" : "; ");
        for (std::size_t k = 0; k < Columns; ++k) {
            *out << (k == 0 ? "" : " ") << m(r, k);
        }
    }
    *out << ']';
}

} // namespace qel::api::camera::math

namespace qel::api::camera::test {

inline constexpr double pi = 3.14159265358979323846;
inline constexpr double nan = std::numeric_limits<double>::quiet_NaN();
inline constexpr double infinity = std::numeric_limits<double>::infinity();
/// The spacing of doubles above 1: tolerances are given as so many of these times the largest number that went in.
inline constexpr double epsilon = std::numeric_limits<double>::epsilon();

// The smallest step that separates a bound from what is beyond it.
[[nodiscard]] inline double justAbove(double value) { return std::nextafter(value, infinity); }
[[nodiscard]] inline double justBelow(double value) { return std::nextafter(value, -infinity); }

/// Whether no pair of numbers differs by more than the tolerance. A NaN differs from everything.
template <class Value, std::size_t Count>
[[nodiscard]] ::testing::AssertionResult allNear(const std::array<double, Count>& actual,
                                                 const std::array<double, Count>& expected, double tolerance,
                                                 const Value& shown, const Value& wanted) {
    for (std::size_t i = 0; i < Count; ++i) {
        const double difference = std::abs(actual[i] - expected[i]);
        if (!(difference <= tolerance)) {
            return ::testing::AssertionFailure()
                   << ::testing::PrintToString(shown) << "\nshould be near " << ::testing::PrintToString(wanted)
                   << "\nbut number " << i << " differs by " << difference << ", allowed is " << tolerance;
        }
    }
    return ::testing::AssertionSuccess();
}

[[nodiscard]] inline ::testing::AssertionResult near(const math::Vec3& actual, const math::Vec3& expected,
                                                     double tolerance) {
    return allNear<math::Vec3, 3>({actual.x, actual.y, actual.z}, {expected.x, expected.y, expected.z}, tolerance,
                                  actual, expected);
}

[[nodiscard]] inline ::testing::AssertionResult near(const math::Quat& actual, const math::Quat& expected,
                                                     double tolerance) {
    return allNear<math::Quat, 4>({actual.x, actual.y, actual.z, actual.w},
                                  {expected.x, expected.y, expected.z, expected.w}, tolerance, actual, expected);
}

[[nodiscard]] inline ::testing::AssertionResult near(const math::Frustum& actual, const math::Frustum& expected,
                                                     double tolerance) {
    const auto& [l, r, b, t, n, f] = actual;
    const auto& [el, er, eb, et, en, ef] = expected;
    return allNear<math::Frustum, 6>({l, r, b, t, n, f}, {el, er, eb, et, en, ef}, tolerance, actual, expected);
}

/// Elements only; kind words are compared where a test is about them.
template <std::size_t Rows, std::size_t Columns>
[[nodiscard]] ::testing::AssertionResult near(const math::BasicMatrix<double, Rows, Columns>& actual,
                                              const math::BasicMatrix<double, Rows, Columns>& expected,
                                              double tolerance) {
    return allNear(actual.mElements, expected.mElements, tolerance, actual, expected);
}

[[nodiscard]] inline bool isNaN(const math::Vec3& v) { return std::isnan(v.x) && std::isnan(v.y) && std::isnan(v.z); }

template <std::size_t Size>
using Rows = std::array<std::array<double, Size>, Size>;

/// A matrix from its rows, as one writes it on paper.
template <std::size_t Size>
[[nodiscard]] math::BasicMatrix<double, Size, Size> fromRows(const Rows<Size>& rows, math::MatrixKind kind) {
    math::BasicMatrix<double, Size, Size> m;
    for (std::size_t r = 0; r < Size; ++r) {
        for (std::size_t k = 0; k < Size; ++k) {
            m(r, k) = rows[r][k];
        }
    }
    m.mKind = kind;
    return m;
}
[[nodiscard]] inline math::Mat3 rows3(const Rows<3>& rows, math::MatrixKind kind = math::MatrixKind::rotation) {
    return fromRows<3>(rows, kind);
}
[[nodiscard]] inline math::Mat4 rows4(const Rows<4>& rows, math::MatrixKind kind = math::MatrixKind::general) {
    return fromRows<4>(rows, kind);
}

/// The product a b, summed in long double.
template <std::size_t Size>
[[nodiscard]] math::BasicMatrix<double, Size, Size> product(const math::BasicMatrix<double, Size, Size>& a,
                                                            const math::BasicMatrix<double, Size, Size>& b) {
    math::BasicMatrix<double, Size, Size> result;
    for (std::size_t r = 0; r < Size; ++r) {
        for (std::size_t k = 0; k < Size; ++k) {
            long double sum = 0.0L;
            for (std::size_t i = 0; i < Size; ++i) {
                sum += static_cast<long double>(a(r, i)) * static_cast<long double>(b(i, k));
            }
            result(r, k) = static_cast<double>(sum);
        }
    }
    return result;
}

/// The inverse of any invertible matrix by elimination with pivoting, in long double: the second method beside every
/// closed form.
[[nodiscard]] inline math::Mat4 generalInverse(const math::Mat4& m) {
    std::array<std::array<long double, 8>, 4> rows{};
    for (std::size_t r = 0; r < 4; ++r) {
        for (std::size_t k = 0; k < 4; ++k) {
            rows[r][k] = m(r, k);
        }
        rows[r][4 + r] = 1.0L;
    }
    for (std::size_t column = 0; column < 4; ++column) {
        std::size_t pivot = column;
        for (std::size_t r = column + 1; r < 4; ++r) {
            if (std::abs(rows[r][column]) > std::abs(rows[pivot][column])) {
                pivot = r;
            }
        }
        std::swap(rows[column], rows[pivot]);
        const long double divisor = rows[column][column];
        for (long double& value : rows[column]) {
            value /= divisor;
        }
        for (std::size_t r = 0; r < 4; ++r) {
            const long double factor = rows[r][column];
            for (std::size_t k = 0; r != column && k < 8; ++k) {
                rows[r][k] -= factor * rows[column][k];
            }
        }
    }
    math::Mat4 inverse;
    for (std::size_t r = 0; r < 4; ++r) {
        for (std::size_t k = 0; k < 4; ++k) {
            inverse(r, k) = static_cast<double>(rows[r][4 + k]);
        }
    }
    return inverse;
}

/// v turned about a unit axis by an angle, by Rodrigues' formula in long double.
[[nodiscard]] inline math::Vec3 turned(const math::Vec3& v, const math::Vec3& axis, double angle) {
    const long double c = std::cos(static_cast<long double>(angle));
    const long double s = std::sin(static_cast<long double>(angle));
    const long double ax = axis.x, ay = axis.y, az = axis.z;
    const long double vx = v.x, vy = v.y, vz = v.z;
    const long double along = (ax * vx + ay * vy + az * vz) * (1.0L - c);
    return {static_cast<double>(vx * c + (ay * vz - az * vy) * s + ax * along),
            static_cast<double>(vy * c + (az * vx - ax * vz) * s + ay * along),
            static_cast<double>(vz * c + (ax * vy - ay * vx) * s + az * along)};
}

/// Reproducible numbers: the same on every machine, which the distributions of the library need not be.
class Random {
public:
    explicit Random(std::uint64_t seed) : mEngine(seed) {}

    [[nodiscard]] double between(double low, double high) {
        return low + (high - low) * (static_cast<double>(mEngine() >> 11U) * 0x1p-53);
    }
    /// Evenly spread over the orders of magnitude between two positive numbers.
    [[nodiscard]] double magnitude(double low, double high) { return std::exp(between(std::log(low), std::log(high))); }
    [[nodiscard]] std::uint32_t below(std::uint32_t bound) { return static_cast<std::uint32_t>(mEngine() % bound); }
    [[nodiscard]] math::Vec3 vector(double size) {
        const double x = between(-size, size);
        const double y = between(-size, size);
        return {x, y, between(-size, size)};
    }
    /// Of length 1, in any direction.
    [[nodiscard]] math::Vec3 direction() {
        for (;;) {
            const math::Vec3 v = vector(1.0);
            const double squaredLength = dot(v, v);
            if (squaredLength > 0.01 && squaredLength <= 1.0) {
                return v * (1.0 / std::sqrt(squaredLength));
            }
        }
    }

private:
    std::mt19937_64 mEngine;
};

} // namespace qel::api::camera::test
