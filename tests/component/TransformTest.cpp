// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

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
    /// At the origin, one pixel to a unit, from (-256, -256) on.
    [[nodiscard]] PlanarCameraState unitPixels() const {
        return camera(defaultView(), orthographic(frustumOf(-256, 256, -256, 256, 1, 3)), surface(512, 512));
    }

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

TEST_F(TransformOperations, PixelsAreRoundedHalvesAwayFromZeroAndDepthsAreNot) {
    mService->transformViewPointToScreenPoint(mResult, unitPixels(), vectorOf(-245.5, -266.5, -1.5));
    EXPECT_EQ(value(), (std::vector<double>{11, -11, 0.25})); // 10.5 and -10.5
    mService->transformViewPointToScreenPoint(mResult, unitPixels(), vectorOf(-256.25, -256.5, -1));
    EXPECT_EQ(value(), (std::vector<double>{0, -1, 0}));
    EXPECT_FALSE(std::signbit(value()[0])) << "-0.25 is pixel 0, never -0";
}

TEST_F(TransformOperations, PixelsThatAreNoWholeNumbersPassThrough) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    mService->transformViewPointToScreenPoint(mResult, unitPixels(), vectorOf(1e300, -1e300, -2));
    EXPECT_EQ(value(), (std::vector<double>{1e300, -1e300, 0.5}));
    // Infinite by overflow: 256 times 1e308.
    mService->transformViewPointToScreenPoint(
        mResult, camera(defaultView(), orthographic(frustumOf(-1, 1, -1, 1, 1, 3)), surface(512, 512)),
        vectorOf(1e308, -1e308, -2));
    EXPECT_EQ(value(), (std::vector<double>{infinity, -infinity, 0.5}));
    mService->transformViewPointToScreenPoint(mResult, unitPixels(), vectorOf(nan, 0, -2));
    EXPECT_TRUE(std::isnan(value()[0]));
    // In the plane of the eye w is 0.
    mService->transformViewPointToScreenPoint(mResult, central(), vectorOf(1, 1, 0));
    expectSuccess(mResult);
    EXPECT_FALSE(std::isfinite(value()[0]));
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

TEST_F(TransformOperations, WorldToViewDividesByALargeEnoughWBeforeTheTranslation) {
    ViewStateResult odd;
    mService->viewSetViewMatrix(odd, defaultView(),
                                matrixOf({{1, 0, 0, 7}, {0, 1, 0, 8}, {0, 0, 1, 9}, {0.5, 5e-5, 0, 1}}));
    PlanarCameraStateResult state;
    mService->planarCameraSetView(state, parallel(), odd.mValue);
    mService->transformWorldVectorToViewVector(mResult, state.mValue, vectorOf(1, 0, 3)); // w = 0.5
    EXPECT_EQ(value(), (std::vector<double>{2, 0, 6}));
    mService->transformWorldVectorToViewVector(mResult, state.mValue, vectorOf(0, 1, 3)); // w = 5e-5
    EXPECT_EQ(value(), (std::vector<double>{0, 1, 3}));
    mService->transformWorldPointToViewPoint(mResult, state.mValue, vectorOf(1, 0, 3));
    EXPECT_EQ(value(), (std::vector<double>{9, 8, 15}));
}

TEST_F(TransformOperations, ViewToWorldGoesThroughRotationAndEyeNotThroughTheMatrix) {
    // After this call the rotation is not that of the matrix, which makes the two ways differ.
    ViewStateResult odd;
    mService->viewSetViewTransformMatrix(odd, viewFromX(),
                                         matrixOf({{1, 0, 0, 4}, {0, 1, 0, 5}, {0, 0, 1, 6}, {0, 0, 0, 1}}));
    PlanarCameraStateResult state;
    mService->planarCameraSetView(state, parallel(), odd.mValue);
    // The rotation now has the columns (0, 0, -1), (0, 1, 0), (1, 0, 0) transposed: (0, 0, 1), (0, 1, 0), (-1, 0, 0).
    mService->transformViewVectorToWorldVector(mResult, state.mValue, vectorOf(1, 2, 3));
    expectNear(mResult.mValue, {-3, 2, 1});
    mService->transformViewPointToWorldPoint(mResult, state.mValue, vectorOf(1, 2, 3));
    expectNear(mResult.mValue, {-3 + 4, 2 + 5, 1 + 6});
    mService->transformWorldPointToViewPoint(mResult, state.mValue, vectorOf(1, 2, 3));
    expectNear(mResult.mValue, {1 - 4, 2 - 5, 3 - 6});
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

TEST_F(TransformOperations, ScreenToViewToScreenReturnsThePixel) {
    const Samples samples(*mService);
    VectorResult back;
    for (const PlanarCameraState& state : {parallel(), central(), samples.planarCamera}) {
        for (const std::int32_t x : {-700, 0, 1, 333, 640, 5000}) {
            for (const std::int32_t y : {-1, 0, 479, 2000}) {
                for (const double depth : {0.0, 0.25, 0.9, 1.0}) {
                    mService->transformScreenPointToViewPoint(mResult, state, x, y, depth);
                    mService->transformViewPointToScreenPoint(back, state, mResult.mValue);
                    EXPECT_EQ(back.mValue.mData[0], x);
                    EXPECT_EQ(back.mValue.mData[1], y);
                    EXPECT_NEAR(back.mValue.mData[2], depth, 1e-12);
                }
            }
        }
    }
}

} // namespace

} // namespace qel::api::camera::test
