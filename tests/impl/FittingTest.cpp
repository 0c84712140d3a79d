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
using math::Vec3;

constexpr bool bothTypes[] = {false, true};

/// Stands at the origin and looks along -z, so that world and view coordinates agree.
PlanarCamera atOrigin(double aspect, bool orthographic) {
    return cameraOf(impl::View(), projectionOf({-aspect, aspect, -1, 1, 1, 100}, orthographic), impl::Surface());
}

const double root2 = std::sqrt(2.0);
/// The cotangent of an eighth of pi, by another identity: 1 + sqrt(2).
const double cotangent = 1.0 + root2;
/// From where the diagonal 2 sqrt(2) of a square of 2 by 2 fills 45 degrees.
const double squareDistance = root2 * cotangent;
const Box square{{-1, -1, -5}, {1, 1, -5}};

TEST(Fit, OfAFlatSquareInOrthographicHasItsExtents) {
    PlanarCamera camera = atOrigin(1.0, true);
    camera.fitViewSpaceBoundingBox(square);
    EXPECT_TRUE(near(camera.projection().frustum(), Frustum{-1, 1, -1, 1, squareDistance, squareDistance + 2 * root2},
                     16 * epsilon));
    EXPECT_TRUE(camera.projection().isOrthographic());
}

TEST(Fit, OfAFlatSquareInPerspectiveProjectsItsFrontOnNear) {
    PlanarCamera camera = atOrigin(1.0, false);
    camera.fitViewSpaceBoundingBox(square);
    const double half = squareDistance / (root2 + squareDistance);
    EXPECT_TRUE(near(camera.projection().frustum(),
                     Frustum{-half, half, -half, half, squareDistance, squareDistance + 2 * root2}, 16 * epsilon));
    EXPECT_FALSE(camera.projection().isOrthographic());
}

TEST(Fit, PutsTheCentreOnTheAxisHalfADiagonalBeyondNear) {
    for (const bool orthographic : bothTypes) {
        PlanarCamera camera = atOrigin(1.0, orthographic);
        camera.fitViewSpaceBoundingBox({{2, 3, -5}, {4, 5, -5}}); // the square, moved by (3, 4, 0)
        EXPECT_TRUE(near(camera.view().eye(), {3, 4, -5 + root2 + squareDistance}, 16 * epsilon));
        EXPECT_TRUE(near(camera.view().worldToViewPoint({3, 4, -5}), {0, 0, -root2 - squareDistance}, 16 * epsilon));
    }
}

TEST(Fit, OfADeepBoxCountsItsDepthForTheDistanceOfItsFront) {
    // 6 by 2 by 3: diagonal 7, across sqrt(40). The front face is half the depth before the centre.
    PlanarCamera camera = atOrigin(3.0, false);
    camera.fitViewSpaceBoundingBox({{-3, -1, -8}, {3, 1, -5}});
    const double distance = std::sqrt(40.0) / 2.0 * cotangent;
    const double scale = distance / (3.5 + distance - 1.5);
    EXPECT_TRUE(near(camera.projection().frustum(),
                     Frustum{-3 * scale, 3 * scale, -scale, scale, distance, distance + 7}, 64 * epsilon));
}

TEST(Fit, OfAWideBoxWidensTheHeightToTheAspectRatio) {
    PlanarCamera camera = atOrigin(2.0, true);
    camera.fitViewSpaceBoundingBox({{-6, -1, -5}, {6, 1, -5}});
    EXPECT_EQ(camera.projection().frustum().top, 3.0);
    EXPECT_EQ(camera.projection().frustum().right, 6.0);
}

TEST(Fit, OfATallBoxWidensTheWidthToTheAspectRatio) {
    PlanarCamera camera = atOrigin(2.0, true);
    camera.fitViewSpaceBoundingBox({{-1, -6, -5}, {1, 6, -5}});
    EXPECT_EQ(camera.projection().frustum().right, 12.0);
    EXPECT_EQ(camera.projection().frustum().top, 6.0);
}

TEST(Fit, InAPortraitWindowFillsItsWidth) {
    PlanarCamera camera = atOrigin(0.5, true);
    camera.fitViewSpaceBoundingBox(square);
    EXPECT_EQ(camera.projection().frustum().right, 1.0);
    EXPECT_EQ(camera.projection().frustum().top, 2.0);
}

TEST(Fit, CentresAnOffCentreFrustumAndKeepsItsAspectRatio) {
    PlanarCamera camera = cameraOf(impl::View(), projectionOf({1, 5, 2, 4, 1, 100}, true), impl::Surface());
    camera.fitViewSpaceBoundingBox(square);
    EXPECT_EQ(camera.projection().frustum().left, -2.0);
    EXPECT_EQ(camera.projection().frustum().right, 2.0);
    EXPECT_EQ(camera.projection().frustum().bottom, -1.0);
}

TEST(Fit, KeepsRotationAndSurface) {
    PlanarCamera camera = someCamera(false);
    camera.fitWorldSpaceBoundingBox({{-1, 2, -3}, {4, 5, 6}});
    EXPECT_EQ(camera.view().rotation(), someCamera(false).view().rotation());
    EXPECT_TRUE(same(camera.surface(), someCamera(false).surface()));
    EXPECT_TRUE(consistent(camera.view()));
}

