// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "math/Matrices.h"
#include "math/Pipeline.h"
#include "tests/math/Near.h"

namespace qel::api::camera::test {
namespace {

using math::Frustum;
using math::makeFrustum;
using math::makeFrustumInverse;
using math::makeOrtho;
using math::makeOrthoInverse;
using math::makeViewport;
using math::makeViewportInverse;
using math::Mat4;
using math::Vec3;
using math::Viewport;

/// Valid, off-centre as a rule, over many sizes and depths.
Frustum randomFrustum(Random& random) {
    const double size = random.magnitude(1e-3, 1e6);
    const double left = random.between(-1.0, 0.8) * size;
    const double right = left + random.between(0.05, 1.0) * size;
    const double bottom = random.between(-1.0, 0.8) * size;
    const double top = bottom + random.between(0.05, 1.0) * size;
    const double nearDist = random.magnitude(0.01, 10.0) * size;
    return {left, right, bottom, top, nearDist, nearDist * random.magnitude(1.01, 1e6)};
}

/// The largest of |a b - 1| in units of what the sums of products hold.
double distanceFromIdentity(const Mat4& a, const Mat4& b) {
    const Mat4 p = product(a, b);
    double worst = 0.0;
    for (std::size_t r = 0; r < 4; ++r) {
        for (std::size_t k = 0; k < 4; ++k) {
            double size = 1.0;
            for (std::size_t i = 0; i < 4; ++i) {
                size = std::max(size, std::abs(a(r, i) * b(i, k)));
            }
            worst = std::max(worst, std::abs(p(r, k) - (r == k ? 1.0 : 0.0)) / size);
        }
    }
    return worst;
}

TEST(Frustum, HasTheElementsOfTheClassicMatrix) {
    // left -1, right 3, bottom -2, top 6, near 2, far 10
    EXPECT_EQ(makeFrustum({-1, 3, -2, 6, 2, 10}),
              rows4({{{1, 0, 0.5, 0}, {0, 0.5, 0.5, 0}, {0, 0, -1.5, -5}, {0, 0, -1, 0}}}));
}

TEST(Frustum, HasTheElementsOfTheClosedInverse) {
    EXPECT_EQ(makeFrustumInverse({-1, 3, -2, 6, 2, 10}),
              rows4({{{1, 0, 0, 0.5}, {0, 2, 0, 1}, {0, 0, 0, -1}, {0, 0, -0.2, 0.3}}}));
}

TEST(Frustum, TakesItsCornersToTheCornersOfTheCube) {
    Random random(41);
    for (int n = 0; n < 200; ++n) {
        const Frustum frustum = randomFrustum(random);
        const auto& [l, r, b, t, near0, f] = frustum;
        const Mat4 m = makeFrustum(frustum);
        // The sides are divided by a width that may be 20 times smaller than they are.
        const double bound = 256 * epsilon;
        const math::Vec4 nearCorner = m * math::Vec4{l, b, -near0, 1.0};
        EXPECT_TRUE(near(Vec3{nearCorner.x, nearCorner.y, nearCorner.z} * (1.0 / nearCorner.w), {-1, -1, -1}, bound));
        const math::Vec4 farCorner = m * math::Vec4{r * (f / near0), t * (f / near0), -f, 1.0};
        EXPECT_TRUE(near(Vec3{farCorner.x, farCorner.y, farCorner.z} * (1.0 / farCorner.w), {1, 1, 1}, bound));
    }
}

TEST(Frustum, OfNoWidthHoldsInfinities) {
    const Mat4 m = makeFrustum({1, 1, -1, 1, 1, 3});
    EXPECT_EQ(m(0, 0), infinity);
    EXPECT_EQ(m(0, 2), infinity);
    EXPECT_EQ(m(1, 1), 1.0);
}

TEST(Frustum, OfNoDepthHoldsInfinities) {
    const Mat4 m = makeFrustum({-1, 1, -1, 1, 2, 2});
    EXPECT_EQ(m(2, 2), -infinity);
    EXPECT_EQ(m(2, 3), -infinity);
}

TEST(Frustum, OfNothingHoldsNaN) { EXPECT_TRUE(std::isnan(makeFrustum({})(0, 0))); }

TEST(OrthographicFrustum, HasTheElementsOfTheClassicMatrix) {
    EXPECT_EQ(makeOrtho({-1, 3, -2, 6, 2, 10}),
              rows4({{{0.5, 0, 0, -0.5}, {0, 0.25, 0, -0.5}, {0, 0, -0.25, -1.5}, {0, 0, 0, 1}}}));
}

TEST(OrthographicFrustum, HasTheElementsOfTheClosedInverse) {
    EXPECT_EQ(makeOrthoInverse({-1, 3, -2, 6, 2, 10}),
              rows4({{{2, 0, 0, 1}, {0, 4, 0, 2}, {0, 0, -4, -6}, {0, 0, 0, 1}}}));
}

TEST(OrthographicFrustum, TakesItsCornersToTheCornersOfTheCube) {
    Random random(44);
    for (int n = 0; n < 200; ++n) {
        const Frustum frustum = randomFrustum(random);
        const auto& [l, r, b, t, near0, f] = frustum;
        // Depths may be 1 % apart, so the sums hold numbers of 200 that cancel.
        EXPECT_TRUE(near(transformPoint(makeOrtho(frustum), {l, b, -near0}), {-1, -1, -1}, 2000 * epsilon));
        EXPECT_TRUE(near(transformPoint(makeOrtho(frustum), {r, t, -f}), {1, 1, 1}, 2000 * epsilon));
    }
}

TEST(ClosedInverse, TimesItsMatrixIsTheIdentityOnBothSides) {
    Random random(42);
    for (int n = 0; n < 500; ++n) {
        const Frustum frustum = randomFrustum(random);
        EXPECT_LT(distanceFromIdentity(makeFrustum(frustum), makeFrustumInverse(frustum)), 16 * epsilon);
        EXPECT_LT(distanceFromIdentity(makeFrustumInverse(frustum), makeFrustum(frustum)), 16 * epsilon);
        EXPECT_LT(distanceFromIdentity(makeOrtho(frustum), makeOrthoInverse(frustum)), 16 * epsilon);
        EXPECT_LT(distanceFromIdentity(makeOrthoInverse(frustum), makeOrtho(frustum)), 16 * epsilon);
    }
}

TEST(OrthographicFrustum, OfNoHeightHoldsInfinities) {
    const Mat4 m = makeOrtho({-1, 1, 2, 2, 1, 3});
    EXPECT_EQ(m(1, 1), infinity);
    EXPECT_EQ(m(1, 3), -infinity);
    EXPECT_EQ(m(0, 0), 1.0);
}

TEST(ScaledFrustum, ScalesOppositeSidesAlikeAndKeepsTheDepths) {
    EXPECT_EQ(math::withSidesScaled({-1, 2, -3, 4, 5, 6}, 2.0, 10.0), (Frustum{-2, 4, -30, 40, 5, 6}));
}

TEST(NewFrustum, IsAllZero) { EXPECT_EQ(Frustum{}, (Frustum{0, 0, 0, 0, 0, 0})); }

TEST(ViewportMatrix, MapsAPartOfTheSurface) {
    // A quarter wide, half high, its lower left corner at (160, 120); depths 0.25 to 0.75.
    EXPECT_EQ(makeViewport({0.25, 0.25, 0.25, 0.5, 0.25, 0.75}, 640, 480),
              rows4({{{80, 0, 0, 240}, {0, 120, 0, 240}, {0, 0, 0.25, 0.5}, {0, 0, 0, 1}}}));
}

TEST(ViewportMatrix, HasTheElementsOfTheClosedInverse) {
    // a = 2/160, b = 2/240; a 160 + 1 = 3, b 120 + 1 = 2.
    EXPECT_EQ(makeViewportInverse({0.25, 0.25, 0.25, 0.5, 0.25, 0.75}, 640, 480),
              rows4({{{2.0 / 160, 0, 0, -3}, {0, 2.0 / 240, 0, -2}, {0, 0, 4, -2}, {0, 0, 0, 1}}}));
}

TEST(ViewportMatrix, TakesTheCornersOfTheCubeToTheCornersOfTheViewport) {
    Random random(51);
    for (int n = 0; n < 200; ++n) {
        const Viewport viewport{random.between(0, 0.9), random.between(0, 0.9), random.between(0.1, 1),
                                random.between(0.1, 1), random.between(0, 0.4), random.between(0.6, 1)};
        const auto& [x, y, w, h, depthMin, depthMax] = viewport;
        const std::uint32_t rx = 1 + random.below(4000);
        const std::uint32_t ry = 1 + random.below(4000);
        const Mat4 m = makeViewport(viewport, rx, ry);
        EXPECT_TRUE(near(transformPoint(m, {-1, -1, -1}), {x * rx, y * ry, depthMin}, 8000 * 4 * epsilon));
        EXPECT_TRUE(near(transformPoint(m, {1, 1, 1}), {(x + w) * rx, (y + h) * ry, depthMax}, 8000 * 4 * epsilon));
        EXPECT_TRUE(near(product(makeViewportInverse(viewport, rx, ry), m), Mat4{}, 64 * epsilon));
        EXPECT_TRUE(near(makeViewportInverse(viewport, rx, ry), generalInverse(m), 64 * epsilon));
    }
}

TEST(ViewportMatrix, TakesTheResolutionForUnsigned) {
    EXPECT_EQ(makeViewport({}, 4294967295U, 1)(0, 0), 2147483647.5);
    EXPECT_EQ(makeViewport({}, 1, 4294967295U)(1, 3), 2147483647.5);
}

TEST(ViewportMatrix, OfEqualDepthsHasAnInverseWithInfinities) {
    const Mat4 inverse = makeViewportInverse({0, 0, 1, 1, 0.5, 0.5}, 640, 480);
    EXPECT_EQ(inverse(2, 2), infinity);
    EXPECT_EQ(inverse(2, 3), -infinity);
    EXPECT_EQ(inverse(0, 0), 2.0 / 640);
    EXPECT_TRUE(std::isnan(makeViewportInverse({0, 0, 1, 1, 0, 0}, 640, 480)(2, 3))) << "0 / 0";
}

TEST(ViewportMatrix, OfNoWidthOrResolutionHasAnInverseWithInfinities) {
    const Mat4 inverse = makeViewportInverse({0.5, 0, 0, 1, 0, 1}, 640, 480);
    EXPECT_EQ(inverse(0, 0), infinity);
    EXPECT_EQ(inverse(0, 3), -infinity);
    EXPECT_EQ(makeViewportInverse({}, 0, 480)(0, 0), infinity);
    EXPECT_TRUE(std::isnan(makeViewportInverse({}, 0, 480)(0, 3)));
}

TEST(NewViewport, CoversTheSurfaceAndAllDepths) { EXPECT_EQ(Viewport{}, (Viewport{0, 0, 1, 1, 0, 1})); }

} // namespace
} // namespace qel::api::camera::test
