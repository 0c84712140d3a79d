// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "math/Matrices.h"
#include "math/Quaternions.h"
#include "tests/math/Near.h"

namespace qel::api::camera::test {
namespace {

using math::Mat3;
using math::mat3FromQuaternion;
using math::mat3ToQuaternion;
using math::Mat4;
using math::MatrixKind;
using math::Quat;
using math::quaternionOfHalfAngle;
using math::quaternionToMat3;
using math::rotateByQuaternion;
using math::Vec3;

constexpr Quat i{1, 0, 0, 0};
constexpr Quat j{0, 1, 0, 0};
constexpr Quat k{0, 0, 1, 0};
constexpr Quat minusOne{0, 0, 0, -1};

TEST(QuaternionProduct, ObeysHamiltonsRules) {
    EXPECT_EQ(i * i, minusOne);
    EXPECT_EQ(j * j, minusOne);
    EXPECT_EQ(k * k, minusOne);
    EXPECT_EQ(i * j, k);
    EXPECT_EQ(j * k, i);
    EXPECT_EQ(k * i, j);
    EXPECT_EQ(j * i, (Quat{0, 0, -1, 0}));
}

TEST(QuaternionProduct, HasTheIdentityOnBothSides) {
    const Quat q{1, -2, 3, -4};
    EXPECT_EQ(q * Quat{}, q);
    EXPECT_EQ(Quat{} * q, q);
}

TEST(QuaternionProduct, TurnsByTheRightFactorFirst) {
    Random random(22);
    for (int n = 0; n < 100; ++n) {
        const Quat a = quaternionOfHalfAngle(random.direction(), random.between(-pi, pi));
        const Quat b = quaternionOfHalfAngle(random.direction(), random.between(-pi, pi));
        const Vec3 v = random.vector(1.0);
        EXPECT_TRUE(near(rotateByQuaternion(a * b, v), rotateByQuaternion(a, rotateByQuaternion(b, v)), 32 * epsilon));
    }
}

TEST(RotateByQuaternion, AgreesWithRodrigues) {
    Random random(23);
    for (int n = 0; n < 500; ++n) {
        const Vec3 axis = random.direction();
        const double angle = random.between(-2 * pi, 2 * pi);
        const Vec3 v = random.vector(1.0);
        EXPECT_TRUE(near(rotateByQuaternion(quaternionOfHalfAngle(axis, angle / 2.0), v), turned(v, axis, angle),
                         16 * epsilon));
    }
}

TEST(RotateByQuaternion, LeavesTheVectorWithTheIdentity) {
    EXPECT_EQ(rotateByQuaternion(Quat{}, {1, -2, 3}), (Vec3{1, -2, 3}));
}

TEST(RotateByQuaternion, ScalesByTheSquareOfTheLength) {
    EXPECT_EQ(rotateByQuaternion({0, 0, 0, 2}, {1, -2, 3}), (Vec3{4, -8, 12}));
    EXPECT_EQ(rotateByQuaternion({2, 0, 0, 0}, {1, 2, 3}), (Vec3{4, -8, -12})); // a half turn about x
}

TEST(RotateByQuaternion, MakesZeroOfTheZeroQuaternion) {
    EXPECT_EQ(rotateByQuaternion({0, 0, 0, 0}, {1, -2, 3}), Vec3{});
}

TEST(RotateByQuaternion, PassesNaNOn) { EXPECT_TRUE(isNaN(rotateByQuaternion({0, 0, 0, nan}, {1, -2, 3}))); }

TEST(QuaternionToMatrix, HasEachElementFromItsOwnProducts) {
    // x = 1, y = 10, z = 100, w = 1000 keep all products apart.
    const Mat3 expected = rows3({{{1 - 2 * (100.0 + 10000), 2 * (10.0 - 100000), 2 * (100.0 + 10000)},
                                  {2 * (10.0 + 100000), 1 - 2 * (1.0 + 10000), 2 * (1000.0 - 1000)},
                                  {2 * (100.0 - 10000), 2 * (1000.0 + 1000), 1 - 2 * (1.0 + 100)}}},
                                MatrixKind::rotation);
    EXPECT_EQ(mat3FromQuaternion({1, 10, 100, 1000}), expected);
}

TEST(QuaternionToMatrix, MakesTheIdentityOfTheZeroQuaternion) {
    EXPECT_EQ(mat3FromQuaternion({0, 0, 0, 0}).mElements, Mat3{}.mElements);
}

TEST(QuaternionToMatrix, WritesOverEveryElementOfTheMatrixThatItReturns) {
    Mat3 m = rows3({{{nan, nan, nan}, {nan, nan, nan}, {nan, nan, nan}}});
    EXPECT_EQ(&quaternionToMat3(Quat{}, m), &m);
    EXPECT_EQ(m.mElements, Mat3{}.mElements);
}

TEST(QuaternionToMatrix, AddsARotationToTheKind) {
    for (const MatrixKind kind : {MatrixKind::identity, MatrixKind::translation, MatrixKind::general}) {
        Mat3 m;
        m.mKind = kind;
        EXPECT_EQ(quaternionToMat3(i, m).mKind, withRotation(kind));
    }
}

/// Which quaternion component the square root gives, seen from outside: the off-diagonal elements are chosen so that
/// each branch gives another set of components.
Mat3 withDiagonal(double a, double b, double c) {
    // M(2,1) - M(1,2) = 2, M(0,2) - M(2,0) = 4, M(1,0) - M(0,1) = 6;
    // M(1,0) + M(0,1) = 10, M(2,0) + M(0,2) = 12, M(2,1) + M(1,2) = 14.
    return rows3({{{a, 2, 8}, {8, b, 6}, {4, 8, c}}});
}

TEST(MatrixToQuaternion, TakesTheScalarFromAPositiveTraceHoweverSmall) {
    EXPECT_EQ(mat3ToQuaternion(Mat3{}), Quat{});
    // trace 3: r = 2, s = 1/4.
    EXPECT_EQ(mat3ToQuaternion(withDiagonal(1, 1, 1)), (Quat{0.5, 1.0, 1.5, 1.0}));
    // trace 5e-324 rounds away beside 1: r = 1, s = 1/2.
    EXPECT_EQ(mat3ToQuaternion(withDiagonal(5e-324, 0, 0)), (Quat{1, 2, 3, 0.5}));
}

TEST(MatrixToQuaternion, TakesTheComponentOfTheLargestDiagonalElementOtherwise) {
    // r = sqrt(1 - (-1 - 1) + 1) = 2, s = 1/4: x from the root, y from 10, z from 12, w from 2.
    EXPECT_EQ(mat3ToQuaternion(withDiagonal(1, -1, -1)), (Quat{1, 2.5, 3, 0.5}));
    // w from M(0,2) - M(2,0) = 4, z from 14, x from 10.
    EXPECT_EQ(mat3ToQuaternion(withDiagonal(-1, 1, -1)), (Quat{2.5, 1, 3.5, 1}));
    // w from M(1,0) - M(0,1) = 6, x from 12, y from 14.
    EXPECT_EQ(mat3ToQuaternion(withDiagonal(-1, -1, 1)), (Quat{3, 3.5, 1, 1.5}));
    // The second above the first, and the third above both: r = sqrt(0 - (-3 - 2) + 1).
    EXPECT_EQ(mat3ToQuaternion(withDiagonal(-3, -2, 0)).z, std::sqrt(6.0) / 2.0);
}

TEST(MatrixToQuaternion, PrefersTheEarlierComponentInATie) {
    // A trace of zero is not positive: r = 1, x = 1/2, y = 10/2, z = 12/2, w = 2/2.
    EXPECT_EQ(mat3ToQuaternion(withDiagonal(0, 0, 0)), (Quat{0.5, 5, 6, 1}));
    EXPECT_EQ(mat3ToQuaternion(withDiagonal(0, 0, -3)), (Quat{1, 2.5, 3, 0.5}));
    EXPECT_EQ(mat3ToQuaternion(withDiagonal(0, -3, 0)), (Quat{1, 2.5, 3, 0.5}));
    EXPECT_EQ(mat3ToQuaternion(withDiagonal(-3, 0, 0)), (Quat{2.5, 1, 3.5, 1}));
}

TEST(MatrixToQuaternion, OfAHalfTurnAboutAnAxisIsThatAxis) {
    EXPECT_EQ(mat3ToQuaternion(rows3({{{1, 0, 0}, {0, -1, 0}, {0, 0, -1}}})), (Quat{1, 0, 0, 0}));
    EXPECT_EQ(mat3ToQuaternion(rows3({{{-1, 0, 0}, {0, 1, 0}, {0, 0, -1}}})), (Quat{0, 1, 0, 0}));
    EXPECT_EQ(mat3ToQuaternion(rows3({{{-1, 0, 0}, {0, -1, 0}, {0, 0, 1}}})), (Quat{0, 0, 1, 0}));
}

TEST(MatrixToQuaternion, OfTheZeroMatrixIsFinite) {
    EXPECT_EQ(mat3ToQuaternion(rows3({{{0, 0, 0}, {0, 0, 0}, {0, 0, 0}}})), (Quat{0.5, 0, 0, 0}));
}

// The trace is not positive where the branch is taken, so what the root is drawn of is at least 1.
TEST(MatrixToQuaternion, IsFiniteForAnyFiniteMatrix) {
    Random random(31);
    for (int n = 0; n < 10000; ++n) {
        const double size = random.magnitude(1e-3, 1e3);
        const Vec3 a = random.vector(size);
        const Vec3 b = random.vector(size);
        const Vec3 c = random.vector(size);
        const Quat q = mat3ToQuaternion(rows3({{{a.x, a.y, a.z}, {b.x, b.y, b.z}, {c.x, c.y, c.z}}}));
        ASSERT_TRUE(std::isfinite(length(q))) << ::testing::PrintToString(q);
    }
}

TEST(MatrixToQuaternion, TakesTheSecondBranchForATraceOfNaN) {
    // i = 0 as no comparison with NaN holds; the root is NaN and so are all four.
    const Quat q = mat3ToQuaternion(withDiagonal(nan, 1, 1));
    EXPECT_TRUE(isNaN({q.x, q.y, q.z}));
    EXPECT_TRUE(std::isnan(q.w));
}

TEST(MatrixToQuaternion, GivesTheQuaternionOfARotationBackUpToItsSign) {
    Random random(32);
    std::array<int, 4> seen{};
    for (int n = 0; n < 2000; ++n) {
        const Quat q = math::quaternionOfHalfAngle(random.direction(), random.between(0.0, pi));
        const std::array<double, 4> squares{q.x * q.x, q.y * q.y, q.z * q.z, q.w * q.w};
        for (std::size_t c = 0; c < 4; ++c) {
            seen[c] += squares[c] > 0.5 ? 1 : 0;
        }
        const Quat back = mat3ToQuaternion(mat3FromQuaternion(q));
        const double sign = q.x * back.x + q.y * back.y + q.z * back.z + q.w * back.w < 0.0 ? -1.0 : 1.0;
        EXPECT_TRUE(near(back, Quat{sign * q.x, sign * q.y, sign * q.z, sign * q.w}, 8 * epsilon));
    }
    for (const int count : seen) {
        EXPECT_GT(count, 100) << "every component must have been the largest often";
    }
}

TEST(MatrixToQuaternion, ReadsTheUpperLeftOfALargerMatrix) {
    const Mat4 m = rows4({{{-1, 2, 8, 77}, {8, 1, 6, 78}, {4, 8, -1, 79}, {80, 81, 82, 83}}});
    EXPECT_EQ(math::mat4ToQuaternion(m), mat3ToQuaternion(withDiagonal(-1, 1, -1)));
}

} // namespace
} // namespace qel::api::camera::test
