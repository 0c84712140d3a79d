// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace qel::host {

// What the images of states hold. To a host an image is opaque: it keeps and returns it. This reader is for looking
// into a state that went wrong, because operations read the image alone, and some of what it holds stands in no field.

/// A 4x4 matrix that acts on column vectors, column after column, and what the component says of its kind.
struct ImageMatrix {
    std::array<double, 16> elements{};
    std::uint32_t kind = 0;

    [[nodiscard]] double operator()(std::size_t row, std::size_t column) const { return elements[4 * column + row]; }
    double& operator()(std::size_t row, std::size_t column) { return elements[4 * column + row]; }
};

struct ViewImage {
    ImageMatrix viewTransform; ///< view to world
    ImageMatrix view;          ///< world to view
    ImageMatrix rotation;      ///< its upper left 3x3 alone: the view's axes as columns
    std::array<double, 3> eye{};
};

struct ProjectionImage {
    ImageMatrix projection;
    ImageMatrix inverse;
    bool orthographic = false;
    std::array<double, 6> frustum{}; ///< left, right, bottom, top, near, far
};

struct SurfaceImage {
    std::array<double, 6> viewport{}; ///< x, y, width, height, least depth, greatest depth
    ImageMatrix toScreen;             ///< normalised device coordinates to pixels
    ImageMatrix fromScreen;
    std::uint32_t resolutionX = 0;
    std::uint32_t resolutionY = 0;
};

inline constexpr std::size_t viewImageSize = 384;
inline constexpr std::size_t projectionImageSize = 336;
inline constexpr std::size_t surfaceImageSize = 336;
inline constexpr std::size_t planarCameraImageSize = 1080;

/// Nothing where there are fewer bytes than an image has; surplus bytes are left alone, as operations do.
std::optional<ViewImage> readViewImage(std::string_view bytes);
std::optional<ProjectionImage> readProjectionImage(std::string_view bytes);
std::optional<SurfaceImage> readSurfaceImage(std::string_view bytes);

/// The images of its parts in that of a planar camera; empty where it has fewer bytes than such an image.
struct PlanarCameraImageParts {
    std::string_view view;
    std::string_view projection;
    std::string_view surface;
};
PlanarCameraImageParts partsOfImage(std::string_view bytes);

/// Whether two images hold the same: all but the eight bytes that each begins with, which nobody reads.
bool sameImage(std::string_view a, std::string_view b);

} // namespace qel::host
