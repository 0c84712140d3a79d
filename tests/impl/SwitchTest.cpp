// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>

#include "impl/PlanarCamera.h"
#include "tests/impl/CameraTesting.h"

namespace qel::api::camera::test {
namespace {

using impl::Box;
using impl::PlanarCamera;
using math::Frustum;

constexpr bool bothTypes[] = {false, true};
const Frustum offCentre{-1, 3, -2, 6, 2, 10};

PlanarCamera atOrigin(bool orthographic) {
    return cameraOf(impl::View(), projectionOf(offCentre, orthographic), impl::Surface());
}

/// Its centre at the given depth, positive ahead of the eye.
Box centredAt(double depth) { return {{0, 0, -depth + 1}, {1, 1, -depth - 1}}; }

TEST(SwitchProjection, MakesOrthographicAsHighAsThePerspectiveIsAtTheCentre) {
    // Four times as far as near, so four times as large.
    PlanarCamera camera = atOrigin(false);
    camera.switchProjectionType(centredAt(8.0));
    EXPECT_TRUE(same(camera.projection(), projectionOf({-4, 12, -8, 24, 2, 10}, true)));
}

TEST(SwitchProjection, MakesPerspectiveAsHighAtTheCentreAsTheOrthographicIs) {
    PlanarCamera camera = atOrigin(true);
    camera.switchProjectionType(centredAt(8.0));
    EXPECT_TRUE(same(camera.projection(), projectionOf({-0.25, 0.75, -0.5, 1.5, 2, 10}, false)));
}

TEST(SwitchProjection, ChangesNeitherViewNorSurface) {
    PlanarCamera camera = someCamera(false);
    const math::Vec3 ahead = camera.view().eye() + camera.view().direction() * 10.0;
    camera.switchProjectionType({ahead, ahead + math::Vec3{1, 1, 1}});
    EXPECT_TRUE(camera.projection().isOrthographic());
    EXPECT_TRUE(same(camera.view(), someCamera(false).view()));
    EXPECT_TRUE(same(camera.surface(), someCamera(false).surface()));
}

TEST(SwitchProjection, TwiceReturnsTheFrustum) {
    for (const bool orthographic : bothTypes) {
        PlanarCamera camera = atOrigin(orthographic);
        camera.switchProjectionType(centredAt(7.0));
        camera.switchProjectionType(centredAt(7.0));
        EXPECT_EQ(camera.projection().isOrthographic(), orthographic);
        EXPECT_TRUE(near(camera.projection().frustum(), offCentre, 32 * epsilon));
    }
}

TEST(SwitchProjection, TakesTheMiddleOfTheViewBoxNotOfTheCorners) {
    // Seen from +x, the corners' x are the depths; the eye is at 10.
    PlanarCamera camera = cameraOf({{10, 0, 0}, {0, 0, 0}, {0, 0, 1}}, projectionOf(offCentre, false), impl::Surface());
    camera.switchProjectionType({{1, 7, 9}, {3, 8, 8}});
    EXPECT_DOUBLE_EQ(camera.projection().frustum().right, 3.0 * 8.0 / 2.0);
}

TEST(SwitchProjection, OfACentreBehindTheEyeBeyondNearKeepsTheSides) {
    for (const bool orthographic : bothTypes) {
        PlanarCamera camera = atOrigin(orthographic);
        camera.switchProjectionType(centredAt(-3.0));
        EXPECT_TRUE(same(camera.projection(), projectionOf(offCentre, !orthographic)));
    }
}

TEST(SwitchProjection, OfACentreBehindTheEyeUpToNearChangesNothing) {
    for (const bool orthographic : bothTypes) {
        for (const double depth : {-2.0, -1.0, -1e-9}) {
            PlanarCamera camera = atOrigin(orthographic);
            camera.switchProjectionType(centredAt(depth));
            EXPECT_TRUE(same(camera, atOrigin(orthographic))) << depth;
        }
    }
}

TEST(SwitchProjection, OfACentreInThePlaneOfTheEyeChangesNothing) {
    for (const bool orthographic : bothTypes) {
        PlanarCamera camera = atOrigin(orthographic);
        camera.switchProjectionType(centredAt(0.0));
        EXPECT_TRUE(same(camera, atOrigin(orthographic)));
    }
}

TEST(SwitchProjection, OfACentreJustAheadOfTheEyeSwitches) {
    PlanarCamera camera = atOrigin(false);
    camera.switchProjectionType({{0, 0, -1e-5}, {1, 1, -1e-5}});
    EXPECT_TRUE(camera.projection().isOrthographic());
    EXPECT_DOUBLE_EQ(camera.projection().frustum().right, 3.0 * 1e-5 / 2.0);
}

TEST(SwitchProjection, OfIdenticalCornersChangesNothing) {
    PlanarCamera camera = someCamera(false);
    camera.switchProjectionType({{1, 2, 3}, {1, 2, 3}});
    EXPECT_TRUE(same(camera, someCamera(false)));
}

TEST(SwitchProjection, OfABoxUpToTheToleranceChangesNothing) {
    PlanarCamera camera = atOrigin(false);
    camera.switchProjectionType({{0, 0, -8}, {1e-7, 0, -8}});
    EXPECT_TRUE(same(camera, atOrigin(false)));
}

TEST(SwitchProjection, OfABoxBeyondTheToleranceSwitches) {
    PlanarCamera camera = atOrigin(false);
    camera.switchProjectionType({{0, 0, -8}, {1.001e-7, 0, -8}});
    EXPECT_TRUE(same(camera.projection(), projectionOf({-4, 12, -8, 24, 2, 10}, true)));
}

TEST(SwitchProjection, OfABoxOfNothingButNaNUsesTheStartingValues) {
    // No corner counts; the middle between plus and minus the largest float is 0, which is in the plane of the eye.
    PlanarCamera camera = atOrigin(false);
    camera.switchProjectionType({{nan, nan, nan}, {nan, nan, nan}});
    EXPECT_TRUE(same(camera, atOrigin(false)));
}

TEST(SwitchProjection, SettlesAForgedType) {
    const impl::Projection forged = forgedProjection(7, offCentre);
    PlanarCamera camera = cameraOf(impl::View(), forged, impl::Surface());
    camera.switchProjectionType(centredAt(8.0)); // counts as perspective
    EXPECT_EQ(camera.projection().type(), 1);
}

} // namespace
} // namespace qel::api::camera::test
