// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>

#include "impl/View.h"
#include "tests/impl/CameraTesting.h"

namespace qel::api::camera::test {
namespace {

using impl::View;
using math::Vec3;

const Vec3 origin{0, 0, 0};
const Vec3 worldY{0, 1, 0};

/// Five ahead of the origin on +z, looking at it: the arm is a right angle from the world's y.
View fromZ() { return {{0, 0, 5}, {0, 0, 0}, {0, 1, 0}}; }

TEST(RotateAboutAxis, CarriesEyeAndViewAroundThePivot) {
    View view = fromZ();
    view.rotateAboutWorldAxis(origin, worldY, pi / 2.0, 0.0);
    EXPECT_TRUE(near(view.eye(), {5, 0, 0}, steps * epsilon));
    EXPECT_TRUE(near(view.direction(), {-1, 0, 0}, steps * epsilon));
    EXPECT_TRUE(near(view.yAxis(), {0, 1, 0}, steps * epsilon));
}

TEST(RotateAboutAxis, TiltsAwayFromTheAxisByAPositiveAngle) {
    View view = fromZ();
    view.rotateAboutWorldAxis(origin, worldY, 0.0, pi / 4.0);
    const double half = 5.0 * std::sqrt(0.5);
    EXPECT_TRUE(near(view.eye(), {0, -half, half}, steps * epsilon));
    EXPECT_TRUE(near(view.direction(), {0, std::sqrt(0.5), -std::sqrt(0.5)}, steps * epsilon));
}

TEST(RotateAboutAxis, TiltsFirstAndTurnsThen) {
    View view = fromZ();
    view.rotateAboutWorldAxis(origin, worldY, pi / 2.0, pi / 4.0);
    const double half = 5.0 * std::sqrt(0.5);
    EXPECT_TRUE(near(view.eye(), {half, -half, 0}, steps * epsilon)); // the tilted eye, a quarter turn further
}

TEST(RotateAboutAxis, NeedsNoAxisOfLengthOne) {
    View view = fromZ();
    view.rotateAboutWorldAxis(origin, {0, 8, 0}, 0.3, 0.2);
    View expected = fromZ();
    expected.rotateAboutWorldAxis(origin, worldY, 0.3, 0.2);
    EXPECT_TRUE(same(view, expected));
}

TEST(RotateAboutAxis, KeepsThePivotWhereItIsInTheView) {
    Random random(131);
    for (int n = 0; n < 300; ++n) {
        const View before = randomView(random, 5.0);
        const Vec3 pivot = random.vector(5.0);
        View view = before;
        view.rotateAboutAxis(pivot, random.direction(), random.between(-3, 3), random.between(-3, 3),
                             n % 2 == 0 ? View::PoleLimit::on : View::PoleLimit::off);
        EXPECT_TRUE(near(view.worldToViewPoint(pivot), before.worldToViewPoint(pivot), 20 * steps * epsilon));
        EXPECT_TRUE(consistent(view));
    }
}

TEST(RotateAboutAxis, TurnsAsRodriguesSays) {
    Random random(132);
    for (int n = 0; n < 300; ++n) {
        const View before = randomView(random, 5.0);
        const Vec3 pivot = random.vector(5.0);
        const Vec3 axis = random.direction();
        const double angle = random.between(-3, 3);
        View view = before;
        view.rotateAboutWorldAxis(pivot, axis, angle, 0.0);
        EXPECT_TRUE(near(view.eye(), pivot + turned(before.eye() - pivot, axis, angle), 20 * steps * epsilon));
        EXPECT_TRUE(near(view.direction(), turned(before.direction(), axis, angle), 20 * steps * epsilon));
        EXPECT_TRUE(near(view.yAxis(), turned(before.yAxis(), axis, angle), 20 * steps * epsilon));
    }
}

TEST(RotateAboutAxis, ByNegligibleAnglesChangesNothing) {
    const View before = withKinds(someView(), {1, 1, 1});
    View view = before;
    view.rotateAboutWorldAxis(origin, worldY, 1e-7, -1e-7);
    view.rotateAboutViewAxes(origin, -1e-7, 1e-7);
    view.rotateAboutWorldAxis(origin, worldY, 0.0, 0.0);
    EXPECT_TRUE(same(view, before));
}

TEST(RotateAboutAxis, AboutZeroChangesNothing) {
    View view = someView();
    view.rotateAboutWorldAxis(origin, {0, 0, 0}, 1.0, 1.0);
    EXPECT_TRUE(same(view, someView()));
}

TEST(RotateAboutAxis, AboutAnAxisAtMostTheToleranceLongChangesNothing) {
    View view = someView();
    view.rotateAboutWorldAxis(origin, {0, 1e-7, 0}, 1.0, 1.0);
    EXPECT_TRUE(same(view, someView()));
}

TEST(RotateAboutAxis, AboutAnAxisLongerThanTheToleranceTurns) {
    View view = fromZ();
    view.rotateAboutWorldAxis(origin, {0, 1.001e-7, 0}, pi / 2.0, 0.0);
    EXPECT_TRUE(near(view.eye(), {5, 0, 0}, steps * epsilon));
}

TEST(RotateAboutAxis, WithANegligibleTiltTurnsOnly) {
    View view = fromZ();
    view.rotateAboutWorldAxis(origin, worldY, 0.3, 1e-7);
    View expected = fromZ();
    expected.rotateAboutWorldAxis(origin, worldY, 0.3, 0.0);
    EXPECT_TRUE(same(view, expected));
}

TEST(RotateAboutAxis, WithANegligibleTurnTiltsOnly) {
    View view = fromZ();
    view.rotateAboutWorldAxis(origin, worldY, 1e-7, 0.3);
    View expected = fromZ();
    expected.rotateAboutWorldAxis(origin, worldY, 0.0, 0.3);
    EXPECT_TRUE(same(view, expected));
}

TEST(RotateAboutAxis, WithTheEyeOnThePivotTurnsOnTheSpot) {
    View view = fromZ();
    view.rotateAboutWorldAxis({0, 0, 5}, worldY, pi / 2.0, 0.5);
    EXPECT_EQ(view.eye(), (Vec3{0, 0, 5}));
    EXPECT_TRUE(near(view.direction(), {-1, 0, 0}, steps * epsilon)); // no tilt
}

TEST(RotateAboutAxis, WithTheEyeAtTheToleranceFromThePivotDoesNotTilt) {
    View view({1e-7, 0, 0}, {1, 0, 0}, {0, 1, 0});
    view.rotateAboutWorldAxis(origin, worldY, 0.0, 0.5);
    EXPECT_TRUE(near(view.direction(), {1, 0, 0}, 4 * epsilon));
}

TEST(RotateAboutAxis, WithTheEyeJustOffThePivotTilts) {
    View view({1.001e-7, 0, 0}, {1, 0, 0}, {0, 1, 0});
    view.rotateAboutWorldAxis(origin, worldY, 0.0, 0.5);
    EXPECT_TRUE(near(view.direction(), {std::cos(0.5), -std::sin(0.5), 0}, steps * epsilon));
}

TEST(RotateAboutAxis, WithTheEyeOnTheAxisDoesNotTilt) {
    View view({0, 5, 0}, {0, 0, 0}, {0, 0, 1});
    view.rotateAboutWorldAxis(origin, worldY, pi / 2.0, 0.5);
    EXPECT_TRUE(near(view.eye(), {0, 5, 0}, steps * epsilon));
    EXPECT_TRUE(near(view.direction(), {0, -1, 0}, 4 * epsilon));
    EXPECT_TRUE(near(view.yAxis(), {1, 0, 0}, steps * epsilon)); // but turns
}

// The cosine of an angle a is 1 - a a / 2: the bound of 1e-7 lies at 4.47e-4 radians, whichever the pole.
View nearPole(double angle) {
    return {{5 * std::sin(angle), 5 * std::cos(angle), 0}, {0, 0, 0}, {std::cos(angle), -std::sin(angle), 0}};
}

TEST(RotateAboutAxis, WithTheEyeAlmostOnTheAxisDoesNotTilt) {
    for (const double angle : {4.4e-4, pi - 4.4e-4}) {
        View view = nearPole(angle);
        view.rotateAboutAxis(origin, worldY, 0.0, 0.5, View::PoleLimit::off);
        EXPECT_TRUE(near(view.eye(), nearPole(angle).eye(), steps * epsilon));
    }
}

TEST(RotateAboutAxis, WithTheEyeJustOffTheAxisTilts) {
    for (const double angle : {4.5e-4, pi - 4.5e-4}) {
        View view = nearPole(angle);
        view.rotateAboutAxis(origin, worldY, 0.0, 0.5, View::PoleLimit::off);
        EXPECT_TRUE(near(view.eye(), nearPole(angle + 0.5).eye(), 1e-11)); // the tilt's axis has 1/4.5e-4 of rounding
    }
}

TEST(PoleLimit, LeavesOutATiltOverThePole) {
    View view = fromZ();
    view.rotateAboutWorldAxis(origin, worldY, 0.0, -pi / 2.0 - 0.1);
    EXPECT_TRUE(near(view.eye(), {0, 0, 5}, steps * epsilon));
}

TEST(PoleLimit, LeavesOutATiltOverTheFarPole) {
    View view = fromZ();
    view.rotateAboutWorldAxis(origin, worldY, 0.0, pi / 2.0 + 0.1);
    EXPECT_TRUE(near(view.eye(), {0, 0, 5}, steps * epsilon));
}

TEST(PoleLimit, StillTurnsWhereItLeavesOutTheTilt) {
    View view = fromZ();
    view.rotateAboutWorldAxis(origin, worldY, pi / 2.0, 2.0);
    EXPECT_TRUE(near(view.eye(), {5, 0, 0}, steps * epsilon));
}

TEST(PoleLimit, AllowsATiltThatStopsBeforeThePole) {
    View up = fromZ();
    up.rotateAboutWorldAxis(origin, worldY, 0.0, -pi / 2.0 + 1.01e-7);
    EXPECT_TRUE(near(up.eye(), {0, 5 * std::cos(1.01e-7), 5 * std::sin(1.01e-7)}, steps * epsilon));
    View down = fromZ();
    down.rotateAboutWorldAxis(origin, worldY, 0.0, pi / 2.0 - 1.01e-7);
    EXPECT_TRUE(near(down.eye(), {0, -5 * std::cos(1.01e-7), 5 * std::sin(1.01e-7)}, steps * epsilon));
}

TEST(PoleLimit, LeavesOutATiltToWithinTheTolerance) {
    for (const double tilt : {-pi / 2.0 + 0.99e-7, pi / 2.0 - 0.99e-7}) {
        View view = fromZ();
        view.rotateAboutWorldAxis(origin, worldY, 0.0, tilt);
        EXPECT_TRUE(near(view.eye(), {0, 0, 5}, steps * epsilon));
    }
}

// The limit of the tilt is at 1e-7 from the pole, but from within 4.47e-4 the eye counts as on the axis: a tilt can
// carry it there, and none carries it away again. A turn about another axis does.
TEST(PoleLimit, HoldsAnEyeThatWasTiltedCloseToThePole) {
    View view = fromZ();
    view.rotateAboutWorldAxis(origin, worldY, 0.0, -pi / 2.0 + 2e-4);
    const Vec3 held = view.eye();
    ASSERT_TRUE(near(held, {0, 5 * std::cos(2e-4), 5 * std::sin(2e-4)}, steps * epsilon));
    view.rotateAboutWorldAxis(origin, worldY, 0.0, 0.5);
    EXPECT_TRUE(near(view.eye(), held, steps * epsilon));
    view.rotateAboutWorldAxis(origin, {1, 0, 0}, 0.5, 0.0);
    EXPECT_FALSE(near(view.eye(), held, 1.0));
}

TEST(PoleLimit, IsOffForTheAxesOfTheView) {
    View view = fromZ();
    view.rotateAboutViewAxes(origin, 0.0, pi / 2.0 + 0.1);
    EXPECT_TRUE(near(view.eye(), {0, -5 * std::cos(0.1), -5 * std::sin(0.1)}, steps * epsilon));
    EXPECT_TRUE(near(view.worldToViewPoint(origin), {0, 0, -5}, steps * epsilon)); // upside down, and still there
}

TEST(RotateAboutViewAxes, TakesTheYAxisOfTheView) {
    // Rolled so that the view's y axis is the world's x.
    View view({0, 0, 5}, {0, 0, 0}, {1, 0, 0});
    view.rotateAboutViewAxes(origin, pi / 2.0, 0.0);
    EXPECT_TRUE(near(view.eye(), {0, -5, 0}, steps * epsilon)); // about x, z goes to -y
}

TEST(RotateAboutAxis, LeavesOutATurnOfNaN) {
    View view = fromZ();
    view.rotateAboutWorldAxis(origin, worldY, nan, 0.3);
    View expected = fromZ();
    expected.rotateAboutWorldAxis(origin, worldY, 0.0, 0.3);
    EXPECT_TRUE(same(view, expected));
}

TEST(RotateAboutAxis, LeavesOutATiltOfNaN) {
    View view = fromZ();
    view.rotateAboutWorldAxis(origin, worldY, 0.3, nan);
    View expected = fromZ();
    expected.rotateAboutWorldAxis(origin, worldY, 0.3, 0.0);
    EXPECT_TRUE(same(view, expected));
}

TEST(RotateAboutAxis, ByNaNAloneStillRebuildsTheView) {
    for (const Vec3& angles : {Vec3{nan, 0, 0}, Vec3{0, nan, 0}, Vec3{nan, nan, 0}}) {
        View view = withKinds(someView(), {1, 1, 1});
        view.rotateAboutWorldAxis(origin, worldY, angles.x, angles.y);
        EXPECT_EQ(kinds(view), (Kinds{64, 64, 64}));
        EXPECT_TRUE(near(view.rotation(), someView().rotation(), 10 * steps * epsilon));
        EXPECT_TRUE(near(view.eye(), someView().eye(), 10 * steps * epsilon));
    }
}

TEST(RotateAboutAxis, RebuildsTheViewWhereTheTiltIsLeftOutAndTheTurnNegligible) {
    View view = withKinds(fromZ(), {1, 1, 1});
    view.rotateAboutWorldAxis(origin, worldY, 0.0, 3.0);
    EXPECT_EQ(kinds(view), (Kinds{64, 64, 64}));
    EXPECT_EQ(view.eye(), fromZ().eye());
}

TEST(RotateAboutAxis, TakesAPivotOfNaN) {
    View view = fromZ();
    view.rotateAboutWorldAxis({0, nan, 0}, worldY, 0.3, 0.3);
    EXPECT_TRUE(isNaN(view.eye()));
}

TEST(RotateAboutAxis, TakesAnAxisOfNaN) {
    View view = fromZ();
    view.rotateAboutWorldAxis(origin, {0, nan, 0}, 0.3, 0.0);
    EXPECT_TRUE(isNaN(view.eye()));
}

} // namespace
} // namespace qel::api::camera::test
