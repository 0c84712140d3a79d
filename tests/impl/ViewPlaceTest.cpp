// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>

#include "impl/View.h"
#include "tests/impl/CameraTesting.h"

namespace qel::api::camera::test {
namespace {

using impl::View;
using math::Mat3;
using math::Mat4;
using math::Quat;
using math::Vec3;

/// Looks from (5, 0, 0) along -x with z up: x axis (0, 1, 0), y axis (0, 0, 1), z axis (1, 0, 0).
View fromX() { return {{5, 0, 0}, {0, 0, 0}, {0, 0, 1}}; }

TEST(View, SetEyeMovesBothMatrices) {
    View view = fromX();
    view.setEye({1, 2, 3});
    EXPECT_EQ(view.eye(), (Vec3{1, 2, 3}));
    EXPECT_EQ(translation(view.viewTransformMatrix()), (Vec3{1, 2, 3}));
    EXPECT_EQ(translation(view.viewMatrix()), (Vec3{-2, -3, -1}));
    EXPECT_TRUE(consistent(view));
}

TEST(View, SetEyeTakesTheRotationNotTheViewMatrix) {
    Mat3 rotation;
    rotation(0, 0) = 2.0;
    View view = forged<View>(Mat4{}, Mat4{}, rotation, Vec3{});
    view.setEye({1, 1, 1});
    EXPECT_EQ(translation(view.viewMatrix()), (Vec3{-2, -1, -1}));
}

TEST(View, SetEyeAddsATranslationToTheKindOfEachMatrixByItself) {
    const auto moved = [](const Kinds& words) {
        return kinds(after(withKinds(View(), words), [](View& view) { view.setEye({1, 2, 3}); }));
    };
    EXPECT_EQ(moved({1, 1, 1}), (Kinds{2, 2, 1}));
    EXPECT_EQ(moved({4, 4, 4}), (Kinds{16, 16, 4}));
    EXPECT_EQ(moved({1, 4, 1}), (Kinds{2, 16, 1}));
    for (const std::uint32_t word : {0U, 2U, 16U, 32U, 64U, 33U}) {
        EXPECT_EQ(moved({word, word, word}), (Kinds{word, word, word}));
    }
}

TEST(View, SetEyeTakesNaN) {
    View view = fromX();
    view.setEye({nan, 2, 3});
    EXPECT_TRUE(std::isnan(view.eye().x));
    EXPECT_TRUE(std::isnan(view.viewTransformMatrix()(0, 3)));
    EXPECT_TRUE(isNaN(translation(view.viewMatrix()))); // every row sums over all coordinates
    EXPECT_EQ(view.direction(), (Vec3{-1, 0, 0}));
}

TEST(View, TranslatesAlongItsOwnAxesOrTheWorlds) {
    View view = fromX();
    view.translateInViewSpace({10, 20, 30});
    EXPECT_EQ(view.eye(), (Vec3{35, 10, 20}));
    EXPECT_EQ(view.rotation(), fromX().rotation());
    EXPECT_TRUE(consistent(view));
    view.translateInWorldSpace({10, 20, 30});
    EXPECT_EQ(view.eye(), (Vec3{45, 30, 50}));
    EXPECT_EQ(view.rotation(), fromX().rotation());
    EXPECT_TRUE(consistent(view));
}

TEST(View, TranslatingByAtMostTheToleranceChangesNothingNotEvenTheKinds) {
    const View before = withKinds(someView(), {1, 4, 1});
    for (const Vec3& offset : {Vec3{0, 0, 0}, Vec3{0, -0.0, 0}, Vec3{0, 1e-7, 0}, Vec3{0, 0, -1e-7}}) {
        EXPECT_TRUE(unchanged(before, [&](View& view) { view.translateInViewSpace(offset); }));
        EXPECT_TRUE(unchanged(before, [&](View& view) { view.translateInWorldSpace(offset); }));
    }
}

TEST(View, TranslatingByMoreThanTheToleranceMoves) {
    View inView;
    inView.translateInViewSpace({0, 1.001e-7, 0});
    EXPECT_EQ(inView.eye(), (Vec3{0, 1.001e-7, 0}));
    View inWorld;
    inWorld.translateInWorldSpace({0, 0, -1.001e-7});
    EXPECT_EQ(inWorld.eye(), (Vec3{0, 0, -1.001e-7}));
}

TEST(View, TranslatesByNaN) {
    View inView;
    inView.translateInViewSpace({0, nan, 0});
    EXPECT_TRUE(isNaN(inView.eye())); // each world coordinate sums over all of the view's
    View inWorld;
    inWorld.translateInWorldSpace({0, nan, 0});
    EXPECT_TRUE(std::isnan(inWorld.eye().y));
    EXPECT_EQ(inWorld.eye().x, 0.0);
}

TEST(View, SetOrientationTurnsTheViewWhereItStands) {
    View view = fromX();
    // A quarter turn about the world's z from the default orientation: x to y.
    view.setOrientation({0, 0, std::sqrt(0.5), std::sqrt(0.5)});
    EXPECT_TRUE(near(view.rotation(), rows3({{{0, -1, 0}, {1, 0, 0}, {0, 0, 1}}}), 4 * epsilon));
    EXPECT_EQ(view.eye(), (Vec3{5, 0, 0}));
    EXPECT_TRUE(near(translation(view.viewMatrix()), {0, 5, 0}, 32 * epsilon));
    EXPECT_TRUE(consistent(view));
}

TEST(View, SetOrientationNormalisesWhatIsLongEnough) {
    ASSERT_EQ(math::length(Quat{1e-4, 0, 0, 0}), 1e-4);
    View view;
    view.setOrientation({0, 0, 0, 7});
    EXPECT_EQ(view.rotation().mElements, Mat3{}.mElements);
    for (const double length : {3.0, 1e-4}) { // a half turn about x
        view.setOrientation({length, 0, 0, 0});
        EXPECT_EQ(view.rotation().mElements, rows3({{{1, 0, 0}, {0, -1, 0}, {0, 0, -1}}}).mElements);
    }
}

TEST(View, SetOrientationUsesAQuaternionTooShortAsGiven) {
    const double x = justBelow(1e-4);
    View view;
    view.setOrientation({x, 0, 0, 0});
    EXPECT_EQ(view.rotation(), rows3({{{1, 0, 0}, {0, 1.0 - 2.0 * x * x, 0}, {0, 0, 1.0 - 2.0 * x * x}}}));
    view.setOrientation({0, 0, 0, 0});
    EXPECT_EQ(view.rotation().mElements, Mat3{}.mElements);
}

TEST(View, SetOrientationTakesNaN) {
    View view;
    view.setOrientation({0, 0, nan, 1});
    EXPECT_TRUE(std::isnan(view.rotation()(0, 0)));
    EXPECT_EQ(view.rotation()(2, 2), 1.0); // not normalised, so x and y are the zeros that were given
}

TEST(View, SetOrientationMovesTheKindsOfViewMatrixAndRotation) {
    const auto turned = [](const Kinds& words) {
        return kinds(after(withKinds(View(), words), [](View& view) { view.setOrientation({0, 1, 0, 1}); }));
    };
    EXPECT_EQ(turned({64, 64, 2}), (Kinds{64, 64, 4}));
    EXPECT_EQ(turned({1, 1, 1}), (Kinds{1, 2, 4}));
    EXPECT_EQ(turned({4, 4, 4}), (Kinds{4, 16, 4}));
}

TEST(View, SetOrientationKeepsWhatStandsInTheLastRows) {
    Mat4 matrix;
    matrix(3, 0) = 7.0;
    matrix(3, 3) = 8.0;
    View view = forged<View>(matrix, matrix, Mat3{}, Vec3{});
    view.setOrientation({0, 1, 0, 1});
    EXPECT_EQ(view.viewMatrix()(3, 0), 7.0);
    EXPECT_EQ(view.viewTransformMatrix()(3, 3), 8.0);
}

} // namespace
} // namespace qel::api::camera::test
