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

TEST(AffineInverse, UndoesARotationWithTranslation) {
    // A quarter turn about z that carries x to y, then a move by (1, 2, 3).
    const Mat4 m = rows4({{{0, -1, 0, 1}, {1, 0, 0, 2}, {0, 0, 1, 3}, {0, 0, 0, 1}}}, MatrixKind::rotationTranslation);
    EXPECT_EQ(affineInverse4(m),
              rows4({{{0, 1, 0, -2}, {-1, 0, 0, 1}, {0, 0, 1, -3}, {0, 0, 0, 1}}}, MatrixKind::rotationTranslation));
}

TEST(AffineInverse, UndoesAnyRigidPlacementAndAnyScalingThatTheKindNames) {
    Random random(11);
    for (int i = 0; i < 200; ++i) {
        const Mat4 rigid = placement(random, {1, 1, 1}, MatrixKind::general);
        EXPECT_TRUE(near(affineInverse4(rigid), generalInverse(rigid), 320 * epsilon));
        const Vec3 scale{random.between(0.5, 2.0), random.between(0.5, 2.0), random.between(0.5, 2.0)};
        const Mat4 scaled = placement(random, scale, MatrixKind::scaling);
        EXPECT_TRUE(near(affineInverse4(scaled), generalInverse(scaled), 1280 * epsilon));
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

TEST(AffineInverse, OfTheIdentityIsTheIdentityOfWhateverKind) {
    for (const std::uint32_t value : {0U, 1U, 2U, 4U, 16U, 32U, 64U, 0xFFFFFFFFU}) {
        Mat4 m;
        m.mKind = MatrixKind{value};
        EXPECT_EQ(affineInverse4(m), m);
    }
}

/// What becomes of an axis of some length; the others stay as they are.
double axisOfInverse(double length) {
    Mat4 m;
    m(1, 1) = length;
    m.mKind = MatrixKind::scaling;
    const Mat4 inverse = affineInverse4(m);
    EXPECT_EQ(inverse(0, 0), 1.0);
    EXPECT_EQ(inverse(2, 2), 1.0);
    return inverse(1, 1);
}

TEST(AffineInverse, ShrinksACollapsedAxisFurther) {
    EXPECT_DOUBLE_EQ(axisOfInverse(1e-5), 1e-15); // times its squared length of 1e-10, which is below the tolerance
    EXPECT_NEAR(axisOfInverse(1.0001e-4) * 1.0001e-4, 1.0, 4 * epsilon); // and above it is inverted
}

TEST(AffineInverse, LeavesAnAxisOfZeroAtZeroAndOneOfNaNAtNaN) {
    EXPECT_EQ(axisOfInverse(0.0), 0.0);
    EXPECT_TRUE(std::isnan(axisOfInverse(nan)));
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

Mat4 movedWithScale(double homogeneousScale) {
    Mat4 m;
    setTranslation(m, {1, 2, 3});
    m(3, 3) = homogeneousScale;
    return m;
}

TEST(AffineInverse, InvertsTheHomogeneousScale) {
    EXPECT_EQ(affineInverse4(movedWithScale(4.0))(3, 3), 0.25);
    EXPECT_EQ(translation(affineInverse4(movedWithScale(4.0))), (Vec3{-0.25, -0.5, -0.75}));
    const double least = justAbove(math::reciprocalTolerance);
    EXPECT_EQ(affineInverse4(movedWithScale(least))(3, 3), 1.0 / least);
}

TEST(AffineInverse, TakesAHomogeneousScaleUpToTheToleranceOrOfNaNForZero) {
    for (const double scale : {0.0, math::reciprocalTolerance, -math::reciprocalTolerance, nan}) {
        const Mat4 inverse = affineInverse4(movedWithScale(scale));
        EXPECT_EQ(inverse(3, 3), 0.0) << scale;
        EXPECT_EQ(translation(inverse), Vec3{}) << scale;
    }
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
