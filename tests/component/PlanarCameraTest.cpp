// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "tests/component/support/Calls.h"
#include "tests/component/support/ExpectValues.h"

namespace qel::api::camera::test {

namespace {

using std::numbers::pi;
const double tanEighth = std::tan(pi / 8);

class PlanarCameraOperations : public ValueTest {
protected:
    [[nodiscard]] PlanarCameraState defaultCamera() const {
        PlanarCameraStateResult result;
        mService->planarCameraCreateDefault(result);
        return result.mValue;
    }

    /// At the origin, looking down -z, on 640 by 480 pixels.
    [[nodiscard]] PlanarCameraState cameraWith(const ProjectionState& projection) const {
        return camera(defaultView(), projection, surface(640, 480));
    }

    PlanarCameraStateResult mResult;
};

TEST_F(PlanarCameraOperations, CreateDefaultIsMadeOfDefaults) {
    mService->planarCameraCreateDefault(mResult);
    ProjectionStateResult projection;
    mService->projectionCreateDefault(projection);
    SurfaceStateResult surface;
    mService->surfaceCreateDefault(surface);
    EXPECT_EQ(fingerprint(mResult.mValue.mViewState), fingerprint(defaultView()));
    EXPECT_EQ(fingerprint(mResult.mValue.mProjectionState), fingerprint(projection.mValue));
    EXPECT_EQ(fingerprint(mResult.mValue.mSurfaceState), fingerprint(surface.mValue));
    EXPECT_EQ(mResult.mValue.mPrivate.substr(0, 24), std::string(24, '\0'));
}

TEST_F(PlanarCameraOperations, CreateAndSettersTakeTheStatesAsTheyAre) {
    const ViewState view = viewFromX();
    const ProjectionState projection = orthographic(frustumOf(-2, 3, -1, 1, 1, 9));
    const SurfaceState window = surface(300, 200);
    const PlanarCameraState start = defaultCamera();

    mService->planarCameraCreate(mResult, view, projection, window);
    EXPECT_EQ(fingerprint(mResult.mValue.mViewState), fingerprint(view));
    EXPECT_EQ(fingerprint(mResult.mValue.mProjectionState), fingerprint(projection));
    EXPECT_EQ(fingerprint(mResult.mValue.mSurfaceState), fingerprint(window));

    mService->planarCameraSetView(mResult, start, view);
    EXPECT_EQ(fingerprint(mResult.mValue), fingerprint(camera(view, start.mProjectionState, start.mSurfaceState)));
    mService->planarCameraSetProjection(mResult, start, projection);
    EXPECT_EQ(fingerprint(mResult.mValue), fingerprint(camera(start.mViewState, projection, start.mSurfaceState)));
    mService->planarCameraSetSurface(mResult, start, window);
    EXPECT_EQ(fingerprint(mResult.mValue), fingerprint(camera(start.mViewState, start.mProjectionState, window)));
}

TEST_F(PlanarCameraOperations, UpdateWindowSizeKeepsTheExtentPerPixel) {
    const PlanarCameraState start = cameraWith(perspective(frustumOf(-1, 3, -1, 2, 1, 10)));
    mService->planarCameraUpdateWindowSize(mResult, start, 1280, 240);
    expectFrustum(mResult.mValue.mProjectionState, {-2, 6, -0.5, 1, 1, 10});
    EXPECT_EQ(mResult.mValue.mSurfaceState.mResolutionX, 1280.0);
    EXPECT_EQ(mResult.mValue.mSurfaceState.mResolutionY, 240.0);
    EXPECT_EQ(fingerprint(mResult.mValue.mViewState), fingerprint(start.mViewState));
}

TEST_F(PlanarCameraOperations, UpdateWindowSizeReadsSizesAsUnsigned) {
    mService->planarCameraUpdateWindowSize(mResult, defaultCamera(), -1, 480);
    EXPECT_EQ(mResult.mValue.mSurfaceState.mResolutionX, 4294967295.0);
}

TEST_F(PlanarCameraOperations, UpdateClippingPlanesEnclosesTheSphere) {
    mService->planarCameraUpdateClippingPlanes(mResult, cameraWith(perspective(frustumOf(-1, 2, -1, 1, 0.5, 10))),
                                               vectorOf(0, 0, -10), 1, 0.1);
    const double scale = 8.55 / 0.5;
    expectFrustum(mResult.mValue.mProjectionState, {-scale, 2 * scale, -scale, scale, 8.55, 11.55});
    mService->planarCameraUpdateClippingPlanes(mResult, cameraWith(orthographic(frustumOf(-1, 2, -1, 1, 0.5, 10))),
                                               vectorOf(3, 4, -10), 1, 0.1);
    expectFrustum(mResult.mValue.mProjectionState, {-1, 2, -1, 1, 8.55, 11.55});
}

TEST_F(PlanarCameraOperations, FitViewSpaceBoundingBoxOfAFlatBox) {
    // 2 by 2, at z = -10: D = sqrt 8, half of it sqrt 2. The aspect ratio of 4:3 widens the half width to 4/3.
    const double dist = std::numbers::sqrt2 / tanEighth;
    const double eyeZ = -10 + std::numbers::sqrt2 + dist;
    mService->planarCameraFitViewSpaceBoundingBox(mResult, cameraWith(orthographic(frustumOf(-4, 4, -3, 3, 1, 10))), 2,
                                                  -1, -10, 4, 1, -10);
    expectNear(mResult.mValue.mViewState.mEye, {3, 0, eyeZ});
    expectFrustum(mResult.mValue.mProjectionState, {-4.0 / 3, 4.0 / 3, -1, 1, dist, dist + std::sqrt(8.0)});

    // In perspective the front face, sqrt 2 farther away than the near plane, is carried onto it.
    const double scale = dist / (std::numbers::sqrt2 + dist);
    mService->planarCameraFitViewSpaceBoundingBox(mResult, cameraWith(perspective(frustumOf(-4, 4, -3, 3, 1, 10))), 2,
                                                  -1, -10, 4, 1, -10);
    expectNear(mResult.mValue.mViewState.mEye, {3, 0, eyeZ});
    expectFrustum(mResult.mValue.mProjectionState,
                  {-scale * 4 / 3, scale * 4 / 3, -scale, scale, dist, dist + std::sqrt(8.0)});
}

TEST_F(PlanarCameraOperations, FitWorldSpaceBoundingBoxTakesCornersInAnyOrder) {
    // From x the box's z extent, 2 to 4, is the view's -x extent; y stays; x = -5 is the depth -10.
    const PlanarCameraState start =
        camera(viewFromX(), orthographic(frustumOf(-4, 4, -3, 3, 1, 10)), surface(640, 480));
    mService->planarCameraFitWorldSpaceBoundingBox(mResult, start, -5, -1, 4, -5, 1, 2);
    PlanarCameraStateResult inViewSpace;
    mService->planarCameraFitViewSpaceBoundingBox(inViewSpace, start, -4, -1, -10, -2, 1, -10);
    EXPECT_EQ(fingerprint(mResult), fingerprint(inViewSpace));
    // The eye moves 3 along the world's z and stays on y = 0.
    EXPECT_EQ(mResult.mValue.mViewState.mEye.mData[2], 3.0);
    EXPECT_EQ(mResult.mValue.mViewState.mEye.mData[1], 0.0);
    PlanarCameraStateResult otherCorners;
    mService->planarCameraFitWorldSpaceBoundingBox(otherCorners, start, -5, 1, 2, -5, -1, 4);
    EXPECT_EQ(fingerprint(otherCorners), fingerprint(mResult));
}

TEST_F(PlanarCameraOperations, SwitchProjectionTypeKeepsTheHeightAtTheBoxCentre) {
    const PlanarCameraState start = cameraWith(perspective(frustumOf(-1, 2, -1, 1, 1, 10)));
    mService->planarCameraSwitchProjectionType(mResult, start, -1, -1, -6, 1, 1, -4); // the centre 5 ahead
    EXPECT_EQ(mResult.mValue.mProjectionState.mProjectionType, ProjectionType::ORTHOGRAPHIC);
    expectFrustum(mResult.mValue.mProjectionState, {-5, 10, -5, 5, 1, 10});
    EXPECT_EQ(fingerprint(mResult.mValue.mViewState), fingerprint(start.mViewState));
    mService->planarCameraSwitchProjectionType(mResult, mResult.mValue, -1, -1, -6, 1, 1, -4);
    expectFrustum(mResult.mValue.mProjectionState, {-1, 2, -1, 1, 1, 10});
    EXPECT_EQ(mResult.mValue.mProjectionState.mProjectionType, ProjectionType::PERSPECTIVE);
}

} // namespace

} // namespace qel::api::camera::test
