// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>

#include "impl/PlanarCamera.h"
#include "impl/SpaceTransforms.h"
#include "tests/impl/CameraTesting.h"
#include "tests/math/Near.h"

namespace qel::api::camera::test {

/// A camera of a world of some size, as a host could have set it up.
struct RandomCamera {
    impl::PlanarCamera camera;
    double scale = 1.0;  ///< the size of the world
    math::Vec3 target{}; ///< what the camera looks at, one to four sizes away, the world's points around it
};

/// A camera's class: how it projects, the window's shape, the part that its viewport has, the world's size.
struct CameraClass {
    bool orthographic;
    bool offCentre;
    std::uint32_t width, height;
    bool partOfSurface;
    double scale;
};

[[nodiscard]] inline RandomCamera randomCamera(Random& random, const CameraClass& wanted) {
    const double scale = wanted.scale;
    const math::Vec3 target = random.vector(scale);
    const math::Vec3 direction = random.direction();
    const math::Vec3 eye = target - direction * (scale * random.between(1.0, 4.0));
    const impl::View view(eye, target, cross(direction, random.direction()));

    math::Viewport viewport;
    if (wanted.partOfSurface) {
        viewport = {random.between(0.0, 0.5),  random.between(0.0, 0.5), random.between(0.25, 0.5),
                    random.between(0.25, 0.5), random.between(0.0, 0.3), random.between(0.6, 1.0)};
    }
    const impl::Surface surface = surfaceOf(viewport, wanted.width, wanted.height);

    // A frustum of the viewport's aspect ratio, so that pixels are square.
    const double aspect = viewport.width * wanted.width / (viewport.height * wanted.height);
    const double nearDist = scale * random.magnitude(0.01, 0.1);
    const double halfHeight =
        wanted.orthographic ? scale * random.between(0.3, 2.0) : nearDist * random.between(0.2, 1.0);
    const double halfWidth = halfHeight * aspect;
    const double shiftX = wanted.offCentre ? halfWidth * random.between(-1.5, 1.5) : 0.0;
    const double shiftY = wanted.offCentre ? halfHeight * random.between(-1.5, 1.5) : 0.0;
    const math::Frustum frustum{shiftX - halfWidth,  shiftX + halfWidth, shiftY - halfHeight,
                                shiftY + halfHeight, nearDist,           scale * random.magnitude(10.0, 100.0)};
    return {cameraOf(view, projectionOf(frustum, wanted.orthographic), surface), scale, target};
}

/// Calls body(RandomCamera, Random&) for cameras of every class: perspective and orthographic, centred and not;
/// square, wide and tall windows; the whole surface and a part of it; worlds of a thousandth, one and a million.
template <class Body>
void forRandomCameras(std::uint64_t seed, Body body) {
    constexpr std::array<std::array<std::uint32_t, 2>, 3> windows{{{600, 600}, {1920, 1080}, {480, 1100}}};
    for (const bool orthographic : {false, true}) {
        for (const bool offCentre : {false, true}) {
            for (const auto& [width, height] : windows) {
                for (const bool partOfSurface : {false, true}) {
                    for (const double scale : {1e-3, 1.0, 1e6}) {
                        for (int n = 0; n < 4; ++n) {
                            SCOPED_TRACE((orthographic ? "orthographic, " : "perspective, ") +
                                         std::string(offCentre ? "off-centre, " : "centred, ") + std::to_string(width) +
                                         " by " + std::to_string(height) +
                                         (partOfSurface ? ", a part, scale " : ", the whole, scale ") +
                                         std::to_string(scale) + ", seed " + std::to_string(seed));
                            Random random(seed++);
                            body(randomCamera(random, {orthographic, offCentre, width, height, partOfSurface, scale}),
                                 random);
                            if (::testing::Test::HasFailure()) {
                                return; // one camera is enough to look at
                            }
                        }
                    }
                }
            }
        }
    }
}

/// Where a camera shows a world point, by a second method: from rotation, eye, frustum and viewport in long double,
/// without any of the camera's 4x4 matrices and without rounding to whole pixels.
struct Seen {
    double deviceX, deviceY, deviceZ; ///< normalised device coordinates, -1 to 1 in the frustum
    double pixelX, pixelY, depth;     ///< on the surface
};

[[nodiscard]] inline Seen seen(const impl::PlanarCamera& camera, const math::Vec3& point) {
    using Real = long double;
    const math::Mat3& rotation = camera.view().rotation();
    const math::Vec3& eye = camera.view().eye();
    const Real dx = Real(point.x) - eye.x, dy = Real(point.y) - eye.y, dz = Real(point.z) - eye.z;
    const auto along = [&](std::size_t axis) {
        return rotation(0, axis) * dx + rotation(1, axis) * dy + rotation(2, axis) * dz;
    };
    const auto& [l, r, b, t, n, f] = camera.projection().frustum();
    const Real distance = -along(2);
    const Real toNear = camera.projection().isOrthographic() ? 1.0L : n / distance;
    const Real x = (2.0L * along(0) * toNear - (Real(r) + l)) / (Real(r) - l);
    const Real y = (2.0L * along(1) * toNear - (Real(t) + b)) / (Real(t) - b);
    const Real z = camera.projection().isOrthographic()
                       ? (2.0L * distance - (Real(f) + n)) / (Real(f) - n)
                       : ((Real(f) + n) - 2.0L * Real(f) * n / distance) / (Real(f) - n);
    const auto& [vx, vy, vw, vh, depthMin, depthMax] = camera.surface().viewport();
    const auto number = [](Real value) { return static_cast<double>(value); };
    return {number(x),
            number(y),
            number(z),
            number((vx + vw * (x + 1.0L) / 2.0L) * camera.surface().resolutionX()),
            number((vy + vh * (y + 1.0L) / 2.0L) * camera.surface().resolutionY()),
            number(depthMin + (Real(depthMax) - depthMin) * (z + 1.0L) / 2.0L)};
}

[[nodiscard]] inline math::Vec3 screenToWorld(const impl::PlanarCamera& camera, const impl::ScreenPoint& point) {
    return viewPointToWorld(camera, screenToView(camera, point));
}

/// A pixel in the viewport, and a depth in the viewport's range: any depth as often as any other, or any distance.
[[nodiscard]] inline impl::ScreenPoint randomScreenPoint(Random& random, const impl::PlanarCamera& camera) {
    const auto& [x, y, w, h, depthMin, depthMax] = camera.surface().viewport();
    const auto& [l, r, b, t, n, f] = camera.projection().frustum();
    double fraction = random.between(0.0, 1.0);
    if (!camera.projection().isOrthographic() && random.below(2) == 0) {
        fraction = f / (f - n) * (1.0 - n / random.magnitude(n, f));
    }
    return {static_cast<std::int32_t>((x + w * random.between(0.0, 1.0)) * camera.surface().resolutionX()),
            static_cast<std::int32_t>((y + h * random.between(0.0, 1.0)) * camera.surface().resolutionY()),
            depthMin + (depthMax - depthMin) * fraction};
}

/// What a camera's own steps lose, in pixels: coordinates of the world's size, rounded a few times, seen from as near
/// as a hundredth of it through pixels of 1/20000 of the near distance come to 1e-16 * 100 * 20000 * a few dozen.
inline constexpr double pixelTolerance = 1e-7;

} // namespace qel::api::camera::test
