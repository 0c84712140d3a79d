// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "impl/PlanarCamera.h"
#include "impl/SpaceTransforms.h"
#include "tests/impl/RandomCameras.h"

namespace qel::api::camera::test {
namespace {

using impl::Box;
using impl::PlanarCamera;
using math::Frustum;
using math::Vec3;

/// Somewhere in the world, its corners in any order, a tenth of the world's size at least in each direction.
Box randomBox(Random& random, double scale) {
    const Vec3 corner = random.vector(scale);
    const auto side = [&] { return (random.below(2) == 0 ? -1.0 : 1.0) * scale * random.magnitude(0.1, 2.0); };
    const double x = side();
    const double y = side();
    return {corner, corner + Vec3{x, y, side()}};
}

std::array<Vec3, 8> cornersOf(const Box& box) {
    std::array<Vec3, 8> corners;
    for (std::size_t i = 0; i < 8; ++i) {
        corners[i] = {(i & 1U) != 0 ? box.second.x : box.first.x, (i & 2U) != 0 ? box.second.y : box.first.y,
                      (i & 4U) != 0 ? box.second.z : box.first.z};
    }
    return corners;
}

/// In device coordinates, where the frustum is 2 wide: coordinates of a few sizes of the world, rounded a few times,
/// beside extents of a tenth of it.
constexpr double rounding = 1e-12;

// In orthographic a corner touches. In perspective the face of the view's box that is nearest to the eye does; the
// corners of a turned box need not reach it.
TEST(FitProperties, AllEightCornersAreInsideTheFrustumAroundItsMiddle) {
    forRandomCameras(21000, [&](const RandomCamera& random, Random& numbers) {
        const Box box = randomBox(numbers, random.scale);
        PlanarCamera camera = random.camera;
        camera.fitWorldSpaceBoundingBox(box);
        double furthest = 0.0;
        for (const Vec3& corner : cornersOf(box)) {
            const Seen place = seen(camera, corner);
            furthest = std::max({furthest, std::abs(place.deviceX), std::abs(place.deviceY)});
            EXPECT_LE(std::abs(place.deviceZ), 1.0 + rounding);
        }
        EXPECT_LE(furthest, 1.0 + rounding);
        EXPECT_GE(furthest, camera.projection().isOrthographic() ? 1.0 - rounding : 0.0);
        const Seen middle = seen(camera, (box.first + box.second) * 0.5);
        EXPECT_NEAR(middle.deviceX, 0.0, rounding);
        EXPECT_NEAR(middle.deviceY, 0.0, rounding);
        EXPECT_NEAR(camera.projection().aspectRatio() / random.camera.projection().aspectRatio(), 1.0, 16 * epsilon);
        EXPECT_EQ(camera.projection().isOrthographic(), random.camera.projection().isOrthographic());
        EXPECT_EQ(camera.view().rotation(), random.camera.view().rotation());
        EXPECT_TRUE(consistent(camera.view()));
        EXPECT_TRUE(same(camera.surface(), random.camera.surface()));
    });
}

TEST(FitProperties, TheFrontFaceOfAViewBoxTouchesTheFrustumInBothTypes) {
    forRandomCameras(23000, [&](const RandomCamera& random, Random& numbers) {
        const Vec3 low = numbers.vector(random.scale);
        const double x = numbers.magnitude(0.1, 2.0);
        const double y = numbers.magnitude(0.1, 2.0);
        const Vec3 high = low + Vec3{x, y, numbers.magnitude(0.1, 2.0)} * random.scale;
        PlanarCamera camera = random.camera;
        camera.fitViewSpaceBoundingBox({low, high});
        // The box was given in the view as it was before.
        const Seen corner = seen(camera, viewPointToWorld(random.camera, high));
        EXPECT_NEAR(std::max(corner.deviceX, corner.deviceY), 1.0, rounding);
        const Seen opposite = seen(camera, viewPointToWorld(random.camera, {low.x, low.y, high.z}));
        EXPECT_NEAR(std::min(opposite.deviceX, opposite.deviceY), -1.0, rounding);
    });
}

TEST(FitProperties, ASecondFitShowsTheSame) {
    forRandomCameras(24000, [&](const RandomCamera& random, Random& numbers) {
        const Box box = randomBox(numbers, random.scale);
        PlanarCamera once = random.camera;
        once.fitWorldSpaceBoundingBox(box);
        PlanarCamera twice = once;
        twice.fitWorldSpaceBoundingBox(box);
        const double size = 100 * steps * epsilon * random.scale;
        EXPECT_TRUE(near(twice.view().eye(), once.view().eye(), size));
        EXPECT_EQ(twice.view().rotation(), once.view().rotation());
        EXPECT_TRUE(near(twice.projection().frustum(), once.projection().frustum(), size));
    });
}

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
        EXPECT_TRUE(same(camera.view(), random.camera.view()));
        EXPECT_TRUE(same(camera.surface(), random.camera.surface()));
        camera.switchProjectionType(box);
        EXPECT_EQ(camera.projection().isOrthographic(), random.camera.projection().isOrthographic());
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
