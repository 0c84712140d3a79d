// SPDX-License-Identifier: Apache-2.0
// Runs the program's viewer in a window, as a person does, and asks it for its camera by the key that saves it.
#include <algorithm>
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
#include "tests/host/Sight.h"

namespace qel::host::test {
namespace {

using api::camera::PlanarCameraState;
using ::testing::EndsWith;
using ::testing::HasSubstr;

constexpr unsigned int left = 1;
constexpr unsigned int middle = 2;
constexpr unsigned int right = 3;

const Mesh& teapot() {
    static const Mesh mesh = loadMesh(CAMERA_MODELS "/teapot.obj");
    return mesh;
}

/// The share of the pixels that are not nearly the same.
double difference(const Picture& a, const Picture& b) {
    if (a.width != b.width || a.height != b.height) {
        return 1.0;
    }
    int count = 0;
    for (std::size_t i = 0; i < a.bytes.size(); i += 4) {
        const bool differs = std::abs(a.bytes[i] - b.bytes[i]) > 8 || std::abs(a.bytes[i + 1] - b.bytes[i + 1]) > 8 ||
                             std::abs(a.bytes[i + 2] - b.bytes[i + 2]) > 8;
        count += differs ? 1 : 0;
    }
    return count / (static_cast<double>(a.width) * a.height);
}

class ViewerWindow : public ::testing::Test {
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
        const Picture wanted = Renderer(teapot()).draw(state, {});
        desktop.waitFor([&](const Picture& picture) { return difference(picture, wanted) < 1e-4; });
    }

    static void expectSeenAt(const PlanarCameraState& state, const Vec3& point, double x, double y) {
        const Vec2 seen = Sight(state).pixelOf(point);
        EXPECT_NEAR(seen.x, x, 1.0);
        EXPECT_NEAR(seen.y, y, 1.0);
    }

    TemporaryFolder folder;
    std::filesystem::path file = folder / "camera.state";
    const std::string model = CAMERA_MODELS "/teapot.obj";
    Desktop desktop{{CAMERA_PROGRAM, "view", model, "--state", file}};
    const PlanarCameraState first = camera();
    // A place on the pot's body, and the point of it that is seen there.
    const int x = 440;
    const int y = 250;
    const Vec3 point = Sight(first).pointOf(teapot(), {static_cast<double>(x), static_cast<double>(y)}).value();
};

TEST_F(ViewerWindow, ShowsWhatItsCameraSees) { expectToSee(first); }

TEST_F(ViewerWindow, PanCarriesThePointUnderTheCursorAlong) {
    desktop.drag(middle, x, y, x + 170, y + 95);
    const PlanarCameraState after = camera();
    expectSeenAt(after, point, x + 170, y + 95);
    expectToSee(after);
}

TEST_F(ViewerWindow, PanIsOnTheRightButtonToo) {
    desktop.drag(right, x, y, x - 130, y + 20);
    expectSeenAt(camera(), point, x - 130, y + 20);
}

TEST_F(ViewerWindow, PanGoesOnOutsideTheWindow) {
    desktop.drag(middle, x, y, x + 700, y);
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
    const auto isBlue = [](const Picture& picture, int column, int row) {
        const std::uint8_t* pixel = picture.at(column, picture.height - 1 - row);
        return pixel[2] > 200 && pixel[0] < 80;
    };
    desktop.waitFor([&](const Picture& picture) {
        return isBlue(picture, x - width / 2, y) && isBlue(picture, x + width / 2, y) &&
               isBlue(picture, x, y - height / 2) && isBlue(picture, x, y + height / 2);
    });
    desktop.release(left);
    desktop.holdShift(false);
    const PlanarCameraState after = camera();
    expectSeenAt(after, point, 480, 320);
    // Four times as large, so that half the rectangle is half the window.
    const Vec3 offset = point - Sight(first).eye();
    const Vec3 ahead = Sight(first).direction();
    const double distance = offset[0] * ahead[0] + offset[1] * ahead[1] + offset[2] * ahead[2];
    expectSeenAt(after, Sight(first).pointAhead({x - width / 2.0, y - height / 2.0}, distance), 0, 0);
    expectToSee(after);
}

TEST_F(ViewerWindow, UndoAndRedoGiveTheSameBytes) {
    const std::string before = save();
    desktop.drag(left, x, y, x - 90, y + 30);
    const std::string turned = save();
    desktop.turnWheel(1);
    const std::string zoomed = save();
    EXPECT_NE(before, turned);
    EXPECT_NE(turned, zoomed);
    desktop.type('u');
    EXPECT_EQ(save() == turned, true);
    desktop.type('u');
    EXPECT_EQ(save() == before, true);
    desktop.type('r');
    desktop.type('r');
    EXPECT_EQ(save() == zoomed, true);
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

TEST(Viewer, SaysInOneLineThatThereIsNoDesktop) {
    const TemporaryFolder folder;
    Process program({CAMERA_PROGRAM, "view", CAMERA_MODELS "/teapot.obj"}, {"DISPLAY=:no"}, folder / "output",
                    folder / "errors");
    EXPECT_EQ(program.wait(), 1);
    const std::string errors = readText(folder / "errors");
    EXPECT_THAT(errors, HasSubstr("camera: no window: "));
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
}

TEST(Viewer, ListsItsKeysInItsHelp) {
    const TemporaryFolder folder;
    Process program({CAMERA_PROGRAM, "view", "--help"}, {}, folder / "output", folder / "errors");
    EXPECT_EQ(program.wait(), 0);
    EXPECT_THAT(readText(folder / "output"), HasSubstr(viewControls()));
}

} // namespace
} // namespace qel::host::test
