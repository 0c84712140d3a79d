// SPDX-License-Identifier: Apache-2.0
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "component/Images.h"
#include "component/LittleEndian.h"
#include "component/ReadImage.h"
#include "component/StateConversion.h"
#include "math/Pipeline.h"
#include "math/Quaternions.h"

namespace qel::api::camera {

namespace {

// A record that has held a result has all its storage already: what sizes it stays out of the way of what fills it.

template <class Sequence>
[[gnu::noinline]] void resize(Sequence& sequence, const std::size_t size) {
    sequence.resize(size);
}

/// The elements of a list or the bytes of a text, which has exactly this many afterwards.
template <class Sequence>
auto* sized(Sequence& sequence, const std::size_t size) {
    if (sequence.size() != size) [[unlikely]] {
        resize(sequence, size);
    }
    return sequence.data();
}

template <std::size_t Count>
void assign(std::vector<double>& list, const std::array<double, Count>& values) {
    double* elements = sized(list, Count);
    for (std::size_t i = 0; i < Count; ++i) { // a memcpy would put the values into memory first
        elements[i] = values[i];
    }
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
    std::vector<double>* rows = sized(matrix.mData, 4);
    for (std::size_t r = 0; r < 4; ++r) {
        assign(rows[r], std::array{m(r, 0), m(r, 1), m(r, 2), m(r, 3)});
    }
}

namespace {

// What a part of a camera shows of itself, from an object or from its image.

void writeFields(ViewState& state, const impl::View& view) {
    write(state.mViewMatrix, view.viewMatrix());
    write(state.mViewTransformMatrix, view.viewTransformMatrix());
    write(state.mEye, view.eye());
    write(state.mDirection, view.direction());
    write(state.mOrientation, math::mat3ToQuaternion(view.rotation()));
}
void writeFields(ViewState& state, const ViewBytes view) { writeFields(state, readView(view.image)); }

void writeFields(ProjectionState& state, const math::Mat4& matrix, const std::int32_t type,
                 const math::Frustum& frustum) {
    write(state.mProjectionMatrix, matrix);
    state.mProjectionType = type == 1 ? ProjectionType::ORTHOGRAPHIC : ProjectionType::PERSPECTIVE;
    write(state.mFrustum, frustum);
}
void writeFields(ProjectionState& state, const impl::Projection& projection) {
    writeFields(state, projection.matrix(), projection.type(), projection.frustum());
}
void writeFields(ProjectionState& state, const ProjectionBytes projection) {
    writeFields(state, readMatrix<4>(projection.image + offsetof(ProjectionImage, matrix)),
                readNumber<std::int32_t>(projection.image + offsetof(ProjectionImage, type)),
                readFrustum(projection.image + offsetof(ProjectionImage, frustum)));
}

void writeFields(SurfaceState& state, const math::Viewport& viewport, const std::uint32_t resolutionX,
                 const std::uint32_t resolutionY) noexcept {
    write(state.mViewport, viewport);
    state.mResolutionX = static_cast<double>(resolutionX);
    state.mResolutionY = static_cast<double>(resolutionY);
}
void writeFields(SurfaceState& state, const impl::Surface& surface) noexcept {
    writeFields(state, surface.viewport(), surface.resolutionX(), surface.resolutionY());
}
void writeFields(SurfaceState& state, const SurfaceBytes surface) noexcept {
    writeFields(state, readViewport(surface.image + offsetof(SurfaceImage, viewport)),
                readNumber<std::uint32_t>(surface.image + offsetof(SurfaceImage, resolutionX)),
                readNumber<std::uint32_t>(surface.image + offsetof(SurfaceImage, resolutionY)));
}

// The images of the parts, from an object or from an image, which may be the same one.

template <std::size_t Size>
void writeMatrixImage(char* to, const math::BasicMatrix<double, Size, Size>& m) noexcept {
    writeNumbers(to, m.mElements);
    writeNumber(to + offsetof(MatrixImage<Size>, kind), static_cast<std::uint32_t>(m.mKind));
    std::memset(to + offsetof(MatrixImage<Size>, padding), 0, sizeof(MatrixImage<Size>::padding));
}

template <std::size_t Size>
void clearMatrixPadding(char* matrix) noexcept {
    std::memset(matrix + offsetof(MatrixImage<Size>, padding), 0, sizeof(MatrixImage<Size>::padding));
}

void writeImage(char* to, const impl::View& view) noexcept {
    std::memset(to, 0, sizeof(ImageHeader));
    writeMatrixImage(to + offsetof(ViewImage, viewTransformMatrix), view.viewTransformMatrix());
    writeMatrixImage(to + offsetof(ViewImage, viewMatrix), view.viewMatrix());
    writeMatrixImage(to + offsetof(ViewImage, rotation), view.rotation());
    const auto& [x, y, z] = view.eye();
    writeNumbers(to + offsetof(ViewImage, eye), std::array{x, y, z});
}
void writeImage(char* to, const ViewBytes view) noexcept {
    std::memmove(to, view.image, sizeof(ViewImage));
    std::memset(to, 0, sizeof(ImageHeader));
    clearMatrixPadding<4>(to + offsetof(ViewImage, viewTransformMatrix));
    clearMatrixPadding<4>(to + offsetof(ViewImage, viewMatrix));
    clearMatrixPadding<3>(to + offsetof(ViewImage, rotation));
}

void writeImage(char* to, const impl::Projection& projection) noexcept {
    std::memset(to, 0, sizeof(ImageHeader));
    writeMatrixImage(to + offsetof(ProjectionImage, matrix), projection.matrix());
    writeMatrixImage(to + offsetof(ProjectionImage, inverse), projection.inverse());
    writeNumber(to + offsetof(ProjectionImage, type), projection.type());
    std::memset(to + offsetof(ProjectionImage, padding), 0, sizeof(ProjectionImage::padding));
    const auto& [l, r, b, t, n, f] = projection.frustum();
    writeNumbers(to + offsetof(ProjectionImage, frustum), std::array{l, r, b, t, n, f});
}
void writeImage(char* to, const ProjectionBytes projection) noexcept {
    std::memmove(to, projection.image, sizeof(ProjectionImage));
    std::memset(to, 0, sizeof(ImageHeader));
    clearMatrixPadding<4>(to + offsetof(ProjectionImage, matrix));
    clearMatrixPadding<4>(to + offsetof(ProjectionImage, inverse));
    std::memset(to + offsetof(ProjectionImage, padding), 0, sizeof(ProjectionImage::padding));
}

void writeImage(char* to, const impl::Surface& surface) noexcept {
    std::memset(to, 0, sizeof(ImageHeader));
    const auto& [x, y, width, height, depthMin, depthMax] = surface.viewport();
    writeNumbers(to + offsetof(SurfaceImage, viewport), std::array{x, y, width, height, depthMin, depthMax});
    writeMatrixImage(to + offsetof(SurfaceImage, matrix), surface.matrix());
    writeMatrixImage(to + offsetof(SurfaceImage, inverse), surface.inverse());
    writeNumber(to + offsetof(SurfaceImage, resolutionX), surface.resolutionX());
    writeNumber(to + offsetof(SurfaceImage, resolutionY), surface.resolutionY());
}
void writeImage(char* to, const SurfaceBytes surface) noexcept {
    std::memmove(to, surface.image, sizeof(SurfaceImage));
    std::memset(to, 0, sizeof(ImageHeader));
    clearMatrixPadding<4>(to + offsetof(SurfaceImage, matrix));
    clearMatrixPadding<4>(to + offsetof(SurfaceImage, inverse));
}

/// Each part is an object or bytes. Bytes may be those of the result: a part is only ever written in its own place.
template <class View, class Projection, class Surface>
void writeParts(PlanarCameraState& state, const CameraWords& words, const View& view, const Projection& projection,
                const Surface& surface) {
    writeFields(state.mViewState, view);
    writeImage(sized(state.mViewState.mPrivate, sizeof(ViewImage)), view);
    writeFields(state.mProjectionState, projection);
    writeImage(sized(state.mProjectionState.mPrivate, sizeof(ProjectionImage)), projection);
    writeFields(state.mSurfaceState, surface);
    writeImage(sized(state.mSurfaceState.mPrivate, sizeof(SurfaceImage)), surface);

    char* image = sized(state.mPrivate, sizeof(PlanarCameraImage));
    std::memset(image, 0, sizeof(ImageHeader));
    writeNumbers(image + offsetof(PlanarCameraImage, words), words);
    writeImage(image + offsetof(PlanarCameraImage, view), view);
    writeImage(image + offsetof(PlanarCameraImage, projection), projection);
    writeImage(image + offsetof(PlanarCameraImage, surface), surface);
}

} // namespace

void write(ViewState& state, const impl::View& view) {
    writeFields(state, view);
    writeImage(sized(state.mPrivate, sizeof(ViewImage)), view);
}

void write(ProjectionState& state, const impl::Projection& projection) {
    writeFields(state, projection);
    writeImage(sized(state.mPrivate, sizeof(ProjectionImage)), projection);
}

void write(SurfaceState& state, const impl::Surface& surface) {
    writeFields(state, surface);
    writeImage(sized(state.mPrivate, sizeof(SurfaceImage)), surface);
}

void write(PlanarCameraState& state, const impl::PlanarCamera& camera) {
    writeParts(state, {camera.firstWord(), camera.secondWord()}, camera.view(), camera.projection(), camera.surface());
}

void write(PlanarCameraState& state, const CameraBytes& camera) {
    writeParts(state, camera.words, camera.view, camera.projection, camera.surface);
}

void write(PlanarCameraState& state, const impl::View& view, const CameraBytes& others) {
    writeParts(state, others.words, view, others.projection, others.surface);
}

void write(PlanarCameraState& state, const impl::View& view, const impl::Projection& projection,
           const CameraBytes& others) {
    writeParts(state, others.words, view, projection, others.surface);
}

} // namespace qel::api::camera
