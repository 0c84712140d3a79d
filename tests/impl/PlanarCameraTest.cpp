// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>
#include <type_traits>

#include "impl/Camera.h"
#include "impl/PlanarCamera.h"
#include "tests/impl/CameraTesting.h"

namespace qel::api::camera::test {
namespace {

using impl::Camera;
using impl::PlanarCamera;
using impl::Projection;
using impl::Surface;
using impl::View;
using math::Frustum;
using math::Vec3;

static_assert(std::is_abstract_v<Camera> && std::has_virtual_destructor_v<Camera>);
static_assert(!std::is_copy_constructible_v<Camera> && !std::is_copy_assignable_v<Camera>, "slicing");
static_assert(std::is_base_of_v<Camera, PlanarCamera> && std::is_final_v<PlanarCamera>);
static_assert(std::is_nothrow_move_constructible_v<PlanarCamera> && std::is_nothrow_move_assignable_v<PlanarCamera>);
static_assert(std::is_copy_constructible_v<PlanarCamera> && std::is_copy_assignable_v<PlanarCamera>);
static_assert(!std::is_convertible_v<View, PlanarCamera>);

TEST(PlanarCamera, IsMadeOfDefaultsAndHasZeroWordsAtFirst) {
    EXPECT_TRUE(same(PlanarCamera(), cameraOf(View(), Projection(), Surface())));
    EXPECT_EQ(PlanarCamera().firstWord(), 0U);
    EXPECT_EQ(PlanarCamera().secondWord(), 0U);
}

TEST(PlanarCamera, TakesEachPartByItself) {
    PlanarCamera camera = someCamera(false);
    const Projection projection = camera.projection();
    const Surface surface = camera.surface();
    camera.setView(blobOf(View()));
    EXPECT_TRUE(same(camera, cameraOf(View(), projection, surface)));
    camera.setProjection(blobOf(Projection()));
    EXPECT_TRUE(same(camera, cameraOf(View(), Projection(), surface)));
    camera.setSurface(blobOf(Surface()));
    EXPECT_TRUE(same(camera, PlanarCamera()));
}

TEST(CameraWords, AreStoredAndReadThroughTheBase) {
    PlanarCamera planar;
    Camera& camera = planar;
    camera.setFirstWord(0xFFFFFFFFFFFFFFFFU);
    camera.setSecondWord(0x0123456789ABCDEFU);
    EXPECT_EQ(camera.firstWord(), 0xFFFFFFFFFFFFFFFFU);
    EXPECT_EQ(camera.secondWord(), 0x0123456789ABCDEFU);
}

TEST(CameraWords, AreTouchedByNoOperation) {
    PlanarCamera camera = someCamera(false);
    camera.setFirstWord(3);
    camera.setSecondWord(4);
    camera.setView(blobOf(View()));
    camera.updateWindowSize(10, 20);
    camera.fitWorldSpaceBoundingBox({{0, 0, 0}, {1, 2, 3}});
    camera.arcballRotation({0, 0, 0}, {1, 2}, {3, 4});
    EXPECT_EQ(camera.firstWord(), 3U);
    EXPECT_EQ(camera.secondWord(), 4U);
}

TEST(PlanarCamera, NamesItsType) {
    const PlanarCamera planar;
    const Camera& camera = planar;
    EXPECT_EQ(camera.typeName(), "PlanarCamera");
}

TEST(PlanarCamera, PrintsOneLineAndChangesNothingWhereItIsNotImplemented) {
    const PlanarCamera before = someCamera(false);
    ::testing::internal::CaptureStdout();
    EXPECT_TRUE(unchanged(before, [](Camera& camera) { camera.updateFromScreen(); }));
    EXPECT_TRUE(unchanged(before, [](Camera& camera) { camera.updateFromWindow(); }));
    EXPECT_TRUE(unchanged(before, [](Camera& camera) { camera.updateFromScreen(); }));
    EXPECT_EQ(::testing::internal::GetCapturedStdout(),
              "[PlanarCamera::updateFromScreen] function not yet implemented\n"
              "[PlanarCamera::updateFromWindow] function not yet implemented\n"
              "[PlanarCamera::updateFromScreen] function not yet implemented\n");
}

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

TEST(WindowSize, OfZeroInEitherDirectionChangesNothing) {
    EXPECT_TRUE(unchanged(someCamera(false), [](PlanarCamera& camera) { camera.updateWindowSize(0, 100); }));
    EXPECT_TRUE(unchanged(someCamera(false), [](PlanarCamera& camera) { camera.updateWindowSize(100, 0); }));
}

TEST(WindowSize, StillSetsTheResolutionWhereTheFrustumIsRejected) {
    // A frustum of no depth, which only a forged blob has, is never accepted again.
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

TEST(ClippingPlanes, KeepTheFieldOfViewOfAPerspectiveAndNeitherMoveNorResize) {
    PlanarCamera camera = with(offCentre, false);
    camera.updateClippingPlanes({0, 0, -10}, 1.0, 0.1);
    const double scale = 8.55 / 2.0;
    EXPECT_TRUE(near(camera.projection().frustum(), Frustum{-scale, 3 * scale, -2 * scale, 6 * scale, 8.55, 11.55},
                     64 * epsilon));
    EXPECT_TRUE(same(camera, cameraOf(impl::View(), projectionOf(camera.projection().frustum(), false), {})));
}

TEST(ClippingPlanes, MeasureAlongTheView) {
    // The sphere is ten behind the origin on x; the eye is at 5 on x and looks along -x.
    PlanarCamera camera = cameraOf({{5, 0, 0}, {0, 0, 0}, {0, 1, 0}}, projectionOf(offCentre, true), impl::Surface());
    camera.updateClippingPlanes({-10, 3, 4}, 1.0, 0.1);
    EXPECT_DOUBLE_EQ(camera.projection().frustum().nearDist, 14 * 0.95);
    EXPECT_DOUBLE_EQ(camera.projection().frustum().farDist, 16 * 1.05);
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
