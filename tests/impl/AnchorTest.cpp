// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "impl/PlanarCamera.h"
#include "tests/impl/CameraTesting.h"

namespace qel::api::camera::test {
namespace {

using impl::PlanarCamera;
using impl::ScreenPoint;
using math::Frustum;
using math::Vec3;

constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t smallest = std::numeric_limits<std::int32_t>::min();

TEST(ZoomWithScreenAnchor, HalvesTheFrustumAboutItsCentreAndKeepsThePointUnderThePixel) {
    // The frustum's centre is at (256, 256), so the point at (100, 200) would go to (-56, 144).
    PlanarCamera camera = pixelCamera();
    camera.zoomWithAnchor(ScreenPoint{100, 200, 0.5}, 0.5);
    EXPECT_TRUE(same(camera.projection(), projectionOf({128, 384, 128, 384, 1, 3}, true)));
    EXPECT_EQ(camera.view().eye(), (Vec3{-78, -28, 0})); // 100 - (256 - 156 / 2), 200 - (256 - 56 / 2)
    EXPECT_TRUE(same(camera.surface(), pixelCamera().surface()));
}

TEST(ZoomWithScreenAnchor, InPerspectiveMovesByTheDepthOfTheAnchor) {
    // A quarter right of the centre at distance 2 is 1 to the right; half the frustum shows 1/2 there.
    PlanarCamera camera = squareCamera();
    camera.zoomWithAnchor(ScreenPoint{384, 256, 0.5625}, 0.5);
    EXPECT_TRUE(near(camera.projection().frustum(), Frustum{-0.5, 0.5, -0.5, 0.5, 1, 9}, 0.0));
    EXPECT_TRUE(near(camera.view().eye(), {0.5, 0, 5}, steps * epsilon));
}

TEST(ZoomWithScreenAnchor, ByOneChangesNothingUpToRounding) {
    const ScreenPoint anchor{100, 200, 0.5};
    EXPECT_TRUE(unchanged(pixelCamera(), [&](PlanarCamera& camera) { camera.zoomWithAnchor(anchor, 1.0); }));
    PlanarCamera camera = someCamera(false);
    camera.zoomWithAnchor(anchor, 1.0);
    EXPECT_TRUE(near(camera.projection().frustum(), someCamera(false).projection().frustum(), 4 * epsilon));
    EXPECT_TRUE(same(camera.view(), someCamera(false).view())); // the offset is negligible
}

TEST(ZoomWithAnchor, ByANegativeFactorOrByZeroChangesNothing) {
    for (const double factor : {-1.0, 0.0}) {
        EXPECT_TRUE(unchanged(someCamera(false), [&](PlanarCamera& camera) {
            camera.zoomWithAnchor(ScreenPoint{100, 200, 0.5}, factor);
        }));
        EXPECT_TRUE(unchanged(pixelCamera(), [&](PlanarCamera& camera) {
            camera.zoomWithAnchor(Vec3{100, 200, -2}, factor);
        }));
    }
}

TEST(ZoomWithScreenAnchor, ByNaNIsTaken) {
    PlanarCamera camera = pixelCamera();
    camera.zoomWithAnchor(ScreenPoint{100, 200, 0.5}, nan);
    EXPECT_TRUE(std::isnan(camera.projection().frustum().left));
    EXPECT_TRUE(std::isnan(camera.view().eye().x));
}

TEST(ZoomWithScreenAnchor, AtADepthOfNaNZoomsAndLosesTheEye) {
    PlanarCamera camera = squareCamera();
    camera.zoomWithAnchor(ScreenPoint{100, 200, nan}, 0.5);
    EXPECT_EQ(camera.projection().frustum().right, 0.5);
    EXPECT_TRUE(isNaN(camera.view().eye()));
}

PlanarCamera zoomedAtScreen(PlanarCamera camera, const ScreenPoint& anchor) {
    camera.zoomWithAnchor(anchor, 0.5);
    return camera;
}

PlanarCamera zoomedAtWorld(PlanarCamera camera, const Vec3& anchor) {
    camera.zoomWithAnchor(anchor, 0.5);
    return camera;
}

TEST(ZoomWithWorldAnchor, IsTheScreenAnchorAtTheWholePixelNearestToThePoint) {
    EXPECT_TRUE(same(zoomedAtWorld(pixelCamera(), {100, 200, -2}), zoomedAtScreen(pixelCamera(), {100, 200, 0.5})));
    EXPECT_TRUE(
        same(zoomedAtWorld(pixelCamera(), {100.5, -100.5, -2}), zoomedAtScreen(pixelCamera(), {101, -101, 0.5})));
}

TEST(ZoomWithWorldAnchor, InThePlaneOfTheEyeOrNextToItChangesNothing) {
    EXPECT_TRUE(same(zoomedAtWorld(squareCamera(), {1, 1, 5}), squareCamera()));
    EXPECT_TRUE(same(zoomedAtWorld(squareCamera(), {0, 0, 5}), squareCamera()));
    // The depth overflows, and with it the pixel, though the point is straight ahead.
    PlanarCamera camera = squareCamera();
    camera.setView(blobOf(impl::View()));
    EXPECT_TRUE(same(zoomedAtWorld(camera, {0, 0, -1e-308}), camera));
}

TEST(ZoomWithWorldAnchor, OfNaNOrOutsideOf32BitsChangesNothing) {
    for (const double position : {nan, infinity, -infinity, 2147483648.0, -2147483649.0, 1e300, -1e300}) {
        EXPECT_TRUE(same(zoomedAtWorld(pixelCamera(), {position, 0, -2}), pixelCamera())) << position;
        EXPECT_TRUE(same(zoomedAtWorld(pixelCamera(), {0, position, -2}), pixelCamera())) << position;
    }
    for (const std::int32_t position : {largest, smallest}) {
        const auto place = static_cast<double>(position);
        const PlanarCamera camera = zoomedAtWorld(pixelCamera(), {place, place, -2});
        EXPECT_TRUE(same(camera, zoomedAtScreen(pixelCamera(), {position, position, 0.5}))) << position;
        EXPECT_EQ(camera.projection().frustum().left, 128.0);
    }
}

TEST(Pan, MovesTheEyeAgainstTheDragAndOnPastTheLeftAndLowerEdge) {
    PlanarCamera camera = pixelCamera();
    camera.panWithAnchor({10, 200, 0.5}, -30, 40);
    EXPECT_EQ(camera.view().eye(), (Vec3{30, -40, 0}));
    EXPECT_TRUE(same(camera.projection(), pixelCamera().projection()));
    EXPECT_TRUE(same(camera.surface(), pixelCamera().surface()));
}

TEST(Pan, InPerspectiveMovesByTheDepth) {
    // A quarter of the window is 1 at distance 2 and 3 at distance 6.
    PlanarCamera close = squareCamera();
    close.panWithAnchor({0, 0, 0.5625}, 128, 0);
    EXPECT_TRUE(near(close.view().eye(), {-1, 0, 5}, steps * epsilon));
    PlanarCamera distant = squareCamera();
    distant.panWithAnchor({0, 0, 0.9375}, 128, 0);
    EXPECT_TRUE(near(distant.view().eye(), {-3, 0, 5}, steps * epsilon));
}

TEST(Pan, WrapsAroundAtTheEndsOf32Bits) {
    PlanarCamera up = pixelCamera();
    up.panWithAnchor({largest, 0, 0.5}, 1, 0);
    EXPECT_EQ(up.view().eye().x, 4294967295.0); // from 2^31 - 1 to -2^31
    PlanarCamera down = pixelCamera();
    down.panWithAnchor({0, smallest, 0.5}, 0, smallest);
    EXPECT_EQ(down.view().eye().y, -2147483648.0); // from -2^31 to 0
}

TEST(Pan, AtADepthOfNaNLosesTheEye) {
    PlanarCamera camera = squareCamera();
    camera.panWithAnchor({100, 200, nan}, 1, 0);
    EXPECT_TRUE(isNaN(camera.view().eye()));
}

// The view ignores a translation of at most 1e-7: pixels that small are not panned over one by one.
TEST(Pan, OverLessThanTheToleranceChangesNothing) {
    // A pixel is 500e-7 / 512: one is below the tolerance, two are above.
    PlanarCamera before = pixelCamera();
    before.setProjection(blobOf(projectionOf({0, 500e-7, 0, 500e-7, 1, 3}, true)));
    for (const std::int32_t dy : {0, 1}) {
        EXPECT_TRUE(unchanged(before, [&](PlanarCamera& camera) { camera.panWithAnchor({100, 200, 0.5}, 0, dy); }));
    }
    PlanarCamera camera = before;
    camera.panWithAnchor({100, 200, 0.5}, 0, 2);
    EXPECT_NEAR(camera.view().eye().y, -2 * 500e-7 / 512, 1e-20);
}

} // namespace
} // namespace qel::api::camera::test
