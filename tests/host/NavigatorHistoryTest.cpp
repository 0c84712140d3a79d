// SPDX-License-Identifier: Apache-2.0
#include <optional>

#include <gtest/gtest.h>

#include "tests/host/NavigatorFixture.h"

namespace qel::host::test {
namespace {

using NavigatorHistoryTest = NavigatorFixture;

TEST_F(NavigatorHistoryTest, ZoomingOnAtAPixelIsOneStepOfTheHistory) {
    const auto first = navigator.camera();
    navigator.zoom(somewhere, 1.0);
    navigator.zoom(somewhere, 1.0);
    navigator.zoom(somewhere, -3.0);
    const auto second = navigator.camera();
    navigator.zoom(elsewhere, 1.0);
    navigator.undo();
    EXPECT_TRUE(navigator.camera() == second);
    navigator.undo();
    EXPECT_TRUE(navigator.camera() == first);
    navigator.redo();
    EXPECT_TRUE(navigator.camera() == second);
}

TEST_F(NavigatorHistoryTest, ZoomingAfterSomethingElseIsAStepOfItsOwn) {
    navigator.zoom(somewhere, 1.0);
    navigator.look({0, 0, -1}, {0, 1, 0});
    const auto looked = navigator.camera();
    navigator.zoom(somewhere, 1.0);
    const auto zoomed = navigator.camera();
    navigator.undo();
    EXPECT_TRUE(navigator.camera() == looked);
    navigator.redo();
    navigator.zoom(somewhere, 1.0);
    navigator.undo();
    EXPECT_TRUE(navigator.camera() == zoomed);
}

TEST_F(NavigatorHistoryTest, ZoomingDuringADragIsNoPartOfAZoomBefore) {
    navigator.zoom(somewhere, 1.0);
    const auto zoomed = navigator.camera();
    navigator.beginDrag(Drag::pan, somewhere);
    navigator.drag(elsewhere);
    navigator.zoom(somewhere, 1.0);
    navigator.undo();
    EXPECT_TRUE(navigator.camera() == zoomed);
}

TEST_F(NavigatorHistoryTest, UndoAndRedoGiveTheSameBits) {
    const auto first = navigator.camera();
    drag(Drag::rotate, somewhere, elsewhere);
    const auto second = navigator.camera();
    navigator.zoom(elsewhere, 1.0);
    const auto third = navigator.camera();

    navigator.undo();
    EXPECT_TRUE(navigator.camera() == second);
    navigator.undo();
    EXPECT_TRUE(navigator.camera() == first);
    navigator.undo();
    EXPECT_TRUE(navigator.camera() == first);
    navigator.redo();
    navigator.redo();
    EXPECT_TRUE(navigator.camera() == third);
    navigator.redo();
    EXPECT_TRUE(navigator.camera() == third);
}

TEST_F(NavigatorHistoryTest, WhatIsDoneAfterAnUndoReplacesWhatWasUndone) {
    navigator.zoom(somewhere, 1.0);
    navigator.undo();
    navigator.zoom(elsewhere, -1.0);
    const auto last = navigator.camera();
    navigator.undo();
    navigator.redo();
    EXPECT_TRUE(navigator.camera() == last);
    navigator.redo();
    EXPECT_TRUE(navigator.camera() == last);
}

TEST_F(NavigatorHistoryTest, UndoKeepsTheWindowsSizeAndTheScaleOfThen) {
    const Vec2 before = sight().extentOfPixel();
    navigator.zoom(somewhere, 1.0);
    navigator.resize(1000, 450);
    navigator.undo();
    EXPECT_EQ(navigator.camera().mSurfaceState.mResolutionX, 1000);
    EXPECT_NEAR(sight().extentOfPixel().x, before.x, 1e-15);
    EXPECT_NEAR(sight().extentOfPixel().y, before.y, 1e-15);
}

TEST_F(NavigatorHistoryTest, WhateverElseIsDoneEndsADragWhereItIs) {
    const auto first = navigator.camera();
    navigator.beginDrag(Drag::pan, somewhere);
    navigator.drag(elsewhere);
    const Vec3 point = sight().pointAtDepth(place(elsewhere), depth);
    navigator.zoom(elsewhere, 1.0);
    EXPECT_EQ(navigator.dragged(), std::nullopt);
    const auto zoomed = navigator.camera();
    navigator.drag(somewhere);
    navigator.endDrag(somewhere);
    EXPECT_TRUE(navigator.camera() == zoomed);
    expectSeenAt(point, elsewhere);
    navigator.undo();
    EXPECT_TRUE(navigator.camera() == first);
}

TEST_F(NavigatorHistoryTest, UndoDuringADragTakesBackThatDragAlone) {
    drag(Drag::rotate, somewhere, elsewhere);
    const auto before = navigator.camera();
    navigator.beginDrag(Drag::pan, somewhere);
    navigator.drag(elsewhere);
    const auto dragged = navigator.camera();
    navigator.undo();
    EXPECT_EQ(navigator.dragged(), std::nullopt);
    EXPECT_TRUE(navigator.camera() == before);
    navigator.drag(somewhere);
    navigator.endDrag(somewhere);
    EXPECT_TRUE(navigator.camera() == before);
    navigator.redo();
    EXPECT_TRUE(navigator.camera() == dragged);
}

TEST_F(NavigatorHistoryTest, UndoDuringADragThatChangedNothingEndsIt) {
    drag(Drag::rotate, somewhere, elsewhere);
    const auto before = navigator.camera();
    for (const Drag kind : {Drag::area, Drag::pan}) {
        navigator.beginDrag(kind, somewhere);
        navigator.undo();
        EXPECT_EQ(navigator.dragged(), std::nullopt);
        EXPECT_TRUE(navigator.camera() == before);
    }
}

TEST_F(NavigatorHistoryTest, RedoDuringADragKeepsWhatWasDragged) {
    const auto first = navigator.camera();
    navigator.zoom(somewhere, 1.0);
    navigator.undo();
    navigator.beginDrag(Drag::pan, somewhere);
    navigator.drag(elsewhere);
    const auto dragged = navigator.camera();
    navigator.redo();
    EXPECT_EQ(navigator.dragged(), std::nullopt);
    EXPECT_TRUE(navigator.camera() == dragged);
    navigator.undo();
    EXPECT_TRUE(navigator.camera() == first);
}

TEST_F(NavigatorHistoryTest, ResizingDuringADragKeepsWhatWasDragged) {
    const auto first = navigator.camera();
    navigator.beginDrag(Drag::rotate, somewhere);
    navigator.drag(elsewhere);
    const Vec3 direction = sight().direction();
    navigator.resize(1000, 450);
    EXPECT_EQ(navigator.dragged(), std::nullopt);
    EXPECT_NEAR(length(sight().direction() - direction), 0.0, 1e-12);
    navigator.undo();
    EXPECT_NEAR(length(sight().direction() - Sight(first).direction()), 0.0, 1e-12);
}

} // namespace
} // namespace qel::host::test
