// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "impl/View.h"
#include "tests/impl/CameraTesting.h"

namespace qel::api::camera::test {
namespace {

using impl::View;
using math::Mat3;
using math::Mat4;
using math::Vec3;

/// Every column of the rotation turned about an axis.
Mat3 turnedColumns(const Mat3& rotation, const Vec3& axis, double angle) {
    Mat3 result;
    for (std::size_t k = 0; k < 3; ++k) {
        const Vec3 v = turned(column(rotation, k), axis, angle);
        result(0, k) = v.x;
        result(1, k) = v.y;
        result(2, k) = v.z;
    }
    return result;
}

TEST(View, YawTurnsByTwiceTheAngle) {
    View view;
    view.yaw(pi / 4.0);
    EXPECT_TRUE(near(view.direction(), {-1, 0, 0}, 4 * epsilon));
    EXPECT_TRUE(near(view.yAxis(), {0, 1, 0}, 4 * epsilon));
}

TEST(View, PitchTurnsByTwiceTheAngle) {
    View view;
    view.pitch(pi / 4.0);
    EXPECT_TRUE(near(view.direction(), {0, 1, 0}, 4 * epsilon));
    EXPECT_TRUE(near(view.xAxis(), {1, 0, 0}, 4 * epsilon));
}

TEST(View, RollTurnsByTwiceTheAngle) {
    View view;
    view.roll(pi / 4.0);
    EXPECT_TRUE(near(view.yAxis(), {-1, 0, 0}, 4 * epsilon));
    EXPECT_TRUE(near(view.direction(), {0, 0, -1}, 4 * epsilon));
}

TEST(View, YawPitchAndRollTurnAboutTheAxesOfTheView) {
    Random random(111);
    for (int n = 0; n < 300; ++n) {
        const View before = randomView(random, 3.0);
        const double angle = random.between(-2.0, 2.0);
        View yawed = before;
        yawed.yaw(angle);
        EXPECT_TRUE(
            near(yawed.rotation(), turnedColumns(before.rotation(), before.yAxis(), 2 * angle), steps * epsilon));
        View pitched = before;
        pitched.pitch(angle);
        EXPECT_TRUE(
            near(pitched.rotation(), turnedColumns(before.rotation(), before.xAxis(), 2 * angle), steps * epsilon));
        View rolled = before;
        rolled.roll(angle);
        EXPECT_TRUE(
            near(rolled.rotation(), turnedColumns(before.rotation(), before.zAxis(), 2 * angle), steps * epsilon));
    }
}

TEST(View, YawKeepsTheEyeAndThePartsInStep) {
    View view = someView();
    view.yaw(0.3);
    EXPECT_EQ(view.eye(), someView().eye());
    EXPECT_TRUE(consistent(view));
}

TEST(View, YawTakesItsAxisFromTheViewMatrixAndTheOrientationFromTheRotation) {
    // The second row of the view matrix is the world's z here; the rotation is the identity all the same.
    const Mat4 viewMatrix = rows4({{{1, 0, 0, 0}, {0, 0, 1, 0}, {0, -1, 0, 0}, {0, 0, 0, 1}}});
    View view = forged<View>(Mat4{}, viewMatrix, Mat3{}, Vec3{});
    view.yaw(pi / 4.0);
    EXPECT_TRUE(near(view.rotation(), rows3({{{0, -1, 0}, {1, 0, 0}, {0, 0, 1}}}), 4 * epsilon));
}

TEST(View, YawMakesTheRotationARotationAndKeepsTheOtherKinds) {
    View view;
    view.yaw(0.1);
    EXPECT_EQ(kinds(view), (Kinds{64, 64, 4}));
}

using Turn = std::function<void(View&, double)>;
const Turn singleTurns[] = {[](View& view, double angle) { view.yaw(angle); },
                            [](View& view, double angle) { view.pitch(angle); },
                            [](View& view, double angle) { view.roll(angle); },
                            [](View& view, double angle) { view.yawPitchRoll(angle, 0.0, 0.0); },
                            [](View& view, double angle) { view.yawPitchRoll(0.0, angle, 0.0); },
                            [](View& view, double angle) { view.yawPitchRoll(0.0, 0.0, angle); }};

TEST(View, TurningByZeroChangesNothing) {
    const View before = withKinds(someView(), {1, 1, 1});
    for (const Turn& turn : singleTurns) {
        View view = before;
        turn(view, 0.0);
        EXPECT_TRUE(same(view, before));
    }
}

TEST(View, TurningByAtMostTheToleranceChangesNothing) {
    const View before = withKinds(someView(), {1, 1, 1});
    for (const Turn& turn : singleTurns) {
        View view = before;
        turn(view, 1e-7);
        turn(view, -1e-7);
        EXPECT_TRUE(same(view, before));
    }
}

TEST(View, TurningByMoreThanTheToleranceTurns) {
    for (const Turn& turn : singleTurns) {
        for (const double angle : {justAbove(1e-7), -justAbove(1e-7)}) {
            View view = someView();
            turn(view, angle);
            EXPECT_FALSE(near(view.rotation(), someView().rotation(), 0.4e-7));
            EXPECT_EQ(kinds(view), (Kinds{64, 64, 4}));
        }
    }
}

TEST(View, YawPitchAndRollTakeNaN) {
    for (int axis = 0; axis < 3; ++axis) {
        View view;
        singleTurns[axis](view, nan);
        EXPECT_TRUE(isNaN(view.direction())) << axis;
        EXPECT_EQ(view.eye(), Vec3{});
    }
}

TEST(View, YawPitchRollTurnsByEachAngle) {
    View yawed;
    yawed.yawPitchRoll(pi / 4.0, 0.0, 0.0);
    EXPECT_TRUE(near(yawed.direction(), {-std::sqrt(0.5), 0, -std::sqrt(0.5)}, 4 * epsilon));
    View pitched;
    pitched.yawPitchRoll(0.0, pi / 4.0, 0.0);
    EXPECT_TRUE(near(pitched.direction(), {0, std::sqrt(0.5), -std::sqrt(0.5)}, 4 * epsilon));
    View rolled;
    rolled.yawPitchRoll(0.0, 0.0, pi / 4.0);
    EXPECT_TRUE(near(rolled.yAxis(), {-std::sqrt(0.5), std::sqrt(0.5), 0}, 4 * epsilon));
}

TEST(View, YawPitchRollPitchesThenYawsThenRollsAboutTheAxesBeforeTheCall) {
    Random random(112);
    for (int n = 0; n < 300; ++n) {
        const View before = randomView(random, 3.0);
        const Vec3 angles = random.vector(3.0);
        Mat3 expected = turnedColumns(before.rotation(), before.xAxis(), angles.y);
        expected = turnedColumns(expected, before.yAxis(), angles.x);
        expected = turnedColumns(expected, before.zAxis(), angles.z);
        View view = before;
        view.yawPitchRoll(angles.x, angles.y, angles.z);
        EXPECT_TRUE(near(view.rotation(), expected, steps * epsilon));
        EXPECT_TRUE(consistent(view));
    }
}

TEST(View, YawPitchRollLeavesOutNegligibleAngles) {
    View view = someView();
    view.yawPitchRoll(1e-7, 0.5, -1e-7);
    View expected = someView();
    expected.yawPitchRoll(0.0, 0.5, 0.0);
    EXPECT_TRUE(same(view, expected));
}

TEST(View, YawPitchRollLeavesOutANegligiblePitch) {
    View view = someView();
    view.yawPitchRoll(0.5, 1e-7, 0.0);
    View expected = someView();
    expected.yawPitchRoll(0.5, 0.0, 0.0);
    EXPECT_TRUE(same(view, expected));
}

TEST(View, YawPitchRollLeavesOutAnAngleOfNaN) {
    View view = someView();
    view.yawPitchRoll(nan, 0.5, nan);
    View expected = someView();
    expected.yawPitchRoll(0.0, 0.5, 0.0);
    EXPECT_TRUE(same(view, expected));
}

TEST(View, YawPitchRollByNaNAloneStillRebuildsTheOrientation) {
    for (int axis = 3; axis < 6; ++axis) {
        View view = withKinds(someView(), {1, 1, 1});
        singleTurns[axis](view, nan);
        EXPECT_EQ(kinds(view), (Kinds{1, 2, 4})) << axis;
        EXPECT_TRUE(near(view.rotation(), someView().rotation(), 16 * epsilon));
    }
}

} // namespace
} // namespace qel::api::camera::test
