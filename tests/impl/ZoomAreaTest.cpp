// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "impl/PlanarCamera.h"
#include "tests/impl/CameraTesting.h"

namespace qel::api::camera::test {
namespace {

using impl::PlanarCamera;
using impl::ScreenPoint;
using math::Frustum;
using math::Vec3;

PlanarCamera zoomed(PlanarCamera camera, const ScreenPoint& first, const ScreenPoint& second) {
    camera.zoomArea(first, second);
    return camera;
}

Frustum zoomedFrustum(const PlanarCamera& camera, const ScreenPoint& first, const ScreenPoint& second) {
    return zoomed(camera, first, second).projection().frustum();
}

/// The camera with other depths of its viewport.
PlanarCamera withDepths(PlanarCamera camera, double depthMin, double depthMax) {
    camera.setSurface(blobOf(surfaceOf({0, 0, 1, 1, depthMin, depthMax}, 512, 512)));
    return camera;
}

TEST(ZoomArea, FillsTheWindowInOrthographicAndWidensTheShorterSide) {
    for (const auto& [x, y] : {std::array{300, 400}, std::array{150, 400}, std::array{300, 250}}) {
        const PlanarCamera camera = zoomed(pixelCamera(), {100, 200, 0.5}, {x, y, 0.5});
        EXPECT_TRUE(same(camera.projection(), projectionOf({-100, 100, -100, 100, 1, 3}, true)));
        EXPECT_EQ(camera.view().eye(), (Vec3{(100.0 + x) / 2, (200.0 + y) / 2, 0}));
        EXPECT_TRUE(same(camera.surface(), pixelCamera().surface()));
    }
}

TEST(ZoomArea, TakesItsCornersInAnyOrder) {
    const PlanarCamera expected = zoomed(someCamera(true), {100, 200, 0.5}, {300, 250, 0.5});
    EXPECT_TRUE(same(zoomed(someCamera(true), {300, 200, 0.5}, {100, 250, 0.5}), expected));
    EXPECT_TRUE(same(zoomed(someCamera(true), {300, 250, 0.5}, {100, 200, 0.5}), expected));
}

TEST(ZoomArea, InPerspectiveMovesTheEyeAtTheDepthOfTheNearerCorner) {
    // Near 1, far 9: distances 2 and 6 are at the depths 9 (1 - 1/2) / 8 and 9 (1 - 1/6) / 8. On the near plane the
    // rectangle runs from 0 to 1; its centre at distance 2 is at (1, 1).
    const PlanarCamera camera = zoomed(squareCamera(), {256, 256, 0.5625}, {512, 512, 0.9375});
    EXPECT_TRUE(near(camera.projection().frustum(), Frustum{-0.5, 0.5, -0.5, 0.5, 1, 9}, steps * epsilon));
    EXPECT_TRUE(near(camera.view().eye(), {1, 1, 5}, steps * epsilon));
    EXPECT_FALSE(camera.projection().isOrthographic());
    const PlanarCamera reversed = zoomed(squareCamera(), {512, 512, 0.9375}, {256, 256, 0.5625});
    EXPECT_TRUE(near(reversed.view().eye(), {1, 1, 5}, steps * epsilon));
}

TEST(ZoomArea, MovesAlongTheAxesOfTheView) {
    PlanarCamera camera =
        cameraOf({{0, 0, 5}, {0, 0, 0}, {1, 0, 0}}, pixelCamera().projection(), pixelCamera().surface());
    camera.zoomArea({100, 200, 0.5}, {300, 400, 0.5});
    EXPECT_TRUE(near(camera.view().eye(), {300, -200, 5}, 512 * 8 * epsilon)); // up is x, right is -y
}

TEST(ZoomArea, ChangesNothingWithBothCornersOnOnePixelButZoomsWithThemInOneColumnOrRow) {
    EXPECT_TRUE(same(zoomed(someCamera(false), {100, 200, 0.25}, {100, 200, 0.75}), someCamera(false)));
    EXPECT_EQ(zoomedFrustum(pixelCamera(), {100, 200, 0.5}, {100, 400, 0.5}).top, 100.0);
    EXPECT_EQ(zoomedFrustum(pixelCamera(), {100, 200, 0.5}, {300, 200, 0.5}).top, 100.0);
}

TEST(ZoomArea, TakesAZeroHeightOrWidthForAThousandth) {
    // A window so flat, or so narrow, that the other side alone, 100, would need 1/20000.
    PlanarCamera camera = pixelCamera();
    camera.setProjection(blobOf(projectionOf({0, 512, 0, 0.000256, 1, 3}, true)));
    const Frustum flat = zoomedFrustum(camera, {100, 200, 0.5}, {200, 200, 0.5});
    EXPECT_NEAR(flat.top, 0.0005, 1e-18);
    EXPECT_NEAR(flat.right, 0.0005 * 512 / 0.000256, 1e-9);
    camera.setProjection(blobOf(projectionOf({0, 0.000256, 0, 512, 1, 3}, true)));
    const Frustum narrow = zoomedFrustum(camera, {100, 200, 0.5}, {100, 300, 0.5});
    EXPECT_NEAR(narrow.right, 0.0005, 1e-18);
    EXPECT_NEAR(narrow.top, 1000.0, 1e-9);
}

TEST(ZoomArea, OutOfTheDepthRangeChangesNothing) {
    for (const double depth : {-5e-324, -1.0, justAbove(1.0), 2.0, infinity, -infinity}) {
        EXPECT_TRUE(same(zoomed(someCamera(false), {100, 200, depth}, {300, 400, 0.5}), someCamera(false))) << depth;
        EXPECT_TRUE(same(zoomed(someCamera(false), {100, 200, 0.5}, {300, 400, depth}), someCamera(false))) << depth;
    }
    EXPECT_EQ(zoomedFrustum(pixelCamera(), {100, 200, 0.0}, {300, 400, 1.0}).top, 100.0);
    EXPECT_EQ(zoomedFrustum(pixelCamera(), {100, 200, -0.0}, {300, 400, 0.0}).top, 100.0);
}

TEST(ZoomArea, TakesADepthOfNaN) {
    PlanarCamera camera = squareCamera();
    camera.zoomArea({100, 200, nan}, {300, 400, 0.5});
    EXPECT_TRUE(std::isnan(camera.projection().frustum().top));
    EXPECT_TRUE(isNaN(camera.view().eye()));
}

/// Whether both depths count as background, which is to say as nine tenths.
bool isBackground(const PlanarCamera& camera, double first, double second) {
    return static_cast<bool>(
        same(zoomed(camera, {100, 200, first}, {300, 400, second}), zoomed(camera, {100, 200, 0.9}, {300, 400, 0.9})));
}

TEST(ZoomArea, OverBackgroundUsesTheDepthNineTenths) {
    EXPECT_TRUE(isBackground(squareCamera(), 1.0, 1.0));
    EXPECT_TRUE(isBackground(squareCamera(), 1.0 - 0.9e-7, 1.0));
    EXPECT_FALSE(isBackground(squareCamera(), 1.0, 0.95));
}

TEST(ZoomArea, WithOneCornerOverBackgroundUsesTheDepthsGiven) {
    PlanarCamera camera = squareCamera();
    camera.zoomArea({256, 256, 0.5625}, {512, 512, 1.0});
    EXPECT_TRUE(near(camera.view().eye(), {1, 1, 5}, steps * epsilon)); // half of what is seen at distance 2
}

TEST(ZoomArea, WithBothCornersJustBeforeTheBackgroundUsesTheDepthsGiven) {
    const double depth = 1.0 - 1.1e-7;
    PlanarCamera camera = squareCamera();
    camera.zoomArea({256, 256, depth}, {512, 512, depth});
    EXPECT_TRUE(near(camera.view().eye(), {4.5, 4.5, 5}, 1e-5)); // half of what is seen at distance 9
}

TEST(ZoomArea, TakesTheBackgroundFromTheViewport) {
    EXPECT_TRUE(isBackground(withDepths(squareCamera(), 0, 0.95), 0.95, 0.95));
    EXPECT_FALSE(isBackground(withDepths(squareCamera(), 0, 0.95), 1.0, 1.0));
}

// With the background at 0, or at the tolerance itself, both differences can be exactly the tolerance.
TEST(ZoomArea, CountsADifferenceOfExactlyTheToleranceAsNone) {
    EXPECT_TRUE(isBackground(withDepths(squareCamera(), -1, 0), 0.0, 1e-7));
    EXPECT_FALSE(isBackground(withDepths(squareCamera(), -1, 0), 0.0, justAbove(1e-7)));
    EXPECT_TRUE(isBackground(withDepths(squareCamera(), -1, 1e-7), 0.0, 0.0));
}

} // namespace
} // namespace qel::api::camera::test
