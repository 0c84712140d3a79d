// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include <qel/host/ComponentLoader.h>

#include "host/view/Navigator.h"
#include "tests/host/Sight.h"

namespace qel::host::test {

using Drag = Navigator::Drag;

inline const Box model{{-2, -1, 0}, {4, 3, 2}};
inline constexpr Pixel somewhere{431, 377};
inline constexpr Pixel elsewhere{240, 150};

/// A window of 800 by 600 pixels on the model, whose depth buffer holds the same depth everywhere.
class NavigatorFixture : public ::testing::Test {
protected:
    static Vec2 place(Pixel pixel) { return {static_cast<double>(pixel.x), static_cast<double>(pixel.y)}; }
    [[nodiscard]] Sight sight() const { return Sight(navigator.camera()); }

    void expectSeenAt(const Vec3& point, Pixel pixel) const {
        const Vec2 seen = sight().pixelOf(point);
        EXPECT_NEAR(seen.x, pixel.x, 1e-6);
        EXPECT_NEAR(seen.y, pixel.y, 1e-6);
    }
    void drag(Drag kind, Pixel from, Pixel to) {
        navigator.beginDrag(kind, from);
        navigator.drag({(from.x + to.x) / 2, from.y});
        navigator.drag(to);
        navigator.endDrag(to);
    }
    void expectWithinClippingPlanes(const Vec3& point) const {
        const Vec3 offset = point - sight().eye();
        const Vec3 direction = sight().direction();
        const double ahead = offset[0] * direction[0] + offset[1] * direction[1] + offset[2] * direction[2];
        EXPECT_GT(ahead, navigator.camera().mProjectionState.mFrustum.mNearDist);
        EXPECT_LT(ahead, navigator.camera().mProjectionState.mFrustum.mFarDist);
    }

    /// The larger of both fields of view, in degrees.
    [[nodiscard]] double fieldOfView() const {
        const auto& frustum = navigator.camera().mProjectionState.mFrustum;
        const double near = frustum.mNearDist;
        const double across = std::atan(frustum.mRight / near) - std::atan(frustum.mLeft / near);
        const double upwards = std::atan(frustum.mTop / near) - std::atan(frustum.mBottom / near);
        return std::max(across, upwards) * 180.0 / std::numbers::pi;
    }
    /// Draws the rectangle, which is wider than the window's shape, and expects it from the left to the right edge, its
    /// middle in the window's.
    static void expectAreaFills(Navigator& viewer, double depth, Pixel from, Pixel to) {
        const auto before = viewer.camera();
        const double left = std::min(from.x, to.x);
        const double right = std::max(from.x, to.x);
        const double height = (from.y + to.y) / 2.0;
        viewer.beginDrag(Drag::area, from);
        viewer.endDrag(to);
        const auto seen = [&](double x) {
            return Sight(viewer.camera()).pixelOf(Sight(before).pointAtDepth({x, height}, depth));
        };
        EXPECT_NEAR(seen(left).x, 0.0, 1.0);
        EXPECT_NEAR(seen(right).x, 800.0, 1.0);
        EXPECT_NEAR(seen((left + right) / 2.0).x, 400.0, 1.0);
        EXPECT_NEAR(seen((left + right) / 2.0).y, 300.0, 1.0);
    }

    double depth = 0.4; // what the depth buffer holds everywhere
    Pixel asked;        // where it was last looked at
    ComponentLoader component{CAMERA_MODULE};
    Navigator navigator{component.camera(), model, 800, 600, [this](const auto&, Pixel at) {
                            asked = at;
                            return depth;
                        }};
};

} // namespace qel::host::test
