// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>

#include "math/Matrices.h"
#include "math/Pipeline.h"
#include "tests/math/Near.h"

namespace qel::api::camera::test {
namespace {

using math::makeViewport;
using math::makeViewportInverse;
using math::Mat4;
using math::Viewport;

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
