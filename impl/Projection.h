// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "math/Matrices.h"
#include "math/Pipeline.h"
#include "math/Tolerances.h"

namespace qel::api::camera::impl {

/// How the scene is projected: a perspective or orthographic frustum, the matrix built from it (view space to clip
/// space) and that matrix's inverse. Lengths are in units of view space, angles radians.
///
/// A change that would make the frustum invalid (left < right, bottom < top, near > 1e-7 and near < far must hold) is
/// ignored. Each test rejects when the bound is greater than or equal to the value, so a NaN passes all of them and
/// is taken over.
class Projection {
public:
    /// Perspective, 45 degrees high, 4:3, from 0.01 to 10000.
    Projection();

    /// Takes every part as given, consistent or not, as an image holds them.
    Projection(const math::Mat4& matrix, const math::Mat4& inverse, std::int32_t type,
               const math::Frustum& frustum) noexcept
        : mMatrix(matrix), mInverse(inverse), mType(type), mFrustum(frustum) {}

    Projection(const Projection&) = default;
    Projection& operator=(const Projection&) = default;
    virtual ~Projection() = default;

    [[nodiscard]] const math::Mat4& matrix() const noexcept { return mMatrix; }
    [[nodiscard]] const math::Mat4& inverse() const noexcept { return mInverse; }
    /// 1 for orthographic; any other value, 0 as a rule, for perspective.
    [[nodiscard]] std::int32_t type() const noexcept { return mType; }
    [[nodiscard]] bool isOrthographic() const noexcept { return mType == 1; }
    [[nodiscard]] const math::Frustum& frustum() const noexcept { return mFrustum; }

    void setPerspective(double verticalFoV, double aspectRatio, double nearDist, double farDist);
    void setOrthographic(double width, double height, double nearDist, double farDist);
    void setFrustum(const math::Frustum& frustum, bool orthographic) {
        if (frustum.left >= frustum.right || frustum.bottom >= frustum.top || math::tolerance >= frustum.nearDist ||
            frustum.nearDist >= frustum.farDist) {
            return;
        }
        mFrustum = frustum;
        mType = orthographic ? 1 : 0;
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
    /// that inverse makes of the corners of normalised device space: required, so the parts are out of step until
    /// the next change of the frustum.
    void setProjectionMatrix(const math::Mat4& matrix, bool orthographic);

    /// Scales the extents about their centre: above 1 shows more, below 1 magnifies. Negative factors are ignored.
    void zoom(double factor);

    /// Angles between the opposite sides; 0 for an orthographic projection.
    [[nodiscard]] double horizontalFoV() const noexcept;
    [[nodiscard]] double verticalFoV() const noexcept;
    /// Width over height, of whatever frustum there is.
    [[nodiscard]] double aspectRatio() const noexcept;

private:
    void rebuildMatrices();

    math::Mat4 mMatrix;
    math::Mat4 mInverse;
    std::int32_t mType = 0;
    math::Frustum mFrustum;
};

} // namespace qel::api::camera::impl
