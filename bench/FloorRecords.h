// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <cstring>
#include <string>

#include <qel/api/camera/States.h>
#include <qel/api/camera/Values.h>

#include "component/Images.h"
#include "math/Matrices.h"
#include "math/Quaternions.h"
#include "math/Vectors.h"

namespace qel::bench::floors {

// Images in and records out, as somebody would write them for one machine and one purpose: the image is copied as it
// is, nothing is checked, and the record is known to have its rows.

using namespace api::camera;

template <class Image>
Image imageIn(const std::string& bytes) {
    Image image;
    std::memcpy(&image, bytes.data(), sizeof image);
    return image;
}

template <class Image>
void imageOut(std::string& bytes, const Image& image) {
    std::memcpy(bytes.data(), &image, sizeof image);
}

inline math::Vec3 vec(const Vector& vector) { return {vector.mData[0], vector.mData[1], vector.mData[2]}; }

template <std::size_t Count>
void listOut(std::vector<double>& list, const std::array<double, Count>& values) {
    std::memcpy(list.data(), values.data(), sizeof values);
}

inline void matrixOut(Matrix& matrix, const std::array<double, 16>& e) {
    for (std::size_t r = 0; r < 4; ++r) {
        listOut(matrix.mData[r], std::array{e[r], e[4 + r], e[8 + r], e[12 + r]});
    }
}

inline void viewOut(ViewState& state, const ViewImage& view) {
    const auto& r = view.rotation.elements;
    const math::Quat q = math::mat3ToQuaternion({r, math::MatrixKind::general});
    matrixOut(state.mViewMatrix, view.viewMatrix.elements);
    matrixOut(state.mViewTransformMatrix, view.viewTransformMatrix.elements);
    listOut(state.mEye.mData, view.eye);
    listOut(state.mDirection.mData, std::array{-r[6], -r[7], -r[8]});
    listOut(state.mOrientation.mData, std::array{q.x, q.y, q.z, q.w});
    imageOut(state.mPrivate, view);
}

inline void projectionOut(ProjectionState& state, const ProjectionImage& projection) {
    matrixOut(state.mProjectionMatrix, projection.matrix.elements);
    state.mProjectionType = projection.type == 1 ? ProjectionType::ORTHOGRAPHIC : ProjectionType::PERSPECTIVE;
    state.mFrustum.mLeft = projection.frustum[0];
    state.mFrustum.mRight = projection.frustum[1];
    state.mFrustum.mBottom = projection.frustum[2];
    state.mFrustum.mTop = projection.frustum[3];
    state.mFrustum.mNearDist = projection.frustum[4];
    state.mFrustum.mFarDist = projection.frustum[5];
    imageOut(state.mPrivate, projection);
}

inline void surfaceOut(SurfaceState& state, const SurfaceImage& surface) {
    state.mViewport.mX = surface.viewport[0];
    state.mViewport.mY = surface.viewport[1];
    state.mViewport.mWidth = surface.viewport[2];
    state.mViewport.mHeight = surface.viewport[3];
    state.mViewport.mDepthMin = surface.viewport[4];
    state.mViewport.mDepthMax = surface.viewport[5];
    state.mResolutionX = surface.resolutionX;
    state.mResolutionY = surface.resolutionY;
    imageOut(state.mPrivate, surface);
}

inline void planarOut(PlanarCameraState& state, const PlanarCameraImage& camera) {
    viewOut(state.mViewState, camera.view);
    projectionOut(state.mProjectionState, camera.projection);
    surfaceOut(state.mSurfaceState, camera.surface);
    imageOut(state.mPrivate, camera);
}

} // namespace qel::bench::floors
