// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "math/Tolerances.h"
#include "math/Vectors.h"

namespace qel::api::camera::math {

/// What a matrix is known to be. The word travels with the matrix, through images too, so any value may occur; the
/// ones below have a meaning.
enum class MatrixKind : std::uint32_t {
    identity = 1,
    translation = 2,
    rotation = 4,
    rotationTranslation = 16,
    scaling = 32, ///< a bit: the basis is not of unit length
    general = 64  ///< projective, or unknown
};

[[nodiscard]] constexpr bool hasScaling(MatrixKind kind) noexcept {
    return (static_cast<std::uint32_t>(kind) & static_cast<std::uint32_t>(MatrixKind::scaling)) != 0;
}

/// The kind of a matrix after a translation was written into it.
[[nodiscard]] constexpr MatrixKind withTranslation(MatrixKind kind) noexcept {
    switch (kind) {
    case MatrixKind::identity: return MatrixKind::translation;
    case MatrixKind::rotation: return MatrixKind::rotationTranslation;
    default: return kind;
    }
}

/// The kind of a matrix after a rotation was written into it.
[[nodiscard]] constexpr MatrixKind withRotation(MatrixKind kind) noexcept {
    switch (kind) {
    case MatrixKind::identity: return MatrixKind::rotation;
    case MatrixKind::translation: return MatrixKind::rotationTranslation;
    default: return kind;
    }
}

/// A matrix that acts on column vectors, stored column by column, and its kind word. A new one is the identity.
///
/// The 4x4 matrix of a placement (axes X, Y, Z and translation T as columns):
///
///     m(0,0) m(0,1) m(0,2) m(0,3)     [0] [4] [ 8] [12]     X.x Y.x Z.x T.x
///     m(1,0) m(1,1) m(1,2) m(1,3)  =  [1] [5] [ 9] [13]  =  X.y Y.y Z.y T.y
///     m(2,0) m(2,1) m(2,2) m(2,3)     [2] [6] [10] [14]     X.z Y.z Z.z T.z
///     m(3,0) m(3,1) m(3,2) m(3,3)     [3] [7] [11] [15]      0   0   0   1
template <class Number, std::size_t Rows, std::size_t Columns>
struct BasicMatrix {
    std::array<Number, Rows * Columns> mElements;
    MatrixKind mKind;
    std::uint32_t mPadding = 0; ///< so that no byte of a matrix is anything but a number's

    constexpr BasicMatrix() noexcept : mElements(identityElements), mKind(MatrixKind::identity) {}

    constexpr BasicMatrix(const std::array<Number, Rows * Columns>& elements, MatrixKind kind) noexcept
        : mElements(elements), mKind(kind) {}

    [[nodiscard]] constexpr Number& operator()(std::size_t row, std::size_t column) noexcept {
        return mElements[column * Rows + row];
    }
    [[nodiscard]] constexpr Number operator()(std::size_t row, std::size_t column) const noexcept {
        return mElements[column * Rows + row];
    }

