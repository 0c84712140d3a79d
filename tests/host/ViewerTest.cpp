// SPDX-License-Identifier: Apache-2.0
// Runs the program's viewer in a window, as a person does, and asks it for its camera by the key that saves it.
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/render/OffscreenContext.h"
#include "host/render/Renderer.h"
#include "host/state/StateFile.h"
#include "host/view/Viewer.h"
#include "tests/host/Desktop.h"
#include "tests/host/RunProgram.h"
#include "tests/host/SeenPicture.h"
#include "tests/host/Sight.h"

namespace qel::host::test {
namespace {

using api::camera::PlanarCameraState;
using ::testing::EndsWith;
using ::testing::HasSubstr;

const std::string teapotFile = CAMERA_MODELS "/teapot.obj";

const Mesh& teapot() {
    static const Mesh mesh = loadMesh(teapotFile);
    return mesh;
}

class ViewerWindow : public FolderTest {
protected:
    /// The camera's file as the viewer writes it now, after all that was done before.
    std::string save() {
        std::filesystem::remove(file);
        desktop.type('s');
        desktop.waitUntil([this] { return std::filesystem::exists(file); });
        return readText(file);
    }
    PlanarCameraState camera() {
        save();
        return readState(file);
    }

    /// Waits until the window shows what a camera sees, drawn once more without a window.
    void expectToSee(const PlanarCameraState& state) {
        const OffscreenContext context;
        const SeenPicture wanted(Renderer(teapot()).draw(state, {}));
        const int few = wanted.width() * wanted.height() / 10000;
        desktop.waitFor([&](const Picture& picture) { return wanted.countDifferences(SeenPicture(picture)) < few; });
    }

    static void expectSeenAt(const PlanarCameraState& state, const Vec3& point, double x, double y) {
        const Vec2 seen = Sight(state).pixelOf(point);
        EXPECT_NEAR(seen.x, x, 1.0);
        EXPECT_NEAR(seen.y, y, 1.0);
    }

