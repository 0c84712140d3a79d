// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "impl/PlanarCamera.h"
#include "impl/SpaceTransforms.h"
#include "math/Tolerances.h"
#include "tests/impl/RandomCameras.h"

// A zoom area's rectangle, shown after the operation at the depth of its nearer corner, lies within the window and
// touches it in one direction: so it is for every rectangle that on the near plane (orthographic: anywhere) is at
// least 0.001 units wide and high, off-centre frusta and viewports that are parts included, since the operation
// centres the frustum. A smaller extent counts as 0.001 units. The rectangle is then shown smaller, in
// the known proportion, and in worlds of a thousandth it may even shrink; that is tested as it is.

namespace qel::api::camera::test {
namespace {

using impl::PlanarCamera;
using impl::ScreenPoint;
using math::Frustum;
using math::Vec3;

struct Rectangle {
    ScreenPoint first;
    ScreenPoint second;

    [[nodiscard]] double nearerDepth() const { return std::min(first.depth, second.depth); }
};

/// At least a tenth of the viewport wide and high unless it is flat.
Rectangle randomRectangle(Random& random, const PlanarCamera& camera) {
    for (;;) {
        const Rectangle rectangle{randomScreenPoint(random, camera), randomScreenPoint(random, camera)};
        const double dx = std::abs(rectangle.first.x - rectangle.second.x);
        const double dy = std::abs(rectangle.first.y - rectangle.second.y);
        if (dx >= 10.0 && dy >= 10.0) {
            return rectangle;
        }
    }
}

/// How large the rectangle is on the near plane: its part of the viewport is its part of the frustum.
struct Extent {
    double width, height;
};

Extent extentOf(const PlanarCamera& camera, const Rectangle& rectangle) {
    const auto& [l, r, b, t, n, f] = camera.projection().frustum();
    const auto& viewport = camera.surface().viewport();
    const double dx = std::abs(rectangle.first.x - rectangle.second.x);
    const double dy = std::abs(rectangle.first.y - rectangle.second.y);
    return {(r - l) * dx / (viewport.width * camera.surface().resolutionX()),
            (t - b) * dy / (viewport.height * camera.surface().resolutionY())};
}

/// The largest device coordinates that the four corners have in a camera, and the smallest.
struct Bounds {
    double lowX = infinity, highX = -infinity, lowY = infinity, highY = -infinity;
};

Bounds boundsAfter(const PlanarCamera& before, const Rectangle& rectangle, const PlanarCamera& after) {
    Bounds bounds;
    for (const std::int32_t x : {rectangle.first.x, rectangle.second.x}) {
        for (const std::int32_t y : {rectangle.first.y, rectangle.second.y}) {
            const Seen corner = seen(after, screenToWorld(before, {x, y, rectangle.nearerDepth()}));
            bounds.lowX = std::min(bounds.lowX, corner.deviceX);
            bounds.highX = std::max(bounds.highX, corner.deviceX);
            bounds.lowY = std::min(bounds.lowY, corner.deviceY);
            bounds.highY = std::max(bounds.highY, corner.deviceY);
        }
    }
    return bounds;
}

/// Rounding in device coordinates, and what an eye that was not moved, as it should have moved by at most 1e-7, makes
/// there: half of the frustum's extents at the nearer depth is 1.
double allowed(const PlanarCamera& before, const Rectangle& rectangle, const PlanarCamera& after) {
    constexpr double rounding = 1e-9;
    if (!same(before.view(), after.view())) {
        return rounding;
    }
    const auto& [l, r, b, t, n, f] = after.projection().frustum();
    const double distance = -screenToView(before, {0, 0, rectangle.nearerDepth()}).z;
    const double toNear = after.projection().isOrthographic() ? 1.0 : n / distance;
    return rounding + 1.001 * math::tolerance * toNear / std::min(r, t);
}

TEST(ZoomAreaProperties, ARectangleOfAThousandthOrMoreFitsTheWindowAndTouchesIt) {
    int checked = 0;
    forRandomCameras(11000, [&](const RandomCamera& random, Random& numbers) {
        const Rectangle rectangle = randomRectangle(numbers, random.camera);
        const auto [width, height] = extentOf(random.camera, rectangle);
        if (width < 0.001 || height < 0.001) {
            return;
        }
        ++checked;
        PlanarCamera camera = random.camera;
        camera.zoomArea(rectangle.first, rectangle.second);
        const Bounds bounds = boundsAfter(random.camera, rectangle, camera);
        const double tolerance = allowed(random.camera, rectangle, camera);
        EXPECT_NEAR(bounds.lowX, -bounds.highX, tolerance) << "centred";
        EXPECT_NEAR(bounds.lowY, -bounds.highY, tolerance) << "centred";
        EXPECT_NEAR(std::max(bounds.highX, bounds.highY), 1.0, tolerance) << "fits, and touches";
    });
    EXPECT_GT(checked, 150);
}

TEST(ZoomAreaProperties, ASmallerRectangleIsShownInProportionToAThousandth) {
    int checked = 0;
    int shrunk = 0;
    forRandomCameras(12000, [&](const RandomCamera& random, Random& numbers) {
        const Rectangle rectangle = randomRectangle(numbers, random.camera);
        const auto [width, height] = extentOf(random.camera, rectangle);
        if (width >= 0.001 && height >= 0.001) {
            return;
        }
        ++checked;
        PlanarCamera camera = random.camera;
        camera.zoomArea(rectangle.first, rectangle.second);
        const double aspect = random.camera.projection().aspectRatio();
        const double raisedWidth = std::max(width, 0.001);
        const double raisedHeight = std::max(height, 0.001);
        const double windowHeight = std::max(raisedHeight, raisedWidth / aspect);
        const Bounds bounds = boundsAfter(random.camera, rectangle, camera);
        const double tolerance = allowed(random.camera, rectangle, camera);
        EXPECT_NEAR(bounds.highX, width / (windowHeight * aspect), tolerance);
        EXPECT_NEAR(bounds.highY, height / windowHeight, tolerance);
        EXPECT_NEAR(bounds.lowX, -bounds.highX, 2 * tolerance);
        EXPECT_NEAR(bounds.lowY, -bounds.highY, 2 * tolerance);
        EXPECT_LE(std::max(bounds.highX, bounds.highY), 1.0 + tolerance) << "fits all the same";
        const Frustum& frustum = random.camera.projection().frustum();
        shrunk += windowHeight > frustum.top - frustum.bottom ? 1 : 0;
    });
    EXPECT_GT(checked, 50);
    EXPECT_GT(shrunk, 20) << "worlds of a thousandth are shown smaller than before";
}

TEST(ZoomAreaProperties, TheAspectRatioTheDepthsAndTheDistanceStay) {
    forRandomCameras(13000, [&](const RandomCamera& random, Random& numbers) {
        const Rectangle rectangle = randomRectangle(numbers, random.camera);
        PlanarCamera camera = random.camera;
        camera.zoomArea(rectangle.first, rectangle.second);
        const Frustum& frustum = camera.projection().frustum();
        EXPECT_NEAR(camera.projection().aspectRatio() / random.camera.projection().aspectRatio(), 1.0, 16 * epsilon);
        EXPECT_EQ(frustum.nearDist, random.camera.projection().frustum().nearDist);
        EXPECT_EQ(frustum.farDist, random.camera.projection().frustum().farDist);
        EXPECT_EQ(camera.projection().isOrthographic(), random.camera.projection().isOrthographic());
        EXPECT_EQ(camera.view().rotation(), random.camera.view().rotation());
        const Vec3 moved = camera.view().eye() - random.camera.view().eye();
        EXPECT_NEAR(dot(moved, camera.view().direction()), 0.0, 1000 * epsilon * random.scale);
    });
}

} // namespace
} // namespace qel::api::camera::test
