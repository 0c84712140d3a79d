// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "impl/Camera.h"
#include "impl/PlanarCamera.h"
#include "tests/impl/CameraTesting.h"

namespace qel::api::camera::test {
namespace {

using impl::Camera;
using impl::PlanarCamera;
using impl::Projection;
using impl::Surface;
using impl::View;

static_assert(std::is_abstract_v<Camera> && std::has_virtual_destructor_v<Camera>);
static_assert(!std::is_copy_constructible_v<Camera> && !std::is_copy_assignable_v<Camera>, "slicing");
static_assert(std::is_base_of_v<Camera, PlanarCamera> && std::is_final_v<PlanarCamera>);
static_assert(std::is_nothrow_move_constructible_v<PlanarCamera> && std::is_nothrow_move_assignable_v<PlanarCamera>);
static_assert(std::is_copy_constructible_v<PlanarCamera> && std::is_copy_assignable_v<PlanarCamera>);
static_assert(!std::is_convertible_v<View, PlanarCamera>);

TEST(PlanarCamera, IsMadeOfDefaultsAtFirst) {
    const PlanarCamera camera;
    EXPECT_TRUE(same(camera.view(), View()));
    EXPECT_TRUE(same(camera.projection(), Projection()));
    EXPECT_TRUE(same(camera.surface(), Surface()));
}

TEST(PlanarCamera, TakesItsPartsAsTheyAre) {
    const View view = withKinds(someView(), {1, 2, 48});
    const Projection projection = forgedProjection(7, {1, 2, 3, 4, 5, 6});
    const Surface surface = forgedSurface(0, 0);
    const PlanarCamera camera = cameraOf(view, projection, surface);
    EXPECT_TRUE(same(camera.view(), view));
    EXPECT_TRUE(same(camera.projection(), projection));
    EXPECT_TRUE(same(camera.surface(), surface));
}

TEST(PlanarCamera, SetViewReplacesTheViewAlone) {
    PlanarCamera camera = someCamera(false);
    camera.setView(blobOf(View()));
    EXPECT_TRUE(same(camera, cameraOf(View(), someCamera(false).projection(), someCamera(false).surface())));
}

TEST(PlanarCamera, SetProjectionReplacesTheProjectionAlone) {
    PlanarCamera camera = someCamera(false);
    camera.setProjection(blobOf(Projection()));
    EXPECT_TRUE(same(camera, cameraOf(someCamera(false).view(), Projection(), someCamera(false).surface())));
}

TEST(PlanarCamera, SetSurfaceReplacesTheSurfaceAlone) {
    PlanarCamera camera = someCamera(false);
    camera.setSurface(blobOf(Surface()));
    EXPECT_TRUE(same(camera, cameraOf(someCamera(false).view(), someCamera(false).projection(), Surface())));
}

TEST(PlanarCamera, TurnsItsViewInPlace) {
    PlanarCamera camera = someCamera(false);
    camera.view().setEye({7, 8, 9});
    View expected = someView();
    expected.setEye({7, 8, 9});
    EXPECT_TRUE(same(camera.view(), expected));
}

TEST(CameraWords, AreZeroAtFirst) {
    EXPECT_EQ(PlanarCamera().firstWord(), 0U);
    EXPECT_EQ(PlanarCamera().secondWord(), 0U);
    EXPECT_EQ(someCamera(true).firstWord(), 0U);
    EXPECT_EQ(someCamera(true).secondWord(), 0U);
}

TEST(CameraWords, AreStoredAndReadThroughTheBase) {
    PlanarCamera planar;
    Camera& camera = planar;
    camera.setFirstWord(0xFFFFFFFFFFFFFFFFU);
    camera.setSecondWord(0x0123456789ABCDEFU);
    EXPECT_EQ(camera.firstWord(), 0xFFFFFFFFFFFFFFFFU);
    EXPECT_EQ(camera.secondWord(), 0x0123456789ABCDEFU);
}

TEST(CameraWords, AreCopiedWithTheRest) {
    PlanarCamera camera = someCamera(true);
    camera.setFirstWord(3);
    camera.setSecondWord(4);
    const PlanarCamera copy = camera;
    EXPECT_EQ(copy.firstWord(), 3U);
    EXPECT_EQ(copy.secondWord(), 4U);
    EXPECT_TRUE(same(copy, camera));
    PlanarCamera assigned;
    assigned = camera;
    EXPECT_EQ(assigned.firstWord(), 3U);
    EXPECT_EQ(assigned.secondWord(), 4U);
    EXPECT_TRUE(same(assigned, camera));
}

TEST(CameraWords, AreTouchedByNoOperation) {
    PlanarCamera camera = someCamera(false);
    camera.setFirstWord(3);
    camera.setSecondWord(4);
    camera.setView(blobOf(View()));
    camera.updateWindowSize(10, 20);
    camera.fitWorldSpaceBoundingBox({{0, 0, 0}, {1, 2, 3}});
    camera.arcballRotation({0, 0, 0}, {1, 2}, {3, 4});
    EXPECT_EQ(camera.firstWord(), 3U);
    EXPECT_EQ(camera.secondWord(), 4U);
}

TEST(PlanarCamera, NamesItsType) {
    const PlanarCamera planar;
    const Camera& camera = planar;
    EXPECT_EQ(camera.typeName(), "PlanarCamera");
}

TEST(PlanarCamera, UpdateFromScreenPrintsOneLineEachTime) {
    PlanarCamera camera = someCamera(false);
    ::testing::internal::CaptureStdout();
    camera.updateFromScreen();
    const std::string once = ::testing::internal::GetCapturedStdout();
    EXPECT_EQ(once, "[PlanarCamera::updateFromScreen] function not yet implemented\n");
    ::testing::internal::CaptureStdout();
    camera.updateFromScreen();
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), once);
}

TEST(PlanarCamera, UpdateFromWindowPrintsOneLineEachTime) {
    PlanarCamera camera = someCamera(false);
    ::testing::internal::CaptureStdout();
    camera.updateFromWindow();
    const std::string once = ::testing::internal::GetCapturedStdout();
    EXPECT_EQ(once, "[PlanarCamera::updateFromWindow] function not yet implemented\n");
    ::testing::internal::CaptureStdout();
    camera.updateFromWindow();
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), once);
}

TEST(PlanarCamera, IsNotChangedByItsStubs) {
    PlanarCamera camera = someCamera(false);
    ::testing::internal::CaptureStdout();
    camera.updateFromScreen();
    camera.updateFromWindow();
    EXPECT_EQ(::testing::internal::GetCapturedStdout().size(), 2 * 62U);
    EXPECT_TRUE(same(camera, someCamera(false)));
}

} // namespace
} // namespace qel::api::camera::test
