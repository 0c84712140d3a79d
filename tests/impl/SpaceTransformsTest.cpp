// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>

#include "impl/PlanarCamera.h"
#include "impl/SpaceTransforms.h"
#include "tests/impl/CameraTesting.h"

namespace qel::api::camera::test {
namespace {

using namespace impl;
using math::Mat4;
using math::Vec3;

/// Perspective from the origin, near 1 and far 3, one to one at the near plane.
PlanarCamera unitPerspective() { return cameraOf(View(), projectionOf({-1, 1, -1, 1, 1, 3}, false), Surface()); }

TEST(ScreenToView, IsThePlainProductInOrthographicByTheViewportsMatrix) {
    const Projection projection = projectionOf({-1, 3, -2, 6, 2, 10}, true);
    const PlanarCamera whole = cameraOf(View(), projection, Surface());
    EXPECT_EQ(screenToView(whole, {320, 240, 0.5}), (Vec3{1, 2, -6}));
    EXPECT_EQ(screenToView(whole, {0, 0, 0.0}), (Vec3{-1, -2, -2}));
    EXPECT_EQ(screenToView(whole, {640, 480, 1.0}), (Vec3{3, 6, -10}));
    // The right half: its centre is at 480, and 640 is its right edge.
    const PlanarCamera half = cameraOf(View(), projection, surfaceOf({0.5, 0, 0.5, 1, 0, 1}, 640, 480));
    EXPECT_EQ(screenToView(half, {480, 240, 0.5}), (Vec3{1, 2, -6}));
    EXPECT_EQ(screenToView(half, {640, 480, 1.0}), (Vec3{3, 6, -10}));
}

TEST(ScreenToView, SpreadsWithTheDepthInPerspective) {
    const PlanarCamera camera = unitPerspective();
    EXPECT_TRUE(near(screenToView(camera, {320, 240, 0.0}), {0, 0, -1}, 8 * epsilon));
    EXPECT_TRUE(near(screenToView(camera, {640, 480, 0.0}), {1, 1, -1}, 8 * epsilon));
    EXPECT_TRUE(near(screenToView(camera, {640, 0, 1.0}), {3, -3, -3}, 32 * epsilon));
}

TEST(ScreenToView, TakesNegativePixelsAndDepthsOutOfRange) {
    EXPECT_TRUE(near(screenToView(unitPerspective(), {-320, -240, 0.0}), {-2, -2, -1}, 8 * epsilon));
    EXPECT_EQ(screenToView(pixelCamera(), {-2147483647 - 1, 2147483647, 0.0}), (Vec3{-2147483648.0, 2147483647, -1}));
    EXPECT_EQ(screenToView(pixelCamera(), {0, 0, 2.0}).z, -5.0);
    EXPECT_EQ(screenToView(pixelCamera(), {0, 0, -1.0}).z, 1.0);
}

TEST(ScreenToView, DoesNotGuardADepthWithoutADistance) {
    // Depth 1.5 is 2 in device coordinates, which is what infinity projects to for near 1 and far 3.
    const Vec3 v = screenToView(unitPerspective(), {0, 0, 1.5});
    EXPECT_FALSE(std::isfinite(v.x));
    EXPECT_FALSE(std::isfinite(v.z));
}

TEST(ScreenToView, DoesNotGuardAMatrixWithoutPerspective) {
    // The matrix given has no w, so 0 / 0 stands for infinity's depth.
    Projection projection;
    projection.setProjectionMatrix(rows4({{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 0, 1}, {0, 0, 0, 1}}}), false);
    EXPECT_TRUE(isNaN(screenToView(cameraOf(View(), projection, Surface()), {0, 0, 0.5})));
}

TEST(ScreenToView, OfADepthOfNaNIsNaN) { EXPECT_TRUE(isNaN(screenToView(unitPerspective(), {0, 0, nan}))); }

TEST(ScreenToView, CountsAForgedTypeAsPerspective) {
    const math::Frustum frustum{-1, 1, -1, 1, 1, 3};
    const auto forgedPerspective = forged<Projection>(math::makeFrustum(frustum), math::makeFrustumInverse(frustum),
                                                      Projection::Block::Type{7}, frustum);
    EXPECT_EQ(screenToView(cameraOf(View(), forgedPerspective, Surface()), {10, 20, 0.3}),
              screenToView(unitPerspective(), {10, 20, 0.3}));
}

TEST(ViewToScreen, RoundsHalvesAwayFromZero) {
    const PlanarCamera camera = pixelCamera();
    EXPECT_EQ(viewToScreen(camera, {10.5, 11.5, -1}), (Vec3{11, 12, 0}));
    EXPECT_EQ(viewToScreen(camera, {-10.5, -11.5, -1}), (Vec3{-11, -12, 0}));
    EXPECT_EQ(viewToScreen(camera, {10.49, -10.49, -1}), (Vec3{10, -10, 0}));
}

TEST(ViewToScreen, DoesNotRoundTheDepth) {
    EXPECT_EQ(viewToScreen(pixelCamera(), {0, 0, -1.25}).z, 0.125);
    EXPECT_EQ(viewToScreen(pixelCamera(), {0, 0, -5}).z, 2.0);
}

TEST(ViewToScreen, NeverGivesMinusZero) {
    for (const double position : {-0.25, -0.49, -0.0}) {
        const Vec3 s = viewToScreen(pixelCamera(), {position, position, -1});
        EXPECT_EQ(s.x, 0.0);
        EXPECT_FALSE(std::signbit(s.x)) << position;
        EXPECT_FALSE(std::signbit(s.y)) << position;
    }
}

TEST(ViewToScreen, DividesByTheDistanceInPerspective) {
    EXPECT_TRUE(near(viewToScreen(unitPerspective(), {1, -1, -2}), {480, 120, 0.75}, 8 * epsilon));
}

TEST(ViewToScreen, DoesNotDivideInOrthographic) {
    // A w of 2 made by the last row would halve everything.
    Projection projection;
    projection.setProjectionMatrix(rows4({{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 2}}}), true);
    EXPECT_EQ(viewToScreen(cameraOf(View(), projection, surfaceOf({}, 512, 512)), {0.5, 0, 0}).x, 0.5 * 256 + 2 * 256);
}

