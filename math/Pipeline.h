// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "math/Matrices.h"

namespace qel::api::camera::math {

/// The planes of a projection in units of view space. near and far are distances ahead of the eye, positive ahead;
/// for a perspective projection the four sides lie on the near plane.
struct Frustum {
    double left = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    double top = 0.0;
    double nearDist = 0.0;
    double farDist = 0.0;

    friend constexpr bool operator==(const Frustum&, const Frustum&) noexcept = default;
};

/// The frustum with its left and right scaled by one factor, bottom and top by another.
[[nodiscard]] constexpr Frustum withSidesScaled(const Frustum& frustum, double factorX, double factorY) noexcept {
    const auto& [l, r, b, t, n, f] = frustum;
    return {l * factorX, r * factorX, b * factorY, t * factorY, n, f};
}

/// The part of a surface that the picture covers: position and size in fractions of the resolution, and the depths of
/// the near and the far plane.
struct Viewport {
    double x = 0.0;
    double y = 0.0;
    double width = 1.0;
    double height = 1.0;
    double depthMin = 0.0;
    double depthMax = 1.0;

    friend constexpr bool operator==(const Viewport&, const Viewport&) noexcept = default;
};

// The matrices of the classic pipeline (OpenGL 2.1 reference pages glFrustum, glOrtho, glViewport, glDepthRange) and
// their closed-form inverses. View space is right-handed, normalised device coordinates run from -1 to 1. Nothing is
// validated: an empty frustum or viewport gives infinities or NaN. Each is written column by column.

[[nodiscard]] constexpr Mat4 makeFrustum(const Frustum& frustum) noexcept {
    const auto& [l, r, b, t, n, f] = frustum;
    return {{2.0 * n / (r - l), 0.0, 0.0, 0.0,                               //
             0.0, 2.0 * n / (t - b), 0.0, 0.0,                               //
             (r + l) / (r - l), (t + b) / (t - b), -(f + n) / (f - n), -1.0, //
             0.0, 0.0, -2.0 * f * n / (f - n), 0.0},
            MatrixKind::general};
}

[[nodiscard]] constexpr Mat4 makeFrustumInverse(const Frustum& frustum) noexcept {
    const auto& [l, r, b, t, n, f] = frustum;
    return {{(r - l) / (2.0 * n), 0.0, 0.0, 0.0,      //
             0.0, (t - b) / (2.0 * n), 0.0, 0.0,      //
             0.0, 0.0, 0.0, -(f - n) / (2.0 * f * n), //
             (r + l) / (2.0 * n), (t + b) / (2.0 * n), -1.0, (f + n) / (2.0 * f * n)},
            MatrixKind::general};
}

[[nodiscard]] constexpr Mat4 makeOrtho(const Frustum& frustum) noexcept {
    const auto& [l, r, b, t, n, f] = frustum;
    return {{2.0 / (r - l), 0.0, 0.0, 0.0,  //
             0.0, 2.0 / (t - b), 0.0, 0.0,  //
             0.0, 0.0, -2.0 / (f - n), 0.0, //
             -(r + l) / (r - l), -(t + b) / (t - b), -(f + n) / (f - n), 1.0},
            MatrixKind::general};
}

[[nodiscard]] constexpr Mat4 makeOrthoInverse(const Frustum& frustum) noexcept {
    const auto& [l, r, b, t, n, f] = frustum;
    return {{(r - l) / 2.0, 0.0, 0.0, 0.0,  //
             0.0, (t - b) / 2.0, 0.0, 0.0,  //
             0.0, 0.0, -(f - n) / 2.0, 0.0, //
             (l + r) / 2.0, (b + t) / 2.0, -(n + f) / 2.0, 1.0},
            MatrixKind::general};
}

/// Normalised device coordinates to pixels of the surface and depths. Resolutions in pixels.
[[nodiscard]] constexpr Mat4 makeViewport(const Viewport& viewport, std::uint32_t resolutionX,
                                          std::uint32_t resolutionY) noexcept {
    const auto& [x, y, w, h, dmin, dmax] = viewport;
    const auto rx = static_cast<double>(resolutionX);
    const auto ry = static_cast<double>(resolutionY);
    return {{w * rx / 2.0, 0.0, 0.0, 0.0,        //
             0.0, h * ry / 2.0, 0.0, 0.0,        //
             0.0, 0.0, (dmax - dmin) / 2.0, 0.0, //
             x * rx + w * rx / 2.0, y * ry + h * ry / 2.0, (dmin + dmax) / 2.0, 1.0},
            MatrixKind::general};
}

/// Pixels and depths back to normalised device coordinates. Equal depths give infinities.
[[nodiscard]] constexpr Mat4 makeViewportInverse(const Viewport& viewport, std::uint32_t resolutionX,
                                                 std::uint32_t resolutionY) noexcept {
    const auto& [x, y, w, h, dmin, dmax] = viewport;
    const auto rx = static_cast<double>(resolutionX);
    const auto ry = static_cast<double>(resolutionY);
    const double a = 2.0 / (rx * w);
    const double b = 2.0 / (ry * h);
    return {{a, 0.0, 0.0, 0.0,                   //
             0.0, b, 0.0, 0.0,                   //
             0.0, 0.0, 2.0 / (dmax - dmin), 0.0, //
             -(a * x * rx + 1.0), -(b * y * ry + 1.0), -(dmin + dmax) / (dmax - dmin), 1.0},
            MatrixKind::general};
}

} // namespace qel::api::camera::math
