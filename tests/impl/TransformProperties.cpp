// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "impl/PlanarCamera.h"
#include "impl/SpaceTransforms.h"
#include "tests/impl/RandomCameras.h"

namespace qel::api::camera::test {
namespace {

using namespace impl;
using math::Vec3;

TEST(TransformProperties, ThroughViewAndWorldAPixelReturnsWithinTheWindowAndOutside) {
    forRandomCameras(42000, [&](const RandomCamera& random, Random& numbers) {
        for (int n = 0; n < 10; ++n) {
            ScreenPoint point = randomScreenPoint(numbers, random.camera);
            point.x += n == 0 ? -10000 : 0;
            point.y += n == 0 ? 10000 : 0;
            const Vec3 inView = viewToScreen(random.camera, screenToView(random.camera, point));
            EXPECT_EQ(inView.x, point.x);
            EXPECT_EQ(inView.y, point.y);
            EXPECT_NEAR(inView.z, point.depth, 1e-12);
            const Vec3 world = screenToWorld(random.camera, point);
            const Vec3 back = worldToScreen(random.camera, world);
            EXPECT_EQ(back.x, point.x);
            EXPECT_EQ(back.y, point.y);
            EXPECT_NEAR(back.z, point.depth, 1e-10); // the eye's coordinates are 400 near distances at most
            const Seen secondMethod = seen(random.camera, world);
            EXPECT_NEAR(secondMethod.pixelX, point.x, 10 * pixelTolerance);
            EXPECT_NEAR(secondMethod.pixelY, point.y, 10 * pixelTolerance);
            EXPECT_NEAR(secondMethod.depth, point.depth, 1e-10);
        }
    });
}

// However deep: the error of w at the far plane is in all three coordinates alike and cancels in the division.
TEST(TransformProperties, ThePixelReturnsWithFarABillionTimesNear) {
    Random numbers(43000);
    for (int n = 0; n < 200; ++n) {
        const PlanarCamera camera = cameraOf(
            randomView(numbers, 1.0), projectionOf({-0.3, 0.5, -0.25, 0.4, 1, 1e9}, false), surfaceOf({}, 1920, 1080));
        const ScreenPoint point = randomScreenPoint(numbers, camera);
        const Vec3 back = viewToScreen(camera, screenToView(camera, point));
        EXPECT_EQ(back.x, point.x);
        EXPECT_EQ(back.y, point.y);
    }
}

TEST(TransformProperties, WorldToViewToWorldReturnsThePoint) {
    forRandomCameras(45000, [&](const RandomCamera& random, Random& numbers) {
        const View& view = random.camera.view();
        const Vec3 point = numbers.vector(10 * random.scale);
        const double rounding = 20 * steps * epsilon * random.scale;
        EXPECT_TRUE(near(viewPointToWorld(random.camera, view.worldToViewPoint(point)), point, rounding));
        EXPECT_TRUE(near(view.worldToViewPoint(viewPointToWorld(random.camera, point)), point, rounding));
        EXPECT_TRUE(near(view.viewToWorldPoint(view.worldToViewPoint(point)), point, rounding));
        EXPECT_TRUE(near(viewVectorToWorld(random.camera, view.worldToViewVector(point)), point, rounding));
        EXPECT_TRUE(near(view.viewToWorldVector(view.worldToViewVector(point)), point, rounding));
    });
}

TEST(TransformProperties, VectorsIgnoreTranslation) {
    forRandomCameras(47000, [&](const RandomCamera& random, Random& numbers) {
        const Vec3 vector = numbers.vector(random.scale);
        PlanarCamera movedCamera = random.camera;
        View& moved = movedCamera.view();
        moved.translateInWorldSpace(numbers.vector(100 * random.scale));
        ASSERT_NE(moved.eye(), random.camera.view().eye());
        EXPECT_EQ(moved.worldToViewVector(vector), random.camera.view().worldToViewVector(vector));
        EXPECT_EQ(moved.viewToWorldVector(vector), random.camera.view().viewToWorldVector(vector));
        EXPECT_EQ(viewVectorToWorld(movedCamera, vector), viewVectorToWorld(random.camera, vector));
    });
}

TEST(TransformProperties, AVectorIsTheDifferenceOfItsEnds) {
    forRandomCameras(48000, [&](const RandomCamera& random, Random& numbers) {
        const View& view = random.camera.view();
        const Vec3 from = numbers.vector(random.scale);
        const Vec3 to = numbers.vector(random.scale);
        const double rounding = 10 * steps * epsilon * random.scale;
        EXPECT_TRUE(
            near(view.worldToViewVector(to - from), view.worldToViewPoint(to) - view.worldToViewPoint(from), rounding));
        EXPECT_TRUE(near(viewVectorToWorld(random.camera, to - from),
                         viewPointToWorld(random.camera, to) - viewPointToWorld(random.camera, from), rounding));
    });
}

TEST(TransformProperties, DepthGrowsWithTheDistance) {
    forRandomCameras(50000, [&](const RandomCamera& random, Random& numbers) {
        const auto& frustum = random.camera.projection().frustum();
        const double d1 = numbers.magnitude(frustum.nearDist, frustum.farDist * 0.9);
        const double d2 = d1 * 1.05;
        EXPECT_LT(viewToScreen(random.camera, {0, 0, -d1}).z, viewToScreen(random.camera, {0, 0, -d2}).z);
        const auto& viewport = random.camera.surface().viewport();
        EXPECT_NEAR(viewToScreen(random.camera, {0, 0, -frustum.nearDist}).z, viewport.depthMin, 1e-12);
        EXPECT_NEAR(viewToScreen(random.camera, {0, 0, -frustum.farDist}).z, viewport.depthMax, 1e-12);
    });
}

} // namespace
} // namespace qel::api::camera::test
