// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <array>
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

TEST(Fit, OfAFlatSquareHasItsExtentsInOrthographicAndProjectsItOnNearInPerspective) {
    for (const bool orthographic : bothTypes) {
        PlanarCamera camera = atOrigin(1.0, orthographic);
        camera.fitViewSpaceBoundingBox(square);
        const double half = orthographic ? 1.0 : squareDistance / (root2 + squareDistance);
        EXPECT_TRUE(near(camera.projection().frustum(),
                         Frustum{-half, half, -half, half, squareDistance, squareDistance + 2 * root2}, 16 * epsilon));
        EXPECT_EQ(camera.projection().isOrthographic(), orthographic);
    }
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

TEST(Fit, WidensTheOtherDirectionToTheAspectRatioAndCentresTheFrustum) {
    const auto fitted = [](const Frustum& frustum, const Box& box) {
        PlanarCamera camera = cameraOf(impl::View(), projectionOf(frustum, true), impl::Surface());
        camera.fitViewSpaceBoundingBox(box);
        const auto& [l, r, b, t, n, f] = camera.projection().frustum();
        return std::array{l, r, b, t};
    };
    const Frustum wide{-2, 2, -1, 1, 1, 100};
    EXPECT_EQ(fitted(wide, {{-6, -1, -5}, {6, 1, -5}}), (std::array{-6.0, 6.0, -3.0, 3.0}));
    EXPECT_EQ(fitted(wide, {{-1, -6, -5}, {1, 6, -5}}), (std::array{-12.0, 12.0, -6.0, 6.0}));
    EXPECT_EQ(fitted({-1, 1, -2, 2, 1, 100}, square), (std::array{-1.0, 1.0, -2.0, 2.0})) << "a portrait window";
    EXPECT_EQ(fitted({1, 5, 2, 4, 1, 100}, square), (std::array{-2.0, 2.0, -1.0, 1.0})) << "off-centre before";
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

TEST(Fit, OfABoxUpToTheToleranceChangesNothing) {
    const Vec3 corner{1, 2, 3};
    for (const double length : {0.0, 0.9e-7}) {
        const Box box{corner, corner + Vec3{0, length, 0}};
        EXPECT_TRUE(unchanged(someCamera(false), [&](PlanarCamera& camera) { camera.fitWorldSpaceBoundingBox(box); }));
        EXPECT_TRUE(unchanged(someCamera(false), [&](PlanarCamera& camera) { camera.fitViewSpaceBoundingBox(box); }));
    }
    PlanarCamera camera = atOrigin(1.0, true);
    camera.fitViewSpaceBoundingBox({{0, 0, 0}, {1e-7, 0, 0}});
    EXPECT_TRUE(same(camera, atOrigin(1.0, true)));
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

const Frustum offCentre{-1, 3, -2, 6, 2, 10};

PlanarCamera atOrigin(bool orthographic) {
    return cameraOf(impl::View(), projectionOf(offCentre, orthographic), impl::Surface());
}

PlanarCamera switched(PlanarCamera camera, const Box& box) {
    camera.switchProjectionType(box);
    return camera;
}

/// Its centre at the given depth, positive ahead of the eye.
Box centredAt(double depth) { return {{0, 0, -depth + 1}, {1, 1, -depth - 1}}; }

TEST(SwitchProjection, KeepsTheHeightAtTheCentreOfTheBox) {
    // Four times as far as near, so four times as large.
    EXPECT_TRUE(
        same(switched(atOrigin(false), centredAt(8.0)).projection(), projectionOf({-4, 12, -8, 24, 2, 10}, true)));
    EXPECT_TRUE(same(switched(atOrigin(true), centredAt(8.0)).projection(),
                     projectionOf({-0.25, 0.75, -0.5, 1.5, 2, 10}, false)));
}

TEST(SwitchProjection, TakesTheMiddleOfTheViewBoxNotOfTheCorners) {
    // Seen from +x, the corners' x are the depths; the eye is at 10.
    PlanarCamera camera = cameraOf({{10, 0, 0}, {0, 0, 0}, {0, 0, 1}}, projectionOf(offCentre, false), impl::Surface());
    camera.switchProjectionType({{1, 7, 9}, {3, 8, 8}});
    EXPECT_DOUBLE_EQ(camera.projection().frustum().right, 3.0 * 8.0 / 2.0);
}

TEST(SwitchProjection, OfACentreBehindTheEyeChangesNothingUpToNearAndKeepsTheSidesBeyond) {
    for (const bool orthographic : bothTypes) {
        EXPECT_TRUE(same(switched(atOrigin(orthographic), centredAt(-3.0)).projection(),
                         projectionOf(offCentre, !orthographic)));
        for (const double depth : {-2.0, -1.0, -1e-9, 0.0}) {
            EXPECT_TRUE(same(switched(atOrigin(orthographic), centredAt(depth)), atOrigin(orthographic))) << depth;
        }
    }
}

TEST(SwitchProjection, OfACentreJustAheadOfTheEyeSwitches) {
    const PlanarCamera camera = switched(atOrigin(false), {{0, 0, -1e-5}, {1, 1, -1e-5}});
    EXPECT_TRUE(camera.projection().isOrthographic());
    EXPECT_DOUBLE_EQ(camera.projection().frustum().right, 3.0 * 1e-5 / 2.0);
}

TEST(SwitchProjection, OfABoxUpToTheToleranceChangesNothing) {
    EXPECT_TRUE(same(switched(atOrigin(false), {{1, 2, -8}, {1, 2, -8}}), atOrigin(false)));
    EXPECT_TRUE(same(switched(atOrigin(false), {{0, 0, -8}, {1e-7, 0, -8}}), atOrigin(false)));
    EXPECT_TRUE(switched(atOrigin(false), {{0, 0, -8}, {1.001e-7, 0, -8}}).projection().isOrthographic());
}

TEST(SwitchProjection, OfABoxOfNothingButNaNUsesTheStartingValues) {
    // No corner counts; the middle between plus and minus the largest float is 0, which is in the plane of the eye.
    EXPECT_TRUE(same(switched(atOrigin(false), {{nan, nan, nan}, {nan, nan, nan}}), atOrigin(false)));
}

TEST(SwitchProjection, CountsAForgedTypeAsPerspectiveAndSettlesIt) {
    const PlanarCamera forged = cameraOf(impl::View(), forgedProjection(7, offCentre), impl::Surface());
    EXPECT_TRUE(same(switched(forged, centredAt(8.0)), switched(atOrigin(false), centredAt(8.0))));
}

} // namespace
} // namespace qel::api::camera::test
