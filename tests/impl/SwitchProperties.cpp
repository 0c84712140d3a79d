// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>

#include "impl/PlanarCamera.h"
#include "tests/impl/RandomCameras.h"

namespace qel::api::camera::test {
namespace {

using impl::Box;
using impl::PlanarCamera;
using math::Frustum;
using math::Vec3;

/// Around what the camera looks at, so that its centre is ahead of the eye.
Box boxAhead(Random& random, const RandomCamera& camera) {
    const Vec3 half{random.between(0.05, 1.0), random.between(0.05, 1.0), random.between(0.05, 1.0)};
    const Vec3 centre = camera.target + random.vector(0.3 * camera.scale);
    return {centre - half * camera.scale, centre + half * camera.scale};
}

TEST(SwitchProperties, TwiceReturnsTheFrustum) {
    forRandomCameras(31000, [&](const RandomCamera& random, Random& numbers) {
        const Box box = boxAhead(numbers, random);
        PlanarCamera camera = random.camera;
        camera.switchProjectionType(box);
        ASSERT_NE(camera.projection().isOrthographic(), random.camera.projection().isOrthographic());
        camera.switchProjectionType(box);
        EXPECT_EQ(camera.projection().type(), random.camera.projection().type());
        const Frustum& frustum = random.camera.projection().frustum();
        const double size =
            std::abs(frustum.left) + std::abs(frustum.right) + std::abs(frustum.bottom) + std::abs(frustum.top);
        EXPECT_TRUE(near(camera.projection().frustum(), frustum, 8 * epsilon * size));
        EXPECT_EQ(camera.projection().frustum().nearDist, frustum.nearDist);
        EXPECT_EQ(camera.projection().frustum().farDist, frustum.farDist);
    });
}

// Not only the size but the place: off-centre sides are scaled with the rest.
TEST(SwitchProperties, WhatIsAtTheDepthOfTheBoxCentreStaysOnItsPixels) {
    int toOrthographic = 0;
    forRandomCameras(32000, [&](const RandomCamera& random, Random& numbers) {
        const Box box = boxAhead(numbers, random);
        const Vec3 centre = (box.first + box.second) * 0.5;
        PlanarCamera camera = random.camera;
        camera.switchProjectionType(box);
        toOrthographic += camera.projection().isOrthographic() ? 1 : 0;
        for (int mark = 0; mark < 3; ++mark) {
            const Vec3 place = centre + random.camera.view().xAxis() * (random.scale * numbers.between(-1, 1)) +
                               random.camera.view().yAxis() * (random.scale * numbers.between(-1, 1));
            EXPECT_NEAR(seen(camera, place).pixelX, seen(random.camera, place).pixelX, pixelTolerance);
            EXPECT_NEAR(seen(camera, place).pixelY, seen(random.camera, place).pixelY, pixelTolerance);
        }
    });
    EXPECT_EQ(toOrthographic, 144) << "half of the cameras";
}

TEST(SwitchProperties, MovesNothing) {
    forRandomCameras(33000, [&](const RandomCamera& random, Random& numbers) {
        PlanarCamera camera = random.camera;
        camera.switchProjectionType(boxAhead(numbers, random));
        EXPECT_TRUE(same(camera.view(), random.camera.view()));
        EXPECT_TRUE(same(camera.surface(), random.camera.surface()));
    });
}

// The zoom of an orthographic camera is in its frustum, which the switch carries over: nothing else remembers it.
TEST(SwitchProperties, AZoomInOrthographicIsKeptInPerspective) {
    forRandomCameras(34000, [&](const RandomCamera& random, Random& numbers) {
        const Box box = boxAhead(numbers, random);
        PlanarCamera zoomedBefore = random.camera;
        impl::Projection projection = zoomedBefore.projection();
        projection.zoom(0.5);
        zoomedBefore.setProjection(blobOf(projection));
        zoomedBefore.switchProjectionType(box);
        PlanarCamera zoomedAfter = random.camera;
        zoomedAfter.switchProjectionType(box);
        projection = zoomedAfter.projection();
        projection.zoom(0.5);
        zoomedAfter.setProjection(blobOf(projection));
        const Frustum& frustum = zoomedAfter.projection().frustum();
        const double size =
            std::abs(frustum.left) + std::abs(frustum.right) + std::abs(frustum.bottom) + std::abs(frustum.top);
        EXPECT_TRUE(near(zoomedBefore.projection().frustum(), frustum, 16 * epsilon * size));
    });
}

} // namespace
} // namespace qel::api::camera::test
