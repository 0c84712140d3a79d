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

/// The parts of a camera that lead from the screen to view space.
struct ScreenToView {
    math::Mat4 surfaceInverse;
    math::Mat4 projection;
    math::Mat4 projectionInverse;
    bool orthographic;
};

/// The parts of a camera that lead from view space to the screen.
struct ViewToScreen {
    math::Mat4 projection;
    math::Mat4 surface;
    bool orthographic;
};

[[nodiscard]] inline math::Vec3 transform(const ScreenToView& parts, const ScreenPoint& point) noexcept {
    math::Vec4 n =
        parts.surfaceInverse * math::Vec4{static_cast<double>(point.x), static_cast<double>(point.y), point.depth, 1.0};
    if (!parts.orthographic) {
        // Clip coordinates are the normalised ones times w, and w follows from the depth alone.
        const math::Mat4& p = parts.projection;
        const double w = p(2, 3) / (n.z - p(2, 2) / p(3, 2));
        n = n * w;
    }
    const math::Vec4 v = parts.projectionInverse * n;
    return {v.x, v.y, v.z};
}

/// From the second point to the first.
[[nodiscard]] inline math::Vec3 transformVector(const ScreenToView& parts, const ScreenPoint& first,
                                                const ScreenPoint& second) noexcept {
    return transform(parts, first) - transform(parts, second);
}

/// x and y are whole pixels, halves rounded away from zero, never -0; z is the depth, not rounded.
[[nodiscard]] inline math::Vec3 transform(const ViewToScreen& parts, const math::Vec3& point) noexcept {
    math::Vec4 c = parts.projection * math::Vec4{point.x, point.y, point.z, 1.0};
    if (!parts.orthographic) {
        c = c * (1.0 / c.w);
    }
    const math::Vec4 s = parts.surface * c;
    // Adding 0 turns -0 into 0 and nothing else.
    return {std::round(s.x) + 0.0, std::round(s.y) + 0.0, s.z};
}

[[nodiscard]] inline math::Vec3 viewPointToWorld(const math::Mat3& rotation, const math::Vec3& eye,
                                                 const math::Vec3& point) noexcept {
    return rotation * point + eye;
}

// The same for a whole camera.

[[nodiscard]] math::Vec3 screenToView(const PlanarCamera& camera, const ScreenPoint& point) noexcept;
[[nodiscard]] math::Vec3 screenToWorld(const PlanarCamera& camera, const ScreenPoint& point) noexcept;

[[nodiscard]] math::Vec3 screenVectorToView(const PlanarCamera& camera, const ScreenPoint& first,
                                            const ScreenPoint& second) noexcept;
[[nodiscard]] math::Vec3 screenVectorToWorld(const PlanarCamera& camera, const ScreenPoint& first,
                                             const ScreenPoint& second) noexcept;

[[nodiscard]] math::Vec3 viewToScreen(const PlanarCamera& camera, const math::Vec3& point) noexcept;
[[nodiscard]] math::Vec3 worldToScreen(const PlanarCamera& camera, const math::Vec3& point) noexcept;

[[nodiscard]] math::Vec3 viewPointToWorld(const View& view, const math::Vec3& point) noexcept;
[[nodiscard]] math::Vec3 viewVectorToWorld(const View& view, const math::Vec3& vector) noexcept;

} // namespace qel::api::camera::impl
