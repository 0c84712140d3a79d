// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>

#include "impl/PlanarCamera.h"
#include "tests/impl/RandomCameras.h"

namespace qel::api::camera::test {
namespace {

using impl::Pixel;
using impl::PlanarCamera;
using impl::View;
using math::Mat3;
using math::Vec3;

/// The largest of |R Rt - 1|: 0 for axes of length 1 at right angles.
double deviation(const Mat3& rotation) {
    const Mat3 p = product(rotation, transposed(rotation));
    double worst = 0.0;
    for (std::size_t i = 0; i < 9; ++i) {
        worst = std::max(worst, std::abs(p.mElements[i] - Mat3{}.mElements[i]));
    }
    return worst;
}

/// Every operation rebuilds the rotation, from unit vectors or from a unit quaternion, so errors do not add up: the
/// bound for ten thousand is that for one.
constexpr double orthonormal = 8 * epsilon;

struct Turn {
    const char* name;
    std::function<void(PlanarCamera&, const Vec3& pivot, double angle)> apply;
};

const Turn turns[] = {
    {"yaw", [](PlanarCamera& camera, const Vec3&, double angle) { camera.view().yaw(angle); }},
    {"pitch", [](PlanarCamera& camera, const Vec3&, double angle) { camera.view().pitch(angle); }},
    {"roll", [](PlanarCamera& camera, const Vec3&, double angle) { camera.view().roll(angle); }},
    {"yaw of three", [](PlanarCamera& camera, const Vec3&, double angle) { camera.view().yawPitchRoll(angle, 0, 0); }},
    {"pitch of three",
     [](PlanarCamera& camera, const Vec3&, double angle) { camera.view().yawPitchRoll(0, angle, 0); }},
    {"roll of three", [](PlanarCamera& camera, const Vec3&, double angle) { camera.view().yawPitchRoll(0, 0, angle); }},
    {"about a world axis",
     [](PlanarCamera& camera, const Vec3& pivot, double angle) {
         camera.view().rotateAboutWorldAxis(pivot, {0.3, 1, -0.2}, angle, 0);
     }},
    {"about the view's y axis",
     [](PlanarCamera& camera, const Vec3& pivot, double angle) { camera.view().rotateAboutViewAxes(pivot, angle, 0); }},
    {"tilt to the view's y axis",
     [](PlanarCamera& camera, const Vec3& pivot, double angle) { camera.view().rotateAboutViewAxes(pivot, 0, angle); }},
};

TEST(RotationProperties, TenThousandSmallTurnsLeaveTheRotationOrthonormal) {
    for (const Turn& turn : turns) {
        for (const double scale : {1e-3, 1.0, 1e6}) {
            SCOPED_TRACE(std::string(turn.name) + ", scale " + std::to_string(scale));
            Random numbers(61000);
            RandomCamera random = randomCamera(numbers, {false, false, 600, 600, false, scale});
            double worst = 0.0;
            for (int n = 0; n < 10000; ++n) {
                turn.apply(random.camera, random.target, numbers.between(-0.01, 0.012));
                worst = std::max(worst, deviation(random.camera.view().rotation()));
            }
            EXPECT_LE(worst, orthonormal);
            EXPECT_TRUE(consistent(random.camera.view()));
        }
    }
}

TEST(RotationProperties, TenThousandTurnsAboutAPivotKeepItWhereItIsInTheView) {
    Random numbers(63000);
    RandomCamera random = randomCamera(numbers, {false, false, 600, 600, false, 1.0});
    const Vec3 before = random.camera.view().worldToViewPoint(random.target);
    for (int n = 0; n < 10000; ++n) {
        random.camera.view().rotateAboutWorldAxis(random.target, numbers.direction(), numbers.between(-0.1, 0.1),
                                                  numbers.between(-0.1, 0.1));
    }
    // A random walk of ten thousand roundings; were they all one way it would be a hundred times further.
    EXPECT_TRUE(near(random.camera.view().worldToViewPoint(random.target), before, 100 * steps * epsilon));
}

TEST(RotationProperties, AFullArcballCircleLeavesTheRotationOrthonormal) {
    forRandomCameras(64000, [&](const RandomCamera& random, Random&) {
        PlanarCamera camera = random.camera;
        const double distance = length(camera.view().eye() - random.target);
        const auto onCircle = [&](int degrees) {
            const double radius = 0.4 * std::min(camera.surface().resolutionX(), camera.surface().resolutionY());
            const double angle = degrees * pi / 180.0;
            return Pixel{static_cast<std::uint32_t>(0.5 * camera.surface().resolutionX() + radius * std::cos(angle)),
                         static_cast<std::uint32_t>(0.5 * camera.surface().resolutionY() + radius * std::sin(angle))};
        };
        for (int degrees = 0; degrees < 360; ++degrees) {
            camera.arcballRotation(random.target, onCircle(degrees), onCircle(degrees + 1));
            ASSERT_LE(deviation(camera.view().rotation()), orthonormal) << degrees;
        }
        EXPECT_TRUE(consistent(camera.view()));
        EXPECT_NEAR(length(camera.view().eye() - random.target) / distance, 1.0, 360 * 16 * epsilon);
        EXPECT_FALSE(near(camera.view().rotation(), random.camera.view().rotation(), 0.1)) << "it went somewhere";
    });
}

/// The direction after a rotation is that from the eye to the point one unit ahead of it. Where the
/// eye's coordinates are large that point has few digits behind the point: at a million, the direction is good to some
/// 1e-10 radians instead of 1e-16.
double turnedBack(double scale) { return 200 * steps * epsilon * std::max(1.0, scale); }

/// And the eye is as far from the pivot as the world is large.
double movedBack(double scale) { return scale * turnedBack(scale); }

TEST(RotationProperties, TwoTurnsByOppositeAnglesCancel) {
    forRandomCameras(65000, [&](const RandomCamera& random, Random& numbers) {
        const double angle = numbers.between(-1.4, 1.4);
        for (const Turn& turn : turns) {
            PlanarCamera camera = random.camera;
            turn.apply(camera, random.target, angle);
            ASSERT_FALSE(near(camera.view().rotation(), random.camera.view().rotation(), 0.1 * std::abs(angle)))
                << turn.name;
            turn.apply(camera, random.target, -angle);
            EXPECT_TRUE(near(camera.view().eye(), random.camera.view().eye(), movedBack(random.scale))) << turn.name;
            EXPECT_TRUE(near(camera.view().rotation(), random.camera.view().rotation(), turnedBack(random.scale)))
                << turn.name;
        }
    });
}

// A tilt and a turn about a world axis are undone together, since the tilt's own axis turns along.
TEST(RotationProperties, ATurnTableMoveAndItsOppositeCancel) {
    int tilted = 0;
    forRandomCameras(66000, [&](const RandomCamera& random, Random& numbers) {
        const Vec3 axis = numbers.direction();
        const double angle = numbers.between(-3.0, 3.0);
        const double tilt = numbers.between(-0.5, 0.5);
        const auto poleAngle = [&](const PlanarCamera& camera) {
            const Vec3 arm = camera.view().eye() - random.target;
            return std::acos(dot(arm, axis) / length(arm));
        };
        if (poleAngle(random.camera) + tilt < 0.01 || poleAngle(random.camera) + tilt > pi - 0.01) {
            return; // the pole limit, which has tests of its own
        }
        ++tilted;
        PlanarCamera camera = random.camera;
        camera.view().rotateAboutWorldAxis(random.target, axis, angle, tilt);
        EXPECT_NEAR(poleAngle(camera), poleAngle(random.camera) + tilt, 1e-12);
        camera.view().rotateAboutWorldAxis(random.target, axis, -angle, -tilt);
        EXPECT_TRUE(near(camera.view().eye(), random.camera.view().eye(), 100 * movedBack(random.scale)));
        EXPECT_TRUE(near(camera.view().rotation(), random.camera.view().rotation(), 100 * turnedBack(random.scale)));
    });
    EXPECT_GT(tilted, 200);
}

} // namespace
} // namespace qel::api::camera::test
