// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace qel::api::camera {

// The layout of a state's mPrivate: the complete working object, from which it is rebuilt exactly. These structs are
// never filled in; they declare where each number stands. All numbers are little-endian on every machine, doubles are
// IEEE 754 binary64. Headers and padding are written as zero, so that equal objects have equal images, and are not
// read.

/// Eight bytes at the start of every object.
using ImageHeader = std::array<std::byte, 8>;

template <std::size_t Size>
struct MatrixImage {
    std::array<double, Size * Size> elements; ///< column by column
    std::uint32_t kind;
    std::array<std::byte, 4> padding;
};
static_assert(sizeof(MatrixImage<4>) == 136 && offsetof(MatrixImage<4>, kind) == 128);
static_assert(sizeof(MatrixImage<3>) == 80 && offsetof(MatrixImage<3>, kind) == 72);

struct ViewImage {
    ImageHeader header;
    MatrixImage<4> viewTransformMatrix;
    MatrixImage<4> viewMatrix;
    MatrixImage<3> rotation;
    std::array<double, 3> eye;
};
static_assert(sizeof(ViewImage) == 384);
static_assert(offsetof(ViewImage, viewTransformMatrix) == 8);
static_assert(offsetof(ViewImage, viewMatrix) == 144);
static_assert(offsetof(ViewImage, rotation) == 280);
static_assert(offsetof(ViewImage, eye) == 360);

struct ProjectionImage {
    ImageHeader header;
    MatrixImage<4> matrix;
    MatrixImage<4> inverse;
    std::int32_t type; ///< 1 for orthographic
    std::array<std::byte, 4> padding;
    std::array<double, 6> frustum; ///< left, right, bottom, top, near, far
};
static_assert(sizeof(ProjectionImage) == 336);
static_assert(offsetof(ProjectionImage, matrix) == 8);
static_assert(offsetof(ProjectionImage, inverse) == 144);
static_assert(offsetof(ProjectionImage, type) == 280);
static_assert(offsetof(ProjectionImage, frustum) == 288);

struct SurfaceImage {
    ImageHeader header;
    std::array<double, 6> viewport; ///< x, y, width, height, depth minimum, depth maximum
    MatrixImage<4> matrix;
    MatrixImage<4> inverse;
    std::uint32_t resolutionX;
    std::uint32_t resolutionY;
};
static_assert(sizeof(SurfaceImage) == 336);
static_assert(offsetof(SurfaceImage, viewport) == 8);
static_assert(offsetof(SurfaceImage, matrix) == 56);
static_assert(offsetof(SurfaceImage, inverse) == 192);
static_assert(offsetof(SurfaceImage, resolutionX) == 328);
static_assert(offsetof(SurfaceImage, resolutionY) == 332);

struct PlanarCameraImage {
    ImageHeader header;
    std::array<std::uint64_t, 2> words;
    ViewImage view;
    ProjectionImage projection;
    SurfaceImage surface;
};
static_assert(sizeof(PlanarCameraImage) == 1080);
static_assert(offsetof(PlanarCameraImage, words) == 8);
static_assert(offsetof(PlanarCameraImage, view) == 24);
static_assert(offsetof(PlanarCameraImage, projection) == 408);
static_assert(offsetof(PlanarCameraImage, surface) == 744);

} // namespace qel::api::camera
