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

TEST(FitProperties, AllEightCornersAreInsideTheFrustum) {
    forRandomCameras(21000, [&](const RandomCamera& random, Random& numbers) {
        const Box box = randomBox(numbers, random.scale);
        PlanarCamera camera = random.camera;
        camera.fitWorldSpaceBoundingBox(box);
        for (const Vec3& corner : cornersOf(box)) {
            const Seen place = seen(camera, corner);
            EXPECT_LE(std::abs(place.deviceX), 1.0 + rounding);
            EXPECT_LE(std::abs(place.deviceY), 1.0 + rounding);
            EXPECT_LE(std::abs(place.deviceZ), 1.0 + rounding);
        }
    });
}

// In perspective the face of the view's box that is nearest to the eye touches; the corners of a turned box need not
// reach it.
TEST(FitProperties, InOrthographicACornerTouchesTheFrustum) {
    int checked = 0;
    forRandomCameras(22000, [&](const RandomCamera& random, Random& numbers) {
        if (!random.camera.projection().isOrthographic()) {
            return;
        }
        ++checked;
        const Box box = randomBox(numbers, random.scale);
        PlanarCamera camera = random.camera;
        camera.fitWorldSpaceBoundingBox(box);
        double furthest = 0.0;
        for (const Vec3& corner : cornersOf(box)) {
            const Seen place = seen(camera, corner);
            furthest = std::max({furthest, std::abs(place.deviceX), std::abs(place.deviceY)});
        }
        EXPECT_NEAR(furthest, 1.0, rounding);
    });
    EXPECT_GT(checked, 100);
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
        for (const Vec3& corner : cornersOf(box)) {
            EXPECT_NEAR(seen(twice, corner).pixelX, seen(once, corner).pixelX, pixelTolerance);
            EXPECT_NEAR(seen(twice, corner).pixelY, seen(once, corner).pixelY, pixelTolerance);
            EXPECT_NEAR(seen(twice, corner).depth, seen(once, corner).depth, rounding);
        }
    });
}

TEST(FitProperties, TheCentreOfTheBoxIsInTheMiddleOfTheWindow) {
    forRandomCameras(25000, [&](const RandomCamera& random, Random& numbers) {
        const Box box = randomBox(numbers, random.scale);
        PlanarCamera camera = random.camera;
        camera.fitWorldSpaceBoundingBox(box);
        const Seen place = seen(camera, (box.first + box.second) * 0.5);
        EXPECT_NEAR(place.deviceX, 0.0, rounding);
        EXPECT_NEAR(place.deviceY, 0.0, rounding);
    });
}

TEST(FitProperties, TheAspectRatioStays) {
    forRandomCameras(26000, [&](const RandomCamera& random, Random& numbers) {
        PlanarCamera camera = random.camera;
        camera.fitWorldSpaceBoundingBox(randomBox(numbers, random.scale));
        EXPECT_NEAR(camera.projection().aspectRatio() / random.camera.projection().aspectRatio(), 1.0, 16 * epsilon);
        EXPECT_EQ(camera.projection().type(), random.camera.projection().type());
        EXPECT_TRUE(same(camera.surface(), random.camera.surface()));
    });
}

TEST(FitProperties, AlongWithTheSizeOfTheWorldEverythingGrows) {
    // A thousand and 24 times is exact in every step that has no tolerance.
    Random numbers(27000);
    for (int n = 0; n < 50; ++n) {
        const Box box = randomBox(numbers, 1.0);
        PlanarCamera small = cameraOf({{0, 0, 5}, {0, 0, 0}, {0, 1, 0}}, projectionOf({-1, 1, -1, 1, 1, 9}, n % 2 == 0),
                                      impl::Surface());
        PlanarCamera large = cameraOf({{0, 0, 5 * 1024.0}, {0, 0, 0}, {0, 1, 0}},
                                      projectionOf({-1, 1, -1, 1, 1, 9}, n % 2 == 0), impl::Surface());
        small.fitWorldSpaceBoundingBox(box);
        large.fitWorldSpaceBoundingBox({box.first * 1024.0, box.second * 1024.0});
        EXPECT_EQ(large.view().eye(), small.view().eye() * 1024.0);
        EXPECT_EQ(large.projection().frustum().right, small.projection().frustum().right * 1024.0);
        EXPECT_EQ(large.projection().frustum().farDist, small.projection().frustum().farDist * 1024.0);
    }
}

} // namespace
} // namespace qel::api::camera::test
