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

/// The pixel camera with other depths of its viewport.
PlanarCamera withDepths(double depthMin, double depthMax) {
    PlanarCamera camera = pixelCamera();
    camera.setSurface(blobOf(surfaceOf({0, 0, 1, 1, depthMin, depthMax}, 512, 512)));
    return camera;
}

TEST(ZoomArea, FillsTheWindowWithASquareInOrthographic) {
    PlanarCamera camera = pixelCamera();
    camera.zoomArea({100, 200, 0.5}, {300, 400, 0.5});
    EXPECT_TRUE(same(camera.projection(), projectionOf({-100, 100, -100, 100, 1, 3}, true)));
    EXPECT_EQ(camera.view().eye(), (Vec3{200, 300, 0}));
    EXPECT_TRUE(same(camera.surface(), pixelCamera().surface()));
}

TEST(ZoomArea, WidensATallRectangle) {
    PlanarCamera camera = pixelCamera();
    camera.zoomArea({100, 200, 0.5}, {150, 400, 0.5});
    EXPECT_EQ(camera.projection().frustum(), (Frustum{-100, 100, -100, 100, 1, 3}));
    EXPECT_EQ(camera.view().eye(), (Vec3{125, 300, 0}));
}

TEST(ZoomArea, HeightensAWideRectangle) {
    PlanarCamera camera = pixelCamera();
    camera.zoomArea({100, 200, 0.5}, {300, 250, 0.5});
    EXPECT_EQ(camera.projection().frustum(), (Frustum{-100, 100, -100, 100, 1, 3}));
    EXPECT_EQ(camera.view().eye(), (Vec3{200, 225, 0}));
}

TEST(ZoomArea, KeepsTheAspectRatioOfTheFrustum) {
    PlanarCamera camera = cameraOf(impl::View(), projectionOf({0, 1024, 0, 512, 1, 3}, true), surfaceOf({}, 1024, 512));
    camera.zoomArea({100, 200, 0.5}, {200, 300, 0.5});
    EXPECT_EQ(camera.projection().frustum(), (Frustum{-100, 100, -50, 50, 1, 3}));
}

TEST(ZoomArea, TakesItsCornersInAnyOrder) {
    PlanarCamera expected = someCamera(true);
    expected.zoomArea({100, 200, 0.5}, {300, 250, 0.5});
    PlanarCamera camera = someCamera(true);
    camera.zoomArea({300, 200, 0.5}, {100, 250, 0.5});
    EXPECT_TRUE(same(camera, expected));
    camera = someCamera(true);
    camera.zoomArea({300, 250, 0.5}, {100, 200, 0.5});
    EXPECT_TRUE(same(camera, expected));
}

TEST(ZoomArea, InPerspectiveMovesTheEyeAtTheDepthOfTheNearerCorner) {
    // Near 1, far 9: distances 2 and 6 are at the depths 9 (1 - 1/2) / 8 and 9 (1 - 1/6) / 8.
    PlanarCamera camera = squareCamera();
    camera.zoomArea({256, 256, 0.5625}, {512, 512, 0.9375});
    // On the near plane the rectangle runs from 0 to 1; its centre at distance 2 is at (1, 1).
    EXPECT_TRUE(near(camera.projection().frustum(), Frustum{-0.5, 0.5, -0.5, 0.5, 1, 9}, steps * epsilon));
    EXPECT_TRUE(near(camera.view().eye(), {1, 1, 5}, steps * epsilon));
    EXPECT_FALSE(camera.projection().isOrthographic());
}

TEST(ZoomArea, InPerspectiveTakesTheNearerOfTheCornersInAnyOrder) {
    PlanarCamera camera = squareCamera();
    camera.zoomArea({512, 512, 0.9375}, {256, 256, 0.5625});
    EXPECT_TRUE(near(camera.view().eye(), {1, 1, 5}, steps * epsilon));
}

