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

View rotated(View view, const Vec3& pivot, const Vec3& axis, double angle, double tilt) {
    view.rotateAboutWorldAxis(pivot, axis, angle, tilt);
    return view;
}

/// fromZ() about the world's y through the origin, where it looks.
View turntable(double angle, double tilt) { return rotated(fromZ(), origin, worldY, angle, tilt); }

TEST(RotateAboutAxis, TiltsAwayFromTheAxisByAPositiveAngleAndTurnsThen) {
    const double half = 5.0 * std::sqrt(0.5);
    EXPECT_TRUE(near(turntable(0.0, pi / 4.0).eye(), {0, -half, half}, steps * epsilon));
    EXPECT_TRUE(near(turntable(0.0, pi / 4.0).direction(), {0, half / 5.0, -half / 5.0}, steps * epsilon));
    EXPECT_TRUE(near(turntable(pi / 2.0, pi / 4.0).eye(), {half, -half, 0}, steps * epsilon));
}

TEST(RotateAboutAxis, NeedsNoAxisOfLengthOne) {
    EXPECT_TRUE(same(rotated(fromZ(), origin, {0, 8, 0}, 0.3, 0.2), turntable(0.3, 0.2)));
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
        EXPECT_TRUE(consistent(view));
    }
}

TEST(RotateAboutAxis, ByNegligibleAnglesChangesNothing) {
    const View before = withKinds(someView(), {1, 1, 1});
    for (const double angle : {0.0, 1e-7, -1e-7}) {
        EXPECT_TRUE(same(rotated(before, origin, worldY, angle, -angle), before));
        EXPECT_TRUE(unchanged(before, [&](View& view) { view.rotateAboutViewAxes(origin, angle, -angle); }));
    }
}

TEST(RotateAboutAxis, AboutAnAxisAtMostTheToleranceLongChangesNothing) {
    EXPECT_TRUE(same(rotated(someView(), origin, {0, 0, 0}, 1.0, 1.0), someView()));
    EXPECT_TRUE(same(rotated(someView(), origin, {0, 1e-7, 0}, 1.0, 1.0), someView()));
    const View turned = rotated(fromZ(), origin, {0, 1.001e-7, 0}, pi / 2.0, 0.0);
    EXPECT_TRUE(near(turned.eye(), {5, 0, 0}, steps * epsilon));
}

TEST(RotateAboutAxis, LeavesOutATurnOrATiltThatIsNegligibleOrNaN) {
    for (const double none : {1e-7, nan}) {
        EXPECT_TRUE(same(turntable(0.3, none), turntable(0.3, 0.0))) << none;
        EXPECT_TRUE(same(turntable(none, 0.3), turntable(0.0, 0.3))) << none;
    }
}

TEST(RotateAboutAxis, WithTheEyeOnThePivotTurnsOnTheSpotAndDoesNotTilt) {
    const View view = rotated(fromZ(), {0, 0, 5}, worldY, pi / 2.0, 0.5);
    EXPECT_EQ(view.eye(), (Vec3{0, 0, 5}));
    EXPECT_TRUE(near(view.direction(), {-1, 0, 0}, steps * epsilon));
}

TEST(RotateAboutAxis, TiltsFromBeyondTheToleranceOffThePivotOn) {
    const auto tilted = [](double distance) {
        return rotated({{distance, 0, 0}, {1, 0, 0}, {0, 1, 0}}, origin, worldY, 0.0, 0.5).direction();
    };
    EXPECT_TRUE(near(tilted(1e-7), {1, 0, 0}, 4 * epsilon));
    EXPECT_TRUE(near(tilted(1.001e-7), {std::cos(0.5), -std::sin(0.5), 0}, steps * epsilon));
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
    const auto tilted = [](double angle) {
        View view = nearPole(angle);
        view.rotateAboutAxis(origin, worldY, 0.0, 0.5, View::PoleLimit::off);
        return view.eye();
    };
    for (const double angle : {4.4e-4, pi - 4.4e-4}) {
        EXPECT_TRUE(near(tilted(angle), nearPole(angle).eye(), steps * epsilon));
    }
    for (const double angle : {4.5e-4, pi - 4.5e-4}) { // the tilt's axis has 1/4.5e-4 of rounding
        EXPECT_TRUE(near(tilted(angle), nearPole(angle + 0.5).eye(), 1e-11));
    }
}

TEST(PoleLimit, LeavesOutATiltOverAPoleOrToWithinTheToleranceOfIt) {
    for (const double tilt : {-pi / 2.0 - 0.1, -pi / 2.0 + 0.99e-7, pi / 2.0 - 0.99e-7, pi / 2.0 + 0.1}) {
        EXPECT_TRUE(near(turntable(0.0, tilt).eye(), {0, 0, 5}, steps * epsilon));
        EXPECT_TRUE(near(turntable(pi / 2.0, tilt).eye(), {5, 0, 0}, steps * epsilon)) << "but turns";
    }
}

TEST(PoleLimit, AllowsATiltThatStopsBeforeThePole) {
    const double y = 5 * std::cos(1.01e-7);
    const double z = 5 * std::sin(1.01e-7);
    EXPECT_TRUE(near(turntable(0.0, -pi / 2.0 + 1.01e-7).eye(), {0, y, z}, steps * epsilon));
    EXPECT_TRUE(near(turntable(0.0, pi / 2.0 - 1.01e-7).eye(), {0, -y, z}, steps * epsilon));
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
    const View view = rotated(withKinds(fromZ(), {1, 1, 1}), origin, worldY, 0.0, 3.0);
    EXPECT_EQ(kinds(view), (Kinds{64, 64, 64}));
    EXPECT_EQ(view.eye(), fromZ().eye());
}

TEST(RotateAboutAxis, TakesAPivotAndAnAxisOfNaN) {
    EXPECT_TRUE(isNaN(rotated(fromZ(), {0, nan, 0}, worldY, 0.3, 0.3).eye()));
    EXPECT_TRUE(isNaN(rotated(fromZ(), origin, {0, nan, 0}, 0.3, 0.0).eye()));
}

// So far out the point one unit ahead is the eye itself, and the look from there is ignored.
TEST(RotateAboutAxis, OfAnEyeTooFarOutToTellAUnitChangesNothing) {
    const View far({0, 0, 1e17}, {0, 0, 0}, {0, 1, 0});
    EXPECT_TRUE(same(rotated(far, origin, worldY, 0.5, 0.0), far));
}

} // namespace
} // namespace qel::api::camera::test
