// SPDX-License-Identifier: Apache-2.0
#include <optional>

#include <gtest/gtest.h>

#include "tests/host/NavigatorFixture.h"

namespace qel::host::test {
namespace {

class NavigatorHistoryTest : public NavigatorFixture {
protected:
    using State = Navigator::State;

    State zoomed(Pixel at, double turns) {
        navigator.zoom(at, turns);
        return navigator.camera();
    }
    /// A drag from somewhere to elsewhere that goes on.
    State dragged(Drag kind = Drag::pan) {
        navigator.beginDrag(kind, somewhere);
        navigator.drag(elsewhere);
        return navigator.camera();
    }
    const State& undone() {
        navigator.undo();
        return navigator.camera();
    }
    const State& redone() {
        navigator.redo();
        return navigator.camera();
    }
};

TEST_F(NavigatorHistoryTest, ZoomingOnAtAPixelIsOneStepOfTheHistory) {
    zoomed(somewhere, 1.0);
    zoomed(somewhere, 1.0);
    const State second = zoomed(somewhere, -3.0);
    zoomed(elsewhere, 1.0);
    EXPECT_TRUE(undone() == second);
    EXPECT_TRUE(undone() == first);
    EXPECT_TRUE(redone() == second);
}

TEST_F(NavigatorHistoryTest, ZoomingAfterSomethingElseIsAStepOfItsOwn) {
    zoomed(somewhere, 1.0);
    navigator.look({0, 0, -1}, {0, 1, 0});
    const State looked = navigator.camera();
    const State second = zoomed(somewhere, 1.0);
    EXPECT_TRUE(undone() == looked);
    navigator.redo();
    zoomed(somewhere, 1.0);
    EXPECT_TRUE(undone() == second);
}

TEST_F(NavigatorHistoryTest, ZoomingDuringADragIsNoPartOfAZoomBefore) {
    const State before = zoomed(somewhere, 1.0);
    dragged();
    zoomed(somewhere, 1.0);
    EXPECT_TRUE(undone() == before);
}

TEST_F(NavigatorHistoryTest, UndoAndRedoGiveTheSameBits) {
    drag(Drag::rotate, somewhere, elsewhere);
    const State second = navigator.camera();
    const State third = zoomed(elsewhere, 1.0);
    EXPECT_TRUE(undone() == second);
    EXPECT_TRUE(undone() == first);
    EXPECT_TRUE(undone() == first) << "there is nothing before";
    navigator.redo();
    EXPECT_TRUE(redone() == third);
    EXPECT_TRUE(redone() == third) << "there is nothing after";
}

TEST_F(NavigatorHistoryTest, WhatIsDoneAfterAnUndoReplacesWhatWasUndone) {
    zoomed(somewhere, 1.0);
    navigator.undo();
    const State last = zoomed(elsewhere, -1.0);
    navigator.undo();
    EXPECT_TRUE(redone() == last);
    EXPECT_TRUE(redone() == last);
}

TEST_F(NavigatorHistoryTest, UndoKeepsTheWindowsSizeAndTheScaleOfThen) {
    const Vec2 before = sight().extentOfPixel();
    zoomed(somewhere, 1.0);
    navigator.resize(1000, 450);
    EXPECT_EQ(undone().mSurfaceState.mResolutionX, 1000);
    EXPECT_NEAR(sight().extentOfPixel().x, before.x, 1e-15);
    EXPECT_NEAR(sight().extentOfPixel().y, before.y, 1e-15);
}

TEST_F(NavigatorHistoryTest, WhateverElseIsDoneEndsADragWhereItIs) {
    dragged();
    const Vec3 point = sight().pointAtDepth(place(elsewhere), depth);
    const State after = zoomed(elsewhere, 1.0);
    EXPECT_EQ(navigator.dragged(), std::nullopt);
    navigator.drag(somewhere);
    navigator.endDrag(somewhere);
    EXPECT_TRUE(navigator.camera() == after);
    expectSeenAt(point, elsewhere);
    EXPECT_TRUE(undone() == first);
}

TEST_F(NavigatorHistoryTest, UndoDuringADragTakesBackThatDragAlone) {
    drag(Drag::rotate, somewhere, elsewhere);
    const State before = navigator.camera();
    const State after = dragged();
    EXPECT_TRUE(undone() == before);
    EXPECT_EQ(navigator.dragged(), std::nullopt);
    navigator.drag(somewhere);
    navigator.endDrag(somewhere);
    EXPECT_TRUE(navigator.camera() == before);
    EXPECT_TRUE(redone() == after);
}

TEST_F(NavigatorHistoryTest, UndoDuringADragThatChangedNothingEndsIt) {
    drag(Drag::rotate, somewhere, elsewhere);
    const State before = navigator.camera();
    for (const Drag kind : {Drag::area, Drag::pan}) {
        navigator.beginDrag(kind, somewhere);
        EXPECT_TRUE(undone() == before);
        EXPECT_EQ(navigator.dragged(), std::nullopt);
    }
}

TEST_F(NavigatorHistoryTest, RedoDuringADragKeepsWhatWasDragged) {
    zoomed(somewhere, 1.0);
    navigator.undo();
    const State after = dragged();
    EXPECT_TRUE(redone() == after);
    EXPECT_EQ(navigator.dragged(), std::nullopt);
    EXPECT_TRUE(undone() == first);
}

TEST_F(NavigatorHistoryTest, ResizingDuringADragKeepsWhatWasDragged) {
    dragged(Drag::rotate);
    const Vec3 direction = sight().direction();
    navigator.resize(1000, 450);
    EXPECT_EQ(navigator.dragged(), std::nullopt);
    EXPECT_NEAR(length(sight().direction() - direction), 0.0, 1e-12);
    EXPECT_NEAR(length(Sight(undone()).direction() - Sight(first).direction()), 0.0, 1e-12);
}

} // namespace
} // namespace qel::host::test
