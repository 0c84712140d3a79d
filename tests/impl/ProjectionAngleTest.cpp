// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>

#include "impl/Projection.h"
#include "math/Pipeline.h"
#include "tests/impl/CameraTesting.h"

namespace qel::api::camera::test {
namespace {

using impl::Projection;
using math::Frustum;

Projection perspective(const Frustum& frustum) { return projectionOf(frustum, false); }
Projection randomPerspective(Random& random) {
    const double n = random.magnitude(1e-4, 1e5);
    const double left = random.between(-2.0, 1.5) * n;
    const double bottom = random.between(-2.0, 1.5) * n;
    return perspective({left, left + random.between(0.1, 1.5) * n, bottom, bottom + random.between(0.1, 1.5) * n, n,
                        n * random.magnitude(1.1, 1e5)});
}

/// The angle between two directions of the plane, by the difference of their own angles in long double.
double angleBetween(double low, double high, double depth) {
    return static_cast<double>(std::atan2(static_cast<long double>(high), static_cast<long double>(depth)) -
                               std::atan2(static_cast<long double>(low), static_cast<long double>(depth)));
}

TEST(FieldOfView, IsTheAngleBetweenOppositeSidesAndZeroForAnOrthographicProjection) {
    // Near 1: the left side under 45 degrees, the right one straight ahead; bottom and top under 45 degrees each.
    const Frustum frustum{-1, 0, -1, 1, 1, 3};
    for (const std::int32_t perspectiveType : {0, 7}) {
        EXPECT_NEAR(forgedProjection(perspectiveType, frustum).horizontalFoV(), pi / 4.0, 4 * epsilon);
        EXPECT_NEAR(forgedProjection(perspectiveType, frustum).verticalFoV(), pi / 2.0, 4 * epsilon);
    }
    EXPECT_EQ(forgedProjection(1, frustum).horizontalFoV(), 0.0);
    EXPECT_EQ(forgedProjection(1, frustum).verticalFoV(), 0.0);
}

TEST(FieldOfView, AgreesWithASecondMethod) {
    Random random(201);
    for (int n = 0; n < 500; ++n) {
        const Projection projection = randomPerspective(random);
        const auto& [l, r, b, t, nearDist, f] = projection.frustum();
        // The arc cosine loses what it gains where angles are small: these are at least 0.02.
        EXPECT_NEAR(projection.horizontalFoV(), angleBetween(l, r, nearDist), 400 * epsilon);
        EXPECT_NEAR(projection.verticalFoV(), angleBetween(b, t, nearDist), 400 * epsilon);
    }
}

TEST(FieldOfView, LeavesAZeroDirectionAsItIs) {
    // The direction (0, 0) stays, and the arc cosine of 0 is a right angle.
    const Projection projection = forgedProjection(0, {0, 1, 0, 0, 0, 0});
    EXPECT_EQ(projection.horizontalFoV(), std::acos(0.0));
    EXPECT_EQ(projection.verticalFoV(), std::acos(0.0));
}

TEST(FieldOfView, OfNaNIsNaN) {
    const Projection projection = forgedProjection(0, {nan, 1, -1, 1, 1, 2});
    EXPECT_TRUE(std::isnan(projection.horizontalFoV()));
    EXPECT_FALSE(std::isnan(projection.verticalFoV()));
}

TEST(AspectRatio, IsWidthOverHeightForBothTypesAndNotGuarded) {
    EXPECT_EQ(forgedProjection(0, {-1, 3, -2, 6, 2, 10}).aspectRatio(), 0.5);
    EXPECT_EQ(forgedProjection(1, {-1, 3, -2, 6, 2, 10}).aspectRatio(), 0.5);
    EXPECT_EQ(forgedProjection(0, {-1, 1, 2, 2, 1, 2}).aspectRatio(), infinity);
    EXPECT_TRUE(std::isnan(forgedProjection(0, {}).aspectRatio()));
}

/// The frustum with width and height exchanged.
Frustum mirrored(const Frustum& frustum) {
    const auto& [l, r, b, t, n, f] = frustum;
    return {b, t, l, r, n, f};
}

TEST(SetHorizontalFoV, KeepsCentreDirectionVerticalCentreAndAspectRatio) {
    Random random(202);
    for (int n = 0; n < 500; ++n) {
        const Projection before = randomPerspective(random);
        const auto& [l, r, b, t, nearDist, f] = before.frustum();
        const double centre = std::atan((l + r) / 2.0 / nearDist);
        const double angle = random.between(0.05, 0.95) * 2.0 * (pi / 2.0 - std::abs(centre));
        Projection projection = before;
        projection.setHorizontalFoV(angle);
        const Frustum& got = projection.frustum();
        EXPECT_NEAR(std::atan(got.left / nearDist), centre - angle / 2.0, steps * epsilon);
        EXPECT_NEAR(std::atan(got.right / nearDist), centre + angle / 2.0, steps * epsilon);
        const double size = (got.right - got.left) * (1.0 + 1.0 / before.aspectRatio());
        EXPECT_NEAR(got.bottom + got.top, b + t, steps * epsilon * (size + std::abs(b + t)));
        EXPECT_NEAR(projection.aspectRatio() / before.aspectRatio(), 1.0, 1000 * epsilon);
        EXPECT_TRUE(same(projection, perspective({got.left, got.right, got.bottom, got.top, nearDist, f})));
    }
}

TEST(SetVerticalFoV, IsTheHorizontalOneOfTheMirroredFrustum) {
    Random random(203);
    for (int n = 0; n < 500; ++n) {
        Projection projection = randomPerspective(random);
        Projection lying = perspective(mirrored(projection.frustum()));
        const auto& [l, r, b, t, nearDist, f] = lying.frustum();
        const double angle = random.between(0.05, 0.95) * (pi - 2.0 * std::abs(std::atan((l + r) / 2.0 / nearDist)));
        projection.setVerticalFoV(angle);
        lying.setHorizontalFoV(angle);
        const Frustum expected = mirrored(lying.frustum());
        const double size = std::abs(expected.left) + std::abs(expected.right) + expected.top - expected.bottom;
        EXPECT_TRUE(near(projection.frustum(), expected, steps * epsilon * size));
        EXPECT_TRUE(same(projection, perspective(projection.frustum())));
    }
}

TEST(SetFoV, OfOneDirectionOfASymmetricFrustumGivesThatAngle) {
    Projection projection = perspective({-1, 1, -0.5, 0.5, 1, 3});
    projection.setHorizontalFoV(2.0 * std::atan(0.5));
    EXPECT_TRUE(near(projection.frustum(), Frustum{-0.5, 0.5, -0.25, 0.25, 1, 3}, 4 * epsilon));
    projection.setVerticalFoV(2.0 * std::atan(0.75));
    EXPECT_TRUE(near(projection.frustum(), Frustum{-1.5, 1.5, -0.75, 0.75, 1, 3}, 16 * epsilon));
}

TEST(SetFoV, GivesBothAnglesAboutTheirCentres) {
    // Centres straight ahead to the side and 45 degrees up: 1 = tan(pi/4).
    Projection projection = perspective({-1, 1, 0.5, 1.5, 1, 3});
    projection.setFoV(pi / 2.0, pi / 6.0);
    EXPECT_TRUE(near(projection.frustum(), Frustum{-1, 1, std::tan(pi / 6.0), std::tan(pi / 3.0), 1, 3}, 8 * epsilon));
    EXPECT_FALSE(projection.isOrthographic());
    EXPECT_NEAR(projection.horizontalFoV(), pi / 2.0, 16 * epsilon);
    EXPECT_NEAR(projection.verticalFoV(), pi / 6.0, 16 * epsilon);
}

/// Each way to set an angle, in turn.
const std::function<void(Projection&, double)> angleSetters[] = {
    [](Projection& projection, double angle) { projection.setHorizontalFoV(angle); },
    [](Projection& projection, double angle) { projection.setVerticalFoV(angle); },
    [](Projection& projection, double angle) { projection.setFoV(angle, 1.0); },
    [](Projection& projection, double angle) { projection.setFoV(1.0, angle); },
};

// Beyond a right angle the tangent comes back from the other side: left would be right of right.
TEST(SetFoV, ChangesNothingInOrthographicAndForAnglesUpToTheToleranceOrBehindTheEye) {
    const Frustum frustum{-1, 1, -0.5, 0.5, 1, 3};
    for (const auto& set : angleSetters) {
        EXPECT_TRUE(unchanged(projectionOf(frustum, true), [&](Projection& projection) { set(projection, 1.0); }));
        for (const double angle : {1e-7, 0.0, -1.0, -infinity, pi + 0.1}) {
            EXPECT_TRUE(unchanged(perspective(frustum), [&](Projection& projection) { set(projection, angle); }));
        }
    }
}

TEST(SetFoV, TakesAnglesJustAboveTheTolerance) {
    for (const auto& set : angleSetters) {
        Projection projection = perspective({-1, 1, -1, 1, 1, 3});
        set(projection, justAbove(1e-7));
        EXPECT_NEAR(std::min(projection.frustum().right, projection.frustum().top), 0.5e-7, 1e-16);
    }
}

TEST(SetFoV, TakesNaN) {
    const Projection before = perspective({-1, 1, -0.5, 0.5, 1, 3});
    Projection horizontal = before;
    horizontal.setHorizontalFoV(nan);
    EXPECT_TRUE(std::isnan(horizontal.frustum().left));
    EXPECT_TRUE(std::isnan(horizontal.frustum().top));
    Projection vertical = before;
    vertical.setVerticalFoV(nan);
    EXPECT_TRUE(std::isnan(vertical.frustum().left));
    EXPECT_TRUE(std::isnan(vertical.frustum().top));
    Projection both = before;
    both.setFoV(1.0, nan);
    EXPECT_FALSE(std::isnan(both.frustum().left));
    EXPECT_TRUE(std::isnan(both.frustum().top));
}

} // namespace
} // namespace qel::api::camera::test
