// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <numbers>
#include <ostream>

#include "tests/component/support/StateBench.h"

namespace qel::api::camera::test {

namespace {

// Numbers so large that a sum, a product or a quotient is infinite: for each operation that can, the example of the
// documentation.

using Api = CameraAPIIf;
constexpr ProjectionType::type P = ProjectionType::PERSPECTIVE;
constexpr ProjectionType::type O = ProjectionType::ORTHOGRAPHIC;
using std::numbers::pi;

struct Example {
    const char* operation;
    void (*prepare)(StateBench&);
    void (*overflow)(StateBench&);

    friend std::ostream& operator<<(std::ostream& out, const Example& example) { return out << example.operation; }
};

void nothing(StateBench& /*bench*/) {}

void farEye(StateBench& bench) { bench.on(&Api::viewSetEye, vectorOf(1.7e308, 1.7e308, 1.7e308)); }

Quaternion eighthTurn() { return quaternionOf(0, 0.3826834323650898, 0, 0.9238795325112867); }

class Overflow : public ::testing::TestWithParam<Example> {};

TEST_P(Overflow, EndsBeingFinite) {
    StateBench bench;
    GetParam().prepare(bench);
    EXPECT_TRUE(bench.allFinite()) << "before";
    GetParam().overflow(bench);
    EXPECT_FALSE(bench.allFinite());
}

const auto nameOfExample = [](const auto& info) { return std::string(info.param.operation); };

INSTANTIATE_TEST_SUITE_P(
    Views, Overflow,
    ::testing::Values(
        Example{"viewCreate", nothing,
                [](StateBench& b) {
                    b.make(&Api::viewCreate, vectorOf(1e308, 0, 0), vectorOf(-1e308, 0, 0), vectorOf(0, 1, 0));
                }},
        Example{"viewUpdateLookat", nothing,
                [](StateBench& b) {
                    b.on(&Api::viewUpdateLookat, vectorOf(1e308, 0, 0), vectorOf(-1e308, 0, 0), vectorOf(0, 1, 0));
                }},
        Example{"viewSetEye", [](StateBench& b) { b.on(&Api::viewSetOrientation, eighthTurn()); },
                [](StateBench& b) { b.on(&Api::viewSetEye, vectorOf(1.7e308, 0, 1.7e308)); }},
        Example{"viewSetViewAlongWorldAxis", nothing,
                [](StateBench& b) {
                    b.on(&Api::viewSetViewAlongWorldAxis, vectorOf(1e155, 0, 0), vectorOf(0, 0, -1), vectorOf(0, 1, 0));
                }},
        Example{"viewSetOrientation", farEye, [](StateBench& b) { b.on(&Api::viewSetOrientation, eighthTurn()); }},
        Example{"viewYaw", farEye, [](StateBench& b) { b.on(&Api::viewYaw, pi / 8); }},
        Example{"viewPitch", farEye, [](StateBench& b) { b.on(&Api::viewPitch, pi / 8); }},
        Example{"viewRoll", farEye, [](StateBench& b) { b.on(&Api::viewRoll, pi / 8); }},
        Example{"viewYawPitchRoll", farEye, [](StateBench& b) { b.on(&Api::viewYawPitchRoll, pi / 4, 0, 0); }},
        Example{"viewTranslateInViewSpace", farEye,
                [](StateBench& b) { b.on(&Api::viewTranslateInViewSpace, vectorOf(1e308, 0, 0)); }},
        Example{"viewTranslateInWorldSpace", farEye,
                [](StateBench& b) { b.on(&Api::viewTranslateInWorldSpace, vectorOf(1e308, 0, 0)); }},
        Example{"viewRotateAboutWorldAxis", nothing,
                [](StateBench& b) {
                    b.on(&Api::viewRotateAboutWorldAxis, vectorOf(1e155, 0, 0), vectorOf(0, 1, 0), 1, 0);
                }},
        Example{"viewRotateAboutViewAxes", nothing,
                [](StateBench& b) { b.on(&Api::viewRotateAboutViewAxes, vectorOf(1e155, 0, 0), 1, 0); }},
        Example{
            "viewSetViewMatrix", nothing,
            [](StateBench& b) {
                b.on(&Api::viewSetViewMatrix, matrixOf({{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 1e155, 1, 0}, {0, 0, 0, 1}}));
            }},
        Example{"viewSetViewTransformMatrix", nothing,
                [](StateBench& b) {
                    b.on(&Api::viewSetViewTransformMatrix,
                         matrixOf({{10, 0, 0, 1e308}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}));
                }}),
    nameOfExample);

INSTANTIATE_TEST_SUITE_P(
    Projections, Overflow,
    ::testing::Values(
        Example{"projectionCreate", nothing,
                [](StateBench& b) { b.make(&Api::projectionCreate, frustumOf(0, 1e-309, -1, 1, 1, 2), P); }},
        Example{"projectionSetFrustum", nothing,
                [](StateBench& b) { b.on(&Api::projectionSetFrustum, frustumOf(0, 1e-309, -1, 1, 1, 2), P); }},
        Example{"projectionSetHFoV",
                [](StateBench& b) { b.on(&Api::projectionSetFrustum, frustumOf(-5e-301, 5e-301, -5e9, 5e9, 1, 2), P); },
                [](StateBench& b) { b.on(&Api::projectionSetHFoV, 1); }},
        Example{"projectionSetVFoV",
                [](StateBench& b) { b.on(&Api::projectionSetFrustum, frustumOf(-5e9, 5e9, -5e-301, 5e-301, 1, 2), P); },
                [](StateBench& b) { b.on(&Api::projectionSetVFoV, 1); }},
        Example{"projectionSetAspectRatio", nothing,
                [](StateBench& b) { b.on(&Api::projectionSetAspectRatio, 1.7e308); }},
        Example{"projectionSetNear", [](StateBench& b) { b.on(&Api::projectionSetFar, 1e200); },
                [](StateBench& b) { b.on(&Api::projectionSetNear, 1e150); }},
        Example{"projectionSetFar",
                [](StateBench& b) { b.on(&Api::projectionUpdatePerspective, pi / 4, 4.0 / 3.0, 10, 20); },
                [](StateBench& b) { b.on(&Api::projectionSetFar, 1.7e308); }},
        Example{"projectionUpdatePerspective", nothing,
                [](StateBench& b) { b.on(&Api::projectionUpdatePerspective, pi / 4, 4.0 / 3.0, 10, 1.7e308); }},
        Example{"projectionUpdateOrthographic", nothing,
                [](StateBench& b) { b.on(&Api::projectionUpdateOrthographic, 2, 2, 1e308, 1.7e308); }},
        Example{"projectionSetProjectionMatrix",
                [](StateBench& b) { b.on(&Api::projectionSetFrustum, frustumOf(0, 2e302, -1, 1, 1e-6, 1), P); },
                [](StateBench& b) {
                    b.on(&Api::projectionSetProjectionMatrix,
                         matrixOf({{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}), P);
                }},
        Example{"projectionZoom", nothing, [](StateBench& b) { b.on(&Api::projectionZoom, 1e-309); }},
        Example{"projectionZoomByHalfManyTimes", nothing,
                [](StateBench& b) {
                    for (int i = 0; i < 1023; ++i) {
                        b.on(&Api::projectionZoom, 0.5);
                    }
                }}),
    nameOfExample);

INSTANTIATE_TEST_SUITE_P(
    Surfaces, Overflow,
    ::testing::Values(
        Example{"surfaceCreate", nothing,
                [](StateBench& b) { b.make(&Api::surfaceCreate, 0, 0, 1, 1, -1e308, 1e308, 640, 480); }},
        Example{"surfaceUpdate", nothing,
                [](StateBench& b) { b.on(&Api::surfaceUpdate, 0, 0, 1, 1, -1e308, 1e308, 640, 480); }},
        Example{"surfaceSetResolutionX",
                [](StateBench& b) { b.on(&Api::surfaceSetViewport, viewportOf(0, 0, 1, 1, -1e308, 1e308)); },
                [](StateBench& b) { b.on(&Api::surfaceSetResolutionX, 640); }},
        Example{"surfaceSetResolutionY",
                [](StateBench& b) { b.on(&Api::surfaceSetViewport, viewportOf(0, 0, 1, 1, -1e308, 1e308)); },
                [](StateBench& b) { b.on(&Api::surfaceSetResolutionY, 480); }}),
    nameOfExample);

void wideOrthographic(StateBench& bench) {
    bench.on(&Api::projectionSetFrustum, frustumOf(-8e307, 8e307, -1, 1, 1, 2), O);
    bench.assemble();
}

INSTANTIATE_TEST_SUITE_P(
    PlanarCameras, Overflow,
    ::testing::Values(
        Example{"planarCameraUpdateWindowSize", wideOrthographic,
                [](StateBench& b) { b.on(&Api::planarCameraUpdateWindowSize, 6400, 480); }},
        Example{"planarCameraUpdateClippingPlanes", nothing,
                [](StateBench& b) { b.on(&Api::planarCameraUpdateClippingPlanes, vectorOf(0, 0, 0), 1e308, 10); }},
        Example{"planarCameraFitWorldSpaceBoundingBox", nothing,
                [](StateBench& b) { b.on(&Api::planarCameraFitWorldSpaceBoundingBox, 0, 0, 0, 1e155, 1e155, 1e155); }},
        Example{"planarCameraFitViewSpaceBoundingBox", nothing,
                [](StateBench& b) { b.on(&Api::planarCameraFitViewSpaceBoundingBox, 0, 0, 0, 1e155, 1e155, 1e155); }},
        Example{"planarCameraSwitchProjectionType", nothing,
                [](StateBench& b) { b.on(&Api::planarCameraSwitchProjectionType, -1, -1, -1e-310, 1, 1, -1e-310); }},
        Example{"planarCameraSwitchProjectionTypeBack",
                [](StateBench& b) {
                    b.on(&Api::projectionUpdateOrthographic, 2, 2, 1, 10);
                    b.assemble();
                },
                [](StateBench& b) { b.on(&Api::planarCameraSwitchProjectionType, -1, -1, -1e-310, 1, 1, -1e-310); }},
        Example{"planarCameraZoomArea", wideOrthographic,
                [](StateBench& b) { b.on(&Api::planarCameraZoomArea, 0, 0, 0.5, 2147483647, 100, 0.5); }},
        Example{"planarCameraZoomWithAnchor_Screen", nothing,
                [](StateBench& b) { b.on(&Api::planarCameraZoomWithAnchor_Screen, 320, 240, 0.5, 1e-309); }},
        Example{"planarCameraZoomWithAnchor_World", nothing,
                [](StateBench& b) { b.on(&Api::planarCameraZoomWithAnchor_World, vectorOf(0, 0, -1), 1e-309); }},
        Example{"planarCameraPanWithAnchor", nothing,
                [](StateBench& b) { b.on(&Api::planarCameraPanWithAnchor, 320, 240, 1e308, 1, 0); }},
        Example{
            "planarCameraArcballRotation", nothing,
            [](StateBench& b) { b.on(&Api::planarCameraArcballRotation, vectorOf(1e155, 0, 0), 100, 100, 200, 200); }}),
    nameOfExample);

TEST(OverflowOfSquares, CollapsesTheViewAndKeepsItFinite) {
    StateBench bench;
    bench.on(&Api::viewUpdateLookat, vectorOf(0, 0, 0), vectorOf(0, 0, -1e155), vectorOf(0, 1, 0));
    EXPECT_TRUE(bench.allFinite());
    EXPECT_EQ(bench.state<ViewState>().mDirection.mData, (std::vector<double>{0, 0, 0}));
}

} // namespace

} // namespace qel::api::camera::test
