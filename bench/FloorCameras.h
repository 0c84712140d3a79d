// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "bench/FloorRecords.h"
#include "bench/FloorViews.h"
#include "math/Pipeline.h"

namespace qel::bench::floors {

// What operations do to a planar camera, by hand on its image, for arguments that are not degenerate.

using math::Frustum;

inline void setFrustum(ProjectionImage& projection, const Frustum& frustum, bool orthographic) {
    if (frustum.left >= frustum.right || frustum.bottom >= frustum.top || math::tolerance >= frustum.nearDist ||
        frustum.nearDist >= frustum.farDist) {
        return;
    }
    const math::Mat4 m = orthographic ? math::makeOrtho(frustum) : math::makeFrustum(frustum);
    const math::Mat4 inverse = orthographic ? math::makeOrthoInverse(frustum) : math::makeFrustumInverse(frustum);
    projection.type = orthographic ? 1 : 0;
    projection.frustum = {frustum.left, frustum.right, frustum.bottom, frustum.top, frustum.nearDist, frustum.farDist};
    projection.matrix = {m.mElements, general, {}};
    projection.inverse = {inverse.mElements, general, {}};
}

struct Bounds {
    Vec3 low;
    Vec3 high;
};

inline Bounds toView(const ViewImage& view, const Bounds& world) {
    const auto& [a, b] = world;
    Vec3 low = toView(view, a);
    Vec3 high = low;
    for (const double x : {a.x, b.x}) {
        for (const double y : {a.y, b.y}) {
            for (const double z : {a.z, b.z}) {
                const Vec3 p = toView(view, Vec3{x, y, z});
                low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
                high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
            }
        }
    }
    return {low, high};
}

inline void fit(PlanarCameraImage& camera, const Bounds& bounds) {
    const auto& [low, high] = bounds;
    const Vec3 size = high - low;
    const double diagonal = length(size);
    const double half = diagonal * 0.5;
    const double distance = (std::sqrt(size.x * size.x + size.y * size.y) * 0.5) / std::tan(0.39269908169872414);
    translateInViewSpace(camera.view,
                         {(low.x + high.x) / 2.0, (low.y + high.y) / 2.0, (low.z + high.z) / 2.0 + half + distance});

    const auto& [left, right, bottom, top, nearDist, farDist] = camera.projection.frustum;
    double halfWidth = size.x * 0.5;
    double halfHeight = size.y * 0.5;
    if (camera.projection.type != 1) {
        const double scale = distance / (half + distance - size.z * 0.5);
        halfWidth *= scale;
        halfHeight *= scale;
    }
    const double aspect = (right - left) / (top - bottom);
    if (halfWidth > aspect * halfHeight) {
        halfHeight = halfWidth / aspect;
    } else {
        halfWidth = aspect * halfHeight;
    }
    setFrustum(camera.projection, {-halfWidth, halfWidth, -halfHeight, halfHeight, distance, diagonal + distance},
               camera.projection.type == 1);
}

/// A pixel and depth in view space.
inline Vec3 screenToView(const PlanarCameraImage& camera, double x, double y, double depth) {
    const auto& s = camera.surface.inverse.elements;
    const auto& p = camera.projection.matrix.elements;
    const math::Mat4 surfaceInverse{s, MatrixKind::general};
    const math::Mat4 inverse{camera.projection.inverse.elements, MatrixKind::general};
    math::Vec4 n = surfaceInverse * math::Vec4{x, y, depth, 1.0};
    if (camera.projection.type != 1) {
        n = n * (p[14] / (n.z - p[10] / p[11]));
    }
    const math::Vec4 v = inverse * n;
    return {v.x, v.y, v.z};
}

inline void zoom(ProjectionImage& projection, double factor) {
    if (0.0 > factor) {
        return;
    }
    const auto [l, r, b, t, n, f] = projection.frustum;
    const double x = (l + r) / 2.0;
    const double y = (b + t) / 2.0;
    const double halfWidth = (r - l) * factor / 2.0;
    const double halfHeight = (t - b) * factor / 2.0;
    setFrustum(projection, {x - halfWidth, x + halfWidth, y - halfHeight, y + halfHeight, n, f}, projection.type == 1);
}

inline Vec3 ballPoint(const SurfaceImage& surface, std::int32_t pixelX, std::int32_t pixelY) {
    const double scale = 1.0 / static_cast<double>(std::min(surface.resolutionX, surface.resolutionY));
    const double left = surface.resolutionX * surface.viewport[0];
    const double bottom = surface.resolutionY * surface.viewport[1];
    const double aspect = surface.resolutionX / surface.resolutionY; // whole, see PlanarCamera::arcballPoint
    const double x = ((static_cast<double>(static_cast<std::uint32_t>(pixelX)) - left) * scale) * 2.0 - aspect;
    const double y = ((static_cast<double>(static_cast<std::uint32_t>(pixelY)) - bottom) * scale) * 2.0 - 1.0;
    const double radius = std::sqrt(x * x + y * y);
    if (radius > 0.5) {
        Vec3 point{x, y, 0.5 / radius};
        math::normalise3(point);
        return point;
    }
    return {x, y, std::sqrt(1.0 - radius * radius)};
}

inline void arcball(PlanarCameraImage& camera, const Vec3& pivot, const Vec3& start, const Vec3& end) {
    Vec3 ballAxis = cross(end, start);
    math::normalise3(ballAxis);
    rotateAbout(camera.view, pivot, rotated(camera.view, ballAxis), std::acos(dot(start, end)), 0.0, false);
}

inline void zoomAbout(PlanarCameraImage& camera, double x, double y, double depth, double factor) {
    const Vec3 before = screenToView(camera, x, y, depth);
    zoom(camera.projection, factor);
    const Vec3 after = screenToView(camera, x, y, depth);
    translateInViewSpace(camera.view, {before.x - after.x, before.y - after.y, 0.0});
}

inline void zoomAboutWorld(PlanarCameraImage& camera, const Vec3& anchor, double factor) {
    const Vec3 p = toView(camera.view, anchor);
    math::Vec4 c = math::Mat4{camera.projection.matrix.elements, MatrixKind::general} * math::Vec4{p.x, p.y, p.z, 1.0};
    if (camera.projection.type != 1) {
        c = c * (1.0 / c.w);
    }
    const math::Vec4 s = math::Mat4{camera.surface.matrix.elements, MatrixKind::general} * c;
    zoomAbout(camera, std::round(s.x) + 0.0, std::round(s.y) + 0.0, s.z, factor);
}

inline void pan(PlanarCameraImage& camera, double x, double y, double depth, double dx, double dy) {
    const Vec3 from = screenToView(camera, x, y, depth);
    const Vec3 to = screenToView(camera, x + dx, y + dy, depth);
    translateInViewSpace(camera.view, {from.x - to.x, from.y - to.y, 0.0});
}

/// Of a perspective camera, between depths that differ.
inline void zoomArea(PlanarCameraImage& camera, Vec3 first, Vec3 second) {
    const auto [left, right, bottom, top, nearDist, farDist] = camera.projection.frustum;
    first = screenToView(camera, first.x, first.y, first.z);
    second = screenToView(camera, second.x, second.y, second.z);
    const double distance = -std::max(first.z, second.z);
    first = first * (-nearDist / first.z);
    second = second * (-nearDist / second.z);
    const double xMin = std::min(first.x, second.x);
    const double xMax = std::max(first.x, second.x);
    const double yMin = std::min(first.y, second.y);
    const double yMax = std::max(first.y, second.y);
    double width = std::max(xMax - xMin, 0.001);
    double height = std::max(yMax - yMin, 0.001);
    const double aspect = (right - left) / (top - bottom);
    if (width > aspect * height) {
        height = width / aspect;
    } else {
        width = aspect * height;
    }
    setFrustum(camera.projection, {-width / 2.0, width / 2.0, -height / 2.0, height / 2.0, nearDist, farDist}, false);
    const double scale = distance / nearDist;
    translateInViewSpace(camera.view, {(xMin + xMax) / 2.0 * scale, (yMin + yMax) / 2.0 * scale, 0.0});
}

inline Frustum frustumOf(const ProjectionImage& projection) {
    const auto& [left, right, bottom, top, nearDist, farDist] = projection.frustum;
    return {left, right, bottom, top, nearDist, farDist};
}

inline void switchType(PlanarCameraImage& camera, const Bounds& world) {
    const Frustum frustum = frustumOf(camera.projection);
    const Bounds bounds = toView(camera.view, world);
    const double halfHeight = (frustum.top - frustum.bottom) * 0.5;
    const double centreZ = (bounds.low.z + bounds.high.z) * 0.5;
    const double distance = centreZ > frustum.nearDist ? frustum.nearDist : -centreZ;
    const bool becomesOrthographic = camera.projection.type != 1;
    const double newHalfHeight =
        becomesOrthographic ? distance * (halfHeight / frustum.nearDist) : (halfHeight / distance) * frustum.nearDist;
    const double scale = newHalfHeight / halfHeight;
    setFrustum(camera.projection, withSidesScaled(frustum, scale, scale), becomesOrthographic);
}

/// Of a perspective camera.
inline void clip(PlanarCameraImage& camera, const Vec3& centre, double radius, double minimum) {
    const double z = toView(camera.view, centre).z;
    if (z - radius >= 0.0) {
        return;
    }
    const double nearDist = std::max(-(z + radius) * 0.95, minimum);
    const double scale = nearDist / camera.projection.frustum[4];
    Frustum frustum = withSidesScaled(frustumOf(camera.projection), scale, scale);
    frustum.nearDist = nearDist;
    frustum.farDist = -(z - radius) * 1.05;
    setFrustum(camera.projection, frustum, false);
}

inline void resize(PlanarCameraImage& camera, std::uint32_t width, std::uint32_t height) {
    SurfaceImage& surface = camera.surface;
    const auto& [x, y, w, h, depthMin, depthMax] = surface.viewport;
    setFrustum(camera.projection,
               withSidesScaled(frustumOf(camera.projection), width / static_cast<double>(surface.resolutionX),
                               height / static_cast<double>(surface.resolutionY)),
               camera.projection.type == 1);
    surface.resolutionX = width;
    surface.resolutionY = height;
    surface.matrix.elements = math::makeViewport({x, y, w, h, depthMin, depthMax}, width, height).mElements;
    surface.inverse.elements = math::makeViewportInverse({x, y, w, h, depthMin, depthMax}, width, height).mElements;
}

} // namespace qel::bench::floors
