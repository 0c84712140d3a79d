// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <stdexcept>

#include "impl/PlanarCamera.h"
#include "tests/impl/CameraTesting.h"

namespace qel::api::camera::test {
namespace {

using impl::Pixel;
using impl::PlanarCamera;
using math::Vec3;

const Vec3 origin{0, 0, 0};
const Pixel centre{256, 256};

/// Drags a square window of 512 pixels from its centre, where the ball's nearest point is, and returns the eye, which
/// was at (0, 0, 5).
Vec3 eyeAfterDragTo(const Pixel& pixel) {
    PlanarCamera camera = squareCamera();
    camera.arcballRotation(origin, centre, pixel);
    return camera.view().eye();
}

/// Five from the origin, turned by an angle about y.
Vec3 eyeAt(double angle) { return {5 * std::sin(angle), 0, 5 * std::cos(angle)}; }

TEST(Arcball, TurnsTheEyeAgainstTheDragAndDoesNotFlipY) {
    // 64 of 256 pixels: x = 1/4 on the unit sphere, whose arc sine is the angle.
    EXPECT_TRUE(near(eyeAfterDragTo({320, 256}), eyeAt(-std::asin(0.25)), steps * epsilon));
    EXPECT_TRUE(near(eyeAfterDragTo({192, 256}), eyeAt(std::asin(0.25)), steps * epsilon));
    EXPECT_TRUE(near(eyeAfterDragTo({256, 320}), {0, -1.25, 5 * std::cos(std::asin(0.25))}, steps * epsilon));
}

TEST(Arcball, IsASphereUpToHalfTheWindowAndASheetBeyond) {
    // x = 1/2 exactly: still the sphere, 30 degrees.
    EXPECT_TRUE(near(eyeAfterDragTo({384, 256}), eyeAt(-pi / 6.0), steps * epsilon));
    // x = 129/256: z = (1/2) / x, so the angle's tangent is x / z = 2 x x. The sheet begins lower than the sphere ends.
    const double x = 129.0 / 256.0;
    EXPECT_TRUE(near(eyeAfterDragTo({385, 256}), eyeAt(-std::atan(2 * x * x)), steps * epsilon));
    EXPECT_TRUE(near(eyeAfterDragTo({0, 256}), eyeAt(std::atan(2.0)), steps * epsilon));
}

TEST(Arcball, TakesItsPixelsForUnsigned) {
    // So far to the right that the ball's point is straight to the right, and not one pixel left of the window.
    EXPECT_TRUE(near(eyeAfterDragTo({0xFFFFFFFFU, 256}), eyeAt(-pi / 2.0), 1e-12));
}

/// Drags the ball of another surface from its centre to a quarter of its radius on the right.
void expectBallAt(const impl::Surface& surface, const Pixel& middle, std::uint32_t quarter) {
    PlanarCamera camera = cameraOf(squareCamera().view(), impl::Projection(), surface);
    camera.arcballRotation(origin, middle, {middle.x + quarter, middle.y});
    EXPECT_TRUE(near(camera.view().eye(), eyeAt(-std::asin(0.25)), steps * epsilon));
}

TEST(Arcball, TruncatesTheAspectRatioOfTheWindow) {
    // 640 / 480 is 1 as integers: the ball's centre is at 240 pixels on both axes, not in the middle.
    expectBallAt(surfaceOf({}, 640, 480), {240, 240}, 60);
    expectBallAt(surfaceOf({}, 480, 960), {0, 240}, 60);
    // 1024 / 512 is 2: x runs to 4 over the window, and its centre is in the middle.
    expectBallAt(surfaceOf({}, 1024, 512), {512, 256}, 64);
}

TEST(Arcball, StartsAtTheCornerOfTheViewport) {
    // The corner is at (256, 128) of 512: the ball's centre moves by as much.
    expectBallAt(surfaceOf({0.5, 0.25, 0.5, 0.5, 0, 1}, 512, 512), {512, 384}, 64);
}

/// The point of the ball in long double, by angles instead of coordinates where that is another way.
std::array<long double, 3> ballPoint(const PlanarCamera& camera, const Pixel& pixel) {
    const impl::Surface& surface = camera.surface();
    const long double smaller = std::min(surface.resolutionX(), surface.resolutionY());
    const std::uint32_t whole = surface.resolutionX() / surface.resolutionY(); // truncated on purpose
    const long double x = 2 * (pixel.x - surface.viewport().x * surface.resolutionX()) / smaller - whole;
    const long double y = 2 * (pixel.y - surface.viewport().y * surface.resolutionY()) / smaller - 1;
    const long double radius = std::hypot(x, y);
    const long double latitude = radius > 0.5L ? std::atan(0.5L / (radius * radius)) : std::acos(radius);
    const long double longitude = std::atan2(y, x);
    return {std::cos(latitude) * std::cos(longitude), std::cos(latitude) * std::sin(longitude), std::sin(latitude)};
}

TEST(Arcball, AgreesWithASecondMethod) {
    Random random(411);
    for (int n = 0; n < 500; ++n) {
        PlanarCamera camera = someCamera(n % 2 == 0);
        const PlanarCamera start = camera;
        const impl::View& before = start.view();
        const Pixel from{random.below(800), random.below(600)};
        const Pixel to{random.below(800), random.below(600)};
        const auto a = ballPoint(camera, from);
        const auto b = ballPoint(camera, to);
        const Vec3 n3{static_cast<double>(b[1] * a[2] - b[2] * a[1]), static_cast<double>(b[2] * a[0] - b[0] * a[2]),
                      static_cast<double>(b[0] * a[1] - b[1] * a[0])};
        const double sine = length(n3);
        if (sine < 1e-3) {
            continue; // the arc cosine of the method under test keeps few digits there
        }
        const auto cosine = static_cast<double>(a[0] * b[0] + a[1] * b[1] + a[2] * b[2]);
        const double angle = std::atan2(sine, cosine);
        const Vec3 axis = before.rotation() * (n3 * (1.0 / sine));
        const Vec3 pivot = random.vector(3.0);
        camera.arcballRotation(pivot, from, to);
        EXPECT_TRUE(near(camera.view().eye(), pivot + turned(before.eye() - pivot, axis, angle), 1e-11));
        EXPECT_TRUE(near(camera.view().direction(), turned(before.direction(), axis, angle), 1e-11));
        EXPECT_TRUE(near(camera.view().yAxis(), turned(before.yAxis(), axis, angle), 1e-11));
        EXPECT_TRUE(consistent(camera.view()));
        EXPECT_TRUE(same(camera, cameraOf(camera.view(), start.projection(), start.surface())));
    }
}

TEST(Arcball, FromAPixelToItselfChangesNothing) {
    for (const Pixel& pixel : {centre, Pixel{0, 0}, Pixel{511, 3}, Pixel{300, 200}, Pixel{0xFFFFFFFFU, 0}}) {
        PlanarCamera camera = squareCamera();
        camera.arcballRotation(origin, pixel, pixel);
        EXPECT_TRUE(same(camera, squareCamera())) << pixel.x << ' ' << pixel.y;
    }
}

// The arc cosine is not clamped: where rounding takes the product of two close points above 1 the angle is NaN, and
// the view is rebuilt as it was. Where it does not, the angle is too small to be applied.
TEST(Arcball, BetweenPixelsTooCloseToTellApartTurnsNothing) {
    PlanarCamera start = squareCamera();
    start.setSurface(blobOf(surfaceOf({}, 4000000000U, 4000000000U)));
    for (std::uint32_t n = 0; n < 2000; ++n) {
        PlanarCamera camera = start;
        const Pixel pixel{1234567890U + 1000003U * n, 2345678901U};
        camera.arcballRotation(origin, pixel, {pixel.x + 1, pixel.y});
        ASSERT_TRUE(near(camera.view().eye(), start.view().eye(), steps * epsilon)) << n;
        ASSERT_TRUE(near(camera.view().rotation(), start.view().rotation(), steps * epsilon)) << n;
    }
}

TEST(Arcball, OnASurfaceOfNoHeightFailsAndChangesNothing) {
    const impl::Surface forged = forgedSurface(640, 0);
    PlanarCamera camera = cameraOf(squareCamera().view(), squareCamera().projection(), forged);
    const PlanarCamera before = camera;
    EXPECT_THROW(camera.arcballRotation(origin, {1, 2}, {3, 4}), std::domain_error);
    EXPECT_TRUE(same(camera, before));
}

TEST(Arcball, OnASurfaceOfNoWidthTurnsNothing) {
    // The scale is infinite and every point of the ball NaN, and so is the angle, which is then not applied.
    const impl::Surface forged = forgedSurface(0, 480);
    PlanarCamera camera = cameraOf(squareCamera().view(), squareCamera().projection(), forged);
    camera.arcballRotation(origin, {1, 2}, {3, 4});
    EXPECT_TRUE(near(camera.view().eye(), {0, 0, 5}, 8 * epsilon));
    EXPECT_TRUE(near(camera.view().rotation(), math::Mat3{}, 8 * epsilon));
}

TEST(Arcball, AboutACentreOfNaNLosesTheView) {
    PlanarCamera camera = squareCamera();
    camera.arcballRotation({nan, 0, 0}, {1, 2}, {300, 4});
    EXPECT_TRUE(isNaN(camera.view().eye()));
}

} // namespace
} // namespace qel::api::camera::test
