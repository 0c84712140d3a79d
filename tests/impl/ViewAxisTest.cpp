// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "impl/View.h"
#include "tests/impl/CameraTesting.h"

namespace qel::api::camera::test {
namespace {

using impl::View;
using math::Vec3;

TEST(ViewAlongAxis, LooksAlongTheAxisAtTheTargetFromTheSameDistance) {
    View view({3, 0, 4}, {0, 0, 0}, {0, 1, 0});
    view.setViewAlongWorldAxis({0, 0, 0}, {0, 2, 0}, {0, 0, 1}); // the axis need not have length 1
    EXPECT_EQ(view.eye(), (Vec3{0, -5, 0}));
    EXPECT_EQ(view.direction(), (Vec3{0, 1, 0}));
    EXPECT_EQ(view.yAxis(), (Vec3{0, 0, 1}));
}

TEST(ViewAlongAxis, KeepsTheDistanceOfAnyEyeFromAnyTarget) {
    Random random(121);
    for (int n = 0; n < 200; ++n) {
        const View before = randomView(random, 5.0);
        const Vec3 target = random.vector(5.0);
        const Vec3 axis = random.direction();
        View view = before;
        view.setViewAlongWorldAxis(target, axis, random.direction());
        EXPECT_NEAR(length(view.eye() - target), length(before.eye() - target), 10 * steps * epsilon);
        EXPECT_TRUE(near(view.direction(), axis, 1000 * epsilon)); // an eye as near as 0.1 loses digits
        EXPECT_TRUE(consistent(view));
    }
}

TEST(ViewAlongAxis, WithTheEyeOnTheTargetLooksFromThere) {
    View view({1, 2, 3}, {0, 0, 0}, {0, 1, 0});
    view.setViewAlongWorldAxis({1, 2, 3}, {0, 0, 5}, {0, 1, 0});
    EXPECT_EQ(view.eye(), (Vec3{1, 2, 3}));
    EXPECT_EQ(view.direction(), (Vec3{0, 0, 1}));
}

TEST(ViewAlongAxis, WithTheEyeAtTheToleranceFromTheTargetStaysThere) {
    View view({1e-7, 0, 0}, {9, 0, 0}, {0, 1, 0});
    view.setViewAlongWorldAxis({0, 0, 0}, {0, 0, 1}, {0, 1, 0});
    EXPECT_EQ(view.eye(), (Vec3{1e-7, 0, 0}));
    EXPECT_EQ(view.direction(), (Vec3{0, 0, 1}));
}

TEST(ViewAlongAxis, WithTheEyeJustOffTheTargetMoves) {
    View view({1.001e-7, 0, 0}, {9, 0, 0}, {0, 1, 0});
    view.setViewAlongWorldAxis({0, 0, 0}, {0, 0, 1}, {0, 1, 0});
    EXPECT_TRUE(near(view.eye(), {0, 0, -1.001e-7}, 1e-22));
    EXPECT_EQ(view.direction(), (Vec3{0, 0, 1}));
}

TEST(ViewAlongAxis, WithATargetOfNaNLooksFromWhereTheEyeIs) {
    View view({1, 2, 3}, {0, 0, 0}, {0, 1, 0});
    view.setViewAlongWorldAxis({nan, 0, 0}, {0, 0, 1}, {0, 1, 0});
    EXPECT_EQ(view.eye(), (Vec3{1, 2, 3}));
    EXPECT_EQ(view.direction(), (Vec3{0, 0, 1}));
}

TEST(ViewAlongAxis, OfZeroChangesNothing) {
    View view = someView();
    view.setViewAlongWorldAxis({0, 0, 0}, {0, 0, 0}, {0, 1, 0});
    EXPECT_TRUE(same(view, someView()));
}

TEST(ViewAlongAxis, AtMostTheToleranceLongChangesNothing) {
    View view = someView();
    view.setViewAlongWorldAxis({0, 0, 0}, {0, 0, 1e-7}, {0, 1, 0});
    EXPECT_TRUE(same(view, someView()));
}

TEST(ViewAlongAxis, LongerThanTheToleranceTurns) {
    View view = someView();
    view.setViewAlongWorldAxis({0, 0, 0}, {0, 0, 1.001e-7}, {0, 1, 0});
    EXPECT_TRUE(near(view.direction(), {0, 0, 1}, 4 * epsilon));
}

TEST(ViewAlongAxis, OfNaNIsTaken) {
    View view = someView();
    view.setViewAlongWorldAxis({0, 0, 0}, {0, nan, 1}, {0, 1, 0});
    EXPECT_TRUE(isNaN(view.direction()));
    EXPECT_TRUE(isNaN(view.eye()));
}

TEST(ViewAlongAxis, WithUpAlongTheAxisChangesNothing) {
    View view = someView();
    view.setViewAlongWorldAxis({0, 0, 0}, {0, 1, 0}, {0, 1, 0});
    EXPECT_TRUE(same(view, someView()));
}

TEST(ViewAlongAxis, WithUpZeroChangesNothing) {
    View view = someView();
    view.setViewAlongWorldAxis({0, 0, 0}, {0, 1, 0}, {0, 0, 0});
    EXPECT_TRUE(same(view, someView()));
}

} // namespace
} // namespace qel::api::camera::test
