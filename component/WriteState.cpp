// SPDX-License-Identifier: Apache-2.0
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "Images.h"
#include "LittleEndian.h"
#include "Pipeline.h"
#include "Quaternions.h"
#include "StateConversion.h"

namespace qel::api::camera {

namespace {

template <std::size_t Size>
void writeMatrixImage(char* to, const math::BasicMatrix<double, Size, Size>& m) noexcept {
    writeNumbers(to, m.mElements);
    writeNumber(to + offsetof(MatrixImage<Size>, kind), static_cast<std::uint32_t>(m.mKind));
    std::memset(to + offsetof(MatrixImage<Size>, padding), 0, sizeof(MatrixImage<Size>::padding));
}

void writeViewImage(char* to, const impl::View& view) noexcept {
    std::memset(to, 0, sizeof(ImageHeader));
    writeMatrixImage(to + offsetof(ViewImage, viewTransformMatrix), view.viewTransformMatrix());
    writeMatrixImage(to + offsetof(ViewImage, viewMatrix), view.viewMatrix());
    writeMatrixImage(to + offsetof(ViewImage, rotation), view.rotation());
    const auto& [x, y, z] = view.eye();
    writeNumbers(to + offsetof(ViewImage, eye), std::array{x, y, z});
}

void writeProjectionImage(char* to, const impl::Projection& projection) noexcept {
    std::memset(to, 0, sizeof(ImageHeader));
    writeMatrixImage(to + offsetof(ProjectionImage, matrix), projection.matrix());
    writeMatrixImage(to + offsetof(ProjectionImage, inverse), projection.inverse());
    writeNumber(to + offsetof(ProjectionImage, type), projection.type());
    std::memset(to + offsetof(ProjectionImage, padding), 0, sizeof(ProjectionImage::padding));
    const auto& [l, r, b, t, n, f] = projection.frustum();
    writeNumbers(to + offsetof(ProjectionImage, frustum), std::array{l, r, b, t, n, f});
}

void writeSurfaceImage(char* to, const impl::Surface& surface) noexcept {
    std::memset(to, 0, sizeof(ImageHeader));
    const auto& [x, y, width, height, depthMin, depthMax] = surface.viewport();
    writeNumbers(to + offsetof(SurfaceImage, viewport), std::array{x, y, width, height, depthMin, depthMax});
    writeMatrixImage(to + offsetof(SurfaceImage, matrix), surface.matrix());
    writeMatrixImage(to + offsetof(SurfaceImage, inverse), surface.inverse());
    writeNumber(to + offsetof(SurfaceImage, resolutionX), surface.resolutionX());
    writeNumber(to + offsetof(SurfaceImage, resolutionY), surface.resolutionY());
}

/// The bytes of a state's mPrivate, sized for the image that is to be written into them.
template <class Image>
char* imageBytes(std::string& bytes) {
    bytes.resize(sizeof(Image));
    return bytes.data();
}

/// Gives the list exactly these values, in the storage that it has if that is large enough.
template <std::size_t Count>
void assign(std::vector<double>& list, const std::array<double, Count>& values) {
    list.assign(values.begin(), values.end());
}

void write(Quaternion& quaternion, const math::Quat& q) { assign(quaternion.mData, std::array{q.x, q.y, q.z, q.w}); }

void write(Frustum& record, const math::Frustum& frustum) noexcept {
    record.mLeft = frustum.left;
    record.mRight = frustum.right;
    record.mBottom = frustum.bottom;
    record.mTop = frustum.top;
    record.mNearDist = frustum.nearDist;
    record.mFarDist = frustum.farDist;
}

void write(Viewport& record, const math::Viewport& viewport) noexcept {
    record.mX = viewport.x;
    record.mY = viewport.y;
    record.mWidth = viewport.width;
    record.mHeight = viewport.height;
    record.mDepthMin = viewport.depthMin;
    record.mDepthMax = viewport.depthMax;
}

} // namespace

void write(Vector& vector, const math::Vec3& v) { assign(vector.mData, std::array{v.x, v.y, v.z}); }

void write(Matrix& matrix, const math::Mat4& m) {
    matrix.mData.resize(4);
    for (std::size_t r = 0; r < 4; ++r) {
        assign(matrix.mData[r], std::array{m(r, 0), m(r, 1), m(r, 2), m(r, 3)});
    }
}

void write(ViewState& state, const impl::View& view) {
    write(state.mViewMatrix, view.viewMatrix());
    write(state.mViewTransformMatrix, view.viewTransformMatrix());
    write(state.mEye, view.eye());
    write(state.mDirection, view.direction());
    write(state.mOrientation, math::mat3ToQuaternion(view.rotation()));
    writeViewImage(imageBytes<ViewImage>(state.mPrivate), view);
}

void write(ProjectionState& state, const impl::Projection& projection) {
    write(state.mProjectionMatrix, projection.matrix());
    state.mProjectionType = projection.isOrthographic() ? ProjectionType::ORTHOGRAPHIC : ProjectionType::PERSPECTIVE;
    write(state.mFrustum, projection.frustum());
    writeProjectionImage(imageBytes<ProjectionImage>(state.mPrivate), projection);
}

void write(SurfaceState& state, const impl::Surface& surface) {
    write(state.mViewport, surface.viewport());
    state.mResolutionX = static_cast<double>(surface.resolutionX());
    state.mResolutionY = static_cast<double>(surface.resolutionY());
    writeSurfaceImage(imageBytes<SurfaceImage>(state.mPrivate), surface);
}

void write(PlanarCameraState& state, const impl::PlanarCamera& camera) {
    write(state.mViewState, camera.view());
    write(state.mProjectionState, camera.projection());
    write(state.mSurfaceState, camera.surface());

    char* image = imageBytes<PlanarCameraImage>(state.mPrivate);
    std::memset(image, 0, sizeof(ImageHeader));
    writeNumbers(image + offsetof(PlanarCameraImage, words), std::array{camera.firstWord(), camera.secondWord()});
    writeViewImage(image + offsetof(PlanarCameraImage, view), camera.view());
    writeProjectionImage(image + offsetof(PlanarCameraImage, projection), camera.projection());
    writeSurfaceImage(image + offsetof(PlanarCameraImage, surface), camera.surface());
}

} // namespace qel::api::camera
