// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>
#include <type_traits>

#include "impl/View.h"
#include "tests/impl/CameraTesting.h"

namespace qel::api::camera::test {
namespace {

using impl::View;
using math::Mat3;
using math::Mat4;
using math::Vec3;

static_assert(std::has_virtual_destructor_v<View>);
static_assert(std::is_nothrow_move_constructible_v<View> && std::is_nothrow_move_assignable_v<View>);
static_assert(std::is_nothrow_copy_constructible_v<View> && std::is_nothrow_copy_assignable_v<View>);
static_assert(!std::is_convertible_v<Mat4, View> && !std::is_convertible_v<Vec3, View>);

/// The rotation of a look-at, by removing from up what lies along the direction, in long double.
Mat3 rotationOfLookAt(const Vec3& eye, const Vec3& lookat, const Vec3& up) {
    using Real = long double;
    Real fx = Real(lookat.x) - Real(eye.x), fy = Real(lookat.y) - Real(eye.y), fz = Real(lookat.z) - Real(eye.z);
    const Real f = std::sqrt(fx * fx + fy * fy + fz * fz);
    fx /= f, fy /= f, fz /= f;
    const Real along = up.x * fx + up.y * fy + up.z * fz;
    Real yx = up.x - along * fx, yy = up.y - along * fy, yz = up.z - along * fz;
    const Real y = std::sqrt(yx * yx + yy * yy + yz * yz);
    yx /= y, yy /= y, yz /= y;
    const auto d = [](Real value) { return static_cast<double>(value); };
    return rows3({{{d(fy * yz - fz * yy), d(yx), d(-fx)},
                   {d(fz * yx - fx * yz), d(yy), d(-fy)},
                   {d(fx * yy - fy * yx), d(yz), d(-fz)}}});
}

TEST(View, StandsAtTheOriginAndLooksAlongMinusZAtFirst) {
    const View view;
    EXPECT_EQ(view.viewTransformMatrix().mElements, Mat4{}.mElements);
    EXPECT_EQ(view.viewMatrix().mElements, Mat4{}.mElements);
    EXPECT_EQ(view.rotation().mElements, Mat3{}.mElements);
    EXPECT_EQ(view.eye(), Vec3{});
    EXPECT_EQ(kinds(view), (Kinds{64, 64, 64}));
}

TEST(View, LooksFromTheEyeAtThePoint) {
    // From (5, 0, 0) along -x with z up: right is +y.
    View view;
    view.lookAt({5, 0, 0}, {0, 0, 0}, {0, 0, 1});
    EXPECT_EQ(view.viewMatrix(), rows4({{{0, 1, 0, 0}, {0, 0, 1, 0}, {1, 0, 0, -5}, {0, 0, 0, 1}}}));
    EXPECT_EQ(view.viewTransformMatrix(), rows4({{{0, 0, 1, 5}, {1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 0, 1}}}));
    EXPECT_EQ(view.rotation(), rows3({{{0, 0, 1}, {1, 0, 0}, {0, 1, 0}}}, math::MatrixKind::general));
    EXPECT_EQ(view.eye(), (Vec3{5, 0, 0}));
}

TEST(View, LookAtAgreesWithASecondMethod) {
    Random random(101);
    for (int n = 0; n < 500; ++n) {
        const Vec3 eye = random.vector(10.0);
        const Vec3 lookat = eye + random.direction() * random.magnitude(0.1, 100.0);
        const Vec3 up = cross(random.direction(), lookat - eye) + (lookat - eye) * random.between(-1, 1);
        const View view(eye, lookat, up);
        // The difference of eye and lookat loses digits where they are close: 10 / 0.1.
        EXPECT_TRUE(near(view.rotation(), rotationOfLookAt(eye, lookat, up), 200 * steps * epsilon));
        EXPECT_TRUE(consistent(view));
        EXPECT_EQ(view.eye(), eye);
    }
}

TEST(View, LookAtShowsTheTargetInTheMiddleAndUpUpwards) {
    Random random(103);
    for (int n = 0; n < 200; ++n) {
        const Vec3 eye = random.vector(10.0);
        const Vec3 lookat = random.vector(10.0);
        const Vec3 up = random.direction();
        const View view(eye, lookat, up);
        EXPECT_TRUE(near(view.worldToViewPoint(eye), {0, 0, 0}, 20 * steps * epsilon));
        EXPECT_TRUE(near(view.worldToViewPoint(lookat), {0, 0, -length(lookat - eye)}, 20 * steps * epsilon));
        EXPECT_NEAR(view.worldToViewVector(up).x, 0.0, 2 * steps * epsilon);
        EXPECT_GT(view.worldToViewVector(up).y, 0.0);
    }
}

TEST(View, LookAtNeedsNoUpOfLengthOne) {
    EXPECT_TRUE(same(View({1, 2, 3}, {4, 5, 7}, {0, 1024, 0}), View({1, 2, 3}, {4, 5, 7}, {0, 1, 0})));
}

TEST(View, LookAtMakesEveryKindGeneral) {
    View view = withKinds(View{}, {1, 2, 4});
    view.lookAt({0, 0, 1}, {0, 0, 0}, {0, 1, 0});
    EXPECT_EQ(kinds(view), (Kinds{64, 64, 64}));
}

/// someView() after a look from the origin.
View looking(const Vec3& lookat, const Vec3& up) {
    View view = someView();
    view.lookAt({0, 0, 0}, lookat, up);
    return view;
}

TEST(View, LookAtAPointAtMostTheToleranceAwayChangesNothing) {
    ASSERT_EQ(std::sqrt(1e-7 * 1e-7), 1e-7);
    EXPECT_TRUE(same(looking({0, 0, 0}, {0, 1, 0}), someView()));
    EXPECT_TRUE(same(looking({1e-7, 0, 0}, {0, 1, 0}), someView()));
    EXPECT_EQ(looking({1.001e-7, 0, 0}, {0, 1, 0}).direction(), (Vec3{1, 0, 0}));
}

TEST(View, LookAtWithUpAtMostTheToleranceLongChangesNothing) {
    EXPECT_TRUE(same(looking({1, 0, 0}, {0, 0, 0}), someView()));
    EXPECT_TRUE(same(looking({1, 0, 0}, {0, 1e-7, 0}), someView()));
    EXPECT_EQ(looking({1, 0, 0}, {0, 1.001e-7, 0}).direction(), (Vec3{1, 0, 0}));
}

// The cosine of an angle a is 1 - a a / 2: the bound of 1e-7 lies at 4.47e-4 radians.
TEST(View, LookAtWithUpAlmostAlongTheDirectionChangesNothing) {
    EXPECT_TRUE(same(looking({3, 0, 0}, {2, 0, 0}), someView()));
    EXPECT_TRUE(same(looking({3, 0, 0}, {-2, 0, 0}), someView()));
    EXPECT_TRUE(same(looking({1, 0, 0}, {std::cos(4.4e-4), std::sin(4.4e-4), 0}), someView()));
    const View view = looking({1, 0, 0}, {std::cos(4.5e-4), std::sin(4.5e-4), 0});
    EXPECT_EQ(view.direction(), (Vec3{1, 0, 0}));
    EXPECT_TRUE(near(view.yAxis(), {0, 1, 0}, 1e-12)); // what lay along the direction is gone, 1/4.5e-4 of rounding
}

TEST(View, LookAtTakesAnEyeOfNaN) {
    View view = someView();
    view.lookAt({0, nan, 0}, {1, 0, 0}, {0, 1, 0});
    EXPECT_TRUE(isNaN(view.direction()));
    EXPECT_TRUE(std::isnan(view.eye().y));
    EXPECT_EQ(view.eye().x, 0.0);
}

TEST(View, LookAtTakesAnUpOfNaN) {
    EXPECT_EQ(looking({1, 0, 0}, {0, 0, nan}).direction(), (Vec3{1, 0, 0}));
    EXPECT_TRUE(isNaN(looking({1, 0, 0}, {0, 0, nan}).yAxis()));
}

TEST(View, StaysBlankWhereItsCreationIsRejected) {
    EXPECT_TRUE(same(View({1, 2, 3}, {1, 9, 3}, {0, 1, 0}), forged<View>(Mat4{}, Mat4{}, Mat3{}, Vec3{})));
}

TEST(ViewAlongAxis, KeepsTheDistanceOfAnyEyeFromAnyTarget) {
    Random random(121);
    for (int n = 0; n < 200; ++n) {
        const View before = randomView(random, 5.0);
        const Vec3 target = random.vector(5.0);
        const Vec3 axis = random.direction();
        View view = before;
        view.setViewAlongWorldAxis(target, axis * random.magnitude(0.01, 100.0), random.direction());
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
