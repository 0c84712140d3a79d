// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <type_traits>

#include "impl/Surface.h"
#include "math/Pipeline.h"
#include "tests/impl/CameraTesting.h"

namespace qel::api::camera::test {
namespace {

using impl::Surface;
using math::Mat4;
using math::Viewport;

static_assert(std::has_virtual_destructor_v<Surface>);
static_assert(std::is_nothrow_move_constructible_v<Surface> && std::is_nothrow_move_assignable_v<Surface>);
static_assert(std::is_nothrow_copy_constructible_v<Surface> && std::is_nothrow_copy_assignable_v<Surface>);
static_assert(!std::is_convertible_v<Viewport, Surface> && !std::is_convertible_v<std::uint32_t, Surface>);

const Viewport part{0.25, 0.25, 0.25, 0.5, 0.25, 0.75};

TEST(Surface, CoversAll640By480PixelsAtFirst) {
    const Surface surface;
    EXPECT_EQ(surface.viewport(), (Viewport{0, 0, 1, 1, 0, 1}));
    EXPECT_EQ(surface.resolutionX(), 640U);
    EXPECT_EQ(surface.resolutionY(), 480U);
    EXPECT_EQ(surface.matrix(), rows4({{{320, 0, 0, 320}, {0, 240, 0, 240}, {0, 0, 0.5, 0.5}, {0, 0, 0, 1}}}));
    EXPECT_EQ(surface.inverse(), rows4({{{2.0 / 640, 0, 0, -1}, {0, 2.0 / 480, 0, -1}, {0, 0, 2, -1}, {0, 0, 0, 1}}}));
}

TEST(Surface, UpdateTakesViewportAndResolution) {
    Surface surface;
    surface.update(part, 800, 600);
    EXPECT_EQ(surface.viewport(), part);
    EXPECT_EQ(surface.resolutionX(), 800U);
    EXPECT_EQ(surface.resolutionY(), 600U);
    EXPECT_EQ(surface.matrix(), math::makeViewport(part, 800, 600));
    EXPECT_EQ(surface.inverse(), math::makeViewportInverse(part, 800, 600));
}

TEST(Surface, UpdateRejectsWhatIsOutOfRange) {
    const double above = justAbove(1.0);
    for (const auto& [x, y, width, height] :
         {std::array{-5e-324, 0.0, 1.0, 1.0}, std::array{above, 0.0, 1.0, 1.0}, std::array{0.0, -5e-324, 1.0, 1.0},
          std::array{0.0, above, 1.0, 1.0}, std::array{0.0, 0.0, 1e-7, 1.0}, std::array{0.0, 0.0, -1.0, 1.0},
          std::array{0.0, 0.0, 1.0, 1e-7}, std::array{0.0, 0.0, 1.0, -1.0}}) {
        EXPECT_TRUE(same(surfaceOf({x, y, width, height, 0, 1}, 800, 600), Surface())) << x << ' ' << y;
    }
}

TEST(Surface, RejectsAResolutionOfZero) {
    EXPECT_TRUE(unchanged(Surface(), [](Surface& surface) { surface.update(part, 0, 600); }));
    EXPECT_TRUE(unchanged(Surface(), [](Surface& surface) { surface.update(part, 800, 0); }));
    EXPECT_TRUE(unchanged(Surface(), [](Surface& surface) { surface.setResolution(0, 600); }));
    EXPECT_TRUE(unchanged(Surface(), [](Surface& surface) { surface.setResolution(800, 0); }));
    EXPECT_TRUE(unchanged(Surface(), [](Surface& surface) { surface.setResolutionX(0); }));
    EXPECT_TRUE(unchanged(Surface(), [](Surface& surface) { surface.setResolutionY(0); }));
}

TEST(Surface, UpdateTakesTheBoundsThemselvesAndDoesNotCheckWhetherTheViewportFits) {
    const double least = justAbove(1e-7);
    for (const Viewport& viewport : {Viewport{0, 0, least, least, 0, 1}, Viewport{1, 1, 5, 6, 0, 1}}) {
        EXPECT_EQ(surfaceOf(viewport, 1, 1).viewport(), viewport);
    }
}

TEST(Surface, UpdateTakesAnyDepthsAndHasInfinitiesInTheInverseForEqualOnes) {
    EXPECT_EQ(surfaceOf({0, 0, 1, 1, 7, -3}, 640, 480).matrix()(2, 2), -5.0);
    EXPECT_EQ(surfaceOf({0, 0, 1, 1, 7, -3}, 640, 480).matrix()(2, 3), 2.0);
    EXPECT_EQ(surfaceOf({0, 0, 1, 1, 0.5, 0.5}, 640, 480).inverse()(2, 2), infinity);
    EXPECT_EQ(surfaceOf({0, 0, 1, 1, 0.5, 0.5}, 640, 480).inverse()(2, 3), -infinity);
}

TEST(Surface, UpdateTakesNaNForAnyValue) {
    for (std::size_t i = 0; i < 6; ++i) {
        std::array<double, 6> values{0.25, 0.25, 0.25, 0.5, 0.25, 0.75};
        values[i] = nan;
        Surface surface;
        surface.update({values[0], values[1], values[2], values[3], values[4], values[5]}, 800, 600);
        EXPECT_EQ(surface.resolutionX(), 800U) << i;
        const auto& [x, y, w, h, depthMin, depthMax] = surface.viewport();
        EXPECT_TRUE(std::isnan(std::array{x, y, w, h, depthMin, depthMax}[i])) << i;
    }
}

TEST(Surface, SetResolutionRebuildsTheMatrices) {
    Surface surface;
    surface.setResolutionX(1280);
    EXPECT_EQ(surface.matrix()(0, 0), 640.0);
    EXPECT_TRUE(same(surface, surfaceOf({}, 1280, 480)));
    surface.setResolutionY(960);
    EXPECT_TRUE(same(surface, surfaceOf({}, 1280, 960)));
}

// Saved cameras depend on it: the matrices follow with the next update or change of the resolution.
TEST(Surface, SetViewportLeavesTheMatricesAsTheyAreUntilTheNextChangeOfTheResolution) {
    Surface surface;
    surface.setViewport(part);
    EXPECT_TRUE(same(surface, forged<Surface>(part, Surface().matrix(), Surface().inverse(), 640U, 480U)));
    surface.setResolutionX(640);
    EXPECT_TRUE(same(surface, surfaceOf(part, 640, 480)));
}

TEST(Surface, SetViewportChecksNothing) {
    Surface surface;
    surface.setViewport({-5, 7, 0, -1, nan, infinity});
    EXPECT_EQ(surface.viewport().x, -5.0);
    EXPECT_EQ(surface.viewport().height, -1.0);
    EXPECT_TRUE(std::isnan(surface.viewport().depthMin));
    surface.setResolutionX(640);
    EXPECT_EQ(surface.inverse()(0, 0), infinity) << "of no width";
}

} // namespace
} // namespace qel::api::camera::test
