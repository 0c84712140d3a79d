// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>

#include "impl/Projection.h"
#include "math/Pipeline.h"
#include "tests/impl/CameraTesting.h"

namespace qel::api::camera::test {
namespace {

using impl::Projection;
using math::Frustum;
using math::Mat4;

Projection perspective(const Frustum& frustum) { return projectionOf(frustum, false); }
Projection orthographic(const Frustum& frustum) { return projectionOf(frustum, true); }

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

double centreAngle(double low, double high, double depth) { return std::atan((low + high) / 2.0 / depth); }

TEST(FieldOfView, IsTheAngleBetweenOppositeSides) {
    // Near 1: the left side under 45 degrees, the right one straight ahead; bottom and top under 45 degrees each.
    const Projection projection = perspective({-1, 0, -1, 1, 1, 3});
    EXPECT_NEAR(projection.horizontalFoV(), pi / 4.0, 4 * epsilon);
    EXPECT_NEAR(projection.verticalFoV(), pi / 2.0, 4 * epsilon);
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

TEST(FieldOfView, OfAnOrthographicProjectionIsZero) {
    EXPECT_EQ(orthographic({-1, 0, -1, 1, 1, 3}).horizontalFoV(), 0.0);
    EXPECT_EQ(orthographic({-1, 0, -1, 1, 1, 3}).verticalFoV(), 0.0);
}

TEST(FieldOfView, OfAForgedTypeIsThatOfAPerspective) {
    const Projection projection = forgedProjection(7, {-1, 0, -1, 1, 1, 3});
    EXPECT_NEAR(projection.horizontalFoV(), pi / 4.0, 4 * epsilon);
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

TEST(AspectRatio, IsWidthOverHeightForBothTypes) {
    EXPECT_EQ(perspective({-1, 3, -2, 6, 2, 10}).aspectRatio(), 0.5);
    EXPECT_EQ(orthographic({-1, 3, -2, 6, 2, 10}).aspectRatio(), 0.5);
}

TEST(AspectRatio, OfAFrustumOfNoHeightIsNotGuarded) {
    EXPECT_EQ(forgedProjection(0, {-1, 1, 2, 2, 1, 2}).aspectRatio(), infinity);
    EXPECT_TRUE(std::isnan(forgedProjection(0, {}).aspectRatio()));
}

TEST(SetHorizontalFoV, KeepsCentreDirectionVerticalCentreAndAspectRatio) {
    Random random(202);
    for (int n = 0; n < 500; ++n) {
        const Projection before = randomPerspective(random);
        const auto& [l, r, b, t, nearDist, f] = before.frustum();
        const double centre = centreAngle(l, r, nearDist);
        const double angle = random.between(0.05, 0.95) * 2.0 * (pi / 2.0 - std::abs(centre));
        Projection projection = before;
        projection.setHorizontalFoV(angle);
        const Frustum& got = projection.frustum();
        EXPECT_NEAR(std::atan(got.left / nearDist), centre - angle / 2.0, steps * epsilon);
        EXPECT_NEAR(std::atan(got.right / nearDist), centre + angle / 2.0, steps * epsilon);
        const double size = (got.right - got.left) * (1.0 + 1.0 / before.aspectRatio());
        EXPECT_NEAR(got.bottom + got.top, b + t, steps * epsilon * (size + std::abs(b + t)));
        EXPECT_NEAR(projection.aspectRatio() / before.aspectRatio(), 1.0, 1000 * epsilon);
        EXPECT_EQ(got.nearDist, nearDist);
        EXPECT_EQ(got.farDist, f);
        EXPECT_EQ(projection.type(), 0);
    }
}

TEST(SetHorizontalFoV, OfASymmetricFrustumGivesThatAngle) {
    Projection projection = perspective({-1, 1, -0.5, 0.5, 1, 3});
    projection.setHorizontalFoV(2.0 * std::atan(0.5));
    EXPECT_TRUE(near(projection.frustum(), Frustum{-0.5, 0.5, -0.25, 0.25, 1, 3}, 4 * epsilon));
    EXPECT_EQ(projection.matrix(), math::makeFrustum(projection.frustum()));
}

TEST(SetVerticalFoV, KeepsCentreDirectionHorizontalCentreAndAspectRatio) {
    Random random(203);
    for (int n = 0; n < 500; ++n) {
        const Projection before = randomPerspective(random);
        const auto& [l, r, b, t, nearDist, f] = before.frustum();
        const double centre = centreAngle(b, t, nearDist);
        const double angle = random.between(0.05, 0.95) * 2.0 * (pi / 2.0 - std::abs(centre));
        Projection projection = before;
        projection.setVerticalFoV(angle);
        const Frustum& got = projection.frustum();
        EXPECT_NEAR(std::atan(got.bottom / nearDist), centre - angle / 2.0, steps * epsilon);
        EXPECT_NEAR(std::atan(got.top / nearDist), centre + angle / 2.0, steps * epsilon);
        const double size = (got.top - got.bottom) * (1.0 + before.aspectRatio());
        EXPECT_NEAR(got.left + got.right, l + r, steps * epsilon * (size + std::abs(l + r)));
        EXPECT_NEAR(projection.aspectRatio() / before.aspectRatio(), 1.0, 1000 * epsilon);
        EXPECT_EQ(got.nearDist, nearDist);
        EXPECT_EQ(got.farDist, f);
        EXPECT_EQ(projection.type(), 0);
    }
}

TEST(SetVerticalFoV, OfASymmetricFrustumGivesThatAngle) {
    Projection projection = perspective({-1, 1, -0.5, 0.5, 1, 3});
    projection.setVerticalFoV(2.0 * std::atan(0.25));
    EXPECT_TRUE(near(projection.frustum(), Frustum{-0.5, 0.5, -0.25, 0.25, 1, 3}, 4 * epsilon));
}

TEST(SetFoV, GivesBothAnglesAboutTheirCentres) {
    // Centres straight ahead to the side and 45 degrees up: 1 = tan(pi/4).
    Projection projection = perspective({-1, 1, 0.5, 1.5, 1, 3});
    projection.setFoV(pi / 2.0, pi / 6.0);
    EXPECT_TRUE(near(projection.frustum(), Frustum{-1, 1, std::tan(pi / 6.0), std::tan(pi / 3.0), 1, 3}, 8 * epsilon));
    EXPECT_EQ(projection.type(), 0);
    EXPECT_NEAR(projection.horizontalFoV(), pi / 2.0, 16 * epsilon);
    EXPECT_NEAR(projection.verticalFoV(), pi / 6.0, 16 * epsilon);
}

TEST(SetFoV, LeavesAnOrthographicProjectionAlone) {
    const Projection before = orthographic({-1, 1, -0.5, 0.5, 1, 3});
    Projection projection = before;
    projection.setHorizontalFoV(1.0);
    projection.setVerticalFoV(1.0);
    projection.setFoV(1.0, 1.0);
    EXPECT_TRUE(same(projection, before));
}

TEST(SetFoV, RejectsAnglesUpToTheTolerance) {
    const Projection before = perspective({-1, 1, -0.5, 0.5, 1, 3});
    for (const double angle : {1e-7, 0.0, -1.0, -infinity}) {
        Projection projection = before;
        projection.setHorizontalFoV(angle);
        projection.setVerticalFoV(angle);
        projection.setFoV(angle, 1.0);
        projection.setFoV(1.0, angle);
        EXPECT_TRUE(same(projection, before)) << angle;
    }
}

TEST(SetFoV, TakesAnglesJustAboveTheTolerance) {
    const double least = justAbove(1e-7);
    Projection projection = perspective({-1, 1, -0.5, 0.5, 1, 3});
    projection.setFoV(least, least);
    EXPECT_NEAR(projection.frustum().right, 0.5e-7, 1e-16);
    projection = perspective({-1, 1, -0.5, 0.5, 1, 3});
    projection.setHorizontalFoV(least);
    EXPECT_NEAR(projection.frustum().right, 0.5e-7, 1e-16);
    projection = perspective({-1, 1, -0.5, 0.5, 1, 3});
    projection.setVerticalFoV(least);
    EXPECT_NEAR(projection.frustum().top, 0.5e-7, 1e-16);
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

// Beyond a right angle the tangent comes back from the other side: left would be right of right.
TEST(SetFoV, LeavesTheFrustumWhereAnAngleReachesBehindTheEye) {
    const Projection before = perspective({-1, 1, -0.5, 0.5, 1, 3});
    Projection projection = before;
    projection.setHorizontalFoV(pi + 0.1);
    projection.setVerticalFoV(pi + 0.1);
    projection.setFoV(pi + 0.1, 1.0);
    EXPECT_TRUE(same(projection, before));
}

} // namespace
} // namespace qel::api::camera::test
