// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>

#include "impl/PlanarCamera.h"
#include "tests/impl/CameraTesting.h"

namespace qel::api::camera::test {
namespace {

using impl::PlanarCamera;
using math::Frustum;
using math::Vec3;

constexpr bool bothTypes[] = {false, true};

PlanarCamera with(const Frustum& frustum, bool orthographic) {
    return cameraOf(impl::View(), projectionOf(frustum, orthographic), impl::Surface());
}

const Frustum offCentre{-1, 3, -2, 6, 2, 100};

/// The off-centre camera, which is orthographic, with its planes about a sphere.
PlanarCamera around(const Vec3& centre, double radius, double minimumNearDist) {
    PlanarCamera camera = with(offCentre, true);
    camera.updateClippingPlanes(centre, radius, minimumNearDist);
    return camera;
}

Frustum frustumAround(const Vec3& centre, double radius, double minimumNearDist) {
    return around(centre, radius, minimumNearDist).projection().frustum();
}

TEST(WindowSize, ScalesEachDirectionByItselfAndSetsTheResolution) {
    for (const bool orthographic : bothTypes) {
        PlanarCamera camera = with(offCentre, orthographic);
        camera.updateWindowSize(1280, 240);
        EXPECT_TRUE(same(camera, cameraOf(impl::View(), projectionOf({-2, 6, -1, 3, 2, 100}, orthographic),
                                          surfaceOf({}, 1280, 240))));
    }
}

TEST(WindowSize, KeepsTheExtentOfAPixel) {
    Random random(301);
    for (int n = 0; n < 100; ++n) {
        PlanarCamera camera = someCamera(n % 2 == 0);
        const Frustum before = camera.projection().frustum();
        const std::uint32_t width = 1 + random.below(5000);
        const std::uint32_t height = 1 + random.below(5000);
        camera.updateWindowSize(width, height);
        const Frustum& after = camera.projection().frustum();
        EXPECT_NEAR((after.right - after.left) / width, (before.right - before.left) / 800, 8 * epsilon / 800);
        EXPECT_NEAR((after.top - after.bottom) / height, (before.top - before.bottom) / 600, 8 * epsilon / 600);
    }
}

TEST(WindowSize, OfZeroInEitherDirectionChangesNothing) {
    EXPECT_TRUE(unchanged(someCamera(false), [](PlanarCamera& camera) { camera.updateWindowSize(0, 100); }));
    EXPECT_TRUE(unchanged(someCamera(false), [](PlanarCamera& camera) { camera.updateWindowSize(100, 0); }));
}

TEST(WindowSize, IsUnsigned) {
    PlanarCamera camera = with(offCentre, true);
    camera.updateWindowSize(4294967295U, 480);
    EXPECT_EQ(camera.surface().resolutionX(), 4294967295U);
    EXPECT_EQ(camera.projection().frustum().right, 3.0 * (4294967295.0 / 640.0));
}

TEST(WindowSize, StillSetsTheResolutionWhereTheFrustumIsRejected) {
    // A frustum of no depth, which only a forged image has, is never accepted again.
    const impl::Projection forged = forgedProjection(0, {-1, 1, -1, 1, 1, 1});
    PlanarCamera camera = cameraOf(impl::View(), forged, impl::Surface());
    camera.updateWindowSize(1280, 960);
    EXPECT_TRUE(same(camera.projection(), forged));
    EXPECT_EQ(camera.surface().resolutionX(), 1280U);
}

TEST(WindowSize, FromAForgedResolutionOfZeroIsNotGuarded) {
    const impl::Surface forged = forgedSurface(0, 480);
    PlanarCamera camera = cameraOf(impl::View(), projectionOf(offCentre, false), forged);
    camera.updateWindowSize(640, 480);
    EXPECT_EQ(camera.projection().frustum().left, -infinity);
    EXPECT_EQ(camera.projection().frustum().right, infinity);
    EXPECT_EQ(camera.projection().frustum().top, 6.0);
}

TEST(ClippingPlanes, StandFivePercentOffTheSphere) {
    EXPECT_TRUE(near(frustumAround({0, 0, -10}, 1.0, 0.1), Frustum{-1, 3, -2, 6, 8.55, 11.55}, 16 * epsilon));
    EXPECT_TRUE(around({0, 0, -10}, 1.0, 0.1).projection().isOrthographic());
}

TEST(ClippingPlanes, KeepTheFieldOfViewOfAPerspective) {
    PlanarCamera camera = with(offCentre, false);
    camera.updateClippingPlanes({0, 0, -10}, 1.0, 0.1);
    const double scale = 8.55 / 2.0;
    EXPECT_TRUE(near(camera.projection().frustum(), Frustum{-scale, 3 * scale, -2 * scale, 6 * scale, 8.55, 11.55},
                     64 * epsilon));
    EXPECT_FALSE(camera.projection().isOrthographic());
}

TEST(ClippingPlanes, MeasureAlongTheView) {
    // The sphere is ten behind the origin on x; the eye is at 5 on x and looks along -x.
    PlanarCamera camera = cameraOf({{5, 0, 0}, {0, 0, 0}, {0, 1, 0}}, projectionOf(offCentre, true), impl::Surface());
    camera.updateClippingPlanes({-10, 3, 4}, 1.0, 0.1);
    EXPECT_DOUBLE_EQ(camera.projection().frustum().nearDist, 14 * 0.95);
    EXPECT_DOUBLE_EQ(camera.projection().frustum().farDist, 16 * 1.05);
}

TEST(ClippingPlanes, ChangeNeitherViewNorSurface) {
    PlanarCamera camera = someCamera(false);
    camera.updateClippingPlanes(camera.view().eye() + camera.view().direction() * 10.0, 1.0, 0.1);
    EXPECT_FALSE(same(camera.projection(), someCamera(false).projection()));
    EXPECT_TRUE(same(camera.view(), someCamera(false).view()));
    EXPECT_TRUE(same(camera.surface(), someCamera(false).surface()));
}

TEST(ClippingPlanes, StartAtTheMinimumWhereTheSphereIsNearer) {
    const Frustum aroundTheEye = frustumAround({0, 0, -0.5}, 1.0, 0.25);
    EXPECT_EQ(aroundTheEye.nearDist, 0.25);
    EXPECT_DOUBLE_EQ(aroundTheEye.farDist, 1.5 * 1.05);
    EXPECT_EQ(frustumAround({0, 0, -10}, 1.0, 9 * 0.95).nearDist, 9 * 0.95) << "the front is at the minimum";
    const Frustum tipAhead = frustumAround({0, 0, 1}, 2.0, 0.1);
    EXPECT_EQ(tipAhead.nearDist, 0.1);
    EXPECT_DOUBLE_EQ(tipAhead.farDist, 1.05);
}

TEST(ClippingPlanes, OfASphereBehindTheEyeChangeNothing) {
    EXPECT_TRUE(unchanged(someCamera(false), [](PlanarCamera& camera) {
        camera.updateClippingPlanes(camera.view().eye() - camera.view().direction() * 2.0, 1.0, 0.1);
    }));
    EXPECT_TRUE(same(around({0, 0, 1}, 1.0, 0.1), with(offCentre, true))) << "that touches the eye's plane";
}

TEST(ClippingPlanes, WithARadiusOrAMinimumUpToTheToleranceChangeNothing) {
    for (const double none : {1e-7, 0.0, -1.0}) {
        EXPECT_TRUE(same(around({0, 0, -10}, none, 0.1), with(offCentre, true))) << none;
        EXPECT_TRUE(same(around({0, 0, -10}, 1.0, none), with(offCentre, true))) << none;
    }
}

TEST(ClippingPlanes, WithAMinimumBeyondTheSphereChangeNothing) {
    EXPECT_TRUE(same(around({0, 0, -10}, 1.0, 12.0), with(offCentre, true)));
}

TEST(ClippingPlanes, OfASphereOfNaNStartAtTheMinimum) {
    for (const Frustum& frustum : {frustumAround({0, 0, -10}, nan, 0.5), frustumAround({0, 0, nan}, 1.0, 0.5)}) {
        EXPECT_EQ(frustum.nearDist, 0.5);
        EXPECT_TRUE(std::isnan(frustum.farDist));
    }
}

TEST(ClippingPlanes, WithAMinimumOfNaNTakeIt) {
    EXPECT_TRUE(std::isnan(frustumAround({0, 0, -10}, 1.0, nan).nearDist));
    EXPECT_DOUBLE_EQ(frustumAround({0, 0, -10}, 1.0, nan).farDist, 11 * 1.05);
}

} // namespace
} // namespace qel::api::camera::test
