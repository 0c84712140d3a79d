// SPDX-License-Identifier: Apache-2.0
// Runs the tour and looks at its pictures: what is asserted of the model is read from pixels, and compared with the
// numbers of the state records.
#include <algorithm>
#include <cmath>
#include <map>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/scene/Mesh.h"
#include "host/tour/Tour.h"
#include "tests/host/SeenPicture.h"
#include "tests/host/Sight.h"
#include "tests/host/TemporaryFolder.h"

namespace qel::host::test {
namespace {

using ::testing::AllOf;
using ::testing::Ge;
using ::testing::HasSubstr;
using ::testing::Le;

struct Window {
    const char* name;
    int width;
    int height;
};

void PrintTo(const Window& window, std::ostream* out) { *out << window.width << 'x' << window.height; }

constexpr Window wide{"wide", 560, 280};
constexpr Window square{"square", 360, 360};
constexpr Window tall{"tall", 256, 448};

/// A tour around the teapot in a window of a shape; the picture of each step by the step's name.
class Tour : public FolderTest {
protected:
    static constexpr const char* model = CAMERA_MODELS "/teapot.obj";

    explicit Tour(const Window& window = wide) : mWindow(window) {
        TourOptions options;
        options.model = model;
        options.output = folder / "out";
        options.module = CAMERA_MODULE;
        options.width = window.width;
        options.height = window.height;
        for (Shot& shot : runTour(options, [](std::size_t, std::size_t, std::string_view) {})) {
            const std::string name = shot.file.substr(3, shot.file.size() - 7);
            mPictures.emplace(name, SeenPicture(folder / "out" / shot.file));
            mShots.emplace(name, std::move(shot));
        }
    }

    [[nodiscard]] const SeenPicture& picture(const std::string& name) const { return mPictures.at(name); }
    [[nodiscard]] const Shot& shot(const std::string& name) const { return mShots.at(name); }
    [[nodiscard]] Vec3 eye(const std::string& name) const { return Sight(shot(name).camera).eye(); }
    [[nodiscard]] int width() const { return mWindow.width; }
    [[nodiscard]] int height() const { return mWindow.height; }

    [[nodiscard]] Extents modelExtents(const std::string& name) const {
        const auto extents = picture(name).modelExtents();
        EXPECT_TRUE(extents) << name;
        return extents.value_or(Extents{});
    }
    [[nodiscard]] Vec2 middleOf(Colour colour, const std::string& name) const {
        const auto middle = picture(name).middleOf(colour);
        EXPECT_TRUE(middle) << name;
        return middle.value_or(Vec2{});
    }
    /// The middle of the dot on the picked point; it is alone in its colour.
    [[nodiscard]] Vec2 dot(const std::string& name) const { return middleOf(secondMark, name); }

    static void expectNear(Vec2 actual, Vec2 expected, double tolerance) {
        EXPECT_NEAR(actual.x, expected.x, tolerance);
        EXPECT_NEAR(actual.y, expected.y, tolerance);
    }

