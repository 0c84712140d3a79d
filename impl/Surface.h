// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "math/Matrices.h"
#include "math/Pipeline.h"

namespace qel::api::camera::impl {

/// Where on the output raster the image lands: a viewport in fractions of the resolution, the resolution in pixels,
/// the matrix from normalised device coordinates to pixels, and its inverse. Nothing is rounded here.
///
/// Values outside their range are ignored; each test rejects what is outside, so a NaN passes and is taken over.
class Surface {
public:
    /// The whole of 640 by 480 pixels, depths 0 to 1.
    Surface();

    /// Takes every part as given, consistent or not, as an image holds them.
    Surface(const math::Viewport& viewport, const math::Mat4& matrix, const math::Mat4& inverse,
            std::uint32_t resolutionX, std::uint32_t resolutionY) noexcept
        : mViewport(viewport),
          mMatrix(matrix),
          mInverse(inverse),
          mResolutionX(resolutionX),
          mResolutionY(resolutionY) {}

    Surface(const Surface&) = default;
    Surface& operator=(const Surface&) = default;
    virtual ~Surface() = default;

    [[nodiscard]] const math::Viewport& viewport() const noexcept { return mViewport; }
    [[nodiscard]] const math::Mat4& matrix() const noexcept { return mMatrix; }
    [[nodiscard]] const math::Mat4& inverse() const noexcept { return mInverse; }
    [[nodiscard]] std::uint32_t resolutionX() const noexcept { return mResolutionX; }
    [[nodiscard]] std::uint32_t resolutionY() const noexcept { return mResolutionY; }

    /// Position within 0 to 1, size above 1e-7, resolution not 0; depths, and whether the viewport fits, are not
    /// checked.
    void update(const math::Viewport& viewport, std::uint32_t resolutionX, std::uint32_t resolutionY);
    void setResolution(std::uint32_t resolutionX, std::uint32_t resolutionY);
    void setResolutionX(std::uint32_t resolutionX);
    void setResolutionY(std::uint32_t resolutionY);

    /// Stores the viewport unchecked and leaves the matrices as they are, as required: they follow with the next
    /// update or change of the resolution.
    void setViewport(const math::Viewport& viewport);

private:
    void rebuildMatrices();

    math::Viewport mViewport;
    math::Mat4 mMatrix;
    math::Mat4 mInverse;
    std::uint32_t mResolutionX = 0;
    std::uint32_t mResolutionY = 0;
};

} // namespace qel::api::camera::impl
