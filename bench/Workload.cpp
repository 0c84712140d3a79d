// SPDX-License-Identifier: Apache-2.0
#include "bench/Workload.h"

#include <array>
#include <cstddef>
#include <stdexcept>
#include <string>

namespace qel::bench {

using namespace api::camera;

namespace {

template <class Value>
struct Named {
    std::string_view name;
    Value value;
};

constexpr std::array numbers{
    Named<double>{"angle", 0.1},       Named<double>{"tilt", 0.05},       Named<double>{"yaw", 0.1},
    Named<double>{"pitch", 0.05},      Named<double>{"roll", 0.02},       Named<double>{"horizontalFoV", 0.9},
    Named<double>{"verticalFoV", 0.7}, Named<double>{"aspectRatio", 1.6}, Named<double>{"nearDist", 0.2},
    Named<double>{"farDist", 200.0},   Named<double>{"width", 0.8},       Named<double>{"height", 0.6},
    Named<double>{"depthMin", 0.0},    Named<double>{"depthMax", 1.0},    Named<double>{"x", 0.1},
    Named<double>{"y", 0.2},           Named<double>{"x1", -1.0},         Named<double>{"y1", -1.5},
    Named<double>{"z1", -0.5},         Named<double>{"x2", 1.0},          Named<double>{"y2", 1.25},
    Named<double>{"z2", 0.75},         Named<double>{"xMin", -1.0},       Named<double>{"yMin", -1.5},
    Named<double>{"zMin", -7.0},       Named<double>{"xMax", 1.0},        Named<double>{"yMax", 1.25},
    Named<double>{"zMax", -5.0},       Named<double>{"radius", 2.0},      Named<double>{"minimumNearDist", 0.05},
    Named<double>{"depth", 0.97},      Named<double>{"depth1", 0.96},     Named<double>{"depth2", 0.98},
    Named<double>{"factor", 0.9},
};

constexpr std::array pixels{
    Named<std::int32_t>{"x", 300},
    Named<std::int32_t>{"y", 200},
    Named<std::int32_t>{"x1", 200},
    Named<std::int32_t>{"y1", 150},
    Named<std::int32_t>{"x2", 440},
    Named<std::int32_t>{"y2", 330},
    Named<std::int32_t>{"dx", 7},
    Named<std::int32_t>{"dy", 5},
    Named<std::int32_t>{"width", 800},
    Named<std::int32_t>{"height", 600},
    Named<std::int32_t>{"resolutionX", 1280},
    Named<std::int32_t>{"resolutionY", 720},
};

constexpr std::array vectors{
    Named<std::array<double, 3>>{"eye", {3.0, 2.0, 5.0}},     Named<std::array<double, 3>>{"lookat", {0.1, 0.2, -0.3}},
    Named<std::array<double, 3>>{"up", {0.1, 1.0, 0.2}},      Named<std::array<double, 3>>{"target", {0.5, -0.5, 0.2}},
    Named<std::array<double, 3>>{"axis", {0.3, 0.4, -1.0}},   Named<std::array<double, 3>>{"offset", {0.1, -0.2, 0.3}},
    Named<std::array<double, 3>>{"pivot", {0.2, 0.1, -0.1}},  Named<std::array<double, 3>>{"vector", {1.0, 2.0, 3.0}},
    Named<std::array<double, 3>>{"point", {0.4, 0.3, -0.2}},  Named<std::array<double, 3>>{"centre", {0.2, 0.1, -0.1}},
    Named<std::array<double, 3>>{"anchor", {0.3, -0.2, 0.1}},
};

template <class Values>
const auto& find(const Values& values, std::string_view operation, std::string_view name) {
    for (const auto& value : values) {
        if (value.name == name) {
            return value.value;
        }
    }
    throw std::out_of_range("the workload has no value for argument " + std::string(name) + " of " +
                            std::string(operation));
}

} // namespace

Workload::Workload(CameraAPIIf& camera) {
    ViewStateResult view;
    ProjectionStateResult projection;
    SurfaceStateResult surface;
    PlanarCameraStateResult planar;
    Vector eye;
    eye.mData = {4.0, 3.0, 6.0};
    Vector lookat;
    lookat.mData = {0.0, 0.0, 0.0};
    Vector up;
    up.mData = {0.0, 1.0, 0.0};
    Frustum frustum;
    frustum.mLeft = -0.05;
    frustum.mRight = 0.06;
    frustum.mBottom = -0.04;
    frustum.mTop = 0.045;
    frustum.mNearDist = 0.1;
    frustum.mFarDist = 100.0;
    camera.viewCreate(view, eye, lookat, up);
    camera.projectionCreate(projection, frustum, ProjectionType::PERSPECTIVE);
    camera.surfaceCreate(surface, 0.0, 0.0, 1.0, 1.0, 0.0, 1.0, 640, 480);
    camera.planarCameraCreate(planar, view.mValue, projection.mValue, surface.mValue);
    mCamera = planar.mValue;
}

void Workload::give(double& number, std::string_view operation, std::string_view name) const {
    number = find(numbers, operation, name);
}

void Workload::give(std::int32_t& number, std::string_view operation, std::string_view name) const {
    number = find(pixels, operation, name);
}

void Workload::give(ProjectionType::type& type, std::string_view, std::string_view) const {
    type = ProjectionType::PERSPECTIVE;
}

void Workload::give(Vector& vector, std::string_view operation, std::string_view name) const {
    const auto& values = find(vectors, operation, name);
    vector.mData.assign(values.begin(), values.end());
}

void Workload::give(Quaternion& quaternion, std::string_view, std::string_view) const {
    quaternion.mData = {0.1, 0.2, 0.3, 0.9};
}

void Workload::give(Matrix& matrix, std::string_view operation, std::string_view) const {
    // A matrix of the kind that the operation sets.
    const ViewState& view = mCamera.mViewState;
    if (operation == "projectionSetProjectionMatrix") {
        matrix = mCamera.mProjectionState.mProjectionMatrix;
    } else {
        matrix = operation == "viewSetViewTransformMatrix" ? view.mViewTransformMatrix : view.mViewMatrix;
    }
}

void Workload::give(Frustum& frustum, std::string_view, std::string_view) const {
    frustum = mCamera.mProjectionState.mFrustum;
    frustum.mNearDist = 0.15;
}

void Workload::give(Viewport& viewport, std::string_view, std::string_view) const {
    viewport.mX = 0.1;
    viewport.mY = 0.2;
    viewport.mWidth = 0.8;
    viewport.mHeight = 0.6;
    viewport.mDepthMin = 0.0;
    viewport.mDepthMax = 1.0;
}

void Workload::give(ViewState& state, std::string_view, std::string_view) const { state = mCamera.mViewState; }

void Workload::give(ProjectionState& state, std::string_view, std::string_view) const {
    state = mCamera.mProjectionState;
}

void Workload::give(SurfaceState& state, std::string_view, std::string_view) const { state = mCamera.mSurfaceState; }

void Workload::give(PlanarCameraState& state, std::string_view, std::string_view) const { state = mCamera; }

} // namespace qel::bench
