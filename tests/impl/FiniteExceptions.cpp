// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>

#include "impl/PlanarCamera.h"
#include "impl/SpaceTransforms.h"
#include "tests/impl/RandomCameras.h"

// The ways in which a finite camera and finite arguments come to infinities or NaN after all: required, as nothing
// guards them. Each with its smallest example, and most with its neighbour that stays finite.

namespace qel::api::camera::test {
namespace {

using impl::PlanarCamera;
using impl::Projection;
using impl::ScreenPoint;
using impl::Surface;
using impl::View;
using math::Vec3;

/// Near 1 and far 3, so that all steps of the depth are exact: infinity is at 2 in device coordinates, at 1.5 as a
/// depth between 0 and 1.
PlanarCamera shallow() { return {View(), projectionOf({-1, 1, -1, 1, 1, 3}, false), surfaceOf({}, 512, 512)}; }

TEST(NonFinite, PanAtTheDepthOfInfinity) {
    PlanarCamera camera = shallow();
    camera.panWithAnchor({256, 256, 1.5}, 1, 0);
    EXPECT_FALSE(isFinite(camera.view()));
    camera = shallow();
    camera.panWithAnchor({256, 256, justBelow(1.5)}, 1, 0);
    EXPECT_TRUE(isFinite(camera));
}

TEST(NonFinite, ZoomWithAScreenAnchorAtTheDepthOfInfinity) {
    PlanarCamera camera = shallow();
    camera.zoomWithAnchor(ScreenPoint{0, 0, 1.5}, 0.5);
    EXPECT_FALSE(isFinite(camera.view()));
    EXPECT_EQ(camera.projection().frustum().right, 0.5) << "the projection is as it should be";
}

TEST(NonFinite, ZoomAreaAtTheDepthOfInfinityWhereTheViewportsDepthsEndBeforeOne) {
    // Depths from 0 to 0.5: infinity is at 0.75, which is in the range that the operation takes.
    PlanarCamera camera = shallow();
    camera.setSurface(surfaceOf({0, 0, 1, 1, 0, 0.5}, 512, 512));
    camera.zoomArea({0, 0, 0.75}, {100, 100, 0.25});
    EXPECT_FALSE(isFinite(camera.view()));
    EXPECT_FALSE(std::isfinite(camera.projection().frustum().right));
}

// So far away that the depth rounds to that of infinity: 3 / 1e16 is less than half a step at 2.
TEST(NonFinite, ZoomWithAWorldAnchorTooFarAwayToTellFromInfinity) {
    PlanarCamera camera = shallow();
    camera.zoomWithAnchor(Vec3{0, 0, -1e17}, 0.5);
    EXPECT_FALSE(isFinite(camera.view()));
    camera = shallow();
    camera.zoomWithAnchor(Vec3{0, 0, -1e14}, 0.5);
    EXPECT_TRUE(isFinite(camera));
}

// The matrix is stored beside the inverse of the previous projection; screen points then have no distance.
TEST(NonFinite, ZoomAreaAfterAnOrthographicMatrixWasGivenForPerspective) {
    PlanarCamera camera = shallow();
    Projection projection = camera.projection();
    projection.setProjectionMatrix(math::makeOrtho({-1, 1, -1, 1, 1, 3}), false);
    camera.setProjection(projection);
    ASSERT_TRUE(isFinite(camera));
    EXPECT_EQ(screenToView(camera, {100, 100, 0.5}), Vec3{});
    camera.zoomArea({0, 0, 0.5}, {100, 100, 0.5});
    EXPECT_TRUE(isNaN(camera.view().eye()));
    EXPECT_TRUE(isFinite(camera.projection())) << "near is negative there, so the frustum of NaN is rejected";
}

// The centre of the box at -0: the distance is 0 instead of -0, and the infinite sides are in order.
TEST(NonFinite, SwitchToPerspectiveWithTheBoxCentreInThePlaneOfTheEye) {
    const View view({-1, -1, 0}, {-1, -1, -1}, {0, 1, 0});
    ASSERT_TRUE(std::signbit(view.worldToViewPoint({1, 1, -0.0}).z));
    PlanarCamera camera(view, projectionOf({-1, 1, -1, 1, 1, 3}, true), Surface());
    camera.switchProjectionType({{1, 1, -0.0}, {2, 2, -0.0}});
    EXPECT_EQ(camera.projection().frustum().right, infinity);
    camera = {view, projectionOf({-1, 1, -1, 1, 1, 3}, true), Surface()};
    camera.switchProjectionType({{1, 1, 0.0}, {2, 2, 0.0}});
    EXPECT_TRUE(camera.projection().isOrthographic()) << "at +0 the frustum is turned inside out and rejected";
}

TEST(NonFinite, SwitchToPerspectiveWithTheBoxCentreNextToNothingAhead) {
    PlanarCamera camera(View(), projectionOf({-1, 1, -1, 1, 1, 3}, true), Surface());
    camera.switchProjectionType({{0, 0, -1e-309}, {1, 1, -1e-309}});
    EXPECT_EQ(camera.projection().frustum().right, infinity);
}

TEST(NonFinite, SurfaceWithEqualDepths) { EXPECT_FALSE(isFinite(surfaceOf({0, 0, 1, 1, 0.5, 0.5}, 512, 512))); }

TEST(NonFinite, SurfaceWithAViewportOfNothingAfterAChangeOfResolution) {
    Surface surface;
    surface.setViewport({0, 0, 0, 1, 0, 1});
    EXPECT_TRUE(isFinite(surface));
    surface.setResolutionX(640);
    EXPECT_FALSE(isFinite(surface));
}

TEST(NonFinite, WindowSizeFromAResolutionOfZero) {
    const Surface forged({}, math::Mat4{}, math::Mat4{}, 0, 480);
    PlanarCamera camera(View(), Projection(), forged);
    ASSERT_TRUE(isFinite(camera));
    camera.updateWindowSize(640, 480);
    EXPECT_EQ(camera.projection().frustum().right, infinity);
}

TEST(NonFinite, FrustumNarrowerThanItsReciprocalCanTell) {
    EXPECT_FALSE(isFinite(projectionOf({0, 1e-308, -1, 1, 1, 3}, false))) << "2 / 1e-308";
    EXPECT_TRUE(isFinite(projectionOf({0, 1e-307, -1, 1, 1, 3}, false)));
}

/// How often the default projection can be zoomed by a factor before it is no longer finite.
int zoomsBeforeOverflow(double factor) {
    Projection projection;
    int count = 0;
    while (isFinite(projection) && count < 3000) {
        projection.zoom(factor);
        ++count;
    }
    return count;
}

// The default frustum is about as high as twice its near distance, so the matrices hold the ratio 1 at first, and
// doubles reach to 2^1024 both ways.
TEST(NonFinite, ZoomsByTwoAThousandTimes) {
    EXPECT_NEAR(zoomsBeforeOverflow(2.0), 1024, 2);
    EXPECT_NEAR(zoomsBeforeOverflow(0.5), 1024, 2);
}

TEST(NonFinite, SidesWhoseDifferenceOverflows) {
    EXPECT_FALSE(isFinite(projectionOf({-1e308, 1e308, -1, 1, 1, 3}, true)));
    EXPECT_TRUE(isFinite(projectionOf({-0.8e308, 0.8e308, -1, 1, 1, 3}, true)));
}

// Squares of coordinates beyond 1e154 overflow: the direction becomes zero, not NaN, and what is left is no rotation.
TEST(FiniteButUseless, LookAtOverADistanceWhoseSquareOverflows) {
    View view;
    view.lookAt({0, 0, 0}, {1e155, 0, 0}, {0, 1, 0});
    EXPECT_TRUE(isFinite(view));
    EXPECT_EQ(view.direction(), Vec3{});
}

// So far out the point one unit ahead is the eye itself, and a rotation is ignored.
TEST(FiniteButUseless, RotationOfAnEyeTooFarOutToTellAUnitChangesNothing) {
    const View far({0, 0, 1e17}, {0, 0, 0}, {0, 1, 0});
    View view = far;
    view.rotateAboutWorldAxis({0, 0, 0}, {0, 1, 0}, 0.5, 0.0);
    EXPECT_TRUE(isFinite(view));
    EXPECT_NE(view.direction(), (Vec3{-std::sin(0.5), 0, -std::cos(0.5)}));
}

} // namespace
} // namespace qel::api::camera::test