    const std::filesystem::path file = folder / "camera.state";
    Desktop desktop{{CAMERA_PROGRAM, "view", teapotFile, "--state", file}};
    const PlanarCameraState first = camera();
    // A place on the pot's body, and the point of it that is seen there.
    const int x = 440;
    const int y = 250;
    const Vec3 point = Sight(first).pointOf(teapot(), {static_cast<double>(x), static_cast<double>(y)}).value();
};

TEST_F(ViewerWindow, ShowsWhatItsCameraSees) { expectToSee(first); }

TEST_F(ViewerWindow, PanOnTwoButtonsCarriesThePointUnderTheCursorAlong) {
    desktop.drag(middle, x, y, x + 170, y + 95);
    const PlanarCameraState after = camera();
    expectSeenAt(after, point, x + 170, y + 95);
    expectToSee(after);
    desktop.drag(right, x + 170, y + 95, x - 130, y + 20);
    expectSeenAt(camera(), point, x - 130, y + 20);
    desktop.drag(middle, x - 130, y + 20, x + 700, y); // the window ends before
    expectSeenAt(camera(), point, x + 700, y);
}

TEST_F(ViewerWindow, ZoomKeepsThePointUnderTheCursorThere) {
    desktop.move(x, y);
    desktop.turnWheel(3);
    const PlanarCameraState after = camera();
    expectSeenAt(after, point, x, y);
    const auto spread = [](const PlanarCameraState& state) {
        return Sight(state).extentOfPixel().y / state.mProjectionState.mFrustum.mNearDist;
    };
    EXPECT_NEAR(spread(after) / spread(first), 0.9 * 0.9 * 0.9, 1e-9);
    desktop.turnWheel(-3);
    EXPECT_NEAR(spread(camera()) / spread(first), 1.0, 1e-9);
}

TEST_F(ViewerWindow, ArcballKeepsThePickedPointInItsPlace) {
    desktop.drag(left, x, y, x + 120, y + 60);
    const PlanarCameraState after = camera();
    expectSeenAt(after, point, x, y);
    EXPECT_GT(length(Sight(after).direction() - Sight(first).direction()), 0.1);
    expectToSee(after);
}

TEST_F(ViewerWindow, ShiftDragDrawsARectangleAndZoomsIntoIt) {
    const int width = 240;
    const int height = 160; // of the window's shape
    desktop.holdShift(true);
    desktop.move(x - width / 2, y + height / 2);
    desktop.press(left);
    desktop.move(x + width / 2, y - height / 2);
    desktop.waitFor([&](const Picture& picture) {
        const auto drawn = SeenPicture(picture).extentsOf(firstMark);
        return drawn && std::abs(drawn->left - (x - width / 2)) < 3 && std::abs(drawn->right - (x + width / 2)) < 3 &&
               std::abs(drawn->bottom - (y - height / 2)) < 3 && std::abs(drawn->top - (y + height / 2)) < 3;
    });
    desktop.release(left);
    desktop.holdShift(false);
    const PlanarCameraState after = camera();
    expectSeenAt(after, point, 480, 320);
    // Four times as large, so that half the rectangle is half the window.
    const Vec3 corner = Sight(first).pointAhead({x - width / 2.0, y - height / 2.0}, Sight(first).distanceAhead(point));
    expectSeenAt(after, corner, 0, 0);
    expectToSee(after);
}

TEST_F(ViewerWindow, KeysUndoAndRedo) {
    const std::string before = save();
    desktop.drag(left, x, y, x - 90, y + 30);
    const std::string turned = save();
    desktop.turnWheel(1);
    const std::string zoomed = save();
    for (const auto& [keys, expected] : {std::pair("u", turned), {"u", before}, {"rr", zoomed}}) {
        for (const char key : std::string(keys)) {
            desktop.type(key);
        }
        EXPECT_TRUE(save() == expected) << keys;
    }
    EXPECT_FALSE(before == turned || turned == zoomed);
}

TEST_F(ViewerWindow, KeysLookAlongTheAxes) {
    const double third = 1.0 / std::sqrt(3.0);
    const std::vector<std::pair<char, Vec3>> directions{{'1', {0, 0, -1}},
                                                        {'2', {0, 0, 1}},
                                                        {'3', {1, 0, 0}},
                                                        {'4', {-1, 0, 0}},
                                                        {'5', {0, -1, 0}},
                                                        {'6', {0, 1, 0}},
                                                        {'7', {-third, -third, -third}}};
    for (const auto& [key, direction] : directions) {
        desktop.type(key);
        EXPECT_NEAR(length(Sight(camera()).direction() - direction), 0.0, 1e-12) << key;
    }
}

TEST_F(ViewerWindow, KeySwitchesTheProjection) {
    EXPECT_FALSE(Sight(first).isOrthographic());
    desktop.type('p');
    const PlanarCameraState orthographic = camera();
    EXPECT_TRUE(Sight(orthographic).isOrthographic());
    expectToSee(orthographic);
    desktop.type('p');
    EXPECT_FALSE(Sight(camera()).isOrthographic());
}

TEST_F(ViewerWindow, KeyFitsTheModel) {
    desktop.drag(middle, x, y, x + 400, y + 300);
    desktop.type('f');
    const PlanarCameraState after = camera();
    for (std::size_t i = 0; i < 8; ++i) {
        const Vec2 corner = Sight(after).pixelOf(teapot().box.corner(i));
        EXPECT_TRUE(corner.x >= 0 && corner.x <= 960 && corner.y >= 0 && corner.y <= 640) << i;
    }
}

TEST_F(ViewerWindow, ResizingKeepsTheScale) {
    desktop.resize(1200, 500);
    const PlanarCameraState after = camera();
    EXPECT_EQ(after.mSurfaceState.mResolutionX, 1200);
    EXPECT_EQ(after.mSurfaceState.mResolutionY, 500);
    EXPECT_NEAR(Sight(after).extentOfPixel().x / Sight(first).extentOfPixel().x, 1.0, 1e-12);
    EXPECT_NEAR(Sight(after).extentOfPixel().y / Sight(first).extentOfPixel().y, 1.0, 1e-12);
    expectToSee(after);
    // The mouse finds what it finds in the new window: 120 more to the right, 70 more from the top.
    desktop.drag(middle, x + 120, y - 70, x, y);
    expectSeenAt(camera(), point, x, y);
}

TEST_F(ViewerWindow, LoadsWhatItSaved) {
    desktop.drag(left, x, y, x + 50, y - 80);
    const std::string saved = save();
    desktop.type('2');
    desktop.type('p');
    EXPECT_FALSE(save() == saved);
    folder.write("camera.state", saved);
    desktop.type('l');
    expectToSee(readState(file)); // only then may the file go
    EXPECT_THAT(desktop.output(), EndsWith("\nloaded " + file.string() + "\n"));
    EXPECT_TRUE(save() == saved);
}

TEST_F(ViewerWindow, TellsAFileThatIsNoCameraAndGoesOn) {
    const std::string before = save();
    folder.write("camera.state", "no camera at all");
    desktop.type('l');
    desktop.waitUntil([this] { return desktop.errors().find('\n') != std::string::npos; });
    EXPECT_THAT(desktop.errors(), HasSubstr("camera: " + file.string() + ": holds no camera"));
    EXPECT_TRUE(save() == before);
}

TEST_F(ViewerWindow, ListsItsKeys) {
    desktop.type('h');
    desktop.type('?');
    desktop.type('q');
    EXPECT_EQ(desktop.wait(), 0);
    EXPECT_EQ(desktop.output(), "saved " + file.string() + "\n" + viewControls() + "\n" + viewControls() + "\n");
    EXPECT_EQ(desktop.errors(), "");
}

TEST_F(ViewerWindow, EndsWithItsWindow) {
    desktop.close();
    EXPECT_EQ(desktop.wait(), 0);
    EXPECT_EQ(desktop.errors(), "");
}

using Viewer = ProgramTest;

TEST_F(Viewer, SaysInOneLineThatThereIsNoDesktop) {
    expectOneLine(run({"view", teapotFile}, "DISPLAY=:no"), "camera: no window: ");
}

TEST_F(Viewer, ListsItsKeysInItsHelp) {
    const Outcome outcome = run({"view", "--help"});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_THAT(outcome.output, HasSubstr(viewControls()));
}

} // namespace
} // namespace qel::host::test
