// SPDX-License-Identifier: Apache-2.0
#include "host/show/StateBlob.h"

namespace qel::host {

namespace {

namespace impl = api::camera::impl;

template <class Object>
std::optional<Object> objectIn(std::string_view bytes) {
    constexpr std::size_t size = impl::blobSize<Object>;
    if (bytes.size() < size) {
        return std::nullopt;
    }
    return Object(impl::ConstBlobBytes<size>(bytes.data(), size));
}

template <std::size_t order>
BlobMatrix numbersOf(const api::camera::math::BasicMatrix<double, order, order>& object) {
    BlobMatrix matrix;
    for (std::size_t column = 0; column < order; ++column) {
        for (std::size_t row = 0; row < order; ++row) {
            matrix(row, column) = object(row, column);
        }
    }
    matrix.kind = static_cast<std::uint32_t>(object.mKind);
    return matrix;
}

} // namespace

std::optional<ViewBlob> readViewBlob(std::string_view bytes) {
    const auto view = objectIn<impl::View>(bytes);
    if (!view) {
        return std::nullopt;
    }
    const auto& [x, y, z] = view->eye();
    return ViewBlob{
        numbersOf(view->viewTransformMatrix()), numbersOf(view->viewMatrix()), numbersOf(view->rotation()), {x, y, z}};
}

std::optional<ProjectionBlob> readProjectionBlob(std::string_view bytes) {
    const auto projection = objectIn<impl::Projection>(bytes);
    if (!projection) {
        return std::nullopt;
    }
    const auto& [left, right, bottom, top, nearDist, farDist] = projection->frustum();
    return ProjectionBlob{numbersOf(projection->matrix()),
                          numbersOf(projection->inverse()),
                          projection->isOrthographic(),
                          {left, right, bottom, top, nearDist, farDist}};
}

std::optional<SurfaceBlob> readSurfaceBlob(std::string_view bytes) {
    const auto surface = objectIn<impl::Surface>(bytes);
    if (!surface) {
        return std::nullopt;
    }
    const auto& [x, y, width, height, depthMin, depthMax] = surface->viewport();
    return SurfaceBlob{{x, y, width, height, depthMin, depthMax},
                       numbersOf(surface->matrix()),
                       numbersOf(surface->inverse()),
                       surface->resolutionX(),
                       surface->resolutionY()};
}

PlanarCameraBlobParts partsOfBlob(std::string_view bytes) {
    using Camera = impl::PlanarCamera;
    if (bytes.size() < planarCameraBlobSize) {
        return {};
    }
    return {bytes.substr(Camera::viewInBlob, viewBlobSize), bytes.substr(Camera::projectionInBlob, projectionBlobSize),
            bytes.substr(Camera::surfaceInBlob, surfaceBlobSize)};
}

bool sameBlob(std::string_view a, std::string_view b) {
    constexpr std::size_t header = impl::blobHeaderSize;
    return a.size() == b.size() && a.size() >= header && a.substr(header) == b.substr(header);
}

} // namespace qel::host
