// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <functional>
#include <numbers>
#include <string>
#include <vector>

#include "tests/component/support/StateBench.h"

namespace qel::api::camera::test {

namespace {

// The divisions by zero that turn a finite camera and finite arguments into one that is not. The documentation lists
// them; each has a test, so that none comes or goes unseen.

using Api = CameraAPIIf;
constexpr ProjectionType::type P = ProjectionType::PERSPECTIVE;
constexpr ProjectionType::type O = ProjectionType::ORTHOGRAPHIC;
using std::numbers::pi;

class DivisionByZero : public ::testing::Test {
protected:
    /// Expects the last step, on its own copy of the bench's states, to be what ends being finite.
    template <class... Arguments>
    void expectEnd(const Arguments&... arguments) {
        EXPECT_TRUE(mBench.allFinite()) << "before";
        const PlanarCameraState camera = mBench.state<PlanarCameraState>();
        const ProjectionState projection = mBench.state<ProjectionState>();
        const SurfaceState surface = mBench.state<SurfaceState>();
        mBench.on(arguments...);
        EXPECT_FALSE(mBench.allFinite());
        mBench.state<ProjectionState>() = projection;
        mBench.state<PlanarCameraState>() = camera;
        mBench.state<SurfaceState>() = surface;
    }

    StateBench mBench;
};

TEST_F(DivisionByZero, EqualDepthsOfANewViewport) {
    expectEnd(&Api::surfaceUpdate, 0, 0, 1, 1, 0.5, 0.5, 640, 480);
    mBench.make(&Api::surfaceCreate, 0, 0, 1, 1, 0.5, 0.5, 640, 480);
    EXPECT_FALSE(mBench.allFinite());
}

TEST_F(DivisionByZero, ChangeOfResolutionAfterAViewportOfNoSizeWasStored) {
    for (const Viewport& viewport :
         {viewportOf(0, 0, 0, 1, 0, 1), viewportOf(0, 0, 1, 0, 0, 1), viewportOf(0, 0, 1, 1, 0.5, 0.5)}) {
        mBench.make(&Api::surfaceCreateDefault);
        mBench.on(&Api::surfaceSetViewport, viewport);
        mBench.assemble();
        expectEnd(&Api::surfaceSetResolutionX, 640);
        expectEnd(&Api::surfaceSetResolutionY, 480);
        expectEnd(&Api::planarCameraUpdateWindowSize, 640, 480);
    }
}

TEST_F(DivisionByZero, AnchorAtTheDepthOfInfinity) {
    mBench.on(&Api::projectionUpdatePerspective, pi / 4, 4.0 / 3.0, 1, 3);
    mBench.assemble();
    expectEnd(&Api::planarCameraPanWithAnchor, 320, 240, 1.5, 1, 0);
    expectEnd(&Api::planarCameraZoomWithAnchor_Screen, 320, 240, 1.5, 0.5);
}

TEST_F(DivisionByZero, AnchorOnAFarPlaneThatIsAtInfinityButForRounding) {
    mBench.on(&Api::projectionSetFar, 1e15);
    mBench.assemble();
    expectEnd(&Api::planarCameraPanWithAnchor, 320, 240, 1, 1, 0);
    expectEnd(&Api::planarCameraZoomWithAnchor_Screen, 320, 240, 1, 0.5);
    expectEnd(&Api::planarCameraZoomArea, 100, 100, 1, 200, 200, 0.5);
}

TEST_F(DivisionByZero, ZoomAreaWithADepthOfInfinityWithinTheRange) {
    mBench.on(&Api::projectionUpdatePerspective, pi / 4, 4.0 / 3.0, 1, 3);
    mBench.make(&Api::surfaceCreate, 0, 0, 1, 1, 0, 0.5, 640, 480);
    mBench.assemble();
    expectEnd(&Api::planarCameraZoomArea, 100, 100, 0.75, 200, 200, 0.75);
}

TEST_F(DivisionByZero, WorldAnchorFarAway) {
    expectEnd(&Api::planarCameraZoomWithAnchor_World, vectorOf(0, 0, -1e15), 0.5);
    mBench.on(&Api::projectionUpdatePerspective, pi / 4, 4.0 / 3.0, 1, 3);
    mBench.assemble();
    expectEnd(&Api::planarCameraZoomWithAnchor_World, vectorOf(0, 0, -4e16), 0.5);
}

TEST_F(DivisionByZero, FitOfABoxDeepBeyondMeasure) {
    expectEnd(&Api::planarCameraFitViewSpaceBoundingBox, 0, 0, 0, 1, 0, 1e17);
    expectEnd(&Api::planarCameraFitWorldSpaceBoundingBox, 0, 0, 0, 1, 0, 1e17);
}

TEST_F(DivisionByZero, SwitchToPerspectiveWithTheBoxAtMinusZero) {
    mBench.on(&Api::viewSetOrientation, quaternionOf(0, 0, 0, 1));
    mBench.on(&Api::projectionUpdateOrthographic, 2, 2, 1, 10);
    mBench.assemble();
    expectEnd(&Api::planarCameraSwitchProjectionType, -2, -2, -0.0, -1, -1, -0.0);
}

TEST_F(DivisionByZero, SwitchToPerspectiveWithTheBoxAtZeroChangesNothingAsARule) {
    mBench.on(&Api::projectionUpdateOrthographic, 2, 2, 1, 10);
    mBench.assemble();
    const std::string before = mBench.state<PlanarCameraState>().mPrivate;
    mBench.on(&Api::planarCameraSwitchProjectionType, -2, -2, -1, -1, -1, 1);
    EXPECT_EQ(mBench.state<PlanarCameraState>().mPrivate, before);
}

TEST_F(DivisionByZero, SwitchToPerspectiveWithTheBoxAtZeroAndTheFrustumFromItsCorner) {
    // 0 times infinity: left and bottom become NaN, which no test rejects.
    mBench.on(&Api::projectionSetFrustum, frustumOf(0, 2, 0, 2, 1, 10), O);
    mBench.assemble();
    expectEnd(&Api::planarCameraSwitchProjectionType, -2, -2, -1, -1, -1, 1);
}

TEST_F(DivisionByZero, NavigationThroughAPerspectiveMatrixWithoutDepth) {
    mBench.on(&Api::projectionSetProjectionMatrix, matrixOf({{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 0, 0}, {0, 0, 0, 1}}),
              P);
    mBench.assemble();
    expectEnd(&Api::planarCameraPanWithAnchor, 320, 240, 0.5, 1, 0);
    expectEnd(&Api::planarCameraZoomWithAnchor_Screen, 320, 240, 0.5, 0.5);
    expectEnd(&Api::planarCameraZoomWithAnchor_World, vectorOf(0, 0, -1), 0.5);
    expectEnd(&Api::planarCameraZoomArea, 100, 100, 0.5, 200, 200, 0.5);
}

TEST_F(DivisionByZero, ZoomAreaThroughAPerspectiveMatrixThatIsTheIdentity) {
    mBench.on(&Api::projectionSetProjectionMatrix, matrixOf({{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}),
              P);
    mBench.assemble();
    expectEnd(&Api::planarCameraZoomArea, 100, 100, 0.5, 200, 200, 0.5);
}

TEST_F(DivisionByZero, FitWithTheFrustumThatAMatrixLeftWithoutHeight) {
    mBench.on(&Api::projectionSetFrustum, frustumOf(-1, 1, 1e16, 1e16 + 2, 1, 3), P);
    mBench.on(&Api::projectionSetProjectionMatrix, matrixOf({{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}),
              P);
    mBench.assemble();
    expectEnd(&Api::planarCameraFitViewSpaceBoundingBox, -1, -1, -3, 1, 1, -1);
    expectEnd(&Api::planarCameraFitWorldSpaceBoundingBox, -1, -1, -3, 1, 1, -1);
}

TEST_F(DivisionByZero, FrustumThatAMatrixLeftWithANearOfZero) {
    mBench.on(&Api::projectionUpdateOrthographic, 2, 2, 0.01, 1e15);
    mBench.on(&Api::projectionSetProjectionMatrix,
              matrixOf({{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, -2, -3}, {0, 0, -1, 0}}), P);
    mBench.assemble();
    expectEnd(&Api::planarCameraUpdateClippingPlanes, vectorOf(0, 0, -10), 1, 0.1);
    expectEnd(&Api::planarCameraZoomArea, 100, 100, 0.5, 200, 200, 0.5);
}

TEST_F(DivisionByZero, ResolutionOfZeroInAnImageFromElsewhere) {
    putWord(mBench.state<PlanarCameraState>().mPrivate, 1072, 0);
    expectEnd(&Api::planarCameraUpdateWindowSize, 640, 480);
    putWord(mBench.state<SurfaceState>().mPrivate, 328, 0);
    expectEnd(&Api::surfaceSetResolutionY, 480);
    mBench.make(&Api::surfaceCreateDefault);
    putWord(mBench.state<SurfaceState>().mPrivate, 332, 0);
    expectEnd(&Api::surfaceSetResolutionX, 640);
}

TEST_F(DivisionByZero, FrustumWithoutHeightInAnImageFromElsewhere) {
    std::string& image = mBench.state<ProjectionState>().mPrivate;
    putDouble(image, at::frustum + 16, 0.0);
    putDouble(image, at::frustum + 24, 0.0);
    mBench.assemble();
    expectEnd(&Api::projectionSetVFoV, 1);
    expectEnd(&Api::projectionSetAspectRatio, 1.5);
    expectEnd(&Api::planarCameraSwitchProjectionType, -1, -1, -6, 1, 1, -4);
    expectEnd(&Api::planarCameraFitViewSpaceBoundingBox, -1, -1, -6, 1, 1, -4);
    expectEnd(&Api::planarCameraFitWorldSpaceBoundingBox, -1, -1, -6, 1, 1, -4);
    expectEnd(&Api::planarCameraZoomArea, 100, 100, 0.5, 200, 200, 0.5);
}

TEST_F(DivisionByZero, FrustumWithoutWidthInAnImageFromElsewhere) {
    std::string& image = mBench.state<ProjectionState>().mPrivate;
    putDouble(image, at::frustum, 0.0);
    putDouble(image, at::frustum + 8, 0.0);
    mBench.assemble();
    expectEnd(&Api::projectionSetHFoV, 1);
    expectEnd(&Api::planarCameraFitViewSpaceBoundingBox, -1, -1, -6, 1, 1, -4);
    expectEnd(&Api::planarCameraFitWorldSpaceBoundingBox, -1, -1, -6, 1, 1, -4);
    expectEnd(&Api::planarCameraZoomArea, 100, 100, 0.5, 200, 200, 0.5);
}

TEST_F(DivisionByZero, NearOfZeroInAnImageFromElsewhere) {
    putDouble(mBench.state<ProjectionState>().mPrivate, at::frustum + 32, 0.0);
    mBench.assemble();
    expectEnd(&Api::projectionSetNear, 1);
    expectEnd(&Api::planarCameraUpdateClippingPlanes, vectorOf(0, 0, -5), 1, 0.1);
    expectEnd(&Api::planarCameraZoomArea, 100, 100, 0.5, 200, 200, 0.5);
}

} // namespace

} // namespace qel::api::camera::test