TEST(Fit, OfAWorldBoxTakesItsExtentsInTheView) {
    // From +x with z up: the world's y is to the right, z up, and x towards the eye.
    PlanarCamera camera =
        cameraOf({{50, 0, 0}, {0, 0, 0}, {0, 0, 1}}, projectionOf({-1, 1, -1, 1, 1, 100}, true), impl::Surface());
    camera.fitWorldSpaceBoundingBox({{-1, -2, -3}, {1, 2, 3}});
    EXPECT_EQ(camera.projection().frustum().top, 3.0);
    const double distance = std::sqrt(52.0) / 2.0 * cotangent;
    EXPECT_TRUE(near(camera.view().eye(), {std::sqrt(56.0) / 2.0 + distance, 0, 0}, 64 * epsilon));
}

TEST(Fit, TakesTheCornersOfAWorldBoxInAnyOrder) {
    PlanarCamera expected = someCamera(true);
    expected.fitWorldSpaceBoundingBox({{-1, 2, -3}, {4, 5, 6}});
    for (const Box& box : {Box{{4, 5, 6}, {-1, 2, -3}}, Box{{-1, 5, 6}, {4, 2, -3}}, Box{{4, 2, 6}, {-1, 5, -3}}}) {
        PlanarCamera camera = someCamera(true);
        camera.fitWorldSpaceBoundingBox(box);
        EXPECT_TRUE(same(camera, expected));
    }
}

TEST(Fit, OfIdenticalCornersChangesNothing) {
    PlanarCamera camera = someCamera(false);
    camera.fitWorldSpaceBoundingBox({{1, 2, 3}, {1, 2, 3}});
    camera.fitViewSpaceBoundingBox({{1, 2, -3}, {1, 2, -3}});
    EXPECT_TRUE(same(camera, someCamera(false)));
}

TEST(Fit, OfABoxUpToTheToleranceChangesNothing) {
    PlanarCamera camera = someCamera(false);
    camera.fitWorldSpaceBoundingBox({{0, 0, 0}, {0, 1e-7, 0}});
    camera.fitViewSpaceBoundingBox({{0, 0, 0}, {1e-7, 0, 0}});
    EXPECT_TRUE(same(camera, someCamera(false)));
}

TEST(Fit, OfABoxBeyondTheToleranceFits) {
    PlanarCamera camera = atOrigin(1.0, true);
    camera.fitViewSpaceBoundingBox({{0, 0, 0}, {1.001e-7, 0, 0}});
    EXPECT_DOUBLE_EQ(camera.projection().frustum().right, 1.001e-7 / 2);
}

// A box that is a line along the view has no extent across it: the near distance would be 0, so the frustum stays.
TEST(Fit, OfALineAlongTheViewMovesTheEyeAndKeepsTheFrustum) {
    PlanarCamera camera = atOrigin(1.0, false);
    camera.fitViewSpaceBoundingBox({{3, 4, -9}, {3, 4, -7}});
    EXPECT_TRUE(same(camera.projection(), atOrigin(1.0, false).projection()));
    EXPECT_EQ(camera.view().eye(), (Vec3{3, 4, -7})); // at the front of the line: centre -8, half of it 1
}

TEST(Fit, OfABoxThatIsInPlaceMovesNothing) {
    // Where the fit itself puts it: what offset remains is rounding, which is no more than the tolerance.
    PlanarCamera camera = atOrigin(1.0, true);
    camera.fitViewSpaceBoundingBox(square);
    const impl::View before = camera.view();
    camera.fitViewSpaceBoundingBox({{-1, -1, -root2 - squareDistance}, {1, 1, -root2 - squareDistance}});
    EXPECT_TRUE(same(camera.view(), before));
}

TEST(Fit, OfAViewBoxTurnedInsideOutKeepsTheFrustum) {
    PlanarCamera camera = atOrigin(1.0, true);
    camera.fitViewSpaceBoundingBox({{1, 1, -5}, {-1, -1, -5}});
    EXPECT_TRUE(same(camera.projection(), atOrigin(1.0, true).projection()));
    EXPECT_TRUE(near(camera.view().eye(), {0, 0, -5 + root2 + squareDistance}, 16 * epsilon)); // but the eye moved
}

TEST(Fit, OfAViewBoxWithNaNDoesNotMoveTheView) {
    PlanarCamera camera = atOrigin(1.0, true);
    camera.fitViewSpaceBoundingBox({{-1, nan, -5}, {1, 1, -5}});
    EXPECT_TRUE(same(camera.view(), impl::View()));
    EXPECT_TRUE(std::isnan(camera.projection().frustum().top));
    EXPECT_TRUE(std::isnan(camera.projection().frustum().nearDist));
}

TEST(Fit, OfAWorldBoxPassesOverCornersOfNaN) {
    // Every corner with x = NaN has NaN in all view coordinates, as each row sums over x: the other four remain.
    PlanarCamera camera = atOrigin(1.0, true);
    camera.fitWorldSpaceBoundingBox({{0, -1, -7}, {nan, 1, -5}});
    PlanarCamera expected = atOrigin(1.0, true);
    expected.fitViewSpaceBoundingBox({{0, -1, -7}, {0, 1, -5}});
    EXPECT_TRUE(same(camera, expected));
}

TEST(Fit, OfAWorldBoxOfNothingButNaNUsesTheStartingValues) {
    // No corner counts, so the view box stays turned inside out between plus and minus the largest float.
    constexpr double largest = 3.4028234663852886e38;
    PlanarCamera camera = atOrigin(1.0, true);
    camera.fitWorldSpaceBoundingBox({{nan, nan, nan}, {nan, nan, nan}});
    PlanarCamera expected = atOrigin(1.0, true);
    expected.fitViewSpaceBoundingBox({{largest, largest, largest}, {-largest, -largest, -largest}});
    EXPECT_TRUE(same(camera, expected));
    EXPECT_GT(camera.view().eye().z, 1e38);
}

} // namespace
} // namespace qel::api::camera::test
