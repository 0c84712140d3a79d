// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <limits>

#include "fuzz/oracle/OracleProjection.h"
#include "fuzz/oracle/OracleSurface.h"
#include "fuzz/oracle/OracleView.h"

namespace camera::oracle {

struct ScreenPoint {
    std::int32_t x = 0;
    std::int32_t y = 0;
    Real depth = 0.0L;
};

struct Camera {
    View view;
    Projection projection;
    Surface surface;

    friend bool operator==(const Camera&, const Camera&) = default;

    static Camera createDefault() {
        Judgement clear;
        return {View::create(clear, {}, {0.0L, 0.0L, -1.0L}, {0.0L, 1.0L, 0.0L}), Projection::createDefault(),
                Surface::createDefault()};
    }

    [[nodiscard]] Sized screenToView(Judgement& judge, const ScreenPoint& point) const {
        SizedHomogeneous device = product(surface.inverse, sized({Real(point.x), Real(point.y), point.depth, 1.0L}));
        if (!projection.orthographic) {
            const Matrix4& p = projection.matrix;
            const Real divisor = device.value[2] - p[2][2] / p[3][2];
            judge.cancels(device.size[2] + std::abs(p[2][2] / p[3][2]), divisor);
            device = scaled(device, p[2][3] / divisor);
        }
        return threeOf(product(projection.inverse, device));
    }

    /// The size is that of the depth.
    [[nodiscard]] Sized viewToScreen(Judgement& judge, const Sized& point) const {
        const Vector& v = point.value;
        SizedHomogeneous clip{{v.x, v.y, v.z, 1.0L}, {point.size, point.size, point.size, 1.0L}};
        clip = product(projection.matrix, clip);
        if (!projection.orthographic) {
            judge.cancels(clip.size[3], clip.value[3]);
            clip = scaled(clip, 1.0L / clip.value[3]);
        }
        const SizedHomogeneous s = product(surface.matrix, clip);
        return {{wholePixel(judge, s.value[0], s.size[0]), wholePixel(judge, s.value[1], s.size[1]), s.value[2]},
                s.size[2]};
    }

    static Real wholePixel(Judgement& judge, Real position, Real size) {
        const Real fraction = std::abs(position) - std::floor(std::abs(position));
        if (!(std::abs(fraction - 0.5L) > rounding * judge.condition * size) || !(std::abs(position) < 1e9L)) {
            judge.certain = false;
        }
        return std::round(position);
    }

    void updateWindowSize(Judgement& judge, std::uint32_t width, std::uint32_t height) {
        if (width == 0 || height == 0) {
            return;
        }
        const Real sx = Real(width) / surface.resolutionX;
        const Real sy = Real(height) / surface.resolutionY;
        const Projection p = projection;
        projection.setFrustum(judge, {p.l * sx, p.r * sx, p.b * sy, p.t * sy, p.n, p.f}, p.orthographic);
        surface.resize(width, height);
    }

    void updateClippingPlanes(Judgement& judge, Vector centre, Real radius, Real minimum) {
        if (judge.atMost(radius, tolerance) || judge.atMost(minimum, tolerance)) {
            return;
        }
        const Real z = view.pointToView(judge, centre).value.z;
        if (!judge.below(z - radius, 0.0L)) {
            return;
        }
        judge.cancels(length(view.eye) + length(centre) + radius, std::min(std::abs(z - radius), std::abs(z + radius)));
        Real nearDist = -(z + radius) * 0.95L;
        if (judge.atMost(nearDist, minimum)) {
            nearDist = minimum;
        }
        const Real farDist = -(z - radius) * 1.05L;
        const Projection p = projection;
        const Real k = p.orthographic ? 1.0L : nearDist / p.n;
        projection.setFrustum(judge, {p.l * k, p.r * k, p.b * k, p.t * k, nearDist, farDist}, p.orthographic);
    }

    struct Box {
        Vector low;
        Vector high;
    };

    [[nodiscard]] Box toView(Judgement& judge, Vector a, Vector b) const {
        constexpr Real largest = std::numeric_limits<float>::max();
        Box box{{largest, largest, largest}, {-largest, -largest, -largest}};
        for (int corner = 0; corner < 8; ++corner) {
            const Vector p = view.pointToView(judge, {(corner & 1) != 0 ? a.x : b.x, (corner & 2) != 0 ? a.y : b.y,
                                                      (corner & 4) != 0 ? a.z : b.z})
                                 .value;
            box.low = {std::min(box.low.x, p.x), std::min(box.low.y, p.y), std::min(box.low.z, p.z)};
            box.high = {std::max(box.high.x, p.x), std::max(box.high.y, p.y), std::max(box.high.z, p.z)};
        }
        return box;
    }

    void fitWorldBox(Judgement& judge, Vector a, Vector b) {
        if (!judge.atMost(length(b - a), tolerance)) {
            const Box box = toView(judge, a, b);
            // Seen end on, a box has an extent across the view that is all cancellation, and the distance follows it.
            judge.cancels(length(view.eye) + length(a) + length(b),
                          std::hypot(box.high.x - box.low.x, box.high.y - box.low.y));
            fitViewBox(judge, box.low, box.high);
        }
    }

