// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "math/Matrices.h"
#include "math/Pipeline.h"
#include "math/Quaternions.h"
#include "math/Tolerances.h"
#include "math/Vectors.h"
#include "tests/math/Near.h"

namespace qel::api::camera::test {
namespace {

using namespace math;

template <class... Types>
constexpr bool triviallyCopyable = (std::is_trivially_copyable_v<Types> && ...);
template <class... Types>
constexpr bool standardLayout = (std::is_standard_layout_v<Types> && ...);
template <class... Types>
constexpr bool nothrowConstructible = (std::is_nothrow_default_constructible_v<Types> && ...);

static_assert(triviallyCopyable<Vec3, Vec4, Quat, Quatf, Frustum, Viewport>);
static_assert(triviallyCopyable<Mat2, Mat2x3, Mat3, Mat3x4, Mat4, Mat2f, Mat2x3f, Mat3f, Mat3x4f, Mat4f>);
static_assert(standardLayout<Vec3, Vec4, Quat, Quatf, Frustum, Viewport, Mat3, Mat4>);
static_assert(nothrowConstructible<Vec3, Vec4, Quat, Frustum, Viewport, Mat3, Mat4>);

static_assert(sizeof(Vec3) == 3 * sizeof(double) && sizeof(Vec4) == 4 * sizeof(double));
static_assert(sizeof(Quat) == 4 * sizeof(double) && sizeof(Quatf) == 4 * sizeof(float));
static_assert(sizeof(Frustum) == 6 * sizeof(double) && sizeof(Viewport) == 6 * sizeof(double));
static_assert(sizeof(Mat4::mElements) == 16 * sizeof(double) && sizeof(Mat3::mElements) == 9 * sizeof(double));
static_assert(sizeof(MatrixKind) == sizeof(std::uint32_t));
static_assert(std::is_same_v<std::underlying_type_t<MatrixKind>, std::uint32_t>);

static_assert(!std::is_convertible_v<double, Vec3> && !std::is_convertible_v<double, Quat>);
static_assert(!std::is_convertible_v<Vec3, Vec4> && !std::is_convertible_v<Vec4, Vec3>);
static_assert(!std::is_convertible_v<Vec4, Quat> && !std::is_convertible_v<Quat, Vec4>);
static_assert(!std::is_convertible_v<Mat3, Mat4> && !std::is_convertible_v<Mat4, Mat3>);
static_assert(!std::is_convertible_v<std::uint32_t, MatrixKind> && !std::is_convertible_v<MatrixKind, std::uint32_t>);

// What can be computed when compiling is.
static_assert(dot(Vec3{1, 2, 3}, Vec3{4, 5, 6}) == 32.0);
static_assert(cross(Vec3{1, 0, 0}, Vec3{0, 1, 0}) == Vec3{0, 0, 1});
static_assert(identity<Mat4> * Vec4{1, 2, 3, 4} == Vec4{1, 2, 3, 4});
static_assert(makeOrtho({-1, 1, -1, 1, 1, 3})(2, 3) == -2.0);

template <class Number, std::size_t Rows, std::size_t Columns>
constexpr bool isIdentity(const BasicMatrix<Number, Rows, Columns>& m) {
    bool result = m.mKind == MatrixKind{1};
    for (std::size_t r = 0; r < Rows; ++r) {
        for (std::size_t k = 0; k < Columns; ++k) {
            result = result && m.mElements[k * Rows + r] == (r == k ? Number(1) : Number(0));
        }
    }
    return result;
}

template <class... Matrices>
constexpr bool newOnesAreIdentities = ((isIdentity(Matrices{}) && identity<Matrices> == Matrices{}) && ...);

static_assert(newOnesAreIdentities<Mat2, Mat2x3, Mat3, Mat3x4, Mat4, Mat2f, Mat2x3f, Mat3f, Mat3x4f, Mat4f>);
static_assert(identity<Quat> == Quat{0.0, 0.0, 0.0, 1.0} && Quat{} == identity<Quat>);
static_assert(identity<Quatf> == Quatf{0.0F, 0.0F, 0.0F, 1.0F} && Quatf{} == identity<Quatf>);

TEST(MatrixStorage, IsColumnByColumn) {
    Mat4 m;
    for (std::size_t i = 0; i < 16; ++i) {
        m.mElements[i] = static_cast<double>(i);
    }
    for (std::size_t r = 0; r < 4; ++r) {
        for (std::size_t k = 0; k < 4; ++k) {
            EXPECT_EQ(m(r, k), static_cast<double>(4 * k + r));
        }
    }
}

TEST(MatrixStorage, HasAsManyRowsAsTheSpaceHasDimensionsForAnAffineTransform) {
    Mat2x3 planar;
    planar(1, 2) = 7.0;
    EXPECT_EQ(planar.mElements[2 * 2 + 1], 7.0);
    Mat3x4 spatial;
    spatial(1, 3) = 7.0;
    EXPECT_EQ(spatial.mElements[3 * 3 + 1], 7.0);
}

TEST(MatrixEquality, IsExactAndSeesTheKind) {
    Mat3 almost;
    almost(1, 2) = 5e-324;
    EXPECT_NE(almost, Mat3{});
    Mat3 other;
    other.mKind = MatrixKind::general;
    EXPECT_NE(other, Mat3{});
}

TEST(MatrixKindWord, HasTheValuesThatBlobsHold) {
    EXPECT_EQ(static_cast<std::uint32_t>(MatrixKind::identity), 1U);
    EXPECT_EQ(static_cast<std::uint32_t>(MatrixKind::translation), 2U);
    EXPECT_EQ(static_cast<std::uint32_t>(MatrixKind::rotation), 4U);
    EXPECT_EQ(static_cast<std::uint32_t>(MatrixKind::rotationTranslation), 16U);
    EXPECT_EQ(static_cast<std::uint32_t>(MatrixKind::scaling), 32U);
    EXPECT_EQ(static_cast<std::uint32_t>(MatrixKind::general), 64U);
}

TEST(MatrixKindWord, TakesATranslationAndARotation) {
    EXPECT_EQ(withTranslation(MatrixKind::identity), MatrixKind::translation);
    EXPECT_EQ(withTranslation(MatrixKind::rotation), MatrixKind::rotationTranslation);
    EXPECT_EQ(withRotation(MatrixKind::identity), MatrixKind::rotation);
    EXPECT_EQ(withRotation(MatrixKind::translation), MatrixKind::rotationTranslation);
}

TEST(MatrixKindWord, StaysWhereItIsAnyOtherValue) {
    for (const std::uint32_t value : {0U, 3U, 5U, 16U, 20U, 32U, 33U, 48U, 64U, 0xFFFFFFFFU}) {
        EXPECT_EQ(withTranslation(MatrixKind{value}), MatrixKind{value});
        EXPECT_EQ(withRotation(MatrixKind{value}), MatrixKind{value});
    }
    EXPECT_EQ(withTranslation(MatrixKind::translation), MatrixKind::translation);
    EXPECT_EQ(withRotation(MatrixKind::rotation), MatrixKind::rotation);
}

TEST(MatrixKindWord, ScalesWhereItsBitIsSetAmongOthers) {
    EXPECT_TRUE(hasScaling(MatrixKind::scaling));
    EXPECT_TRUE(hasScaling(MatrixKind{33}));
    EXPECT_TRUE(hasScaling(MatrixKind{0xFFFFFFFFU}));
    EXPECT_FALSE(hasScaling(MatrixKind::general));
    EXPECT_FALSE(hasScaling(MatrixKind::rotationTranslation));
    EXPECT_FALSE(hasScaling(MatrixKind{0xFFFFFFDFU}));
}

TEST(Tolerances, HaveTheirValues) {
    EXPECT_EQ(tolerance, 1e-7);
    EXPECT_EQ(homogeneousTolerance, 1e-4);
    EXPECT_EQ(quaternionTolerance, 1e-4);
    EXPECT_EQ(reciprocalTolerance, 9.99999993922529e-9);
}

} // namespace
} // namespace qel::api::camera::test
