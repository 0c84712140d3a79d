// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

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

TEST(View, YawPitchAndRollTurnByTwiceTheAngleAboutTheAxesOfTheView) {
    Random random(111);
    for (int n = 0; n < 300; ++n) {
        const View before = randomView(random, 3.0);
        const double angle = random.between(-2.0, 2.0);
        const auto expect = [&](const View& view, const Vec3& axis) {
            EXPECT_TRUE(near(view.rotation(), turnedColumns(before.rotation(), axis, 2 * angle), steps * epsilon));
            EXPECT_EQ(view.eye(), before.eye());
            EXPECT_TRUE(consistent(view));
        };
        expect(after(before, [&](View& view) { view.yaw(angle); }), before.yAxis());
        expect(after(before, [&](View& view) { view.pitch(angle); }), before.xAxis());
        expect(after(before, [&](View& view) { view.roll(angle); }), before.zAxis());
    }
}

TEST(View, YawTakesItsAxisFromTheViewMatrixAndTheOrientationFromTheRotation) {
    // The second row of the view matrix is the world's z here; the rotation is the identity all the same.
    const Mat4 viewMatrix = rows4({{{1, 0, 0, 0}, {0, 0, 1, 0}, {0, -1, 0, 0}, {0, 0, 0, 1}}});
    View view = forged<View>(Mat4{}, viewMatrix, Mat3{}, Vec3{});
    view.yaw(pi / 4.0);
    EXPECT_TRUE(near(view.rotation(), rows3({{{0, -1, 0}, {1, 0, 0}, {0, 0, 1}}}), 4 * epsilon));
}

using Turn = std::function<void(View&, double)>;
const Turn singleTurns[] = {[](View& view, double angle) { view.yaw(angle); },
                            [](View& view, double angle) { view.pitch(angle); },
                            [](View& view, double angle) { view.roll(angle); },
                            [](View& view, double angle) { view.yawPitchRoll(angle, 0.0, 0.0); },
                            [](View& view, double angle) { view.yawPitchRoll(0.0, angle, 0.0); },
                            [](View& view, double angle) { view.yawPitchRoll(0.0, 0.0, angle); }};

TEST(View, TurningByAtMostTheToleranceChangesNothing) {
    const View before = withKinds(someView(), {1, 1, 1});
    for (const Turn& turn : singleTurns) {
        for (const double angle : {0.0, 1e-7, -1e-7}) {
            EXPECT_TRUE(unchanged(before, [&](View& view) { turn(view, angle); })) << angle;
        }
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

TEST(View, YawPitchRollLeavesOutAnglesThatAreNegligibleOrNaN) {
    const auto turned = [](double yaw, double pitch, double roll) {
        return after(someView(), [&](View& view) { view.yawPitchRoll(yaw, pitch, roll); });
    };
    EXPECT_TRUE(same(turned(1e-7, 0.5, -1e-7), turned(0.0, 0.5, 0.0)));
    EXPECT_TRUE(same(turned(0.5, 1e-7, 0.0), turned(0.5, 0.0, 0.0)));
    EXPECT_TRUE(same(turned(nan, 0.5, nan), turned(0.0, 0.5, 0.0)));
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
