// SPDX-License-Identifier: Apache-2.0
#pragma once

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

    double depth = 0.4; // what the depth buffer holds everywhere
    Pixel asked;        // where it was last looked at
    ComponentLoader component{CAMERA_MODULE};
    Navigator navigator{component.camera(), model, 800, 600, [this](const auto&, Pixel at) {
                            asked = at;
                            return depth;
                        }};
    const Navigator::State first = navigator.camera();
};

} // namespace qel::host::test