    Window mWindow;
    std::map<std::string, SeenPicture> mPictures;
    std::map<std::string, Shot> mShots;
};

/// What a window's shape could spoil.
class TourInWindow : public Tour, public ::testing::WithParamInterface<Window> {
protected:
    TourInWindow() : Tour(GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(Windows, TourInWindow, ::testing::Values(wide, square, tall),
                         [](const auto& parameter) { return std::string(parameter.param.name); });

/// Where the model's corners land by the state's own matrices, worked out on the processor.
Extents projectedExtents(const Mesh& mesh, const api::camera::PlanarCameraState& camera) {
    Vec2 least{1e9, 1e9};
    Vec2 most{-1e9, -1e9};
    for (const auto index : mesh.triangles) {
        const Vec2 position = Sight(camera).pixelOf(mesh.positions[index]);
        least = {std::min(least.x, position.x), std::min(least.y, position.y)};
        most = {std::max(most.x, position.x), std::max(most.y, position.y)};
    }
    const auto pixel = [](double value) { return static_cast<int>(std::floor(value)); };
    return {pixel(least.x), pixel(most.x), pixel(least.y), pixel(most.y)};
}

TEST_P(TourInWindow, ShowsTheModelInEveryPicture) {
    EXPECT_EQ(mPictures.size(), 36U);
    for (const auto& [name, seen] : mPictures) {
        EXPECT_GT(seen.countModel(), seen.width() * seen.height() / 200) << name;
        const bool beforeResize = name == "default-camera";
        EXPECT_EQ(seen.width(), beforeResize ? 640 : width()) << name;
        EXPECT_EQ(seen.height(), beforeResize ? 480 : height()) << name;
    }
}

// The pixels lie where the matrices put the model, inside the window: so nothing is cut at its border. The tips of the
// teapot are so thin that their last pixels are hardly covered and look like the background.
TEST_P(TourInWindow, KeepsAFittedModelInsideTheWindow) {
    const Mesh mesh = loadMesh(model);
    for (const char* name : {"fit-box", "clipping-planes", "from-x", "from-y", "from-z", "isometric"}) {
        const Extents seen = modelExtents(name);
        EXPECT_TRUE(seen.left > 0 && seen.bottom > 0 && seen.right < width() - 1 && seen.top < height() - 1) << name;
        const Extents expected = projectedExtents(mesh, shot(name).camera);
        for (const int missing : {seen.left - expected.left, expected.right - seen.right, seen.bottom - expected.bottom,
                                  expected.top - seen.top}) {
            EXPECT_THAT(missing, AllOf(Ge(0), Le(4))) << name;
        }
    }
}

// Orthographic, and the model reaches all sides of its box: but for the margin it fills the window in one direction.
TEST_P(TourInWindow, FillsTheWindowWithAFittedModel) {
    for (const char* name : {"from-x", "from-y", "from-z"}) {
        const Extents seen = modelExtents(name);
        EXPECT_GT(std::max(1.0 * seen.width() / width(), 1.0 * seen.height() / height()), 0.88) << name;
    }
}

TEST_F(Tour, ShowsTheSameAfterTheClippingPlanesMoved) {
    EXPECT_LE(picture("fit-box").countDifferences(picture("clipping-planes")), width() * height() / 1000);
}

TEST_P(TourInWindow, SeesTheSameLengthsAlongTheAxes) {
    struct Size {
        double width, height, pixel;
    };
    const auto sizeOf = [&](const std::string& name) {
        const auto& frustum = shot(name).camera.mProjectionState.mFrustum;
        const double pixel = (frustum.mRight - frustum.mLeft) / width();
        EXPECT_NEAR((frustum.mTop - frustum.mBottom) / height(), pixel, 1e-9 * pixel) << "pixels are square";
        const Extents seen = modelExtents(name);
        return Size{seen.width() * pixel, seen.height() * pixel, pixel};
    };
    const Size x = sizeOf("from-x");
    const Size y = sizeOf("from-y");
    const Size z = sizeOf("from-z");
    // A silhouette's border is known to a pixel, at either side and in either picture; at a thin tip, to two.
    EXPECT_NEAR(x.width, y.height, 3 * (x.pixel + y.pixel)) << "extent in z";
    EXPECT_NEAR(y.width, z.width, 3 * (y.pixel + z.pixel)) << "extent in x";
    EXPECT_NEAR(x.height, z.height, 3 * (x.pixel + z.pixel)) << "extent in y";

    const Vec3 size = loadMesh(model).box.size();
    EXPECT_NEAR(z.width, size[0], 4 * z.pixel);
    EXPECT_NEAR(z.height, size[1], 4 * z.pixel);
    EXPECT_NEAR(x.width, size[2], 4 * x.pixel);
}

TEST_P(TourInWindow, KeepsTheMarksOnTheirPixelsWhenTheProjectionIsSwitched) {
    for (const Colour colour : {firstMark, secondMark}) {
        const Vec2 before = middleOf(colour, "marks");
        expectNear(middleOf(colour, "orthographic"), before, 0.05);
        expectNear(middleOf(colour, "perspective"), before, 0.05);
    }
    EXPECT_GT(picture("marks").countDifferences(picture("orthographic")), width() * height() / 100);
    EXPECT_LE(picture("marks").countDifferences(picture("perspective")), width() * height() / 1000);
}

TEST_F(Tour, MakesTheModelSmallerAndLargerWithTheProjection) {
    const int before = picture("isometric").countModel();
    EXPECT_LT(picture("field-of-view").countModel(), before * 0.6);
    EXPECT_GT(picture("zoom").countModel(), picture("field-of-view").countModel() * 3);
}

TEST_P(TourInWindow, FillsTheWindowWithTheAreaZoomedInto) {
    const auto before = picture("area-before").extentsOf(firstMark);
    const auto after = picture("area-after").extentsOf(firstMark);
    ASSERT_TRUE(before && after);
    const double shape = 1.0 * before->width() / before->height();
    EXPECT_NEAR(shape, 0.30 * width() / (0.22 * height()), 0.1 * shape);
    // It is wider than the window by the shape it was drawn with, so it reaches left and right.
    EXPECT_EQ(after->left, 0);
    EXPECT_EQ(after->right, width() - 1);
    EXPECT_NEAR(1.0 * after->width() / after->height(), shape, 0.05 * shape);
    EXPECT_NEAR((after->bottom + after->top) / 2.0, height() / 2.0, 2.0);
}

TEST_P(TourInWindow, KeepsTheAnchorOnItsPixel) {
    const Vec2 before = dot("anchor-before");
    for (const char* name : {"anchor-screen", "anchor-world"}) {
        SCOPED_TRACE(name);
        expectNear(dot(name), before, 0.25);
        expectNear(middleOf(firstMark, name), dot(name), 0.25); // the cross-hair
    }
    EXPECT_GT(picture("anchor-screen").countModel(), picture("anchor-before").countModel() * 1.8);
    EXPECT_LT(picture("anchor-world").countModel(), picture("anchor-before").countModel() * 0.6);
}

TEST_P(TourInWindow, MovesThePannedPointWithTheMouse) {
    const Vec2 before = dot("pan-before");
    const Vec2 after = dot("pan-after");
    const int right = width() / 5;
    const int down = height() / 6;
    expectNear(after, {before.x + right, before.y - down}, 0.25);
    const auto target = picture("pan-after").middleOf(firstMark, after, 30.0);
    ASSERT_TRUE(target);
    expectNear(*target, after, 0.25);
}

TEST_F(Tour, TurnsTheModelWithEveryPieceOfTheDrag) {
    const Vec3 centre = loadMesh(model).box.centre();
    const auto distance = [&](const std::string& name) { return length(eye(name) - centre); };
    std::string last = "arcball-start";
    for (const char* name : {"arcball-1", "arcball-2", "arcball-3", "arcball-4"}) {
        EXPECT_GT(picture(name).countDifferences(picture(last)), width() * height() / 50) << name;
        EXPECT_NEAR(distance(name), distance("arcball-start"), 1e-9 * distance("arcball-start")) << name;
        last = name;
    }
}

TEST_F(Tour, StopsTheTurntableAtThePole) {
    EXPECT_NEAR(eye("turntable-turn")[1], eye("isometric")[1], 1e-9);
    EXPECT_GT(eye("turntable-tilt")[1], eye("turntable-turn")[1]);
    EXPECT_GT(eye("turntable-pole")[1], eye("turntable-tilt")[1]);
    EXPECT_EQ(picture("turntable-limit").countDifferences(picture("turntable-pole")), 0);
    EXPECT_NEAR(length(eye("turntable-limit") - eye("turntable-pole")), 0.0, 1e-12 * eye("turntable-pole")[1]);
    for (const char* name : {"turntable-turn", "turntable-tilt", "turntable-pole"}) {
        const auto& right = shot(name).camera.mViewState.mViewMatrix.mData[0];
        EXPECT_NEAR(right[1], 0.0, 1e-9) << name << ": the axis is upright in the picture";
    }
}

TEST_F(Tour, ShowsEveryPictureOnItsPage) {
    const std::string page = readText(folder / "out" / "index.html");
    for (const auto& [name, shot] : mShots) {
        EXPECT_THAT(page, HasSubstr("src=\"" + shot.file + "\""));
        EXPECT_THAT(page, HasSubstr(shot.title));
    }
    EXPECT_THAT(page, HasSubstr("<code>planarCameraUpdateWindowSize(state, width = " + std::to_string(width()) +
                                ", height = " + std::to_string(height()) + ")</code>"));
    EXPECT_THAT(page, HasSubstr("mPrivate=&lt;1080 bytes&gt;"));
    EXPECT_EQ(page.find('\0'), std::string::npos);
    EXPECT_EQ(contentOf(folder / "out").size(), mShots.size() + 1);
    EXPECT_EQ(contentOf(folder.path()).size(), 1U) << "nothing is left beside the output";
}

} // namespace
} // namespace qel::host::test
