// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "tests/component/support/Calls.h"
#include "tests/component/support/ExpectValues.h"

namespace qel::api::camera::test {

namespace {

using std::numbers::pi;
const double sqrtHalf = std::sqrt(0.5);

class ViewOperations : public ValueTest {
protected:
    ViewStateResult mResult;
    VectorResult mVector;
};

TEST_F(ViewOperations, CreateDefaultStandsAtTheOriginLookingDownZ) {
    mService->viewCreateDefault(mResult);
    const Rows identity{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    EXPECT_EQ(mResult.mValue.mViewMatrix.mData, identity);
    EXPECT_EQ(mResult.mValue.mViewTransformMatrix.mData, identity);
    EXPECT_EQ(mResult.mValue.mEye.mData, (std::vector<double>{0, 0, 0}));
    EXPECT_EQ(mResult.mValue.mDirection.mData, (std::vector<double>{0, 0, -1}));
    EXPECT_EQ(mResult.mValue.mOrientation.mData, (std::vector<double>{0, 0, 0, 1}));
    EXPECT_EQ(wordAt(mResult.mValue.mPrivate, at::viewMatrix + kindOf4x4), 64U);
}

TEST_F(ViewOperations, CreateLooksFromTheEyeAtAPoint) {
    mService->viewCreate(mResult, vectorOf(5, 0, 0), vectorOf(0, 0, 0), vectorOf(0, 1, 0));
    EXPECT_EQ(mResult.mValue.mViewMatrix.mData, (Rows{{0, 0, -1, 0}, {0, 1, 0, 0}, {1, 0, 0, -5}, {0, 0, 0, 1}}));
    EXPECT_EQ(mResult.mValue.mViewTransformMatrix.mData,
              (Rows{{0, 0, 1, 5}, {0, 1, 0, 0}, {-1, 0, 0, 0}, {0, 0, 0, 1}}));
    EXPECT_EQ(mResult.mValue.mDirection.mData, (std::vector<double>{-1, 0, 0}));
    // A quarter turn about y takes -z to -x.
    expectNear(mResult.mValue.mOrientation.mData, {0, sqrtHalf, 0, sqrtHalf});
}

TEST_F(ViewOperations, SetEyeMovesWithoutTurning) {
    mService->viewSetEye(mResult, viewFromX(), vectorOf(1, 2, 3));
    EXPECT_EQ(mResult.mValue.mEye.mData, (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(mResult.mValue.mDirection.mData, (std::vector<double>{-1, 0, 0}));
    // -(axis . eye) for the axes (0, 0, -1), (0, 1, 0), (1, 0, 0)
    EXPECT_EQ(mResult.mValue.mViewMatrix.mData, (Rows{{0, 0, -1, 3}, {0, 1, 0, -2}, {1, 0, 0, -1}, {0, 0, 0, 1}}));
}

TEST_F(ViewOperations, SetViewAlongWorldAxisKeepsTheDistance) {
    const ViewState start = viewFrom(vectorOf(0, 0, 5), vectorOf(0, 0, 0));
    mService->viewSetViewAlongWorldAxis(mResult, start, vectorOf(0, 0, 0), vectorOf(3, 0, 0), vectorOf(0, 1, 0));
    expectNear(mResult.mValue.mEye, {-5, 0, 0});
    expectNear(mResult.mValue.mDirection, {1, 0, 0});
}

TEST_F(ViewOperations, SetOrientationTakesAnyLength) {
    mService->viewSetOrientation(mResult, defaultView(), quaternionOf(0, 3, 0, 3)); // a quarter turn about y
    expectNear(mResult.mValue.mDirection, {-1, 0, 0});
    expectNear(mResult.mValue.mOrientation.mData, {0, sqrtHalf, 0, sqrtHalf});
}

TEST_F(ViewOperations, UpdateLookatReplacesThePlacement) {
    mService->viewUpdateLookat(mResult, defaultView(), vectorOf(5, 0, 0), vectorOf(0, 0, 0), vectorOf(0, 1, 0));
    EXPECT_EQ(mResult.mValue.mPrivate, viewFromX().mPrivate);
}

TEST_F(ViewOperations, SetViewMatrixTakesTheMatrixAndDerivesTheRest) {
    const Rows rows{{0, 1, 0, 1}, {-1, 0, 0, 2}, {0, 0, 1, 3}, {0, 0, 0, 1}};
    mService->viewSetViewMatrix(mResult, defaultView(), matrixOf(rows));
    EXPECT_EQ(mResult.mValue.mViewMatrix.mData, rows);
    // The columns of the rotation are the rows (0,1,0), (-1,0,0), (0,0,1). Eye: -(1*(0,1,0) + 2*(-1,0,0) + 3*(0,0,1)).
    expectNear(mResult.mValue.mEye, {2, -1, -3});
    expectNear(mResult.mValue.mViewTransformMatrix, {{0, -1, 0, 2}, {1, 0, 0, -1}, {0, 0, 1, -3}, {0, 0, 0, 1}});
    expectNear(mResult.mValue.mDirection, {0, 0, -1});
}

TEST_F(ViewOperations, SetViewTransformMatrixKeepsTheDirectionOfThePreviousView) {
    const Rows rows{{0, -1, 0, 4}, {1, 0, 0, 5}, {0, 0, 1, 6}, {0, 0, 0, 1}};
    mService->viewSetViewTransformMatrix(mResult, viewFromX(), matrixOf(rows));
    EXPECT_EQ(mResult.mValue.mViewTransformMatrix.mData, rows);
    EXPECT_EQ(mResult.mValue.mEye.mData, (std::vector<double>{4, 5, 6}));
    // The inverse: rows (0,1,0), (-1,0,0), (0,0,1), and -(5, -4, 6).
    EXPECT_EQ(mResult.mValue.mViewMatrix.mData, (Rows{{0, 1, 0, -5}, {-1, 0, 0, 4}, {0, 0, 1, -6}, {0, 0, 0, 1}}));
    // The previous rotation, columns (0,0,-1), (0,1,0), (1,0,0), has the third row (-1, 0, 0); the direction is that
    // row negated, and not the negated third column of the new matrix, which would be (0, 0, -1).
    expectNear(mResult.mValue.mDirection, {1, 0, 0});
}

TEST_F(ViewOperations, YawPitchAndRollTurnByTwiceTheAngle) {
    mService->viewYaw(mResult, defaultView(), pi / 4);
    expectNear(mResult.mValue.mDirection, {-1, 0, 0});
    mService->viewPitch(mResult, defaultView(), pi / 4);
    expectNear(mResult.mValue.mDirection, {0, 1, 0});
    mService->viewRoll(mResult, defaultView(), pi / 4);
    expectNear(mResult.mValue.mDirection, {0, 0, -1});
    expectNear(mResult.mValue.mViewTransformMatrix, {{0, -1, 0, 0}, {1, 0, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}});
}

TEST_F(ViewOperations, YawPitchRollTurnsByTheAngle) {
    mService->viewYawPitchRoll(mResult, defaultView(), pi / 4, 0, 0);
    expectNear(mResult.mValue.mDirection, {-sqrtHalf, 0, -sqrtHalf});
    mService->viewYawPitchRoll(mResult, defaultView(), 0, pi / 2, 0);
    expectNear(mResult.mValue.mDirection, {0, 1, 0});
    mService->viewYawPitchRoll(mResult, defaultView(), 0, 0, pi / 2);
    expectNear(mResult.mValue.mViewTransformMatrix, {{0, -1, 0, 0}, {1, 0, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}});
    // Pitch comes first: up to +y, and the yaw about y then leaves that direction alone.
    mService->viewYawPitchRoll(mResult, defaultView(), 1.0, pi / 2, 0);
    expectNear(mResult.mValue.mDirection, {0, 1, 0});
}

TEST_F(ViewOperations, TranslationsFollowTheViewsAxesOrTheWorlds) {
    mService->viewTranslateInViewSpace(mResult, viewFromX(), vectorOf(1, 2, 3));
    EXPECT_EQ(mResult.mValue.mEye.mData, (std::vector<double>{5 + 3, 2, -1}));
    mService->viewTranslateInWorldSpace(mResult, viewFromX(), vectorOf(1, 2, 3));
    EXPECT_EQ(mResult.mValue.mEye.mData, (std::vector<double>{6, 2, 3}));
}

TEST_F(ViewOperations, RotateAboutWorldAxisCarriesTheEyeRoundThePivot) {
    const ViewState start = viewFrom(vectorOf(0, 0, 5), vectorOf(0, 0, 0));
    mService->viewRotateAboutWorldAxis(mResult, start, vectorOf(0, 0, 0), vectorOf(0, 2, 0), pi / 2, 0);
    expectNear(mResult.mValue.mEye, {5, 0, 0});
    expectNear(mResult.mValue.mDirection, {-1, 0, 0});
    // The tilt axis is (0,1,0) x (0,0,1) = (1,0,0): the eye goes down by 5 sin(0.3).
    mService->viewRotateAboutWorldAxis(mResult, start, vectorOf(0, 0, 0), vectorOf(0, 1, 0), 0, 0.3);
    expectNear(mResult.mValue.mEye, {0, -5 * std::sin(0.3), 5 * std::cos(0.3)});
}

TEST_F(ViewOperations, RotateAboutViewAxesTurnsAboutTheViewsOwnY) {
    ViewStateResult lying; // y is the world's -x, z stays
    mService->viewYawPitchRoll(lying, viewFrom(vectorOf(0, 0, 5), vectorOf(0, 0, 0)), 0, 0, pi / 2);
    mService->viewRotateAboutViewAxes(mResult, lying.mValue, vectorOf(0, 0, 0), pi / 2, 0);
    // A quarter turn about -x takes +z to +y.
    expectNear(mResult.mValue.mEye, {0, 5, 0});
    expectNear(mResult.mValue.mDirection, {0, -1, 0});
}

TEST_F(ViewOperations, TransformsGoThroughThePlacement) {
    const ViewState view = viewFromX();
    mService->viewTransformWorldVectorToViewVector(mVector, view, vectorOf(1, 2, 3));
    EXPECT_EQ(mVector.mValue.mData, (std::vector<double>{-3, 2, 1}));
    mService->viewTransformViewVectorToWorldVector(mVector, view, vectorOf(1, 2, 3));
    EXPECT_EQ(mVector.mValue.mData, (std::vector<double>{3, 2, -1}));
    mService->viewTransformWorldPointToViewPoint(mVector, view, vectorOf(1, 2, 3));
    EXPECT_EQ(mVector.mValue.mData, (std::vector<double>{-3, 2, 1 - 5}));
    mService->viewTransformViewPointToWorldPoint(mVector, view, vectorOf(1, 2, 3));
    EXPECT_EQ(mVector.mValue.mData, (std::vector<double>{3 + 5, 2, -1}));
}

} // namespace

} // namespace qel::api::camera::test