    void fitViewBox(Judgement& judge, Vector low, Vector high) {
        const Vector d = high - low;
        const Real diagonal = length(d);
        if (judge.atMost(diagonal, tolerance)) {
            return;
        }
        const Real distance = std::hypot(d.x, d.y) / 2.0L / std::tan(0.39269908169872414L);
        const Vector middle = 0.5L * (low + high);
        view.translateInView(judge, {middle.x, middle.y, middle.z + diagonal / 2.0L + distance});
        Real halfWidth = d.x / 2.0L, halfHeight = d.y / 2.0L;
        if (!projection.orthographic) {
            judge.cancels(diagonal + distance, diagonal / 2.0L + distance - d.z / 2.0L);
            const Real k = distance / (diagonal / 2.0L + distance - d.z / 2.0L);
            halfWidth *= k;
            halfHeight *= k;
        }
        widen(halfWidth, halfHeight, projection.aspect());
        projection.setFrustum(judge, {-halfWidth, halfWidth, -halfHeight, halfHeight, distance, diagonal + distance},
                              projection.orthographic);
    }

    /// The smallest extents of this aspect ratio that cover the given ones. Continuous, so no comparison is judged.
    static void widen(Real& width, Real& height, Real aspect) {
        if (width > aspect * height) {
            height = width / aspect;
        } else {
            width = aspect * height;
        }
    }

    void switchProjectionType(Judgement& judge, Vector a, Vector b) {
        if (judge.atMost(length(b - a), tolerance)) {
            return;
        }
        const Projection p = projection;
        const Box box = toView(judge, a, b);
        const Real middle = (box.low.z + box.high.z) / 2.0L;
        judge.cancels(length(view.eye) + length(a) + length(b), middle);
        const Real distance = judge.atMost(middle, p.n) ? -middle : p.n;
        const Real k = p.orthographic ? p.n / distance : distance / p.n;
        projection.setFrustum(judge, {p.l * k, p.r * k, p.b * k, p.t * k, p.n, p.f}, !p.orthographic);
    }

    void shift(Judgement& judge, Vector from, Vector to) {
        const Vector offset{from.x - to.x, from.y - to.y, 0.0L};
        if (length(offset) < 1e-5L) {
            judge.certain = false; // all of it may be rounding, and it may or may not count as nothing
        }
        view.translateInView(judge, offset);
    }

    void zoomAt(Judgement& judge, const ScreenPoint& anchor, Real factor) {
        const Vector before = screenToView(judge, anchor).value;
        projection.zoom(judge, factor);
        shift(judge, before, screenToView(judge, anchor).value);
    }

    void zoomAt(Judgement& judge, Vector anchor, Real factor) {
        const Vector pixel = viewToScreen(judge, view.pointToView(judge, anchor)).value;
        if (judge.certain) {
            zoomAt(judge, ScreenPoint{static_cast<std::int32_t>(pixel.x), static_cast<std::int32_t>(pixel.y), pixel.z},
                   factor);
        }
    }

    void pan(Judgement& judge, const ScreenPoint& anchor, std::int32_t dx, std::int32_t dy) {
        shift(judge, screenToView(judge, anchor).value,
              screenToView(judge, {anchor.x + dx, anchor.y + dy, anchor.depth}).value);
    }

    void zoomArea(Judgement& judge, ScreenPoint first, ScreenPoint second) {
        if ((first.x == second.x && first.y == second.y) || first.depth < 0.0L || first.depth > 1.0L ||
            second.depth < 0.0L || second.depth > 1.0L) {
            return;
        }
        if (judge.atMost(std::abs(first.depth - second.depth), tolerance) &&
            judge.atMost(std::abs(first.depth - surface.viewport[5]), tolerance)) {
            first.depth = second.depth = 0.9;
        }
        const Projection p = projection;
        Vector a = screenToView(judge, first).value;
        Vector b = screenToView(judge, second).value;
        Real carry = 1.0L;
        if (!p.orthographic) {
            carry = -std::max(a.z, b.z) / p.n;
            a = (-p.n / a.z) * a;
            b = (-p.n / b.z) * b;
        }
        Real width = std::max(std::abs(a.x - b.x), 0.001L);
        Real height = std::max(std::abs(a.y - b.y), 0.001L);
        judge.cancels(std::abs(a.x) + std::abs(b.x), width);
        judge.cancels(std::abs(a.y) + std::abs(b.y), height);
        widen(width, height, p.aspect());
        projection.setFrustum(judge, {-width / 2.0L, width / 2.0L, -height / 2.0L, height / 2.0L, p.n, p.f},
                              p.orthographic);
        shift(judge, {carry * (a.x + b.x) / 2.0L, carry * (a.y + b.y) / 2.0L, 0.0L}, {});
    }

    [[nodiscard]] Vector onBall(std::uint32_t px, std::uint32_t py) const {
        const std::uint32_t rx = surface.resolutionX, ry = surface.resolutionY;
        const Real smaller = std::min(rx, ry);
        const std::uint32_t wholeAspect = rx / ry;
        const Real x = 2.0L * (px - rx * surface.viewport[0]) / smaller - Real(wholeAspect);
        const Real y = 2.0L * (py - ry * surface.viewport[1]) / smaller - 1.0L;
        const Real radius = std::hypot(x, y);
        return radius > 0.5L ? unit({x, y, 0.5L / radius}) : Vector{x, y, std::sqrt(1.0L - radius * radius)};
    }

    void arcball(Judgement& judge, Vector centre, std::uint32_t x1, std::uint32_t y1, std::uint32_t x2,
                 std::uint32_t y2) {
        const Vector a = onBall(x1, y1);
        const Vector b = onBall(x2, y2);
        const Vector n = cross(b, a);
        // A small angle by acos is all condition, and its axis too.
        judge.cancels(1.0L, dot(n, n));
        if (!judge.certain) {
            return;
        }
        view.rotateAbout(judge, centre, product(view.rotation, unit(n)), std::atan2(length(n), dot(a, b)), 0.0L, false);
    }
};

} // namespace camera::oracle
