// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/component/support/Calls.h"
#include "tests/component/support/ExpectValues.h"

namespace qel::api::camera::test {

namespace {

class NavigationOperations : public ValueTest {
protected:
    /// At (5, 0, 0) looking at the origin: view x is the world's -z, view y the world's y, view z the world's x.
    [[nodiscard]] PlanarCameraState cameraFromX(const ProjectionState& projection) const {
        return camera(viewFromX(), projection, surface(640, 480));
    }

    /// At the origin, one pixel to a unit, the centre of the window at pixel (256, 256).
    [[nodiscard]] PlanarCameraState unitPixels() const {
        return camera(defaultView(), orthographic(frustumOf(-256, 256, -256, 256, 1, 3)), surface(512, 512));
    }

    [[nodiscard]] ProjectionState parallel() const { return orthographic(frustumOf(-4, 4, -3, 3, 1, 3)); }
    /// A depth of 0.75 is at the distance 2: 0.5 in device space, and -3 / (0.5 - 2).
    [[nodiscard]] ProjectionState central() const { return perspective(frustumOf(-4, 4, -3, 3, 1, 3)); }

    void expectUnchangedFrom(const PlanarCameraState& start) const {
        expectSuccess(mResult);
        EXPECT_EQ(fingerprint(mResult.mValue), fingerprint(start));
    }

    /// What an operation on the view alone has to give.
    void expectOnlyTheView(const PlanarCameraState& start, const ViewStateResult& view) const {
        EXPECT_NE(view.mValue.mPrivate, start.mViewState.mPrivate) << "the view did not change at all";
        EXPECT_EQ(fingerprint(mResult.mValue.mViewState), fingerprint(view.mValue));
        EXPECT_EQ(fingerprint(mResult.mValue.mProjectionState), fingerprint(start.mProjectionState));
        EXPECT_EQ(fingerprint(mResult.mValue.mSurfaceState), fingerprint(start.mSurfaceState));
    }

    [[nodiscard]] const Vector& eye() const { return mResult.mValue.mViewState.mEye; }

