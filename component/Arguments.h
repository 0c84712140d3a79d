// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include <qel/api/camera/Values.h>

#include "Matrices.h"
#include "Pipeline.h"
#include "Quaternions.h"
#include "Vectors.h"

namespace qel::api::camera {

// Argument records to internal values. Lists that are too short throw std::invalid_argument, which names the argument;
// surplus values are ignored.
[[nodiscard]] math::Vec3 toVec3(const Vector& vector, const char* argument);
[[nodiscard]] math::Quat toQuat(const Quaternion& quaternion, const char* argument);
/// Of kind general, whatever the elements are.
[[nodiscard]] math::Mat4 toMat4(const Matrix& matrix, const char* argument);

[[nodiscard]] constexpr math::Frustum toFrustum(const Frustum& frustum) noexcept {
    return {frustum.mLeft, frustum.mRight, frustum.mBottom, frustum.mTop, frustum.mNearDist, frustum.mFarDist};
}

[[nodiscard]] constexpr math::Viewport toViewport(const Viewport& viewport) noexcept {
    return {viewport.mX, viewport.mY, viewport.mWidth, viewport.mHeight, viewport.mDepthMin, viewport.mDepthMax};
}

/// Any other value than ORTHOGRAPHIC is perspective.
[[nodiscard]] constexpr bool isOrthographic(ProjectionType::type type) noexcept {
    return type == ProjectionType::ORTHOGRAPHIC;
}

/// Sizes in pixels cross the interface as signed numbers and are meant as unsigned ones.
[[nodiscard]] constexpr std::uint32_t toPixels(std::int32_t size) noexcept { return static_cast<std::uint32_t>(size); }

} // namespace qel::api::camera