TEST(ZoomArea, MovesAlongTheAxesOfTheView) {
    PlanarCamera camera =
        cameraOf({{0, 0, 5}, {0, 0, 0}, {1, 0, 0}}, pixelCamera().projection(), pixelCamera().surface());
    camera.zoomArea({100, 200, 0.5}, {300, 400, 0.5});
    EXPECT_TRUE(near(camera.view().eye(), {300, -200, 5}, 512 * 8 * epsilon)); // up is x, right is -y
}

TEST(ZoomArea, WithBothCornersOnOnePixelChangesNothing) {
    PlanarCamera camera = someCamera(false);
    camera.zoomArea({100, 200, 0.25}, {100, 200, 0.75});
    EXPECT_TRUE(same(camera, someCamera(false)));
}

TEST(ZoomArea, WithCornersInOneColumnOrRowZooms) {
    PlanarCamera column = pixelCamera();
    column.zoomArea({100, 200, 0.5}, {100, 400, 0.5});
    EXPECT_EQ(column.projection().frustum().top, 100.0);
    PlanarCamera row = pixelCamera();
    row.zoomArea({100, 200, 0.5}, {300, 200, 0.5});
    EXPECT_EQ(row.projection().frustum().top, 100.0);
}

TEST(ZoomArea, TakesAZeroHeightForAThousandth) {
    // A window so flat that the width alone, 100, would need a height of 1/20000.
    PlanarCamera camera =
        cameraOf(impl::View(), projectionOf({0, 512, 0, 0.000256, 1, 3}, true), surfaceOf({}, 512, 512));
    camera.zoomArea({100, 200, 0.5}, {200, 200, 0.5});
    EXPECT_NEAR(camera.projection().frustum().top, 0.0005, 1e-18);
    EXPECT_NEAR(camera.projection().frustum().right, 0.0005 * 512 / 0.000256, 1e-9);
}

TEST(ZoomArea, TakesAZeroWidthForAThousandth) {
    PlanarCamera camera =
        cameraOf(impl::View(), projectionOf({0, 0.000256, 0, 512, 1, 3}, true), surfaceOf({}, 512, 512));
    camera.zoomArea({100, 200, 0.5}, {100, 300, 0.5});
    EXPECT_NEAR(camera.projection().frustum().right, 0.0005, 1e-18);
    EXPECT_NEAR(camera.projection().frustum().top, 1000.0, 1e-9);
}

// What is smaller than a thousandth of a unit on the near plane is not enlarged to the window: it may even shrink.
TEST(ZoomArea, ShrinksARectangleInAFrustumOfLessThanAThousandth) {
    const Frustum tiny{-0.0001, 0.0001, -0.0001, 0.0001, 1, 9};
    PlanarCamera camera = cameraOf(squareCamera().view(), projectionOf(tiny, false), squareCamera().surface());
    camera.zoomArea({0, 0, 0.5}, {256, 256, 0.5});
    EXPECT_TRUE(near(camera.projection().frustum(), Frustum{-0.0005, 0.0005, -0.0005, 0.0005, 1, 9}, 1e-18));
}

TEST(ZoomArea, OutOfTheDepthRangeChangesNothing) {
    for (const double depth : {-5e-324, -1.0, justAbove(1.0), 2.0, infinity, -infinity}) {
        PlanarCamera camera = someCamera(false);
        camera.zoomArea({100, 200, depth}, {300, 400, 0.5});
        camera.zoomArea({100, 200, 0.5}, {300, 400, depth});
        EXPECT_TRUE(same(camera, someCamera(false))) << depth;
    }
}

TEST(ZoomArea, AtTheBoundsOfTheDepthRangeZooms) {
    PlanarCamera camera = pixelCamera();
    camera.zoomArea({100, 200, 0.0}, {300, 400, 1.0});
    EXPECT_EQ(camera.projection().frustum().top, 100.0);
    camera = pixelCamera();
    camera.zoomArea({100, 200, -0.0}, {300, 400, 0.0});
    EXPECT_EQ(camera.projection().frustum().top, 100.0);
}

