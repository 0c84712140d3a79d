// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "impl/PlanarCamera.h"

namespace qel::host {

// What the blobs of states hold. To a host a blob is opaque: it keeps and returns it. This reader is for looking into a
// state that went wrong, because operations read the blob alone, and some of what it holds stands in no field. It sees
// the objects that the blobs are of, as nothing else does here.

/// A 4x4 matrix that acts on column vectors, column after column, and what the component says of its kind.
struct BlobMatrix {
    std::array<double, 16> elements{};
    std::uint32_t kind = 0;

    [[nodiscard]] double operator()(std::size_t row, std::size_t column) const { return elements[4 * column + row]; }
    double& operator()(std::size_t row, std::size_t column) { return elements[4 * column + row]; }
};

struct ViewBlob {
    BlobMatrix viewTransform; ///< view to world
    BlobMatrix view;          ///< world to view
    BlobMatrix rotation;      ///< its upper left 3x3 alone: the view's axes as columns
    std::array<double, 3> eye{};
};

struct ProjectionBlob {
    BlobMatrix projection;
    BlobMatrix inverse;
    bool orthographic = false;
    std::array<double, 6> frustum{}; ///< left, right, bottom, top, near, far
};

struct SurfaceBlob {
    std::array<double, 6> viewport{}; ///< x, y, width, height, least depth, greatest depth
    BlobMatrix toScreen;              ///< normalised device coordinates to pixels
    BlobMatrix fromScreen;
    std::uint32_t resolutionX = 0;
    std::uint32_t resolutionY = 0;
};

inline constexpr std::size_t viewBlobSize = api::camera::impl::blobSize<api::camera::impl::View>;
inline constexpr std::size_t projectionBlobSize = api::camera::impl::blobSize<api::camera::impl::Projection>;
inline constexpr std::size_t surfaceBlobSize = api::camera::impl::blobSize<api::camera::impl::Surface>;
inline constexpr std::size_t planarCameraBlobSize = api::camera::impl::blobSize<api::camera::impl::PlanarCamera>;

/// Nothing where there are fewer bytes than a blob has; surplus bytes are left alone, as operations do.
std::optional<ViewBlob> readViewBlob(std::string_view bytes);
std::optional<ProjectionBlob> readProjectionBlob(std::string_view bytes);
std::optional<SurfaceBlob> readSurfaceBlob(std::string_view bytes);

/// The blobs of its parts in that of a planar camera; empty where it has fewer bytes than such a blob.
struct PlanarCameraBlobParts {
    std::string_view view;
    std::string_view projection;
    std::string_view surface;
};
PlanarCameraBlobParts partsOfBlob(std::string_view bytes);

/// Whether two blobs hold the same: all but the eight bytes that each begins with, which nobody reads.
bool sameBlob(std::string_view a, std::string_view b);

} // namespace qel::host
