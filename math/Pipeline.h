// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "Matrices.h"

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

/// The part of a surface that the image covers: position and size in fractions of the resolution, and the depths of
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
// validated: an empty frustum or viewport gives infinities or NaN.

[[nodiscard]] constexpr Mat4 makeFrustum(const Frustum& frustum) noexcept {
    const auto& [l, r, b, t, n, f] = frustum;
    Mat4 m = zeroMatrix(MatrixKind::general);
    m(0, 0) = 2.0 * n / (r - l);
    m(1, 1) = 2.0 * n / (t - b);
    m(0, 2) = (r + l) / (r - l);
    m(1, 2) = (t + b) / (t - b);
    m(2, 2) = -(f + n) / (f - n);
    m(3, 2) = -1.0;
    m(2, 3) = -2.0 * f * n / (f - n);
    return m;
}

[[nodiscard]] constexpr Mat4 makeFrustumInverse(const Frustum& frustum) noexcept {
    const auto& [l, r, b, t, n, f] = frustum;
    Mat4 m = zeroMatrix(MatrixKind::general);
    m(0, 0) = (r - l) / (2.0 * n);
    m(1, 1) = (t - b) / (2.0 * n);
    m(0, 3) = (r + l) / (2.0 * n);
    m(1, 3) = (t + b) / (2.0 * n);
    m(2, 3) = -1.0;
    m(3, 2) = -(f - n) / (2.0 * f * n);
    m(3, 3) = (f + n) / (2.0 * f * n);
    return m;
}

[[nodiscard]] constexpr Mat4 makeOrtho(const Frustum& frustum) noexcept {
    const auto& [l, r, b, t, n, f] = frustum;
    Mat4 m = zeroMatrix(MatrixKind::general);
    m(0, 0) = 2.0 / (r - l);
    m(1, 1) = 2.0 / (t - b);
    m(2, 2) = -2.0 / (f - n);
    m(0, 3) = -(r + l) / (r - l);
    m(1, 3) = -(t + b) / (t - b);
    m(2, 3) = -(f + n) / (f - n);
    m(3, 3) = 1.0;
    return m;
}

[[nodiscard]] constexpr Mat4 makeOrthoInverse(const Frustum& frustum) noexcept {
    const auto& [l, r, b, t, n, f] = frustum;
    Mat4 m = zeroMatrix(MatrixKind::general);
    m(0, 0) = (r - l) / 2.0;
    m(1, 1) = (t - b) / 2.0;
    m(2, 2) = -(f - n) / 2.0;
    m(0, 3) = (l + r) / 2.0;
    m(1, 3) = (b + t) / 2.0;
    m(2, 3) = -(n + f) / 2.0;
    m(3, 3) = 1.0;
    return m;
}

/// Normalised device coordinates to pixels of the surface and depths. Resolutions in pixels.
[[nodiscard]] constexpr Mat4 makeViewport(const Viewport& viewport, std::uint32_t resolutionX,
                                          std::uint32_t resolutionY) noexcept {
    const auto& [x, y, w, h, dmin, dmax] = viewport;
    const auto rx = static_cast<double>(resolutionX);
    const auto ry = static_cast<double>(resolutionY);
    Mat4 m = zeroMatrix(MatrixKind::general);
    m(0, 0) = w * rx / 2.0;
    m(1, 1) = h * ry / 2.0;
    m(2, 2) = (dmax - dmin) / 2.0;
    m(0, 3) = x * rx + w * rx / 2.0;
    m(1, 3) = y * ry + h * ry / 2.0;
    m(2, 3) = (dmin + dmax) / 2.0;
    m(3, 3) = 1.0;
    return m;
}

/// Pixels and depths back to normalised device coordinates. Equal depths give infinities.
[[nodiscard]] constexpr Mat4 makeViewportInverse(const Viewport& viewport, std::uint32_t resolutionX,
                                                 std::uint32_t resolutionY) noexcept {
    const auto& [x, y, w, h, dmin, dmax] = viewport;
    const auto rx = static_cast<double>(resolutionX);
    const auto ry = static_cast<double>(resolutionY);
    const double a = 2.0 / (rx * w);
    const double b = 2.0 / (ry * h);
    Mat4 m = zeroMatrix(MatrixKind::general);
    m(0, 0) = a;
    m(1, 1) = b;
    m(2, 2) = 2.0 / (dmax - dmin);
    m(0, 3) = -(a * x * rx + 1.0);
    m(1, 3) = -(b * y * ry + 1.0);
    m(2, 3) = -(dmin + dmax) / (dmax - dmin);
    m(3, 3) = 1.0;
    return m;
}

} // namespace qel::api::camera::math