    PlanarCameraStateResult mResult;
};

TEST_F(NavigationOperations, ViewMovesAsByTheOperationsOnViews) {
    const Samples samples(*mService);
    const PlanarCameraState& start = samples.planarCamera;
    const Vector pivot = vectorOf(0.5, 0.25, -1);
    const Vector axis = vectorOf(0, 1, 0.5);
    const Vector offset = vectorOf(1, -2, 3);
    ViewStateResult view;

    mService->planarCameraRotateAboutViewAxes(mResult, start, pivot, 0.5, 0.25);
    mService->viewRotateAboutViewAxes(view, samples.view, pivot, 0.5, 0.25);
    expectOnlyTheView(start, view);
    mService->planarCameraRotateAboutWorldAxis(mResult, start, pivot, axis, 0.5, 0.25);
    mService->viewRotateAboutWorldAxis(view, samples.view, pivot, axis, 0.5, 0.25);
    expectOnlyTheView(start, view);
    mService->planarCameraTranslateInWorldSpace(mResult, start, offset);
    mService->viewTranslateInWorldSpace(view, samples.view, offset);
    expectOnlyTheView(start, view);
    mService->planarCameraTranslateInViewSpace(mResult, start, offset);
    mService->viewTranslateInViewSpace(view, samples.view, offset);
    expectOnlyTheView(start, view);
    mService->planarCameraYaw(mResult, start, 0.5);
    mService->viewYaw(view, samples.view, 0.5);
    expectOnlyTheView(start, view);
    mService->planarCameraPitch(mResult, start, 0.5);
    mService->viewPitch(view, samples.view, 0.5);
    expectOnlyTheView(start, view);
    mService->planarCameraRoll(mResult, start, 0.5);
    mService->viewRoll(view, samples.view, 0.5);
    expectOnlyTheView(start, view);
    mService->planarCameraYawPitchRoll(mResult, start, 0.5, 0.25, -0.5);
    mService->viewYawPitchRoll(view, samples.view, 0.5, 0.25, -0.5);
    expectOnlyTheView(start, view);
}

TEST_F(NavigationOperations, PoleLimitsHoldForAWorldAxisAlone) {
    const double quarter = std::acos(0.0);
    const PlanarCameraState start =
        camera(viewFrom(vectorOf(0, 0, 5), vectorOf(0, 0, 0)), parallel(), surface(640, 480));
    mService->planarCameraRotateAboutWorldAxis(mResult, start, vectorOf(0, 0, 0), vectorOf(0, 1, 0), 0, quarter);
    expectNear(eye(), {0, 0, 5});
    mService->planarCameraRotateAboutViewAxes(mResult, start, vectorOf(0, 0, 0), 0, quarter);
    expectNear(eye(), {0, -5, 0});
}

TEST_F(NavigationOperations, ZoomAreaFillsTheWindowWithTheRectangle) {
    // (0, 0) to (0.5, 0.5) in device space: 2 by 1.5 units, with the window's ratio.
    mService->planarCameraZoomArea(mResult, cameraFromX(parallel()), 480, 360, 0.5, 320, 240, 0.25);
    expectFrustum(mResult.mValue.mProjectionState, {-1, 1, -0.75, 0.75, 1, 3});
    expectNear(eye(), {5, 0.75, -1});
    // At the distance 2 of the nearer corner the centre is twice as far out as on the near plane.
    mService->planarCameraZoomArea(mResult, cameraFromX(central()), 320, 240, 0.75, 480, 360, 0.75);
    expectFrustum(mResult.mValue.mProjectionState, {-1, 1, -0.75, 0.75, 1, 3});
    expectNear(eye(), {5, 1.5, -2});
}

TEST_F(NavigationOperations, ZoomAreaWidensToTheWindowsRatio) {
    mService->planarCameraZoomArea(mResult, cameraFromX(parallel()), 320, 240, 0.5, 480, 240, 0.5); // no height
    expectFrustum(mResult.mValue.mProjectionState, {-1, 1, -0.75, 0.75, 1, 3});
    expectNear(eye(), {5, 0, -1});
    mService->planarCameraZoomArea(mResult, cameraFromX(parallel()), 320, 240, 0.5, 320, 360, 0.5); // no width
    expectFrustum(mResult.mValue.mProjectionState, {-1, 1, -0.75, 0.75, 1, 3});
    expectNear(eye(), {5, 0.75, 0});
}

TEST_F(NavigationOperations, ZoomAreaRaisesBothExtentsToTheSmallest) {
    // A pixel of 1/80 by 1/80 units is above 0.001, one of a ten thousand pixels wide window is not.
    const PlanarCameraState start = camera(viewFromX(), parallel(), surface(80000, 60000));
    mService->planarCameraZoomArea(mResult, start, 40000, 30000, 0.5, 40001, 30000, 0.5);
    expectFrustum(mResult.mValue.mProjectionState, {-0.002 / 3, 0.002 / 3, -0.0005, 0.0005, 1, 3});
}

TEST_F(NavigationOperations, ZoomAreaTakesBackgroundForNineTenths) {
    const PlanarCameraState start = cameraFromX(central());
    mService->planarCameraZoomArea(mResult, start, 100, 100, 1, 400, 300, 1);
    PlanarCameraStateResult explicitDepth;
    mService->planarCameraZoomArea(explicitDepth, start, 100, 100, 0.9, 400, 300, 0.9);
    EXPECT_EQ(fingerprint(mResult), fingerprint(explicitDepth));
    mService->planarCameraZoomArea(mResult, start, 100, 100, 1, 400, 300, 0.9);
    EXPECT_NE(fingerprint(mResult), fingerprint(explicitDepth)) << "one corner alone is no background";
}

TEST_F(NavigationOperations, ZoomAreaIgnoresOnePixelAndDepthsOutOfRange) {
    const PlanarCameraState start = cameraFromX(central());
    mService->planarCameraZoomArea(mResult, start, 100, 100, 0.5, 100, 100, 0.75);
    expectUnchangedFrom(start);
    mService->planarCameraZoomArea(mResult, start, 100, 100, -0.1, 200, 200, 0.5);
    expectUnchangedFrom(start);
    mService->planarCameraZoomArea(mResult, start, 100, 100, 0.5, 200, 200, 1.1);
    expectUnchangedFrom(start);
}

TEST_F(NavigationOperations, ZoomWithAnchorOnTheScreenKeepsWhatIsThere) {
    // (2, 1.5) under the pixel before, (1, 0.75) after.
    mService->planarCameraZoomWithAnchor_Screen(mResult, cameraFromX(parallel()), 480, 360, 0.5, 0.5);
    expectFrustum(mResult.mValue.mProjectionState, {-2, 2, -1.5, 1.5, 1, 3});
    expectNear(eye(), {5, 0.75, -1});
    // At the distance 2: (4, 3) before, (2, 1.5) after.
    mService->planarCameraZoomWithAnchor_Screen(mResult, cameraFromX(central()), 480, 360, 0.75, 0.5);
    expectNear(eye(), {5, 1.5, -2});
}

TEST_F(NavigationOperations, ZoomWithAnchorOnTheScreenIgnoresNegativeFactorsAndOneStaysInPlace) {
    const PlanarCameraState start = cameraFromX(parallel());
    mService->planarCameraZoomWithAnchor_Screen(mResult, start, 480, 360, 0.5, -0.5);
    expectUnchangedFrom(start);
    mService->planarCameraZoomWithAnchor_Screen(mResult, start, 480, 360, 0.5, 1);
    expectFrustum(mResult.mValue.mProjectionState, {-4, 4, -3, 3, 1, 3});
    expectNear(eye(), {5, 0, 0});
}

TEST_F(NavigationOperations, ZoomWithAnchorInTheWorldGoesByItsPixel) {
    // In view space (2, 1.5, -2): the pixel (480, 360) at the depth 0.5.
    mService->planarCameraZoomWithAnchor_World(mResult, cameraFromX(parallel()), vectorOf(3, 1.5, -2), 0.5);
    expectFrustum(mResult.mValue.mProjectionState, {-2, 2, -1.5, 1.5, 1, 3});
    expectNear(eye(), {5, 0.75, -1});
}

TEST_F(NavigationOperations, ZoomWithAnchorInTheWorldSnapsToAWholePixel) {
    const PlanarCameraState start = unitPixels();
    mService->planarCameraZoomWithAnchor_World(mResult, start, vectorOf(-155.5, -56, -2), 0.5); // pixel (100.5, 200)
    PlanarCameraStateResult snapped;
    mService->planarCameraZoomWithAnchor_Screen(snapped, start, 101, 200, 0.5, 0.5);
    EXPECT_EQ(fingerprint(mResult), fingerprint(snapped));
    mService->planarCameraZoomWithAnchor_Screen(snapped, start, 100, 200, 0.5, 0.5);
    EXPECT_NE(fingerprint(mResult), fingerprint(snapped));
}

TEST_F(NavigationOperations, ZoomWithAnchorInTheWorldIgnoresPixelsThatAreNone) {
    const PlanarCameraState start = unitPixels();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double x : {nan, infinity, -infinity, 2147483648.0 - 256, -2147483649.0 - 256}) {
        mService->planarCameraZoomWithAnchor_World(mResult, start, vectorOf(x, 0, -2), 0.5);
        expectUnchangedFrom(start);
        mService->planarCameraZoomWithAnchor_World(mResult, start, vectorOf(0, x, -2), 0.5);
        expectUnchangedFrom(start);
    }
    mService->planarCameraZoomWithAnchor_World(mResult, start, vectorOf(2147483647.0 - 256, 0, -2), 0.5);
    expectFrustum(mResult.mValue.mProjectionState, {-128, 128, -128, 128, 1, 3});
}

TEST_F(NavigationOperations, PanMovesWhatIsUnderThePixelAlong) {
    mService->planarCameraPanWithAnchor(mResult, cameraFromX(parallel()), 320, 240, 0.5, 160, 120);
    expectNear(eye(), {5, -1.5, 2}); // by (-2, -1.5) in view space
    mService->planarCameraPanWithAnchor(mResult, cameraFromX(central()), 320, 240, 0.75, 160, 120);
    expectNear(eye(), {5, -3, 4}); // twice as far at the distance 2
    const PlanarCameraState start = cameraFromX(central());
    mService->planarCameraPanWithAnchor(mResult, start, 100, 50, 0.25, 0, 0);
    expectUnchangedFrom(start);
}

TEST_F(NavigationOperations, PanWrapsAroundAndReadsTheSumAsSigned) {
    const std::int32_t last = std::numeric_limits<std::int32_t>::max();
    mService->planarCameraPanWithAnchor(mResult, unitPixels(), last, 0, 0.5, 1, 0);
    expectNear(eye(), {4294967295.0, 0, 0}, 1e-6);                                   // from 2147483647 to -2147483648
    mService->planarCameraPanWithAnchor(mResult, unitPixels(), 5, 5, 0.5, -15, -25); // past the lower left corner
    expectNear(eye(), {15, 25, 0});
}

TEST_F(NavigationOperations, ArcballTurnsAboutItsCentre) {
    // The middle pixel is (0, 0, 1), the one at the right border (1, 0, 0.5) normalised. Their angle has the cosine
    // 1/sqrt 5; the second crossed with the first points along -y. The eye at 5 above the centre moves to the left.
    const PlanarCameraState start = camera(viewFrom(vectorOf(0, 0, 0), vectorOf(0, 0, -1)),
                                           orthographic(frustumOf(-1, 1, -1, 1, 1, 3)), surface(512, 512));
    mService->planarCameraArcballRotation(mResult, start, vectorOf(0, 0, -5), 256, 256, 512, 256);
    const double sine = 2 / std::sqrt(5.0);
    const double cosine = 1 / std::sqrt(5.0);
    expectNear(eye(), {-5 * sine, 0, -5 + 5 * cosine});
    expectNear(mResult.mValue.mViewState.mDirection, {sine, 0, -cosine});
}

TEST_F(NavigationOperations, ArcballTurnsInTheViewsFrame) {
    // The same drag from x: the view's -y is the world's, the eye goes to the view's left, which is the world's +z.
    const PlanarCameraState start = camera(viewFromX(), parallel(), surface(512, 512));
    mService->planarCameraArcballRotation(mResult, start, vectorOf(0, 0, 0), 256, 256, 512, 256);
    expectNear(eye(), {5 / std::sqrt(5.0), 0, 10 / std::sqrt(5.0)});
    // A drag upwards lowers the eye.
    mService->planarCameraArcballRotation(mResult, start, vectorOf(0, 0, 0), 256, 256, 256, 512);
    expectNear(eye(), {5 / std::sqrt(5.0), -10 / std::sqrt(5.0), 0});
}

TEST_F(NavigationOperations, ArcballWithoutADragChangesNothing) {
    const PlanarCameraState start = camera(viewFromX(), parallel(), surface(512, 512));
    mService->planarCameraArcballRotation(mResult, start, vectorOf(0, 0, 0), 256, 256, 256, 256);
    expectUnchangedFrom(start);
}

TEST_F(NavigationOperations, ArcballFailsWithoutHeight) {
    PlanarCameraState start = camera(viewFromX(), parallel(), surface(512, 512));
    putWord(start.mPrivate, at::planarSurface + at::resolutionY, 0);
    mService->planarCameraArcballRotation(mResult, start, vectorOf(0, 0, 0), 0, 0, 1, 1);
    expectFailure(mResult.mResult, -1, "Call to planarCameraArcballRotation() failed.");
    EXPECT_EQ(fingerprint(mResult.mValue), fingerprint(PlanarCameraState()));

    mResult = PlanarCameraStateResult();
    putWord(start.mPrivate, at::planarSurface + at::resolutionX, 0);
    putWord(start.mPrivate, at::planarSurface + at::resolutionY, 1);
    mService->planarCameraArcballRotation(mResult, start, vectorOf(0, 0, 0), 0, 0, 1, 1);
    expectSuccess(mResult); // no width is no failure
}

} // namespace

} // namespace qel::api::camera::test
