// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>

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

    [[nodiscard]] ProjectionState parallel() const { return orthographic(frustumOf(-4, 4, -3, 3, 1, 3)); }
    /// A depth of 0.75 is at the distance 2: 0.5 in device space, and -3 / (0.5 - 2).
    [[nodiscard]] ProjectionState central() const { return perspective(frustumOf(-4, 4, -3, 3, 1, 3)); }

    [[nodiscard]] const Vector& eye() const { return mResult.mValue.mViewState.mEye; }

    PlanarCameraStateResult mResult;
};

TEST_F(NavigationOperations, NamedLikeOperationsOnViewsMoveTheViewAlone) {
    const Samples samples(*mService);
    std::size_t alike = 0;
    for (const AnyOperation& operation : allOperations()) {
        constexpr std::string_view prefix = "planarCamera";
        const std::size_t number =
            operation.name.starts_with(prefix) && !operation.name.starts_with("planarCameraCreate")
                ? findOperation("view" + std::string(operation.name.substr(prefix.size())))
                : operationCount;
        if (number == operationCount) {
            continue;
        }
        SCOPED_TRACE(operation.name);
        const AnyOperation& onView = allOperations()[number];
        const auto view = std::get<ViewStateResult>(callAfresh(*mService, onView, samples.argumentsOf(onView)));
        const auto camera =
            std::get<PlanarCameraStateResult>(callAfresh(*mService, operation, samples.argumentsOf(operation)));
        EXPECT_NE(view.mValue.mPrivate, samples.view.mPrivate) << "the view did not change at all";
        EXPECT_EQ(fingerprint(camera.mValue.mViewState), fingerprint(view.mValue));
        EXPECT_EQ(fingerprint(camera.mValue.mProjectionState), fingerprint(samples.projection));
        EXPECT_EQ(fingerprint(camera.mValue.mSurfaceState), fingerprint(samples.surface));
        ++alike;
    }
    EXPECT_GE(alike, 9U);
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

TEST_F(NavigationOperations, ZoomWithAnchorOnTheScreenKeepsWhatIsThere) {
    // (2, 1.5) under the pixel before, (1, 0.75) after.
    mService->planarCameraZoomWithAnchor_Screen(mResult, cameraFromX(parallel()), 480, 360, 0.5, 0.5);
    expectFrustum(mResult.mValue.mProjectionState, {-2, 2, -1.5, 1.5, 1, 3});
    expectNear(eye(), {5, 0.75, -1});
    // At the distance 2: (4, 3) before, (2, 1.5) after.
    mService->planarCameraZoomWithAnchor_Screen(mResult, cameraFromX(central()), 480, 360, 0.75, 0.5);
    expectNear(eye(), {5, 1.5, -2});
}

TEST_F(NavigationOperations, ZoomWithAnchorInTheWorldGoesByItsPixel) {
    // In view space (2, 1.5, -2): the pixel (480, 360) at the depth 0.5.
    mService->planarCameraZoomWithAnchor_World(mResult, cameraFromX(parallel()), vectorOf(3, 1.5, -2), 0.5);
    expectFrustum(mResult.mValue.mProjectionState, {-2, 2, -1.5, 1.5, 1, 3});
    expectNear(eye(), {5, 0.75, -1});
}

TEST_F(NavigationOperations, PanMovesWhatIsUnderThePixelAlong) {
    mService->planarCameraPanWithAnchor(mResult, cameraFromX(parallel()), 320, 240, 0.5, 160, 120);
    expectNear(eye(), {5, -1.5, 2}); // by (-2, -1.5) in view space
    mService->planarCameraPanWithAnchor(mResult, cameraFromX(central()), 320, 240, 0.75, 160, 120);
    expectNear(eye(), {5, -3, 4}); // twice as far at the distance 2
    const PlanarCameraState start = cameraFromX(central());
    mService->planarCameraPanWithAnchor(mResult, start, 100, 50, 0.25, 0, 0);
    EXPECT_EQ(fingerprint(mResult.mValue), fingerprint(start));
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