    friend constexpr bool operator==(const BasicMatrix&, const BasicMatrix&) noexcept = default;

private:
    static constexpr std::array<Number, Rows* Columns> identityElements = [] {
        std::array<Number, Rows * Columns> elements{};
        for (std::size_t i = 0; i < Rows && i < Columns; ++i) {
            elements[i * Rows + i] = Number(1);
        }
        return elements;
    }();
};

using Mat2 = BasicMatrix<double, 2, 2>;
using Mat2x3 = BasicMatrix<double, 2, 3>; ///< a 2-D affine transform
using Mat3 = BasicMatrix<double, 3, 3>;
using Mat3x4 = BasicMatrix<double, 3, 4>; ///< a 3-D affine transform
using Mat4 = BasicMatrix<double, 4, 4>;
using Mat2f = BasicMatrix<float, 2, 2>;
using Mat2x3f = BasicMatrix<float, 2, 3>;
using Mat3f = BasicMatrix<float, 3, 3>;
using Mat3x4f = BasicMatrix<float, 3, 4>;
using Mat4f = BasicMatrix<float, 4, 4>;

template <class MatrixType>
inline constexpr MatrixType identity{};

[[nodiscard]] constexpr Vec3 operator*(const Mat3& m, const Vec3& v) noexcept {
    return {m(0, 0) * v.x + m(0, 1) * v.y + m(0, 2) * v.z, m(1, 0) * v.x + m(1, 1) * v.y + m(1, 2) * v.z,
            m(2, 0) * v.x + m(2, 1) * v.y + m(2, 2) * v.z};
}

/// The full product with all four rows; no divide.
[[nodiscard]] constexpr Vec4 operator*(const Mat4& m, const Vec4& v) noexcept {
    return {m(0, 0) * v.x + m(0, 1) * v.y + m(0, 2) * v.z + m(0, 3) * v.w,
            m(1, 0) * v.x + m(1, 1) * v.y + m(1, 2) * v.z + m(1, 3) * v.w,
            m(2, 0) * v.x + m(2, 1) * v.y + m(2, 2) * v.z + m(2, 3) * v.w,
            m(3, 0) * v.x + m(3, 1) * v.y + m(3, 2) * v.z + m(3, 3) * v.w};
}

/// The three coordinates of v, divided by w unless |w| is at most the tolerance; a NaN w divides.
[[nodiscard]] inline Vec3 perspectiveDivide(const Vec4& v) noexcept {
    if (homogeneousTolerance >= std::abs(v.w)) {
        return {v.x, v.y, v.z};
    }
    const double reciprocal = 1.0 / v.w;
    return Vec3{v.x, v.y, v.z} * reciprocal;
}

[[nodiscard]] inline Vec3 transformPoint(const Mat4& m, const Vec3& p) noexcept {
    return perspectiveDivide(m * Vec4{p.x, p.y, p.z, 1.0});
}

/// Transforms a direction. The translation is multiplied by zero rather than left out, so that a matrix with
/// non-finite elements there gives NaN instead of hiding them.
[[nodiscard]] inline Vec3 transformVector(const Mat4& m, const Vec3& d) noexcept {
    return perspectiveDivide(m * Vec4{d.x, d.y, d.z, 0.0});
}

/// Transforms a point by a placement: through the linear part with its conditional division first, and moved by the
/// translation afterwards, so that the translation is never divided.
[[nodiscard]] inline Vec3 transformPlacementPoint(const Mat4& m, const Vec3& p) noexcept {
    return transformVector(m, p) + Vec3{m(0, 3), m(1, 3), m(2, 3)};
}

/// The three axes of a rotation or a placement.
[[nodiscard]] constexpr Vec3 column(const Mat3& m, std::size_t index) noexcept {
    return {m(0, index), m(1, index), m(2, index)};
}
[[nodiscard]] constexpr Vec3 row(const Mat4& m, std::size_t index) noexcept {
    return {m(index, 0), m(index, 1), m(index, 2)};
}

[[nodiscard]] constexpr Vec3 translation(const Mat4& m) noexcept { return {m(0, 3), m(1, 3), m(2, 3)}; }

/// Writes the translation column; the kind word stays, for the caller to say what the matrix has become.
constexpr void setTranslation(Mat4& m, const Vec3& t) noexcept {
    m(0, 3) = t.x;
    m(1, 3) = t.y;
    m(2, 3) = t.z;
}

/// Writes the upper-left 3x3 of m; its kind word stays.
constexpr void setLinearPart(Mat4& m, const Mat3& linear) noexcept {
    for (std::size_t k = 0; k < 3; ++k) {
        for (std::size_t r = 0; r < 3; ++r) {
            m(r, k) = linear(r, k);
        }
    }
}

/// Swaps rows and columns; the kind stays.
[[nodiscard]] constexpr Mat3 transposed(const Mat3& m) noexcept {
    return {{m(0, 0), m(0, 1), m(0, 2), m(1, 0), m(1, 1), m(1, 2), m(2, 0), m(2, 1), m(2, 2)}, m.mKind};
}

/// The inverse of a rigid placement with optional scaling; anything else has no inverse here.
///
/// The 3x3 part is transposed and, where the kind word says that there is scaling, each row is divided by its
/// squared length. A row whose squared length is at most the tolerance is multiplied by that squared length
/// instead: a collapsed axis shrinks further and does not blow up, and saved cameras depend on it. The homogeneous
/// scale is inverted, or 0 where it is too small or NaN. The kind word is kept.
[[nodiscard]] inline Mat4 affineInverse4(const Mat4& m) noexcept {
    Mat3 inverse{{m(0, 0), m(0, 1), m(0, 2), m(1, 0), m(1, 1), m(1, 2), m(2, 0), m(2, 1), m(2, 2)}, m.mKind};
    if (hasScaling(m.mKind)) {
        for (std::size_t r = 0; r < 3; ++r) {
            const double squaredLength =
                inverse(r, 0) * inverse(r, 0) + inverse(r, 1) * inverse(r, 1) + inverse(r, 2) * inverse(r, 2);
            const double factor = std::abs(squaredLength) > reciprocalTolerance ? 1.0 / squaredLength : squaredLength;
            for (std::size_t k = 0; k < 3; ++k) {
                inverse(r, k) *= factor;
            }
        }
    }
    const double scale = std::abs(m(3, 3)) > reciprocalTolerance ? 1.0 / m(3, 3) : 0.0;

    const Vec3 moved = -(inverse * translation(m)) * scale;
    return {{inverse(0, 0), inverse(1, 0), inverse(2, 0), 0.0, //
             inverse(0, 1), inverse(1, 1), inverse(2, 1), 0.0, //
             inverse(0, 2), inverse(1, 2), inverse(2, 2), 0.0, //
             moved.x, moved.y, moved.z, scale},
            m.mKind};
}

} // namespace qel::api::camera::math
