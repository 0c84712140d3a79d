// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <stdexcept>

#include <gtest/gtest.h>

#include "host/render/WindowContext.h"
#include "host/state/StateFile.h"
#include "tests/host/NavigatorFixture.h"
#include "tests/host/TemporaryFolder.h"

namespace qel::host::test {
namespace {

class NavigatorTest : public NavigatorFixture {
protected:
    void expectModelWithinClippingPlanes() const {
        for (std::size_t i = 0; i < 8; ++i) {
            const double ahead = sight().distanceAhead(model.corner(i));
            EXPECT_GT(ahead, navigator.camera().mProjectionState.mFrustum.mNearDist);
            EXPECT_LT(ahead, navigator.camera().mProjectionState.mFrustum.mFarDist);
        }
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
    void expectAreaFills(Pixel from, Pixel to) {
        const auto before = navigator.camera();
        const double left = std::min(from.x, to.x);
        const double right = std::max(from.x, to.x);
        const double height = (from.y + to.y) / 2.0;
        navigator.beginDrag(Drag::area, from);
        navigator.endDrag(to);
        const auto seen = [&](double x) { return sight().pixelOf(Sight(before).pointAtDepth({x, height}, depth)); };
        EXPECT_NEAR(seen(left).x, 0.0, 1.0);
        EXPECT_NEAR(seen(right).x, 800.0, 1.0);
        EXPECT_NEAR(seen((left + right) / 2.0).x, 400.0, 1.0);
        EXPECT_NEAR(seen((left + right) / 2.0).y, 300.0, 1.0);
    }
};

TEST(PixelUnder, CountsPixelsFromTheLowerLeftAndGoesOnOutside) {
    EXPECT_EQ(pixelUnder(0.0, 0.0, 1.0, 600), (Pixel{0, 599}));
    EXPECT_EQ(pixelUnder(799.9, 599.9, 1.0, 600), (Pixel{799, 0}));
    EXPECT_EQ(pixelUnder(10.6, 20.4, 2.0, 1200), (Pixel{21, 1200 - 1 - 40}));
    EXPECT_EQ(pixelUnder(-0.5, 0.0, 1.0, 600).x, -1);
}

TEST_F(NavigatorTest, SeesTheWholeModelAtFirst) {
    for (std::size_t i = 0; i < 8; ++i) {
        const Vec2 corner = sight().pixelOf(model.corner(i));
        EXPECT_GE(corner.x, 0.0);
        EXPECT_LE(corner.x, 800.0);
        EXPECT_GE(corner.y, 0.0);
        EXPECT_LE(corner.y, 600.0);
    }
    expectModelWithinClippingPlanes();
}

TEST_F(NavigatorTest, PanByTheBackgroundGoesByTheDepthOfTheModelsCentre) {
    depth = 1.0;
    expectSeenAt(model.centre(), {400, 300});
    drag(Drag::pan, somewhere, elsewhere);
    expectSeenAt(model.centre(), {400 + elsewhere.x - somewhere.x, 300 + elsewhere.y - somewhere.y});
}

TEST_F(NavigatorTest, RotateByTheBackgroundTurnsAboutTheModelsCentre) {
    depth = 1.0;
    const double distance = length(sight().eye() - model.centre());
    drag(Drag::rotate, somewhere, elsewhere);
    expectSeenAt(model.centre(), {400, 300});
    EXPECT_NEAR(length(sight().eye() - model.centre()), distance, 1e-9);
}

TEST_F(NavigatorTest, WhatHasNothingToChangeChangesNothing) {
    navigator.drag(elsewhere); // without a beginning
    EXPECT_TRUE(navigator.camera() == first);
    drag(Drag::area, somewhere, somewhere);
    EXPECT_TRUE(navigator.camera() == first);
    navigator.resize(0, 0); // an icon
    EXPECT_TRUE(navigator.camera() == first);
    navigator.resize(800, 600);
    EXPECT_TRUE(navigator.camera() == first);
    EXPECT_THROW(navigator.restore({}), std::runtime_error);
    EXPECT_TRUE(navigator.camera() == first);
}

TEST_F(NavigatorTest, ADragThatComesBackChangesNothing) {
    for (const Drag kind : {Drag::rotate, Drag::pan}) {
        navigator.beginDrag(kind, somewhere);
        navigator.drag(elsewhere);
        EXPECT_FALSE(navigator.camera() == first);
        navigator.drag(somewhere);
        navigator.endDrag(somewhere);
        EXPECT_TRUE(navigator.camera() == first);
    }
}

TEST_F(NavigatorTest, ZoomingOutStopsAtAViewOf120Degrees) {
    const Vec3 point = sight().pointAtDepth(place(somewhere), depth);
    for (int i = 0; i < 60; ++i) {
        navigator.zoom(somewhere, -1.0);
    }
    EXPECT_NEAR(fieldOfView(), 120.0, 1e-9);
    expectSeenAt(point, somewhere);
    const auto widest = navigator.camera();
    navigator.zoom(elsewhere, -1.0);
    EXPECT_TRUE(navigator.camera() == widest);
}

TEST_F(NavigatorTest, ZoomingOutAtOnceStopsAtAViewOf120DegreesToo) {
    navigator.resize(600, 800); // the larger one is the vertical field of view now
    navigator.zoom(somewhere, -1000.0);
    EXPECT_NEAR(fieldOfView(), 120.0, 1e-9);
    navigator.zoom(somewhere, 1.0);
    EXPECT_LT(fieldOfView(), 119.0);
}

TEST_F(NavigatorTest, AViewWiderThan120DegreesZoomsInAlone) {
    navigator.zoom(somewhere, -1000.0);
    navigator.resize(1600, 600);
    const double wide = fieldOfView();
    EXPECT_GT(wide, 121.0);
    navigator.zoom(somewhere, -1.0);
    EXPECT_NEAR(fieldOfView(), wide, 1e-9);
    navigator.zoom(somewhere, 1.0);
    EXPECT_LT(fieldOfView(), wide - 1.0);
}

TEST_F(NavigatorTest, AnOrthographicProjectionZoomsOutWithoutEnd) {
    navigator.switchProjection();
    const double extent = sight().extentOfPixel().x;
    navigator.zoom(somewhere, -100.0);
    EXPECT_NEAR(sight().extentOfPixel().x / (extent * std::pow(0.9, -100.0)), 1.0, 1e-9);
}

TEST_F(NavigatorTest, AreaFillsTheWindow) {
    // 200 by 150 pixels are of the window's shape.
    const Vec3 lowerLeft = sight().pointAtDepth({300, 200}, depth);
    const Vec3 upperRight = sight().pointAtDepth({500, 350}, depth);
    navigator.beginDrag(Drag::area, {500, 200});
    navigator.drag({300, 350});
    EXPECT_EQ(navigator.dragged(), Drag::area);
    EXPECT_EQ(navigator.from().x, 500);
    navigator.endDrag({300, 350});
    EXPECT_EQ(navigator.dragged(), std::nullopt);
    EXPECT_EQ(asked, (Pixel{400, 275}));
    expectSeenAt(lowerLeft, {0, 0});
    expectSeenAt(upperRight, {800, 600});
}

TEST_F(NavigatorTest, AreaOfTheBackgroundCentresTheSpaceAboutTheModel) {
    depth = 1.0;
    const Vec3 middle = sight().pointAhead({600, 500}, sight().distanceAhead(model.centre()));
    drag(Drag::area, {500, 450}, {700, 550});
    expectSeenAt(middle, {400, 300});
}

TEST_F(NavigatorTest, AreaFillsTheWindowInAStronglyZoomedCamera) {
    navigator.zoom(somewhere, 80.0); // 4600 times as large
    ASSERT_LT(sight().extentOfPixel().x * 81, 0.001);
    expectAreaFills({300, 200}, {381, 251});
    expectAreaFills({381, 251}, {300, 200});
    navigator.switchProjection();
    ASSERT_LT(sight().extentOfPixel().x * 81, 0.001);
    expectAreaFills({300, 251}, {381, 200});
}

TEST_F(NavigatorTest, LooksAlongAnAxisAtTheModelsCentre) {
    drag(Drag::pan, somewhere, elsewhere);
    navigator.look({0, -1, 0}, {0, 0, -1});
    EXPECT_NEAR(length(sight().direction() - Vec3{0, -1, 0}), 0.0, 1e-12);
    EXPECT_NEAR(length(sight().up() - Vec3{0, 0, -1}), 0.0, 1e-12);
    expectSeenAt(model.centre(), {400, 300});
}

TEST_F(NavigatorTest, SwitchesTheProjectionThereAndBack) {
    const Vec3 above = model.centre() + sight().up();
    const Vec2 before = sight().pixelOf(above);
    navigator.switchProjection();
    EXPECT_TRUE(sight().isOrthographic());
    EXPECT_NEAR(sight().pixelOf(above).y, before.y, 1e-6);
    navigator.switchProjection();
    EXPECT_FALSE(sight().isOrthographic());
    EXPECT_NEAR(sight().pixelOf(above).y, before.y, 1e-6);
}

TEST_F(NavigatorTest, EverythingHoldsInAnOrthographicProjectionToo) {
    navigator.switchProjection();
    const Vec3 point = sight().pointAtDepth(place(somewhere), depth);
    navigator.zoom(somewhere, 2.0);
    expectSeenAt(point, somewhere);
    depth = 0.6;
    const Vec3 other = sight().pointAtDepth(place(somewhere), depth);
    drag(Drag::pan, somewhere, elsewhere);
    expectSeenAt(other, elsewhere);
    const Vec3 third = sight().pointAtDepth(place(somewhere), depth);
    drag(Drag::rotate, somewhere, elsewhere);
    expectSeenAt(third, somewhere);
}

TEST_F(NavigatorTest, KeepsTheModelBetweenTheClippingPlanes) {
    for (const Drag kind : {Drag::rotate, Drag::pan, Drag::area, Drag::rotate}) {
        drag(kind, somewhere, elsewhere);
        expectModelWithinClippingPlanes();
    }
}

TEST_F(NavigatorTest, RestoresASavedStateToTheBit) {
    const TemporaryFolder folder;
    drag(Drag::rotate, somewhere, elsewhere);
    const auto saved = navigator.camera();
    writeState(saved, folder / "camera.state");
    navigator.look({0, 0, 1}, {0, 1, 0});
    navigator.restore(readState(folder / "camera.state"));
    EXPECT_TRUE(navigator.camera() == saved);
    navigator.undo();
    EXPECT_NEAR(sight().direction()[2], 1.0, 1e-12);
}

} // namespace
} // namespace qel::host::test
