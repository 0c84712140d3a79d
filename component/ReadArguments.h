// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>

#include <qel/api/camera/Values.h>

#include "math/Matrices.h"
#include "math/Pipeline.h"
#include "math/Quaternions.h"
#include "math/Vectors.h"

namespace qel::api::camera::component {

// Argument records to internal values. Lists that are too short throw std::invalid_argument, which names the argument;
// surplus values are ignored.

[[noreturn]] void throwTooShort(const char* argument, std::size_t expected, const char* what, std::size_t size);

template <class List>
void expectAtLeast(const List& list, std::size_t count, const char* argument, const char* what) {
    if (list.size() < count) [[unlikely]] {
        throwTooShort(argument, count, what, list.size());
    }
}

[[nodiscard]] inline math::Vec3 toVec3(const Vector& vector, const char* argument) {
    expectAtLeast(vector.mData, 3, argument, "values");
    const double* data = vector.mData.data();
    return {data[0], data[1], data[2]};
}

[[nodiscard]] inline math::Quat toQuat(const Quaternion& quaternion, const char* argument) {
    expectAtLeast(quaternion.mData, 4, argument, "values");
    const double* data = quaternion.mData.data();
    return {data[0], data[1], data[2], data[3]};
}

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

} // namespace qel::api::camera::component
