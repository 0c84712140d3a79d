// SPDX-License-Identifier: Apache-2.0
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "Images.h"
#include "LittleEndian.h"
#include "StateConversion.h"

namespace qel::api::camera {

namespace {

/// The image in a state, known to be complete.
const char* imageIn(const std::string& bytes, const std::size_t size, const char* state) {
    if (bytes.size() < size) {
        throw std::invalid_argument(std::string(state) + "::mPrivate: expected " + std::to_string(size) +
                                    " bytes, got " + std::to_string(bytes.size()));
    }
    return bytes.data();
}

template <std::size_t Size>
math::BasicMatrix<double, Size, Size> readMatrix(const char* from) noexcept {
    return {readNumbers<double, Size * Size>(from),
            static_cast<math::MatrixKind>(readNumber<std::uint32_t>(from + offsetof(MatrixImage<Size>, kind)))};
}

impl::View readView(const char* from) noexcept {
    const auto eye = readNumbers<double, 3>(from + offsetof(ViewImage, eye));
    return {readMatrix<4>(from + offsetof(ViewImage, viewTransformMatrix)),
            readMatrix<4>(from + offsetof(ViewImage, viewMatrix)),
            readMatrix<3>(from + offsetof(ViewImage, rotation)),
            {eye[0], eye[1], eye[2]}};
}

impl::Projection readProjection(const char* from) noexcept {
    const auto frustum = readNumbers<double, 6>(from + offsetof(ProjectionImage, frustum));
    return {readMatrix<4>(from + offsetof(ProjectionImage, matrix)),
            readMatrix<4>(from + offsetof(ProjectionImage, inverse)),
            readNumber<std::int32_t>(from + offsetof(ProjectionImage, type)),
            {frustum[0], frustum[1], frustum[2], frustum[3], frustum[4], frustum[5]}};
}

impl::Surface readSurface(const char* from) noexcept {
    const auto viewport = readNumbers<double, 6>(from + offsetof(SurfaceImage, viewport));
    return {{viewport[0], viewport[1], viewport[2], viewport[3], viewport[4], viewport[5]},
            readMatrix<4>(from + offsetof(SurfaceImage, matrix)),
            readMatrix<4>(from + offsetof(SurfaceImage, inverse)),
            readNumber<std::uint32_t>(from + offsetof(SurfaceImage, resolutionX)),
            readNumber<std::uint32_t>(from + offsetof(SurfaceImage, resolutionY))};
}

} // namespace

impl::View toObject(const ViewState& state) {
    return readView(imageIn(state.mPrivate, sizeof(ViewImage), "ViewState"));
}

impl::Projection toObject(const ProjectionState& state) {
    return readProjection(imageIn(state.mPrivate, sizeof(ProjectionImage), "ProjectionState"));
}

impl::Surface toObject(const SurfaceState& state) {
    return readSurface(imageIn(state.mPrivate, sizeof(SurfaceImage), "SurfaceState"));
}

impl::PlanarCamera toObject(const PlanarCameraState& state) {
    const char* image = imageIn(state.mPrivate, sizeof(PlanarCameraImage), "PlanarCameraState");
    impl::PlanarCamera camera(readView(image + offsetof(PlanarCameraImage, view)),
                              readProjection(image + offsetof(PlanarCameraImage, projection)),
                              readSurface(image + offsetof(PlanarCameraImage, surface)));
    const auto words = readNumbers<std::uint64_t, 2>(image + offsetof(PlanarCameraImage, words));
    camera.setFirstWord(words[0]);
    camera.setSecondWord(words[1]);
    return camera;
}

} // namespace qel::api::camera
