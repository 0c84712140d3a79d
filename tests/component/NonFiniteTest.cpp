// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <numbers>
#include <string>

#include "tests/component/support/Blobs.h"
#include "tests/component/support/StateBench.h"

namespace qel::api::camera::test {

namespace {

// What turns a finite camera and finite arguments into one that is not: numbers so large that a sum, a product or a
// quotient is infinite, and divisions by zero. The documentation lists them; each has its example here, so that none
// comes or goes unseen.

using Api = CameraAPIIf;
constexpr ProjectionType::type P = ProjectionType::PERSPECTIVE;
constexpr ProjectionType::type O = ProjectionType::ORTHOGRAPHIC;
using std::numbers::pi;

Matrix identity() { return matrixOf({{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}); }

class NonFinite : public ::testing::Test {
protected:
    /// Whether a step on a copy of the bench's states is what ends being finite: one that makes a new state ...
    template <class... Arguments>
    bool makingEnds(const Arguments&... arguments) {
        StateBench copy = mBench;
        const bool before = copy.allFinite();
        copy.make(arguments...);
        return before && !copy.allFinite();
    }
    /// ... or one that changes the state of its kind.
    template <class... Arguments>
    bool ends(const Arguments&... arguments) {
        StateBench copy = mBench;
        const bool before = copy.allFinite();
        copy.on(arguments...);
        return before && !copy.allFinite();
    }

    void useProjection(const Frustum& frustum, const ProjectionType::type type) {
        mBench.on(&Api::projectionSetFrustum, frustum, type);
        mBench.assemble();
    }

    StateBench mBench;
};

using Overflow = NonFinite;

TEST_F(Overflow, OfViewsThatArePlaced) {
    const Vector far = vectorOf(1e308, 0, 0);
    const Vector up = vectorOf(0, 1, 0);
    EXPECT_TRUE(makingEnds(&Api::viewCreate, far, vectorOf(-1e308, 0, 0), up));
    EXPECT_TRUE(ends(&Api::viewUpdateLookat, far, vectorOf(-1e308, 0, 0), up));
    EXPECT_TRUE(ends(&Api::viewSetViewAlongWorldAxis, vectorOf(1e155, 0, 0), vectorOf(0, 0, -1), up));
    EXPECT_TRUE(ends(&Api::viewRotateAboutWorldAxis, vectorOf(1e155, 0, 0), up, 1, 0));
    EXPECT_TRUE(ends(&Api::viewRotateAboutViewAxes, vectorOf(1e155, 0, 0), 1, 0));
    Matrix matrix = identity();
    matrix.mData[2][1] = 1e155;
    EXPECT_TRUE(ends(&Api::viewSetViewMatrix, matrix));
    matrix = identity();
    matrix.mData[0] = {10, 0, 0, 1e308};
    EXPECT_TRUE(ends(&Api::viewSetViewTransformMatrix, matrix));
}

TEST_F(Overflow, OfViewsThatTurnOrMoveFarAway) {
    const Quaternion eighthTurn = quaternionOf(0, 0.3826834323650898, 0, 0.9238795325112867);
    mBench.on(&Api::viewSetEye, vectorOf(1.7e308, 1.7e308, 1.7e308));
    EXPECT_TRUE(ends(&Api::viewSetOrientation, eighthTurn));
    EXPECT_TRUE(ends(&Api::viewYaw, pi / 8));
    EXPECT_TRUE(ends(&Api::viewPitch, pi / 8));
    EXPECT_TRUE(ends(&Api::viewRoll, pi / 8));
    EXPECT_TRUE(ends(&Api::viewYawPitchRoll, pi / 4, 0, 0));
    EXPECT_TRUE(ends(&Api::viewTranslateInViewSpace, vectorOf(1e308, 0, 0)));
    EXPECT_TRUE(ends(&Api::viewTranslateInWorldSpace, vectorOf(1e308, 0, 0)));
    mBench.make(&Api::viewCreateDefault);
    mBench.on(&Api::viewSetOrientation, eighthTurn);
    EXPECT_TRUE(ends(&Api::viewSetEye, vectorOf(1.7e308, 0, 1.7e308)));
}

TEST_F(Overflow, OfProjections) {
    EXPECT_TRUE(makingEnds(&Api::projectionCreate, frustumOf(0, 1e-309, -1, 1, 1, 2), P));
    EXPECT_TRUE(ends(&Api::projectionSetFrustum, frustumOf(0, 1e-309, -1, 1, 1, 2), P));
    EXPECT_TRUE(ends(&Api::projectionSetAspectRatio, 1.7e308));
    EXPECT_TRUE(ends(&Api::projectionUpdatePerspective, pi / 4, 4.0 / 3.0, 10, 1.7e308));
    EXPECT_TRUE(ends(&Api::projectionUpdateOrthographic, 2, 2, 1e308, 1.7e308));
    EXPECT_TRUE(ends(&Api::projectionZoom, 1e-309));
    useProjection(frustumOf(-5e-301, 5e-301, -5e9, 5e9, 1, 2), P);
    EXPECT_TRUE(ends(&Api::projectionSetHFoV, 1));
    useProjection(frustumOf(-5e9, 5e9, -5e-301, 5e-301, 1, 2), P);
    EXPECT_TRUE(ends(&Api::projectionSetVFoV, 1));
    useProjection(frustumOf(0, 2e302, -1, 1, 1e-6, 1), P);
    EXPECT_TRUE(ends(&Api::projectionSetProjectionMatrix, identity(), P));
    mBench.on(&Api::projectionUpdatePerspective, pi / 4, 4.0 / 3.0, 10, 20);
    EXPECT_TRUE(ends(&Api::projectionSetFar, 1.7e308));
    mBench.on(&Api::projectionSetFar, 1e200);
    EXPECT_TRUE(ends(&Api::projectionSetNear, 1e150));
}

TEST_F(Overflow, OfManyZoomsByHalf) {
    for (int i = 0; i < 1023; ++i) {
        mBench.on(&Api::projectionZoom, 0.5);
    }
    EXPECT_FALSE(mBench.allFinite());
}

TEST_F(Overflow, OfSurfaces) {
    EXPECT_TRUE(makingEnds(&Api::surfaceCreate, 0, 0, 1, 1, -1e308, 1e308, 640, 480));
    EXPECT_TRUE(ends(&Api::surfaceUpdate, 0, 0, 1, 1, -1e308, 1e308, 640, 480));
    mBench.on(&Api::surfaceSetViewport, viewportOf(0, 0, 1, 1, -1e308, 1e308));
    EXPECT_TRUE(ends(&Api::surfaceSetResolutionX, 640));
    EXPECT_TRUE(ends(&Api::surfaceSetResolutionY, 480));
}

TEST_F(Overflow, OfPlanarCameras) {
    EXPECT_TRUE(ends(&Api::planarCameraUpdateClippingPlanes, vectorOf(0, 0, 0), 1e308, 10));
    EXPECT_TRUE(ends(&Api::planarCameraFitWorldSpaceBoundingBox, 0, 0, 0, 1e155, 1e155, 1e155));
    EXPECT_TRUE(ends(&Api::planarCameraFitViewSpaceBoundingBox, 0, 0, 0, 1e155, 1e155, 1e155));
    EXPECT_TRUE(ends(&Api::planarCameraSwitchProjectionType, -1, -1, -1e-310, 1, 1, -1e-310));
    EXPECT_TRUE(ends(&Api::planarCameraZoomWithAnchor_Screen, 320, 240, 0.5, 1e-309));
    EXPECT_TRUE(ends(&Api::planarCameraZoomWithAnchor_World, vectorOf(0, 0, -1), 1e-309));
    EXPECT_TRUE(ends(&Api::planarCameraPanWithAnchor, 320, 240, 1e308, 1, 0));
    EXPECT_TRUE(ends(&Api::planarCameraArcballRotation, vectorOf(1e155, 0, 0), 100, 100, 200, 200));
    useProjection(frustumOf(-1, 1, -1, 1, 1, 10), O);
    EXPECT_TRUE(ends(&Api::planarCameraSwitchProjectionType, -1, -1, -1e-310, 1, 1, -1e-310));
    useProjection(frustumOf(-8e307, 8e307, -1, 1, 1, 2), O);
    EXPECT_TRUE(ends(&Api::planarCameraUpdateWindowSize, 6400, 480));
    EXPECT_TRUE(ends(&Api::planarCameraZoomArea, 0, 0, 0.5, 2147483647, 100, 0.5));
}

TEST_F(Overflow, OfSquaresCollapsesTheViewAndKeepsItFinite) {
    mBench.on(&Api::viewUpdateLookat, vectorOf(0, 0, 0), vectorOf(0, 0, -1e155), vectorOf(0, 1, 0));
    EXPECT_TRUE(mBench.allFinite());
    EXPECT_EQ(mBench.state<ViewState>().mDirection.mData, (std::vector<double>{0, 0, 0}));
}

using DivisionByZero = NonFinite;

TEST_F(DivisionByZero, EqualDepthsOfANewViewport) {
    EXPECT_TRUE(ends(&Api::surfaceUpdate, 0, 0, 1, 1, 0.5, 0.5, 640, 480));
    EXPECT_TRUE(makingEnds(&Api::surfaceCreate, 0, 0, 1, 1, 0.5, 0.5, 640, 480));
}

TEST_F(DivisionByZero, ChangeOfResolutionAfterAViewportOfNoSizeWasStored) {
    for (const Viewport& viewport :
         {viewportOf(0, 0, 0, 1, 0, 1), viewportOf(0, 0, 1, 0, 0, 1), viewportOf(0, 0, 1, 1, 0.5, 0.5)}) {
        mBench.make(&Api::surfaceCreateDefault);
        mBench.on(&Api::surfaceSetViewport, viewport);
        mBench.assemble();
        EXPECT_TRUE(ends(&Api::surfaceSetResolutionX, 640));
        EXPECT_TRUE(ends(&Api::surfaceSetResolutionY, 480));
        EXPECT_TRUE(ends(&Api::planarCameraUpdateWindowSize, 640, 480));
    }
}

TEST_F(DivisionByZero, AnchorAtTheDepthOfInfinity) {
    mBench.on(&Api::projectionUpdatePerspective, pi / 4, 4.0 / 3.0, 1, 3);
    mBench.assemble();
    EXPECT_TRUE(ends(&Api::planarCameraPanWithAnchor, 320, 240, 1.5, 1, 0));
    EXPECT_TRUE(ends(&Api::planarCameraZoomWithAnchor_Screen, 320, 240, 1.5, 0.5));
    EXPECT_TRUE(ends(&Api::planarCameraZoomWithAnchor_World, vectorOf(0, 0, -4e16), 0.5));
    mBench.make(&Api::surfaceCreate, 0, 0, 1, 1, 0, 0.5, 640, 480); // now within the viewport's range
    mBench.assemble();
    EXPECT_TRUE(ends(&Api::planarCameraZoomArea, 100, 100, 0.75, 200, 200, 0.75));
}

TEST_F(DivisionByZero, AnchorOnAFarPlaneThatIsAtInfinityButForRounding) {
    EXPECT_TRUE(ends(&Api::planarCameraZoomWithAnchor_World, vectorOf(0, 0, -1e15), 0.5));
    mBench.on(&Api::projectionSetFar, 1e15);
    mBench.assemble();
    EXPECT_TRUE(ends(&Api::planarCameraPanWithAnchor, 320, 240, 1, 1, 0));
    EXPECT_TRUE(ends(&Api::planarCameraZoomWithAnchor_Screen, 320, 240, 1, 0.5));
    EXPECT_TRUE(ends(&Api::planarCameraZoomArea, 100, 100, 1, 200, 200, 0.5));
}

TEST_F(DivisionByZero, FitOfABoxDeepBeyondMeasure) {
    EXPECT_TRUE(ends(&Api::planarCameraFitViewSpaceBoundingBox, 0, 0, 0, 1, 0, 1e17));
    EXPECT_TRUE(ends(&Api::planarCameraFitWorldSpaceBoundingBox, 0, 0, 0, 1, 0, 1e17));
}

TEST_F(DivisionByZero, SwitchToPerspectiveWithTheBoxAtMinusZero) {
    mBench.on(&Api::viewSetOrientation, quaternionOf(0, 0, 0, 1));
    useProjection(frustumOf(-1, 1, -1, 1, 1, 10), O);
    EXPECT_TRUE(ends(&Api::planarCameraSwitchProjectionType, -2, -2, -0.0, -1, -1, -0.0));
}

TEST_F(DivisionByZero, SwitchToPerspectiveWithTheBoxAtZeroChangesNothingAsARule) {
    useProjection(frustumOf(-1, 1, -1, 1, 1, 10), O);
    const std::string before = mBench.state<PlanarCameraState>().mPrivate;
    mBench.on(&Api::planarCameraSwitchProjectionType, -2, -2, -1, -1, -1, 1);
    EXPECT_EQ(mBench.state<PlanarCameraState>().mPrivate, before);
    // 0 times infinity: left and bottom become NaN, which no test rejects.
    useProjection(frustumOf(0, 2, 0, 2, 1, 10), O);
    EXPECT_TRUE(ends(&Api::planarCameraSwitchProjectionType, -2, -2, -1, -1, -1, 1));
}

TEST_F(DivisionByZero, NavigationThroughAPerspectiveMatrixWithoutDepth) {
    Matrix flat = identity();
    flat.mData[2][2] = 0;
    mBench.on(&Api::projectionSetProjectionMatrix, flat, P);
    mBench.assemble();
    EXPECT_TRUE(ends(&Api::planarCameraPanWithAnchor, 320, 240, 0.5, 1, 0));
    EXPECT_TRUE(ends(&Api::planarCameraZoomWithAnchor_Screen, 320, 240, 0.5, 0.5));
    EXPECT_TRUE(ends(&Api::planarCameraZoomWithAnchor_World, vectorOf(0, 0, -1), 0.5));
    EXPECT_TRUE(ends(&Api::planarCameraZoomArea, 100, 100, 0.5, 200, 200, 0.5));
    mBench.make(&Api::projectionCreateDefault);
    mBench.on(&Api::projectionSetProjectionMatrix, identity(), P);
    mBench.assemble();
    EXPECT_TRUE(ends(&Api::planarCameraZoomArea, 100, 100, 0.5, 200, 200, 0.5));
}

TEST_F(DivisionByZero, FrustumThatAMatrixLeftWithoutHeightOrWithANearOfZero) {
    mBench.on(&Api::projectionSetFrustum, frustumOf(-1, 1, 1e16, 1e16 + 2, 1, 3), P);
    mBench.on(&Api::projectionSetProjectionMatrix, identity(), P);
    mBench.assemble();
    EXPECT_TRUE(ends(&Api::planarCameraFitViewSpaceBoundingBox, -1, -1, -3, 1, 1, -1));
    EXPECT_TRUE(ends(&Api::planarCameraFitWorldSpaceBoundingBox, -1, -1, -3, 1, 1, -1));
    mBench.make(&Api::projectionCreateDefault);
    mBench.on(&Api::projectionUpdateOrthographic, 2, 2, 0.01, 1e15);
    mBench.on(&Api::projectionSetProjectionMatrix,
              matrixOf({{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, -2, -3}, {0, 0, -1, 0}}), P);
    mBench.assemble();
    EXPECT_TRUE(ends(&Api::planarCameraUpdateClippingPlanes, vectorOf(0, 0, -10), 1, 0.1));
    EXPECT_TRUE(ends(&Api::planarCameraZoomArea, 100, 100, 0.5, 200, 200, 0.5));
}

// What only a blob from elsewhere holds.

TEST_F(DivisionByZero, ForgedResolutionOfZero) {
    const StateBench start = mBench;
    putWord(mBench.state<PlanarCameraState>().mPrivate, at::planarSurface + at::resolutionX, 0);
    EXPECT_TRUE(ends(&Api::planarCameraUpdateWindowSize, 640, 480));
    putWord(mBench.state<SurfaceState>().mPrivate, at::resolutionX, 0);
    EXPECT_TRUE(ends(&Api::surfaceSetResolutionY, 480));
    mBench = start;
    putWord(mBench.state<SurfaceState>().mPrivate, at::resolutionY, 0);
    EXPECT_TRUE(ends(&Api::surfaceSetResolutionX, 640));
}

TEST_F(DivisionByZero, ForgedFrustumWithoutHeight) {
    std::string& blob = mBench.state<ProjectionState>().mPrivate;
    putDouble(blob, at::frustum + 16, 0.0);
    putDouble(blob, at::frustum + 24, 0.0);
    mBench.assemble();
    EXPECT_TRUE(ends(&Api::projectionSetVFoV, 1));
    EXPECT_TRUE(ends(&Api::projectionSetAspectRatio, 1.5));
    EXPECT_TRUE(ends(&Api::planarCameraSwitchProjectionType, -1, -1, -6, 1, 1, -4));
    EXPECT_TRUE(ends(&Api::planarCameraFitViewSpaceBoundingBox, -1, -1, -6, 1, 1, -4));
    EXPECT_TRUE(ends(&Api::planarCameraFitWorldSpaceBoundingBox, -1, -1, -6, 1, 1, -4));
    EXPECT_TRUE(ends(&Api::planarCameraZoomArea, 100, 100, 0.5, 200, 200, 0.5));
}

TEST_F(DivisionByZero, ForgedFrustumWithoutWidth) {
    std::string& blob = mBench.state<ProjectionState>().mPrivate;
    putDouble(blob, at::frustum, 0.0);
    putDouble(blob, at::frustum + 8, 0.0);
    mBench.assemble();
    EXPECT_TRUE(ends(&Api::projectionSetHFoV, 1));
    EXPECT_TRUE(ends(&Api::planarCameraFitViewSpaceBoundingBox, -1, -1, -6, 1, 1, -4));
    EXPECT_TRUE(ends(&Api::planarCameraFitWorldSpaceBoundingBox, -1, -1, -6, 1, 1, -4));
    EXPECT_TRUE(ends(&Api::planarCameraZoomArea, 100, 100, 0.5, 200, 200, 0.5));
}

TEST_F(DivisionByZero, ForgedNearOfZero) {
    putDouble(mBench.state<ProjectionState>().mPrivate, at::frustum + 32, 0.0);
    mBench.assemble();
    EXPECT_TRUE(ends(&Api::projectionSetNear, 1));
    EXPECT_TRUE(ends(&Api::planarCameraUpdateClippingPlanes, vectorOf(0, 0, -5), 1, 0.1));
    EXPECT_TRUE(ends(&Api::planarCameraZoomArea, 100, 100, 0.5, 200, 200, 0.5));
}

} // namespace

} // namespace qel::api::camera::test
