// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cmath>

#include "impl/PlanarCamera.h"
#include "math/Matrices.h"
#include "math/Vectors.h"

namespace qel::api::camera::impl {

// Points and vectors between screen, view and world space. World to view goes through the 4x4 view matrix; view to
// world through the rotation and the eye, on purpose, never through an inverse. Nothing guards a projection or a
// surface that cannot be inverted: the result then holds infinities or NaN.

[[nodiscard, gnu::always_inline]] inline math::Vec3 screenToView(const PlanarCamera& camera,
                                                                 const ScreenPoint& point) noexcept {
    const math::Vec4 screen{static_cast<double>(point.x), static_cast<double>(point.y), point.depth, 1.0};
    math::Vec4 n = camera.surface().inverse() * screen;
    if (!camera.projection().isOrthographic()) {
        // Clip coordinates are the normalised ones times w, and w follows from the depth alone.
        const math::Mat4& p = camera.projection().matrix();
        const double w = p(2, 3) / (n.z - p(2, 2) / p(3, 2));
        n = n * w;
    }
    const math::Vec4 v = camera.projection().inverse() * n;
    return {v.x, v.y, v.z};
}

/// From the second point to the first.
[[nodiscard, gnu::always_inline]] inline math::Vec3 screenVectorToView(const PlanarCamera& camera,
                                                                       const ScreenPoint& first,
                                                                       const ScreenPoint& second) noexcept {
    return screenToView(camera, first) - screenToView(camera, second);
}

/// x and y are whole pixels, halves rounded away from zero, never -0; z is the depth, not rounded.
[[nodiscard, gnu::always_inline]] inline math::Vec3 viewToScreen(const PlanarCamera& camera,
                                                                 const math::Vec3& point) noexcept {
    math::Vec4 c = camera.projection().matrix() * math::Vec4{point.x, point.y, point.z, 1.0};
    if (!camera.projection().isOrthographic()) {
        c = c * (1.0 / c.w);
    }
    const math::Vec4 s = camera.surface().matrix() * c;
    // Adding 0 turns -0 into 0 and nothing else.
    return {std::round(s.x) + 0.0, std::round(s.y) + 0.0, s.z};
}

[[nodiscard, gnu::always_inline]] inline math::Vec3 worldToScreen(const PlanarCamera& camera,
                                                                  const math::Vec3& point) noexcept {
    return viewToScreen(camera, camera.view().worldToViewPoint(point));
}

[[nodiscard, gnu::always_inline]] inline math::Vec3 viewVectorToWorld(const PlanarCamera& camera,
                                                                      const math::Vec3& vector) noexcept {
    return camera.view().rotation() * vector;
}

[[nodiscard, gnu::always_inline]] inline math::Vec3 viewPointToWorld(const PlanarCamera& camera,
                                                                     const math::Vec3& point) noexcept {
    return viewVectorToWorld(camera, point) + camera.view().eye();
}

} // namespace qel::api::camera::impl
