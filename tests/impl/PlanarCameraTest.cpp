// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

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

TEST(PlanarCamera, IsMadeOfDefaultsAndHasZeroWordsAtFirst) {
    EXPECT_TRUE(same(PlanarCamera(), cameraOf(View(), Projection(), Surface())));
    EXPECT_EQ(PlanarCamera().firstWord(), 0U);
    EXPECT_EQ(PlanarCamera().secondWord(), 0U);
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

TEST(PlanarCamera, TakesEachPartByItself) {
    PlanarCamera camera = someCamera(false);
    const Projection projection = camera.projection();
    const Surface surface = camera.surface();
    camera.setView(blobOf(View()));
    EXPECT_TRUE(same(camera, cameraOf(View(), projection, surface)));
    camera.setProjection(blobOf(Projection()));
    EXPECT_TRUE(same(camera, cameraOf(View(), Projection(), surface)));
    camera.setSurface(blobOf(Surface()));
    EXPECT_TRUE(same(camera, PlanarCamera()));
}

TEST(PlanarCamera, TurnsItsViewInPlace) {
    PlanarCamera camera = someCamera(false);
    camera.view().setEye({7, 8, 9});
    View expected = someView();
    expected.setEye({7, 8, 9});
    EXPECT_TRUE(same(camera.view(), expected));
}

TEST(CameraWords, AreStoredAndReadThroughTheBase) {
    PlanarCamera planar;
    Camera& camera = planar;
    camera.setFirstWord(0xFFFFFFFFFFFFFFFFU);
    camera.setSecondWord(0x0123456789ABCDEFU);
    EXPECT_EQ(camera.firstWord(), 0xFFFFFFFFFFFFFFFFU);
    EXPECT_EQ(camera.secondWord(), 0x0123456789ABCDEFU);
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

TEST(PlanarCamera, PrintsOneLineAndChangesNothingWhereItIsNotImplemented) {
    const PlanarCamera before = someCamera(false);
    ::testing::internal::CaptureStdout();
    EXPECT_TRUE(unchanged(before, [](Camera& camera) { camera.updateFromScreen(); }));
    EXPECT_TRUE(unchanged(before, [](Camera& camera) { camera.updateFromWindow(); }));
    EXPECT_TRUE(unchanged(before, [](Camera& camera) { camera.updateFromScreen(); }));
    EXPECT_EQ(::testing::internal::GetCapturedStdout(),
              "[PlanarCamera::updateFromScreen] function not yet implemented\n"
              "[PlanarCamera::updateFromWindow] function not yet implemented\n"
              "[PlanarCamera::updateFromScreen] function not yet implemented\n");
}

} // namespace
} // namespace qel::api::camera::test
