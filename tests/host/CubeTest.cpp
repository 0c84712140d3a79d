// SPDX-License-Identifier: Apache-2.0
// Runs the example of a cube in a window of its own, as a person does.
#include <cstdlib>
#include <optional>

#include <gtest/gtest.h>

#include "tests/host/Desktop.h"
#include "tests/host/SeenPicture.h"

namespace qel::host::test {
namespace {

int brightness(const std::uint8_t* pixel) { return pixel[0] + pixel[1] + pixel[2]; }

/// The cube's corner where x, y and z are 1 is white, and nothing else is.
std::optional<Pixel> whiteCorner(const Picture& picture) {
    std::optional<Pixel> place;
    int whitest = 750;
    SeenPicture(picture).forEachPixel([&](Pixel at, const std::uint8_t* bytes) {
        if (brightness(bytes) > whitest) {
            whitest = brightness(bytes);
            place = at;
        }
    });
    return place;
}

int countCube(const Picture& picture) {
    int count = 0;
    SeenPicture(picture).forEachPixel(
        [&](Pixel, const std::uint8_t* bytes) { count += brightness(bytes) > 0 ? 1 : 0; });
    return count;
}

bool isNear(std::optional<Pixel> place, int x, int y) {
    return place && std::abs(place->x - x) <= 1 && std::abs(place->y - y) <= 1;
}

class Cube : public ::testing::Test {
protected:
    Desktop desktop{{CAMERA_CUBE, CAMERA_MODULE}};
    Picture first = desktop.waitFor([](const Picture& picture) { return whiteCorner(picture).has_value(); });
    Pixel corner = *whiteCorner(first);
};

TEST_F(Cube, IsSeenInFullAndLargeAtFirst) {
    // Black around it, and a good part of the window not.
    for (int column = 0; column < first.width; ++column) {
        EXPECT_EQ(brightness(first.at(column, 0)), 0);
    }
    EXPECT_GT(countCube(first), first.width * first.height / 5);
}

TEST_F(Cube, FollowsTheMouseWhenItIsPanned) {
    desktop.drag(right, corner.x, corner.y, corner.x + 60, corner.y - 45);
    desktop.waitFor([&](const Picture& picture) { return isNear(whiteCorner(picture), corner.x + 60, corner.y - 45); });
}

TEST_F(Cube, GrowsAboutTheCursor) {
    const int before = countCube(first);
    desktop.move(corner.x, corner.y);
    desktop.turnWheel(2);
    // By 1 / 0.9 in each direction for each notch.
    const Picture after = desktop.waitFor([&](const Picture& picture) { return countCube(picture) > before * 1.4; });
    EXPECT_TRUE(isNear(whiteCorner(after), corner.x, corner.y));
}

TEST_F(Cube, TurnsWhenItIsDragged) {
    desktop.drag(left, 300, 300, 420, 300);
    const Picture after = desktop.waitFor([&](const Picture& picture) {
        const auto place = whiteCorner(picture);
        return place && place->x > corner.x + 40;
    });
    EXPECT_GT(countCube(after), countCube(first) / 2);
}

TEST_F(Cube, KeepsItsSizeWhenTheWindowGrows) {
    desktop.resize(1000, 700);
    const Picture after = desktop.waitFor([&](const Picture& picture) {
        return picture.width == 1000 && isNear(whiteCorner(picture), corner.x + 100, corner.y + 50);
    });
    EXPECT_NEAR(countCube(after), countCube(first), countCube(first) / 100.0);
}

TEST_F(Cube, EndsWithItsWindow) {
    desktop.close();
    EXPECT_EQ(desktop.wait(), 0);
    EXPECT_EQ(desktop.errors(), "");
}

} // namespace
} // namespace qel::host::test