TEST(ZoomArea, TakesADepthOfNaN) {
    PlanarCamera camera = squareCamera();
    camera.zoomArea({100, 200, nan}, {300, 400, 0.5});
    EXPECT_TRUE(std::isnan(camera.projection().frustum().top));
    EXPECT_TRUE(isNaN(camera.view().eye()));
}

TEST(ZoomArea, OverBackgroundUsesTheDepthNineTenths) {
    PlanarCamera expected = squareCamera();
    expected.zoomArea({100, 200, 0.9}, {300, 400, 0.9});
    PlanarCamera camera = squareCamera();
    camera.zoomArea({100, 200, 1.0}, {300, 400, 1.0});
    EXPECT_TRUE(same(camera, expected));
    camera = squareCamera();
    camera.zoomArea({100, 200, 1.0 - 0.9e-7}, {300, 400, 1.0});
    EXPECT_TRUE(same(camera, expected));
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
    // With depths from 0 to 0.95 the background is at 0.95, and 0.9 stands in its place.
    PlanarCamera expected =
        cameraOf(squareCamera().view(), squareCamera().projection(), surfaceOf({0, 0, 1, 1, 0, 0.95}, 512, 512));
    PlanarCamera camera = expected;
    camera.zoomArea({100, 200, 0.95}, {300, 400, 0.95});
    expected.zoomArea({100, 200, 0.9}, {300, 400, 0.9});
    EXPECT_TRUE(same(camera, expected));
}

// With the background at 0, or at the tolerance itself, both differences can be exactly the tolerance.
TEST(ZoomArea, CountsDepthsThatDifferByExactlyTheToleranceAsBackground) {
    PlanarCamera before = squareCamera();
    before.setSurface(blobOf(surfaceOf({0, 0, 1, 1, -1, 0}, 512, 512)));
    PlanarCamera expected = before;
    expected.zoomArea({100, 200, 0.9}, {300, 400, 0.9});
    PlanarCamera camera = before;
    camera.zoomArea({100, 200, 0.0}, {300, 400, 1e-7});
    EXPECT_TRUE(same(camera, expected));
    camera = before;
    camera.zoomArea({100, 200, 0.0}, {300, 400, justAbove(1e-7)});
    EXPECT_FALSE(same(camera, expected));
}

TEST(ZoomArea, CountsADepthAtExactlyTheToleranceFromTheMaximumAsBackground) {
    PlanarCamera before = squareCamera();
    before.setSurface(blobOf(surfaceOf({0, 0, 1, 1, -1, 1e-7}, 512, 512)));
    PlanarCamera expected = before;
    expected.zoomArea({100, 200, 0.9}, {300, 400, 0.9});
    PlanarCamera camera = before;
    camera.zoomArea({100, 200, 0.0}, {300, 400, 0.0});
    EXPECT_TRUE(same(camera, expected));
}

TEST(ZoomArea, DoesNotReplaceADepthOfOneThatIsNotTheViewportsMaximum) {
    PlanarCamera camera = withDepths(0.0, 0.5);
    camera.zoomArea({100, 200, 1.0}, {300, 400, 1.0});
    PlanarCamera expected = withDepths(0.0, 0.5);
    expected.zoomArea({100, 200, 0.8}, {300, 400, 0.8});
    EXPECT_TRUE(same(camera, expected)); // in orthographic the depth makes no difference
}

TEST(ZoomArea, CentresAnOffCentreFrustum) {
    PlanarCamera camera = someCamera(false);
    camera.zoomArea({100, 150, 0.5}, {500, 450, 0.5});
    const Frustum& frustum = camera.projection().frustum();
    EXPECT_EQ(frustum.left, -frustum.right);
    EXPECT_EQ(frustum.bottom, -frustum.top);
    EXPECT_NEAR(camera.projection().aspectRatio(), someCamera(false).projection().aspectRatio(), 8 * epsilon);
}

} // namespace
} // namespace qel::api::camera::test
