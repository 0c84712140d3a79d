// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>

#include "math/Matrices.h"
#include "math/Quaternions.h"
#include "math/Tolerances.h"
#include "tests/math/Near.h"

namespace qel::api::camera::test {
namespace {

using math::affineInverse4;
using math::Mat4;
using math::MatrixKind;
using math::Vec3;

/// A placement: a random rotation with the columns scaled, and a translation.
Mat4 placement(Random& random, const Vec3& scale, MatrixKind kind) {
    const math::Mat3 rotation =
        math::mat3FromQuaternion(math::quaternionOfHalfAngle(random.direction(), random.between(0.0, pi)));
    Mat4 m;
    const std::array<double, 3> factors{scale.x, scale.y, scale.z};
    for (std::size_t k = 0; k < 3; ++k) {
        for (std::size_t r = 0; r < 3; ++r) {
            m(r, k) = rotation(r, k) * factors[k];
        }
    }
    setTranslation(m, random.vector(10.0));
    m.mKind = kind;
    return m;
}

TEST(AffineInverse, OfTheIdentityIsTheIdentity) { EXPECT_EQ(affineInverse4(Mat4{}), Mat4{}); }

TEST(AffineInverse, UndoesARotationWithTranslation) {
    // A quarter turn about z that carries x to y, then a move by (1, 2, 3).
    const Mat4 m = rows4({{{0, -1, 0, 1}, {1, 0, 0, 2}, {0, 0, 1, 3}, {0, 0, 0, 1}}}, MatrixKind::rotationTranslation);
    EXPECT_EQ(affineInverse4(m),
              rows4({{{0, 1, 0, -2}, {-1, 0, 0, 1}, {0, 0, 1, -3}, {0, 0, 0, 1}}}, MatrixKind::rotationTranslation));
}

TEST(AffineInverse, UndoesAnyRigidPlacement) {
    Random random(11);
    for (int i = 0; i < 200; ++i) {
        const Mat4 m = placement(random, {1, 1, 1}, MatrixKind::general);
        EXPECT_TRUE(near(affineInverse4(m), generalInverse(m), 32 * epsilon * 10));
    }
}

TEST(AffineInverse, UndoesScalingWhereTheKindSaysSo) {
    Random random(12);
    for (int i = 0; i < 200; ++i) {
        const Vec3 scale{random.between(0.5, 2.0), random.between(0.5, 2.0), random.between(0.5, 2.0)};
        const Mat4 m = placement(random, scale, MatrixKind::scaling);
        EXPECT_TRUE(near(affineInverse4(m), generalInverse(m), 128 * epsilon * 10));
    }
}

TEST(AffineInverse, LooksAtTheScalingBitAmongOthers) {
    const Mat4 m = rows4({{{2, 0, 0, 2}, {0, 4, 0, 4}, {0, 0, 8, 8}, {0, 0, 0, 1}}}, MatrixKind{1 | 32});
    EXPECT_EQ(affineInverse4(m),
              rows4({{{0.5, 0, 0, -1}, {0, 0.25, 0, -1}, {0, 0, 0.125, -1}, {0, 0, 0, 1}}}, MatrixKind{1 | 32}));
}

TEST(AffineInverse, OnlyTransposesWhereTheKindDoesNotSaySoThoughThereIsScaling) {
    const Mat4 m = rows4({{{2, 0, 0, 1}, {0, 2, 0, 0}, {1, 0, 2, 0}, {0, 0, 0, 1}}}, MatrixKind::general);
    EXPECT_EQ(affineInverse4(m),
              rows4({{{2, 0, 1, -2}, {0, 2, 0, 0}, {0, 0, 2, 0}, {0, 0, 0, 1}}}, MatrixKind::general));
}

TEST(AffineInverse, KeepsAnyKind) {
    for (const std::uint32_t value : {0U, 1U, 2U, 4U, 16U, 32U, 64U, 0xFFFFFFFFU}) {
        Mat4 m;
        m.mKind = MatrixKind{value};
        EXPECT_EQ(affineInverse4(m).mKind, MatrixKind{value});
    }
}

TEST(AffineInverse, ShrinksACollapsedAxisFurther) {
    // An axis of length 1e-5 has the squared length 1e-10, which is below the tolerance: 1e-5 times 1e-10.
    Mat4 m;
    m(1, 1) = 1e-5;
    m.mKind = MatrixKind::scaling;
    const Mat4 inverse = affineInverse4(m);
    EXPECT_DOUBLE_EQ(inverse(1, 1), 1e-15);
    EXPECT_EQ(inverse(0, 0), 1.0);
    EXPECT_EQ(inverse(2, 2), 1.0);
}

TEST(AffineInverse, ShrinksAnAxisWhoseSquaredLengthIsExactlyTheTolerance) {
    const double x = 0.9999e-4;
    const double y = std::sqrt(math::reciprocalTolerance - x * x);
    ASSERT_EQ(x * x + y * y, math::reciprocalTolerance);
    Mat4 m;
    m(0, 0) = x;
    m(1, 0) = y;
    m.mKind = MatrixKind::scaling;
    EXPECT_EQ(affineInverse4(m)(0, 0), x * math::reciprocalTolerance);
    EXPECT_EQ(affineInverse4(m)(0, 1), y * math::reciprocalTolerance);
}

TEST(AffineInverse, InvertsAnAxisWhoseSquaredLengthIsAboveTheTolerance) {
    Mat4 m;
    m(0, 0) = 1.0001e-4;
    m.mKind = MatrixKind::scaling;
    EXPECT_NEAR(affineInverse4(m)(0, 0) * 1.0001e-4, 1.0, 4 * epsilon);
}

TEST(AffineInverse, LeavesAnAxisOfZeroAtZero) {
    Mat4 m;
    m(2, 2) = 0.0;
    m.mKind = MatrixKind::scaling;
    EXPECT_EQ(affineInverse4(m)(2, 2), 0.0);
}

TEST(AffineInverse, KeepsNaNToTheAxisThatHasIt) {
    Mat4 m;
    m(0, 0) = nan;
    m.mKind = MatrixKind::scaling;
    const Mat4 inverse = affineInverse4(m);
    EXPECT_TRUE(std::isnan(inverse(0, 0)));
    EXPECT_EQ(inverse(1, 1), 1.0);
}

TEST(AffineInverse, InvertsTheHomogeneousScale) {
    Mat4 m;
    setTranslation(m, {1, 2, 3});
    m(3, 3) = 4.0;
    const Mat4 inverse = affineInverse4(m);
    EXPECT_EQ(inverse(3, 3), 0.25);
    EXPECT_EQ(translation(inverse), (Vec3{-0.25, -0.5, -0.75}));
}

TEST(AffineInverse, HasNoTranslationWhereTheHomogeneousScaleIsZero) {
    Mat4 m;
    setTranslation(m, {1, 2, 3});
    m(3, 3) = 0.0;
    const Mat4 inverse = affineInverse4(m);
    EXPECT_EQ(inverse(3, 3), 0.0);
    EXPECT_EQ(translation(inverse), Vec3{});
}

TEST(AffineInverse, TakesAHomogeneousScaleUpToTheToleranceForZero) {
    Mat4 m;
    setTranslation(m, {1, 2, 3});
    m(3, 3) = -math::reciprocalTolerance;
    EXPECT_EQ(affineInverse4(m)(3, 3), 0.0);
    m(3, 3) = justAbove(math::reciprocalTolerance);
    EXPECT_EQ(affineInverse4(m)(3, 3), 1.0 / justAbove(math::reciprocalTolerance));
}

TEST(AffineInverse, TakesAHomogeneousScaleOfNaNForZero) {
    Mat4 m;
    setTranslation(m, {1, 2, 3});
    m(3, 3) = nan;
    const Mat4 inverse = affineInverse4(m);
    EXPECT_EQ(inverse(3, 3), 0.0);
    EXPECT_EQ(translation(inverse), Vec3{});
}

TEST(AffineInverse, DropsWhatStandsInTheLastRow) {
    Mat4 m;
    m(3, 0) = 5.0;
    m(3, 1) = nan;
    m(3, 2) = infinity;
    const Mat4 inverse = affineInverse4(m);
    EXPECT_EQ(row(inverse, 3), Vec3{});
    EXPECT_EQ(inverse(3, 3), 1.0);
}

} // namespace
} // namespace qel::api::camera::test