TEST(ViewToScreen, PassesHugeValuesInfinityAndNaNOn) {
    EXPECT_EQ(viewToScreen(pixelCamera(), {1e300, -1e300, -1}).x, 1e300);
    EXPECT_EQ(viewToScreen(pixelCamera(), {1e300, -1e300, -1}).y, -1e300);
    EXPECT_EQ(viewToScreen(pixelCamera(), {5e9, 0, -1}).x, 5e9);
    // No zero of the matrices is left out of the products, so one infinity makes NaN of what the others give.
    EXPECT_TRUE(isNaN(viewToScreen(pixelCamera(), {nan, 0, -1})));
    EXPECT_FALSE(std::isfinite(viewToScreen(pixelCamera(), {infinity, 0, -1}).x));
}

TEST(ViewToScreen, DoesNotGuardThePlaneOfTheEye) {
    EXPECT_FALSE(std::isfinite(viewToScreen(unitPerspective(), {1, 1, 0}).x));
    EXPECT_FALSE(std::isfinite(viewToScreen(unitPerspective(), {1, 1, 0}).y));
    EXPECT_TRUE(std::isnan(viewToScreen(unitPerspective(), {0, 0, 0}).x));
}

TEST(ViewToScreen, MirrorsWhatIsBehindTheEye) {
    // w is -2, which turns both signs; z in device coordinates is (-2 * 2 - 3) / -2 = 3.5.
    EXPECT_TRUE(near(viewToScreen(unitPerspective(), {-1, 1, 2}), {480, 120, 2.25}, 8 * epsilon));
}

TEST(WorldToScreen, GoesThroughTheViewMatrix) {
    const PlanarCamera camera = squareCamera(); // five ahead of the origin, a right angle wide on 512 pixels
    EXPECT_EQ(worldToScreen(camera, {0, 0, 0}).x, 256.0);
    EXPECT_EQ(worldToScreen(camera, {2.5, 5, 0}).x, 384.0);
    EXPECT_EQ(worldToScreen(camera, {2.5, 5, 0}).y, 512.0);
    // A distance of 5 between near 1 and far 9: (10 / 8 - 18 / 8 / 5 + 1) / 2.
    EXPECT_NEAR(worldToScreen(camera, {0, 0, 0}).z, 0.9, 8 * epsilon);
}

/// Its matrices say one thing, rotation and eye another.
View contradicting() {
    Mat4 matrix;
    setTranslation(matrix, {100, 200, 300});
    return forged<View>(matrix, matrix, rows3({{{0, -1, 0}, {1, 0, 0}, {0, 0, 1}}}), Vec3{1, 2, 3});
}

TEST(ViewToWorld, TakesRotationAndEyeNotAMatrix) {
    const PlanarCamera camera = cameraOf(contradicting(), Projection(), Surface());
    EXPECT_EQ(viewPointToWorld(camera, {10, 20, 30}), (Vec3{-19, 12, 33}));
    EXPECT_EQ(viewVectorToWorld(camera, {10, 20, 30}), (Vec3{-20, 10, 30}));
}

TEST(WorldToScreen, TakesTheMatrixNotRotationAndEye) {
    const PlanarCamera camera = cameraOf(contradicting(), pixelCamera().projection(), pixelCamera().surface());
    EXPECT_EQ(worldToScreen(camera, {10, 20, 30}), viewToScreen(camera, {110, 220, 330}));
}

TEST(ScreenVector, IsTheFirstPointMinusTheSecond) {
    EXPECT_EQ(screenVectorToView(pixelCamera(), {30, 50, 1.0}, {10, 20, 0.0}), (Vec3{20, 30, -2}));
    EXPECT_EQ(screenVectorToView(pixelCamera(), {10, 20, 0.0}, {30, 50, 1.0}), (Vec3{-20, -30, 2}));
}

} // namespace
} // namespace qel::api::camera::test
