// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "PlanarCamera.h"
#include "Vectors.h"

namespace qel::api::camera::impl {

// Points and vectors between screen, view and world space. World to view goes through the 4x4 view matrix; view to
// world through the rotation and the eye, on purpose, never through an inverse. Nothing guards a projection or a
// surface that cannot be inverted: the result then holds infinities or NaN.

[[nodiscard]] math::Vec3 screenToView(const PlanarCamera& camera, const ScreenPoint& point) noexcept;
[[nodiscard]] math::Vec3 screenToWorld(const PlanarCamera& camera, const ScreenPoint& point) noexcept;

/// From the second point to the first.
[[nodiscard]] math::Vec3 screenVectorToView(const PlanarCamera& camera, const ScreenPoint& first,
                                            const ScreenPoint& second) noexcept;
[[nodiscard]] math::Vec3 screenVectorToWorld(const PlanarCamera& camera, const ScreenPoint& first,
                                             const ScreenPoint& second) noexcept;

/// x and y are whole pixels, halves rounded away from zero, never -0; z is the depth, not rounded.
[[nodiscard]] math::Vec3 viewToScreen(const PlanarCamera& camera, const math::Vec3& point) noexcept;
[[nodiscard]] math::Vec3 worldToScreen(const PlanarCamera& camera, const math::Vec3& point) noexcept;

[[nodiscard]] math::Vec3 viewPointToWorld(const View& view, const math::Vec3& point) noexcept;
[[nodiscard]] math::Vec3 viewVectorToWorld(const View& view, const math::Vec3& vector) noexcept;

} // namespace qel::api::camera::impl
