// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>

#include "impl/Blob.h"
#include "math/Matrices.h"
#include "math/Pipeline.h"
#include "math/Tolerances.h"
#include "math/Vectors.h"

namespace qel::api::camera::impl {

/// How the scene is projected: a perspective or orthographic frustum, the matrix built from it (view space to clip
/// space) and that matrix's inverse. Lengths are in units of view space, angles radians.
///
/// A change that would make the frustum invalid (left < right, bottom < top, near > 1e-7 and near < far must hold) is
/// ignored. Each test rejects when the bound is greater than or equal to the value, so a NaN passes all of them and
/// is taken over.
class Projection {
public:
    /// All that a projection holds, as it stands in a blob.
    struct Block {
        math::Mat4 matrix;
        math::Mat4 inverse;
        struct Type {
            std::int32_t value = 0; ///< 1 for orthographic; any other, 0 as a rule, for perspective
            std::uint32_t mPadding = 0;
        } type;
        math::Frustum frustum;
    };

    /// Perspective, 45 degrees high, 4:3, from 0.01 to 10000.
    Projection();

    /// The projection that the bytes hold, every number as it stands there, consistent or not.
    explicit Projection(ConstBlobBytes<336> blob) noexcept : Projection(BlobReader(blob.data())) {}

    Projection(const Projection&) = default;
    Projection& operator=(const Projection&) = default;
    virtual ~Projection() = default;

    void writeTo(BlobBytes<336> blob) const noexcept {
        BlobWriter out(blob.data());
        out.put(mBlock.matrix);
        out.put(mBlock.inverse);
        out.put(mBlock.type);
        out.put(mBlock.frustum);
    }

    [[nodiscard]] const math::Mat4& matrix() const noexcept { return mBlock.matrix; }
    [[nodiscard]] const math::Mat4& inverse() const noexcept { return mBlock.inverse; }
    [[nodiscard]] bool isOrthographic() const noexcept { return mBlock.type.value == 1; }
    [[nodiscard]] const math::Frustum& frustum() const noexcept { return mBlock.frustum; }

    void setPerspective(double verticalFoV, double aspectRatio, double nearDist, double farDist);
    void setOrthographic(double width, double height, double nearDist, double farDist);
    void setFrustum(const math::Frustum& frustum, bool orthographic) {
        if (frustum.left >= frustum.right || frustum.bottom >= frustum.top || math::tolerance >= frustum.nearDist ||
            frustum.nearDist >= frustum.farDist) {
            return;
        }
        mBlock.frustum = frustum;
        mBlock.type.value = orthographic ? 1 : 0;
        rebuildMatrices();
    }

    /// The field of view in one direction, keeping where the frustum's centre points in that direction, the centre
    /// in the other direction, and the aspect ratio. Perspective only.
    void setHorizontalFoV(double angle);
    void setVerticalFoV(double angle);
    /// Both fields of view, each about its own centre. Perspective only.
    void setFoV(double horizontal, double vertical);

    /// Scales the vertical extent about 0, not about its centre: an off-centre frustum keeps its ratio of bottom to
    /// top.
    void setAspectRatio(double aspectRatio);

    /// A perspective frustum keeps its angles, an orthographic one its sides.
    void setNear(double nearDist);
    void setFar(double farDist);

    /// Takes the matrix as given. The inverse stays that of the previous projection, and the frustum becomes what
    /// that inverse makes of the corners of normalised device space. The parts are out of step until the next change
    /// of the frustum, and saved cameras depend on it.
    void setProjectionMatrix(const math::Mat4& matrix, bool orthographic);

    /// Scales the extents about their centre: above 1 shows more, below 1 magnifies. Negative factors are ignored.
    void zoom(double factor);

    /// Angles between the opposite sides; 0 for an orthographic projection.
    [[nodiscard]] double horizontalFoV() const noexcept {
        const math::Frustum& f = mBlock.frustum;
        return isOrthographic() ? 0.0 : angleBetween(f.left, f.right, f.nearDist);
    }
    [[nodiscard]] double verticalFoV() const noexcept {
        const math::Frustum& f = mBlock.frustum;
        return isOrthographic() ? 0.0 : angleBetween(f.bottom, f.top, f.nearDist);
    }
    /// Width over height, of whatever frustum there is.
    [[nodiscard]] double aspectRatio() const noexcept {
        const math::Frustum& f = mBlock.frustum;
        return (f.right - f.left) / (f.top - f.bottom);
    }

private:
    /// Braces take the members in order.
    explicit Projection(BlobReader in) noexcept
        : mBlock{in.next<math::Mat4>(), in.next<math::Mat4>(), in.next<Block::Type>(), in.next<math::Frustum>()} {}

    /// The angle between the directions to two places on the near plane.
    static double angleBetween(double low, double high, double nearDist) noexcept {
        double lowDepth = nearDist;
        double highDepth = nearDist;
        math::normalise2(low, lowDepth);
        math::normalise2(high, highDepth);
        return std::acos(low * high + lowDepth * highDepth); // not clamped: rounding may give NaN
    }
    void rebuildMatrices();

    Block mBlock;
};

static_assert(sizeof(Projection) == 336 && sizeof(Projection::Block) == 328);
static_assert(offsetof(Projection::Block, matrix) == 0 && offsetof(Projection::Block, inverse) == 136);
static_assert(offsetof(Projection::Block, type) == 272 && offsetof(Projection::Block, frustum) == 280);

} // namespace qel::api::camera::impl
