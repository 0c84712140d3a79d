// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "impl/View.h"
#include "tests/impl/CameraTesting.h"

namespace qel::api::camera::test {
namespace {

using impl::View;
using math::Mat3;
using math::Mat4;
using math::MatrixKind;
using math::Vec3;

/// World to view from (5, 0, 0) along -x with z up.
const Mat4 fromXMatrix = rows4({{{0, 1, 0, 0}, {0, 0, 1, 0}, {1, 0, 0, -5}, {0, 0, 0, 1}}});
const Mat4 fromXTransform = rows4({{{0, 0, 1, 5}, {1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 0, 1}}});

TEST(ViewMatrix, GivenWholeMakesAllOtherParts) {
    View view;
    view.setViewMatrix(fromXMatrix);
    EXPECT_EQ(view.viewMatrix(), fromXMatrix);
    EXPECT_TRUE(near(view.eye(), {5, 0, 0}, 16 * epsilon));
    EXPECT_TRUE(near(view.direction(), {-1, 0, 0}, 4 * epsilon));
    EXPECT_TRUE(near(view.viewTransformMatrix(), fromXTransform, 0.0));
}

TEST(ViewMatrix, OfAnyPlacementPutsEverythingInStep) {
    Random random(141);
    for (int n = 0; n < 200; ++n) {
        const View wanted = randomView(random, 5.0);
        View view;
        view.setViewMatrix(wanted.viewMatrix());
        EXPECT_TRUE(near(view.rotation(), wanted.rotation(), 16 * epsilon));
        EXPECT_TRUE(near(view.eye(), wanted.eye(), 10 * steps * epsilon));
        EXPECT_TRUE(near(view.viewTransformMatrix(), wanted.viewTransformMatrix(), 10 * steps * epsilon));
    }
}

TEST(ViewMatrix, IsStoredWithoutOrthonormalising) {
    const Mat4 scaled = rows4({{{2, 0, 0, 2}, {0, 2, 0, 4}, {0, 0, 2, 6}, {7, 8, 9, 0.5}}});
    View view;
    view.setViewMatrix(scaled);
    EXPECT_EQ(view.viewMatrix(), scaled);
    // trace 6: r = sqrt(7), the quaternion (0, 0, 0, sqrt(7)/2) of no vector part makes the identity.
    EXPECT_EQ(view.rotation().mElements, Mat3{}.mElements);
    EXPECT_EQ(view.eye(), (Vec3{-2, -4, -6}));
    // The affine inverse: transposed, the last row dropped, the homogeneous scale inverted.
    EXPECT_EQ(view.viewTransformMatrix(), rows4({{{2, 0, 0, -8}, {0, 2, 0, -16}, {0, 0, 2, -24}, {0, 0, 0, 2}}}));
}

TEST(ViewMatrix, OfNaNIsTaken) {
    Mat4 matrix;
    matrix(0, 0) = nan;
    View view;
    view.setViewMatrix(matrix);
    EXPECT_TRUE(isNaN(view.direction()));
    EXPECT_TRUE(isNaN(view.eye()));
}

TEST(ViewMatrices, MayBeTheViewsOwn) {
    const View before = someView();
    View view = before;
    view.setViewMatrix(view.viewMatrix());
    EXPECT_TRUE(near(view.rotation(), before.rotation(), 16 * epsilon));
    EXPECT_EQ(view.viewMatrix(), before.viewMatrix());
    view = before;
    view.setViewTransformMatrix(view.viewMatrix());
    EXPECT_EQ(view.viewTransformMatrix(), before.viewMatrix());
    EXPECT_TRUE(near(view.rotation(), transposed(before.rotation()), 16 * epsilon));
}

TEST(ViewTransformMatrix, GivenWholeMakesEyeAndViewMatrix) {
    View view = someView();
    view.setViewTransformMatrix(fromXTransform);
    EXPECT_EQ(view.viewTransformMatrix(), fromXTransform);
    EXPECT_EQ(view.eye(), (Vec3{5, 0, 0}));
    EXPECT_TRUE(near(view.viewMatrix(), fromXMatrix, 0.0));
}

// Saved cameras depend on it: the rotation comes from the view matrix as it was, and is not transposed.
TEST(ViewTransformMatrix, LeavesTheTransposedRotationOfThePreviousPlacement) {
    const View before = someView();
    View view = before;
    view.setViewTransformMatrix(fromXTransform);
    EXPECT_TRUE(near(view.rotation(), transposed(before.rotation()), 16 * epsilon));
    const Vec3 thirdRow{before.rotation()(2, 0), before.rotation()(2, 1), before.rotation()(2, 2)};
    EXPECT_TRUE(near(view.direction(), -thirdRow, 16 * epsilon));
}

TEST(ViewTransformMatrix, IsPutInStepByTheNextLookAt) {
    View view = someView();
    view.setViewTransformMatrix(fromXTransform);
    view.lookAt({1, 2, 3}, {3, 2, 1}, {0, 1, 0});
    EXPECT_TRUE(consistent(view));
}

TEST(ViewMatrices, KeepTheirKindAndGiveItToTheirInverse) {
    Mat4 matrix = fromXMatrix;
    matrix.mKind = MatrixKind{48};
    View view;
    view.setViewMatrix(matrix);
    EXPECT_EQ(kinds(view), (Kinds{48, 48, 4}));
    view = View();
    view.setViewTransformMatrix(matrix);
    EXPECT_EQ(kinds(view), (Kinds{48, 48, 4}));
}

TEST(ViewTransformMatrix, IsStoredWithoutOrthonormalising) {
    const Mat4 scaled = rows4({{{2, 0, 0, 1}, {0, 2, 0, 2}, {0, 0, 2, 3}, {7, 8, 9, 1}}});
    View view;
    view.setViewTransformMatrix(scaled);
    EXPECT_EQ(view.viewTransformMatrix(), scaled);
    EXPECT_EQ(view.viewMatrix(), rows4({{{2, 0, 0, -2}, {0, 2, 0, -4}, {0, 0, 2, -6}, {0, 0, 0, 1}}}));
    EXPECT_EQ(view.eye(), (Vec3{1, 2, 3}));
}

TEST(ViewTransformMatrix, OfHomogeneousScaleZeroHasAnInverseWithoutTranslation) {
    Mat4 matrix = fromXTransform;
    matrix(3, 3) = 0.0;
    View view;
    view.setViewTransformMatrix(matrix);
    EXPECT_EQ(translation(view.viewMatrix()), Vec3{});
    EXPECT_EQ(view.viewMatrix()(3, 3), 0.0);
}

TEST(ViewTransforms, TakeAPointByTheWholeMatrixAndAVectorWithoutTheTranslation) {
    const View view({5, 0, 0}, {0, 0, 0}, {0, 0, 1});
    EXPECT_EQ(view.worldToViewPoint({1, 2, 3}), (Vec3{2, 3, -4}));
    EXPECT_EQ(view.viewToWorldPoint({2, 3, -4}), (Vec3{1, 2, 3}));
    EXPECT_EQ(view.worldToViewVector({1, 2, 3}), (Vec3{2, 3, 1}));
    EXPECT_EQ(view.viewToWorldVector({2, 3, 1}), (Vec3{1, 2, 3}));
}

/// Both matrices given, so that their last rows can be anything, and neither rotation nor eye can stand for them.
View withMatrices(const Mat4& viewTransformMatrix, const Mat4& viewMatrix) {
    return forged<View>(viewTransformMatrix, viewMatrix, Mat3{}, Vec3{});
}

Mat4 movingWithLastRow(double x, double w) {
    return rows4({{{1, 0, 0, 10}, {0, 1, 0, 20}, {0, 0, 1, 30}, {x, 0, 0, w}}});
}

TEST(ViewTransforms, DivideAVectorByTheWThatTheLastRowMakesButNotByATraceOfIt) {
    const Mat4 half = movingWithLastRow(0.5, 1);
    EXPECT_EQ(withMatrices(Mat4{}, half).worldToViewVector({1, 2, 3}), (Vec3{2, 4, 6}));
    EXPECT_EQ(withMatrices(half, Mat4{}).viewToWorldVector({1, 2, 3}), (Vec3{2, 4, 6}));
    const Mat4 trace = movingWithLastRow(0.00005, 1);
    EXPECT_EQ(withMatrices(Mat4{}, trace).worldToViewVector({1, 2, 3}), (Vec3{1, 2, 3}));
    EXPECT_EQ(withMatrices(trace, Mat4{}).viewToWorldVector({1, 2, 3}), (Vec3{1, 2, 3}));
}

TEST(ViewTransforms, NeverDivideTheTranslationOfAPoint) {
    const Mat4 half = movingWithLastRow(0.5, 1);
    EXPECT_EQ(withMatrices(Mat4{}, half).worldToViewPoint({1, 2, 3}), (Vec3{12, 24, 36}));
    EXPECT_EQ(withMatrices(half, Mat4{}).viewToWorldPoint({1, 2, 3}), (Vec3{12, 24, 36}));
    EXPECT_EQ(withMatrices(Mat4{}, movingWithLastRow(0, 4)).worldToViewPoint({1, 2, 3}), (Vec3{11, 22, 33}));
}

TEST(ViewTransforms, DivideByAWOfNaN) {
    Mat4 matrix;
    matrix(3, 3) = nan;
    EXPECT_TRUE(isNaN(withMatrices(Mat4{}, matrix).worldToViewVector({1, 2, 3})));
    EXPECT_TRUE(isNaN(withMatrices(matrix, Mat4{}).viewToWorldPoint({1, 2, 3})));
}

} // namespace
} // namespace qel::api::camera::test
