// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include <qel/api/camera/States.h>

#include "component/Images.h"
#include "component/LittleEndian.h"
#include "impl/Projection.h"
#include "impl/Surface.h"
#include "impl/View.h"
#include "math/Matrices.h"

namespace qel::api::camera {

// The images in states, as a whole and in parts: an operation reads the parts that it needs. A state's image is
// checked to be complete, longer ones are read from their beginning; std::invalid_argument tells of a shorter one.

[[noreturn]] void throwShortImage(const char* state, std::size_t expected, std::size_t size);

template <class Image>
[[nodiscard]] const char* completeImage(const std::string& bytes, const char* state) {
    if (bytes.size() < sizeof(Image)) [[unlikely]] {
        throwShortImage(state, sizeof(Image), bytes.size());
    }
    return bytes.data();
}

[[nodiscard]] inline const char* imageOf(const PlanarCameraState& state) {
    return completeImage<PlanarCameraImage>(state.mPrivate, "PlanarCameraState");
}

[[nodiscard]] inline const char* viewImageOf(const ViewState& state) {
    return completeImage<ViewImage>(state.mPrivate, "ViewState");
}
[[nodiscard]] inline const char* viewImageOf(const PlanarCameraState& state) {
    return imageOf(state) + offsetof(PlanarCameraImage, view);
}

[[nodiscard]] inline const char* projectionImageOf(const ProjectionState& state) {
    return completeImage<ProjectionImage>(state.mPrivate, "ProjectionState");
}
[[nodiscard]] inline const char* projectionImageOf(const PlanarCameraState& state) {
    return imageOf(state) + offsetof(PlanarCameraImage, projection);
}

[[nodiscard]] inline const char* surfaceImageOf(const SurfaceState& state) {
    return completeImage<SurfaceImage>(state.mPrivate, "SurfaceState");
}
[[nodiscard]] inline const char* surfaceImageOf(const PlanarCameraState& state) {
    return imageOf(state) + offsetof(PlanarCameraImage, surface);
}

template <std::size_t Size>
[[nodiscard]] math::BasicMatrix<double, Size, Size> readMatrix(const char* from) noexcept {
    return {readNumbers<double, Size * Size>(from),
            static_cast<math::MatrixKind>(readNumber<std::uint32_t>(from + offsetof(MatrixImage<Size>, kind)))};
}

[[nodiscard]] inline math::Vec3 readVec3(const char* from) noexcept {
    return {readNumber<double>(from), readNumber<double>(from + 8), readNumber<double>(from + 16)};
}

[[nodiscard]] inline impl::View readView(const char* from) noexcept {
    return {readMatrix<4>(from + offsetof(ViewImage, viewTransformMatrix)),
            readMatrix<4>(from + offsetof(ViewImage, viewMatrix)), readMatrix<3>(from + offsetof(ViewImage, rotation)),
            readVec3(from + offsetof(ViewImage, eye))};
}

[[nodiscard]] inline math::Frustum readFrustum(const char* from) noexcept {
    const auto sides = readNumbers<double, 6>(from);
    return {sides[0], sides[1], sides[2], sides[3], sides[4], sides[5]};
}

[[nodiscard]] inline impl::Projection readProjection(const char* from) noexcept {
    return {readMatrix<4>(from + offsetof(ProjectionImage, matrix)),
            readMatrix<4>(from + offsetof(ProjectionImage, inverse)),
            readNumber<std::int32_t>(from + offsetof(ProjectionImage, type)),
            readFrustum(from + offsetof(ProjectionImage, frustum))};
}

[[nodiscard]] inline math::Viewport readViewport(const char* from) noexcept {
    const auto viewport = readNumbers<double, 6>(from);
    return {viewport[0], viewport[1], viewport[2], viewport[3], viewport[4], viewport[5]};
}

[[nodiscard]] inline impl::Surface readSurface(const char* from) noexcept {
    return {readViewport(from + offsetof(SurfaceImage, viewport)), readMatrix<4>(from + offsetof(SurfaceImage, matrix)),
            readMatrix<4>(from + offsetof(SurfaceImage, inverse)),
            readNumber<std::uint32_t>(from + offsetof(SurfaceImage, resolutionX)),
            readNumber<std::uint32_t>(from + offsetof(SurfaceImage, resolutionY))};
}

using CameraWords = std::array<std::uint64_t, 2>;

[[nodiscard]] inline CameraWords readWords(const char* planarCameraImage) noexcept {
    return readNumbers<std::uint64_t, 2>(planarCameraImage + offsetof(PlanarCameraImage, words));
}

// Where the image of a part stands; for parts that an operation passes on as they are.
struct ViewBytes {
    const char* image;
};
struct ProjectionBytes {
    const char* image;
};
struct SurfaceBytes {
    const char* image;
};

/// A camera by its parts' images, which may belong to different states.
struct CameraBytes {
    CameraWords words;
    ViewBytes view;
    ProjectionBytes projection;
    SurfaceBytes surface;
};

[[nodiscard]] inline CameraBytes bytesOf(const PlanarCameraState& state) {
    return {readWords(imageOf(state)), {viewImageOf(state)}, {projectionImageOf(state)}, {surfaceImageOf(state)}};
}

} // namespace qel::api::camera
