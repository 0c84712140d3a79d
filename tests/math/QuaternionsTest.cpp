// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>

#include "math/Quaternions.h"
#include "tests/math/Near.h"

namespace qel::api::camera::test {
namespace {

using math::Mat3;
using math::mat3FromQuaternion;
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

TEST(QuaternionOfHalfAngle, TurnsByTwiceTheAngle) {
    // An eighth of pi times two: a quarter turn about z carries x to y.
    const Quat q = quaternionOfHalfAngle({0, 0, 1}, pi / 4.0);
    EXPECT_TRUE(near(q, Quat{0, 0, std::sqrt(0.5), std::sqrt(0.5)}, 2 * epsilon));
    EXPECT_TRUE(near(rotateByQuaternion(q, {1, 0, 0}), Vec3{0, 1, 0}, 4 * epsilon));
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

TEST(QuaternionToMatrix, TurnsAsTheQuaternionDoes) {
    Random random(24);
    for (int n = 0; n < 500; ++n) {
        const Quat q = quaternionOfHalfAngle(random.direction(), random.between(-pi, pi));
        const Vec3 v = random.vector(1.0);
        EXPECT_TRUE(near(mat3FromQuaternion(q) * v, rotateByQuaternion(q, v), 16 * epsilon));
    }
}

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

} // namespace
} // namespace qel::api::camera::test
