// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>

#include "impl/PlanarCamera.h"
#include "impl/SpaceTransforms.h"
#include "math/Tolerances.h"
#include "tests/impl/RandomCameras.h"

// The world point under the pixel stays under it. Every camera of these classes obeys, with one limit: the
// view ignores a translation of at most 1e-7, so a drag or a zoom that moves the eye by less leaves the
// view as it is, and the point moves by at most 1e-7 world units. In a world of a thousandth that is a few pixels on
// the near plane. The tests look at both sides of the limit, and see to it that both occur.

namespace qel::api::camera::test {
namespace {

using impl::PlanarCamera;
using impl::ScreenPoint;
using math::Vec3;

struct Counts {
    int moved = 0;
    int kept = 0;
};

/// After an operation that should have shown the world point at the given place.
void expectSeenAt(const PlanarCamera& before, const PlanarCamera& after, const Vec3& point, const ScreenPoint& place,
                  Counts& counts) {
    if (same(after.view(), before.view())) {
        ++counts.kept;
        // The offset was at most the tolerance: so far is the point from the one that is now at the place.
        EXPECT_LE(length(screenToWorld(after, place) - point), 1.001 * math::tolerance);
        return;
    }
    ++counts.moved;
    const Seen now = seen(after, point);
    EXPECT_NEAR(now.pixelX, place.x, pixelTolerance);
    EXPECT_NEAR(now.pixelY, place.y, pixelTolerance);
    EXPECT_NEAR(now.depth, place.depth, 1e-10);
    EXPECT_EQ(worldToScreen(after, point).x, place.x);
    EXPECT_EQ(worldToScreen(after, point).y, place.y);
}

TEST(AnchorProperties, ZoomWithAScreenAnchorKeepsTheWorldPointUnderThePixel) {
    Counts counts;
    forRandomCameras(1000, [&](const RandomCamera& random, Random& numbers) {
        const ScreenPoint anchor = randomScreenPoint(numbers, random.camera);
        const Vec3 point = screenToWorld(random.camera, anchor);
        PlanarCamera camera = random.camera;
        camera.zoomWithAnchor(anchor, numbers.magnitude(0.1, 10.0));
        expectSeenAt(random.camera, camera, point, anchor, counts);
    });
    EXPECT_GT(counts.moved, 200);
    EXPECT_GT(counts.kept, 0);
}

TEST(AnchorProperties, PanKeepsTheWorldPointUnderTheMovedPixel) {
    Counts counts;
    forRandomCameras(2000, [&](const RandomCamera& random, Random& numbers) {
        const ScreenPoint from = randomScreenPoint(numbers, random.camera);
        const std::int32_t longest = numbers.below(2) == 0 ? 200 : 2; // a drag, or one step of it
        const auto dx = static_cast<std::int32_t>(numbers.below(static_cast<std::uint32_t>(2 * longest + 1))) - longest;
        const auto dy = static_cast<std::int32_t>(numbers.below(static_cast<std::uint32_t>(2 * longest + 1))) - longest;
        const Vec3 point = screenToWorld(random.camera, from);
        PlanarCamera camera = random.camera;
        camera.panWithAnchor(from, dx, dy);
        expectSeenAt(random.camera, camera, point, {from.x + dx, from.y + dy, from.depth}, counts);
    });
    EXPECT_GT(counts.moved, 200);
    EXPECT_GT(counts.kept, 0);
}

// A world anchor is snapped to a whole pixel on purpose: that pixel stays. The point itself keeps its pixel where it
// is in the middle of one; elsewhere its distance from the middle, up to half a pixel, grows as everything does.
TEST(AnchorProperties, ZoomWithAWorldAnchorKeepsTheNearestPixelAndScalesTheRestOfAPixel) {
    Counts counts;
    forRandomCameras(6000, [&](const RandomCamera& random, Random& numbers) {
        const Vec3 anchor = random.target + numbers.vector(0.5 * random.scale);
        const Seen before = seen(random.camera, anchor);
        const Vec3 pixel = worldToScreen(random.camera, anchor);
        ASSERT_LE(std::abs(before.pixelX - pixel.x), 0.5 + pixelTolerance);
        const double factor = numbers.magnitude(0.1, 10.0);
        PlanarCamera camera = random.camera;
        camera.zoomWithAnchor(anchor, factor);
        if (same(camera.view(), random.camera.view())) {
            ++counts.kept;
            return;
        }
        ++counts.moved;
        const Seen now = seen(camera, anchor);
        EXPECT_NEAR(now.pixelX, pixel.x + (before.pixelX - pixel.x) / factor, 10 * pixelTolerance);
        EXPECT_NEAR(now.pixelY, pixel.y + (before.pixelY - pixel.y) / factor, 10 * pixelTolerance);
        EXPECT_NEAR(now.depth, before.depth, 1e-10);
    });
    EXPECT_GT(counts.moved, 250);
    EXPECT_LT(counts.kept, 20);
}

TEST(AnchorProperties, AnchorsTurnNothingAndKeepTheDepths) {
    forRandomCameras(7000, [&](const RandomCamera& random, Random& numbers) {
        const ScreenPoint anchor = randomScreenPoint(numbers, random.camera);
        PlanarCamera camera = random.camera;
        camera.zoomWithAnchor(anchor, 0.7);
        camera.panWithAnchor(anchor, 20, 30);
        EXPECT_EQ(camera.view().rotation(), random.camera.view().rotation());
        EXPECT_EQ(camera.projection().frustum().nearDist, random.camera.projection().frustum().nearDist);
        EXPECT_EQ(camera.projection().frustum().farDist, random.camera.projection().frustum().farDist);
        // The eye moves only sideways: along the view by rounding alone.
        const Vec3 moved = camera.view().eye() - random.camera.view().eye();
        EXPECT_NEAR(dot(moved, camera.view().direction()), 0.0, 1000 * epsilon * random.scale);
    });
}

} // namespace
} // namespace qel::api::camera::test
