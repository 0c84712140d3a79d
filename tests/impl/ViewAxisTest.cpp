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

/// Looks along z at the origin from an eye on x, which then looked away from it.
View fromNextTo(double x) {
    View view({x, 0, 0}, {9, 0, 0}, {0, 1, 0});
    view.setViewAlongWorldAxis({0, 0, 0}, {0, 0, 1}, {0, 1, 0});
    EXPECT_EQ(view.direction(), (Vec3{0, 0, 1}));
    return view;
}

TEST(ViewAlongAxis, FromTheTargetOrAtMostTheToleranceBesideItStaysThere) {
    EXPECT_EQ(fromNextTo(0).eye(), Vec3{});
    EXPECT_EQ(fromNextTo(1e-7).eye(), (Vec3{1e-7, 0, 0}));
    EXPECT_TRUE(near(fromNextTo(1.001e-7).eye(), {0, 0, -1.001e-7}, 1e-22));
}

TEST(ViewAlongAxis, WithATargetOfNaNLooksFromWhereTheEyeIs) {
    View view({1, 2, 3}, {0, 0, 0}, {0, 1, 0});
    view.setViewAlongWorldAxis({nan, 0, 0}, {0, 0, 1}, {0, 1, 0});
    EXPECT_EQ(view.eye(), (Vec3{1, 2, 3}));
    EXPECT_EQ(view.direction(), (Vec3{0, 0, 1}));
}

/// someView() along an axis at the origin.
View along(const Vec3& axis, const Vec3& up) {
    View view = someView();
    view.setViewAlongWorldAxis({0, 0, 0}, axis, up);
    return view;
}

TEST(ViewAlongAxis, OfAtMostTheToleranceChangesNothing) {
    EXPECT_TRUE(same(along({0, 0, 0}, {0, 1, 0}), someView()));
    EXPECT_TRUE(same(along({0, 0, 1e-7}, {0, 1, 0}), someView()));
    EXPECT_TRUE(near(along({0, 0, 1.001e-7}, {0, 1, 0}).direction(), {0, 0, 1}, 4 * epsilon));
}

TEST(ViewAlongAxis, WithUpZeroOrAlongTheAxisChangesNothing) {
    EXPECT_TRUE(same(along({0, 1, 0}, {0, 1, 0}), someView()));
    EXPECT_TRUE(same(along({0, 1, 0}, {0, 0, 0}), someView()));
}

TEST(ViewAlongAxis, OfNaNIsTaken) {
    EXPECT_TRUE(isNaN(along({0, nan, 1}, {0, 1, 0}).direction()));
    EXPECT_TRUE(isNaN(along({0, nan, 1}, {0, 1, 0}).eye()));
}

} // namespace
} // namespace qel::api::camera::test
