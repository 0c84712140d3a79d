// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

// The second implementation: every formula again, plainly, in long double, row by row, sharing nothing with the
// component. Where the component turns by quaternions, this turns by Rodrigues' formula.
namespace camera::oracle {

using Real = long double;

inline constexpr Real tolerance = 1e-7L;

/// How far the two may be apart, of the scale of the numbers compared, for an operation of condition 1: some hundred
/// roundings.
inline constexpr Real rounding = 512.0L * 0x1p-52L;

/// How far the answer can be trusted. An operation that compares two numbers which rounding could swap cannot be
/// judged; one that loses digits by cancellation is judged by so much less. Nothing here may depend on what the
/// component answered: a wrong answer must not excuse itself.
struct Judgement {
    bool certain = true;
    Real condition = 1.0L;

    /// a <= b, if the numbers are far enough apart for both implementations to see the same.
    bool atMost(Real a, Real b) {
        if (std::abs(a - b) <= 1e-9L * (std::abs(a) + std::abs(b)) && a != 0.0L && b != 0.0L) {
            certain = false;
        }
        return a <= b;
    }
    bool below(Real a, Real b) { return !atMost(b, a); }

    /// A difference `result` of terms as large as `terms`.
    void cancels(Real terms, Real result) {
        const Real loss = std::abs(terms / result);
        if (!(loss < 1e6L)) {
            certain = false;
        } else {
            condition = std::max(condition, loss);
        }
    }
};

struct Vector {
    Real x = 0.0L;
    Real y = 0.0L;
    Real z = 0.0L;

    friend bool operator==(const Vector&, const Vector&) = default;
};

inline Vector operator+(Vector a, Vector b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
inline Vector operator-(Vector a, Vector b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
inline Vector operator*(Real s, Vector v) { return {s * v.x, s * v.y, s * v.z}; }
inline Real dot(Vector a, Vector b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline Real length(Vector v) { return std::sqrt(dot(v, v)); }
inline Vector cross(Vector a, Vector b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline Vector unit(Vector v) { return (1.0L / length(v)) * v; }

/// Rodrigues' formula: v turned about a unit axis.
inline Vector turned(Vector v, Vector axis, Real angle) {
    const Real c = std::cos(angle);
    const Real s = std::sin(angle);
    return c * v + s * cross(axis, v) + (dot(axis, v) * (1.0L - c)) * axis;
}

/// Indexed by row, then column.
using Matrix3 = std::array<std::array<Real, 3>, 3>;
using Matrix4 = std::array<std::array<Real, 4>, 4>;
using Homogeneous = std::array<Real, 4>;

inline Vector column(const Matrix3& m, std::size_t k) { return {m[0][k], m[1][k], m[2][k]}; }
inline Vector axis(const Matrix4& view, std::size_t row) { return {view[row][0], view[row][1], view[row][2]}; }

inline Matrix3 fromColumns(Vector x, Vector y, Vector z) {
    return {{{x.x, y.x, z.x}, {x.y, y.y, z.y}, {x.z, y.z, z.z}}};
}

inline Homogeneous product(const Matrix4& m, const Homogeneous& v) {
    Homogeneous result{};
    for (std::size_t r = 0; r < 4; ++r) {
        for (std::size_t k = 0; k < 4; ++k) {
            result[r] += m[r][k] * v[k];
        }
    }
    return result;
}

inline Vector product(const Matrix3& m, Vector v) {
    return v.x * column(m, 0) + v.y * column(m, 1) + v.z * column(m, 2);
}

inline Matrix3 transposed(const Matrix3& m) {
    return fromColumns({m[0][0], m[0][1], m[0][2]}, {m[1][0], m[1][1], m[1][2]}, {m[2][0], m[2][1], m[2][2]});
}

inline Matrix3 linearPart(const Matrix4& m) {
    return {{{m[0][0], m[0][1], m[0][2]}, {m[1][0], m[1][1], m[1][2]}, {m[2][0], m[2][1], m[2][2]}}};
}
inline Vector translation(const Matrix4& m) { return {m[0][3], m[1][3], m[2][3]}; }

// Rounding in a chain of products: beside each number goes a size, the sum of its terms' absolute values, to which
// the rounding of the number is proportional.

struct Sized {
    Vector value;
    Real size = 0.0L;
};

struct SizedHomogeneous {
    Homogeneous value{};
    Homogeneous size{};
};

inline SizedHomogeneous sized(const Homogeneous& v) {
    return {v, {std::abs(v[0]), std::abs(v[1]), std::abs(v[2]), std::abs(v[3])}};
}

inline SizedHomogeneous product(const Matrix4& m, const SizedHomogeneous& v) {
    SizedHomogeneous result{product(m, v.value), {}};
    for (std::size_t r = 0; r < 4; ++r) {
        for (std::size_t k = 0; k < 4; ++k) {
            result.size[r] += std::abs(m[r][k]) * v.size[k];
        }
    }
    return result;
}

inline SizedHomogeneous scaled(SizedHomogeneous v, Real factor) {
    for (std::size_t i = 0; i < 4; ++i) {
        v.value[i] *= factor;
        v.size[i] *= std::abs(factor);
    }
    return v;
}

inline Sized threeOf(const SizedHomogeneous& v) {
    return {{v.value[0], v.value[1], v.value[2]}, std::max({v.size[0], v.size[1], v.size[2]})};
}

} // namespace camera::oracle
