// SPDX-License-Identifier: Apache-2.0
#include "SpaceTransforms.h"

#include <cmath>

#include "Matrices.h"

namespace qel::api::camera::impl {

using math::Mat4;
using math::Vec3;
using math::Vec4;

namespace {

/// The nearest whole number, halves away from zero; adding 0 turns -0 into 0 and nothing else.
double roundedPixel(const double position) noexcept { return std::round(position) + 0.0; }

} // namespace

Vec3 screenToView(const PlanarCamera& camera, const ScreenPoint& point) noexcept {
    Vec4 n =
        camera.surface().inverse() * Vec4{static_cast<double>(point.x), static_cast<double>(point.y), point.depth, 1.0};
    if (!camera.projection().isOrthographic()) {
        // Clip coordinates are the normalised ones times w, and w follows from the depth alone.
        const Mat4& p = camera.projection().matrix();
        const double w = p(2, 3) / (n.z - p(2, 2) / p(3, 2));
        n = n * w;
    }
    const Vec4 v = camera.projection().inverse() * n;
    return {v.x, v.y, v.z};
}

Vec3 screenToWorld(const PlanarCamera& camera, const ScreenPoint& point) noexcept {
    return viewPointToWorld(camera.view(), screenToView(camera, point));
}

Vec3 screenVectorToView(const PlanarCamera& camera, const ScreenPoint& first, const ScreenPoint& second) noexcept {
    return screenToView(camera, first) - screenToView(camera, second);
}

Vec3 screenVectorToWorld(const PlanarCamera& camera, const ScreenPoint& first, const ScreenPoint& second) noexcept {
    return viewVectorToWorld(camera.view(), screenVectorToView(camera, first, second));
}

Vec3 viewToScreen(const PlanarCamera& camera, const Vec3& point) noexcept {
    Vec4 c = camera.projection().matrix() * Vec4{point.x, point.y, point.z, 1.0};
    if (!camera.projection().isOrthographic()) {
        c = c * (1.0 / c.w);
    }
    const Vec4 s = camera.surface().matrix() * c;
    return {roundedPixel(s.x), roundedPixel(s.y), s.z};
}

Vec3 worldToScreen(const PlanarCamera& camera, const Vec3& point) noexcept {
    return viewToScreen(camera, camera.view().worldToViewPoint(point));
}

Vec3 viewPointToWorld(const View& view, const Vec3& point) noexcept { return view.rotation() * point + view.eye(); }

Vec3 viewVectorToWorld(const View& view, const Vec3& vector) noexcept { return view.rotation() * vector; }

} // namespace qel::api::camera::impl
