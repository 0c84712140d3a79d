// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>

#include "impl/Blob.h"
#include "math/Matrices.h"
#include "math/Pipeline.h"

namespace qel::api::camera::impl {

/// Where on the output raster the picture lands: a viewport in fractions of the resolution, the resolution in pixels,
/// the matrix from normalised device coordinates to pixels, and its inverse. Nothing is rounded here.
///
/// Values outside their range are ignored; each test rejects what is outside, so a NaN passes and is taken over.
class Surface {
public:
    /// All that a surface holds, as it stands in a blob.
    struct Block {
        math::Viewport viewport;
        math::Mat4 matrix;
        math::Mat4 inverse;
        std::uint32_t resolutionX = 0;
        std::uint32_t resolutionY = 0;
    };

    /// The whole of 640 by 480 pixels, depths 0 to 1.
    Surface();

    /// The surface that the bytes hold, every number as it stands there, consistent or not.
    explicit Surface(ConstBlobBytes<336> blob) noexcept : Surface(BlobReader(blob.data())) {}

    Surface(const Surface&) = default;
    Surface& operator=(const Surface&) = default;
    virtual ~Surface() = default;

    void writeTo(BlobBytes<336> blob) const noexcept {
        BlobWriter out(blob.data());
        out.put(mBlock.viewport);
        out.put(mBlock.matrix);
        out.put(mBlock.inverse);
        out.put(mBlock.resolutionX);
        out.put(mBlock.resolutionY);
    }

    [[nodiscard]] const math::Viewport& viewport() const noexcept { return mBlock.viewport; }
    [[nodiscard]] const math::Mat4& matrix() const noexcept { return mBlock.matrix; }
    [[nodiscard]] const math::Mat4& inverse() const noexcept { return mBlock.inverse; }
    [[nodiscard]] std::uint32_t resolutionX() const noexcept { return mBlock.resolutionX; }
    [[nodiscard]] std::uint32_t resolutionY() const noexcept { return mBlock.resolutionY; }

    /// Position within 0 to 1, size above 1e-7, resolution not 0; depths, and whether the viewport fits, are not
    /// checked.
    void update(const math::Viewport& viewport, std::uint32_t resolutionX, std::uint32_t resolutionY);
    void setResolution(std::uint32_t resolutionX, std::uint32_t resolutionY);
    void setResolutionX(std::uint32_t resolutionX);
    void setResolutionY(std::uint32_t resolutionY);

    /// Stores the viewport unchecked and leaves the matrices as they are: they follow with the next update or change
    /// of the resolution, and saved cameras depend on it.
    void setViewport(const math::Viewport& viewport) { mBlock.viewport = viewport; }

private:
    /// Braces take the members in order.
    explicit Surface(BlobReader in) noexcept
        : mBlock{in.next<math::Viewport>(), in.next<math::Mat4>(), in.next<math::Mat4>(), in.next<std::uint32_t>(),
                 in.next<std::uint32_t>()} {}

    void rebuildMatrices();

    Block mBlock;
};

static_assert(sizeof(Surface) == 336 && sizeof(Surface::Block) == 328);
static_assert(offsetof(Surface::Block, viewport) == 0 && offsetof(Surface::Block, matrix) == 48);
static_assert(offsetof(Surface::Block, inverse) == 184 && offsetof(Surface::Block, resolutionX) == 320 &&
              offsetof(Surface::Block, resolutionY) == 324);

} // namespace qel::api::camera::impl
