// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "tests/component/support/Calls.h"
#include "tests/component/support/ExpectValues.h"

namespace qel::api::camera::test {

namespace {

using std::numbers::pi;

class ProjectionOperations : public ValueTest {
protected:
    [[nodiscard]] ProjectionState defaultProjection() const {
        ProjectionStateResult result;
        mService->projectionCreateDefault(result);
        return result.mValue;
    }

    ProjectionStateResult mResult;
    DoubleResult mNumber;
};

TEST_F(ProjectionOperations, CreateDefaultIs45DegreesAt4To3) {
    mService->projectionCreateDefault(mResult);
    const double top = 0.01 * std::tan(pi / 8);
    expectFrustum(mResult.mValue, {-top * 4 / 3, top * 4 / 3, -top, top, 0.01, 10000}, 1e-17);
    EXPECT_EQ(mResult.mValue.mProjectionType, ProjectionType::PERSPECTIVE);
    const double cot = 1 / std::tan(pi / 8);
    const double depth = 10000.0 - 0.01;
    expectNear(
        mResult.mValue.mProjectionMatrix,
        {{cot * 3 / 4, 0, 0, 0}, {0, cot, 0, 0}, {0, 0, -10000.01 / depth, -2 * 10000 * 0.01 / depth}, {0, 0, -1, 0}});
    mService->projectionGetHFoV(mNumber, mResult.mValue);
    EXPECT_NEAR(mNumber.mValue, 2 * std::atan(4.0 / 3 * std::tan(pi / 8)), rounding);
    mService->projectionGetVFoV(mNumber, mResult.mValue);
    EXPECT_NEAR(mNumber.mValue, pi / 4, rounding);
    mService->projectionGetAspectRatio(mNumber, mResult.mValue);
    EXPECT_NEAR(mNumber.mValue, 4.0 / 3, rounding);
}

TEST_F(ProjectionOperations, CreateWithAnInvalidFrustumIsTheDefault) {
    for (const Frustum& invalid : {frustumOf(1, 1, -1, 1, 1, 3), frustumOf(-1, 1, 2, 1, 1, 3),
                                   frustumOf(-1, 1, -1, 1, 1e-7, 3), frustumOf(-1, 1, -1, 1, 3, 3)}) {
        mService->projectionCreate(mResult, invalid, ProjectionType::ORTHOGRAPHIC);
        expectSuccess(mResult);
        EXPECT_EQ(fingerprint(mResult.mValue), fingerprint(defaultProjection()));
    }
}

TEST_F(ProjectionOperations, SetFrustumChangesTheTypeToo) {
    mService->projectionSetFrustum(mResult, defaultProjection(), frustumOf(-1, 1, -1, 1, 1, 3),
                                   ProjectionType::ORTHOGRAPHIC);
    EXPECT_EQ(mResult.mValue.mProjectionType, ProjectionType::ORTHOGRAPHIC);
    EXPECT_EQ(mResult.mValue.mProjectionMatrix.mData, (Rows{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, -1, -2}, {0, 0, 0, 1}}));
}

TEST_F(ProjectionOperations, TypesThatAreNotInTheTableArePerspective) {
    for (const int type : {-1, 2, 17}) {
        mService->projectionSetFrustum(mResult, defaultProjection(), frustumOf(-1, 1, -1, 1, 1, 3),
                                       static_cast<ProjectionType::type>(type));
        EXPECT_EQ(fingerprint(mResult.mValue), fingerprint(perspective(frustumOf(-1, 1, -1, 1, 1, 3))));
    }
}

TEST_F(ProjectionOperations, SetHFoVKeepsTheAspectRatio) {
    mService->projectionSetHFoV(mResult, perspective(frustumOf(-2, 2, -1, 1, 1, 10)), pi / 2);
    expectFrustum(mResult.mValue, {-1, 1, -0.5, 0.5, 1, 10});
}

TEST_F(ProjectionOperations, SetVFoVKeepsTheAspectRatio) {
    mService->projectionSetVFoV(mResult, perspective(frustumOf(-2, 2, -0.5, 0.5, 1, 10)), pi / 2);
    expectFrustum(mResult.mValue, {-4, 4, -1, 1, 1, 10});
}

TEST_F(ProjectionOperations, SetFoVSetsBothAngles) {
    mService->projectionSetFoV(mResult, perspective(frustumOf(-2, 2, -2, 2, 1, 10)), pi / 2, 2 * std::atan(0.5));
    expectFrustum(mResult.mValue, {-1, 1, -0.5, 0.5, 1, 10});
}

TEST_F(ProjectionOperations, GettersMeasureTheFrustum) {
    const ProjectionState state = perspective(frustumOf(-1, std::sqrt(3.0), -4, 4, 1, 10));
    mService->projectionGetHFoV(mNumber, state);
    EXPECT_NEAR(mNumber.mValue, pi / 4 + pi / 3, rounding);
    mService->projectionGetVFoV(mNumber, state);
    EXPECT_NEAR(mNumber.mValue, 2 * std::atan(4.0), rounding);
    mService->projectionGetAspectRatio(mNumber, state);
    EXPECT_NEAR(mNumber.mValue, (1 + std::sqrt(3.0)) / 8, rounding);
}

TEST_F(ProjectionOperations, SetAspectRatioScalesTheHeightAboutZero) {
    const ProjectionState start = perspective(frustumOf(-4, 4, -1, 3, 1, 10));
    mService->projectionSetAspectRatio(mResult, start, 1);
    expectFrustum(mResult.mValue, {-4, 4, -2, 6, 1, 10});
}

TEST_F(ProjectionOperations, SetNearKeepsTheAnglesOrTheSides) {
    mService->projectionSetNear(mResult, perspective(frustumOf(-1, 1, -1, 1, 1, 10)), 2);
    expectFrustum(mResult.mValue, {-2, 2, -2, 2, 2, 10});
    mService->projectionSetNear(mResult, orthographic(frustumOf(-1, 1, -1, 1, 1, 10)), 2);
    expectFrustum(mResult.mValue, {-1, 1, -1, 1, 2, 10});
}

TEST_F(ProjectionOperations, SetFarMovesTheFarPlaneAlone) {
    const ProjectionState start = perspective(frustumOf(-1, 1, -1, 1, 1, 10));
    mService->projectionSetFar(mResult, start, 3);
    EXPECT_EQ(fingerprint(mResult.mValue), fingerprint(perspective(frustumOf(-1, 1, -1, 1, 1, 3))));
}

TEST_F(ProjectionOperations, UpdatePerspectiveIsSymmetric) {
    const ProjectionState start = orthographic(frustumOf(-3, 1, -1, 1, 1, 10));
    mService->projectionUpdatePerspective(mResult, start, pi / 2, 2, 1, 10);
    expectFrustum(mResult.mValue, {-2, 2, -1, 1, 1, 10});
    EXPECT_EQ(mResult.mValue.mProjectionType, ProjectionType::PERSPECTIVE);
}

TEST_F(ProjectionOperations, UpdateOrthographicIsSymmetric) {
    const ProjectionState start = defaultProjection();
    mService->projectionUpdateOrthographic(mResult, start, 4, 2, 1, 3);
    expectFrustum(mResult.mValue, {-2, 2, -1, 1, 1, 3});
    EXPECT_EQ(mResult.mValue.mProjectionMatrix.mData,
              (Rows{{0.5, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, -1, -2}, {0, 0, 0, 1}}));
}

TEST_F(ProjectionOperations, SetProjectionMatrixDerivesTheFrustumFromThePreviousInverse) {
    const Rows rows{{5, 0, 0, 1}, {0, 6, 0, 2}, {0, 0, 7, 3}, {0, 0, -1, 0}};
    mService->projectionSetProjectionMatrix(mResult, perspective(frustumOf(-1, 3, -1, 1, 1, 3)), matrixOf(rows),
                                            ProjectionType::ORTHOGRAPHIC);
    EXPECT_EQ(mResult.mValue.mProjectionMatrix.mData, rows);
    EXPECT_EQ(mResult.mValue.mProjectionType, ProjectionType::ORTHOGRAPHIC);
    // The sides of the old frustum, and the z of its near and far plane as they are: behind the sign of distances.
    expectFrustum(mResult.mValue, {-1, 3, -1, 1, -1, -3});
    mService->projectionGetAspectRatio(mNumber, mResult.mValue);
    EXPECT_NEAR(mNumber.mValue, 2.0, rounding) << "of the previous projection";
    const ProjectionState before = perspective(frustumOf(-1, 3, -1, 1, 1, 3));
    EXPECT_EQ(mResult.mValue.mPrivate.substr(at::projectionInverse, 136),
              before.mPrivate.substr(at::projectionInverse, 136));
}

TEST_F(ProjectionOperations, ZoomScalesAboutTheCentre) {
    const ProjectionState start = perspective(frustumOf(-1, 3, -1, 1, 1, 10));
    mService->projectionZoom(mResult, start, 2);
    expectFrustum(mResult.mValue, {-3, 5, -2, 2, 1, 10});
}

} // namespace

} // namespace qel::api::camera::test
