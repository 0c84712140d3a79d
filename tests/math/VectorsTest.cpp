// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>
#include <utility>

#include "math/Vectors.h"
#include "tests/math/Near.h"

namespace qel::api::camera::test {
namespace {

using math::isNegligible;
using math::normalise2;
using math::normalise3;
using math::Vec3;

TEST(Vector, DotsAndCrosses) {
    EXPECT_EQ(dot(Vec3{1, 2, 3}, Vec3{-4, 5, 6}), 24.0);
    EXPECT_EQ(cross(Vec3{1, 2, 3}, Vec3{-4, 5, 6}), (Vec3{-3, -18, 13}));
}

TEST(Vector, CrossWithItselfIsExactlyZero) {
    Random random(2);
    for (int i = 0; i < 100; ++i) {
        const Vec3 a = random.vector(1.0);
        EXPECT_EQ(cross(a, a), Vec3{});
    }
}

// Left to right: the two large terms cancel first only if they are added first.
TEST(Vector, DotSumsFromTheLeft) {
    EXPECT_EQ(dot(Vec3{1e20, 1e20, 1}, Vec3{1, -1, 1}), 1.0);
    EXPECT_EQ(dot(Vec3{1, 1e20, 1e20}, Vec3{1, 1, -1}), 0.0);
}

TEST(Normalise, ReturnsTheLengthAndLeavesTheDirection) {
    Vec3 v{3, 0, 4};
    EXPECT_EQ(normalise3(v), 5.0);
    EXPECT_EQ(v, (Vec3{0.6, 0.0, 0.8}));
}

TEST(Normalise, LeavesExactZeroAloneWithItsSigns) {
    Vec3 v{-0.0, 0.0, -0.0};
    EXPECT_EQ(normalise3(v), 0.0);
    EXPECT_EQ(v, Vec3{});
    EXPECT_TRUE(std::signbit(v.x));
    EXPECT_FALSE(std::signbit(v.y));
    EXPECT_TRUE(std::signbit(v.z));
}

TEST(Normalise, HasNoTolerance) {
    Vec3 v{0.0, -1e-150, 0.0};
    EXPECT_EQ(normalise3(v), 1e-150);
    EXPECT_EQ(v, (Vec3{0, -1, 0}));
}

TEST(Normalise, TakesALengthWhoseSquareUnderflowsForZero) {
    Vec3 v{1e-200, 0.0, 0.0};
    EXPECT_EQ(normalise3(v), 0.0);
    EXPECT_EQ(v, (Vec3{1e-200, 0.0, 0.0}));
}

TEST(Normalise, MakesZeroOfALengthWhoseSquareOverflows) {
    Vec3 v{1e200, 0.0, 0.0};
    EXPECT_EQ(normalise3(v), infinity);
    EXPECT_EQ(v, Vec3{});
}

TEST(Normalise, PassesNaNOn) {
    Vec3 v{1.0, nan, 0.0};
    EXPECT_TRUE(std::isnan(normalise3(v)));
    EXPECT_TRUE(isNaN(v));
}

TEST(Normalise, GivesLengthOneInAnyDirection) {
    Random random(3);
    for (int i = 0; i < 1000; ++i) {
        const double wanted = random.magnitude(1e-100, 1e100);
        Vec3 v = random.direction() * wanted;
        EXPECT_NEAR(normalise3(v) / wanted, 1.0, 4 * epsilon);
        EXPECT_NEAR(std::hypot(v.x, v.y, v.z), 1.0, 2 * epsilon);
    }
}

std::pair<double, double> normalisedPair(double a, double b) {
    normalise2(a, b);
    return {a, b};
}

TEST(NormalisePair, ScalesToLengthOne) { EXPECT_EQ(normalisedPair(-3.0, 4.0), std::pair(-0.6, 0.8)); }

TEST(NormalisePair, LeavesZeroAndWhatUnderflowsAlone) {
    EXPECT_EQ(normalisedPair(0.0, -0.0).first, 0.0);
    EXPECT_TRUE(std::signbit(normalisedPair(0.0, -0.0).second));
    EXPECT_EQ(normalisedPair(1e-200, 0.0).first, 1e-200);
}

TEST(NormalisePair, PassesNaNOn) {
    EXPECT_TRUE(std::isnan(normalisedPair(1.0, nan).first));
    EXPECT_TRUE(std::isnan(normalisedPair(1.0, nan).second));
}

TEST(NegligibleVector, IsZeroOrAtMostTheToleranceOrUnderflows) {
    EXPECT_TRUE(isNegligible({0, 0, 0}));
    EXPECT_TRUE(isNegligible({0.0, 0.5e-7, 0.0}));
    EXPECT_TRUE(isNegligible({1e-200, -1e-200, 1e-200}));
    EXPECT_FALSE(isNegligible({0.0, 0.0, -1.0000001e-7}));
    EXPECT_FALSE(isNegligible({0.0, nan, 0.0}));
}

} // namespace
} // namespace qel::api::camera::test
