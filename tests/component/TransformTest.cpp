// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "tests/component/support/Calls.h"
#include "tests/component/support/ExpectValues.h"

namespace qel::api::camera::test {

namespace {

class TransformOperations : public ValueTest {
protected:
    /// From (5, 0, 0) at the origin: view (x, y, z) is world (5 + z, y, -x).
    [[nodiscard]] PlanarCameraState cameraFromX(const ProjectionState& projection) const {
        return camera(viewFromX(), projection, surface(640, 480));
    }
    [[nodiscard]] PlanarCameraState parallel() const {
        return cameraFromX(orthographic(frustumOf(-4, 4, -3, 3, 1, 3)));
    }
    [[nodiscard]] PlanarCameraState central() const { return cameraFromX(perspective(frustumOf(-4, 4, -3, 3, 1, 3))); }
    [[nodiscard]] const std::vector<double>& value() const { return mResult.mValue.mData; }

    VectorResult mResult;
};

TEST_F(TransformOperations, ScreenPointToViewPoint) {
    // Device space (0.5, 0.5): half of 4 and 3. The depth 0.5 is 0 in device space, between near and far.
    mService->transformScreenPointToViewPoint(mResult, parallel(), 480, 360, 0.5);
    expectNear(mResult.mValue, {2, 1.5, -2});
    // The depth 0.75 is 0.5 in device space: w = -3 / (0.5 - 2) = 2, the distance.
    mService->transformScreenPointToViewPoint(mResult, central(), 480, 360, 0.75);
    expectNear(mResult.mValue, {4, 3, -2});
}

TEST_F(TransformOperations, ScreenPointToWorldPoint) {
    mService->transformScreenPointToWorldPoint(mResult, parallel(), 480, 360, 0.5);
    expectNear(mResult.mValue, {3, 1.5, -2});
    mService->transformScreenPointToWorldPoint(mResult, central(), 480, 360, 0.75);
    expectNear(mResult.mValue, {3, 3, -4});
}

TEST_F(TransformOperations, ViewPointToScreenPoint) {
    mService->transformViewPointToScreenPoint(mResult, parallel(), vectorOf(2, 1.5, -2));
    expectNear(mResult.mValue, {480, 360, 0.5});
    mService->transformViewPointToScreenPoint(mResult, central(), vectorOf(4, 3, -2));
    expectNear(mResult.mValue, {480, 360, 0.75});
}

TEST_F(TransformOperations, WorldPointToScreenPoint) {
    mService->transformWorldPointToScreenPoint(mResult, parallel(), vectorOf(3, 1.5, -2));
    expectNear(mResult.mValue, {480, 360, 0.5});
    mService->transformWorldPointToScreenPoint(mResult, central(), vectorOf(3, 3, -4));
    expectNear(mResult.mValue, {480, 360, 0.75});
}

TEST_F(TransformOperations, BetweenWorldAndView) {
    const PlanarCameraState state = parallel();
    mService->transformWorldPointToViewPoint(mResult, state, vectorOf(1, 2, 3));
    EXPECT_EQ(value(), (std::vector<double>{-3, 2, -4}));
    mService->transformWorldVectorToViewVector(mResult, state, vectorOf(1, 2, 3));
    EXPECT_EQ(value(), (std::vector<double>{-3, 2, 1}));
    mService->transformViewPointToWorldPoint(mResult, state, vectorOf(1, 2, 3));
    EXPECT_EQ(value(), (std::vector<double>{8, 2, -1}));
    mService->transformViewVectorToWorldVector(mResult, state, vectorOf(1, 2, 3));
    EXPECT_EQ(value(), (std::vector<double>{3, 2, -1}));
}

TEST_F(TransformOperations, ScreenVectorsAreTheFirstPointLessTheSecond) {
    mService->transformScreenVectorToViewVector(mResult, central(), 480, 360, 0.75, 320, 240, 0.75);
    expectNear(mResult.mValue, {4, 3, 0});
    mService->transformScreenVectorToViewVector(mResult, central(), 320, 240, 0.75, 480, 360, 0.75);
    expectNear(mResult.mValue, {-4, -3, 0});
    mService->transformScreenVectorToViewVector(mResult, parallel(), 320, 240, 0, 320, 240, 1);
    expectNear(mResult.mValue, {0, 0, 2});
    mService->transformScreenVectorToWorldVector(mResult, central(), 480, 360, 0.75, 320, 240, 0.75);
    expectNear(mResult.mValue, {0, 3, -4});
}

} // namespace

} // namespace qel::api::camera::test
