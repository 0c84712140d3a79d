// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "fuzz/oracle/OracleNumbers.h"

namespace camera::oracle {

struct Projection {
    Matrix4 matrix{};
    Matrix4 inverse{};
    bool orthographic = false;
    Real l = 0.0L, r = 0.0L, b = 0.0L, t = 0.0L, n = 0.0L, f = 0.0L;

    friend bool operator==(const Projection&, const Projection&) = default;

    [[nodiscard]] Real aspect() const { return (r - l) / (t - b); }

    void setFrustum(Judgement& judge, std::array<Real, 6> sides, bool toOrthographic) {
        const auto [nl, nr, nb, nt, nn, nf] = sides;
        if (judge.atMost(nr, nl) || judge.atMost(nt, nb) || judge.atMost(nn, tolerance) || judge.atMost(nf, nn)) {
            return;
        }
        l = nl, r = nr, b = nb, t = nt, n = nn, f = nf;
        orthographic = toOrthographic;
        judge.cancels(std::abs(l) + std::abs(r), r - l);
        judge.cancels(std::abs(b) + std::abs(t), t - b);
        judge.cancels(f + n, f - n);
        rebuild();
    }

    void rebuild() {
        const std::array<Real, 6> sides{l, r, b, t, n, f};
        matrix = orthographic ? orthographicMatrix(sides) : perspectiveMatrix(sides);
        const Real w = r - l;
        const Real h = t - b;
        const Real d = f - n;
        if (orthographic) {
            inverse = {{{w / 2.0L, 0.0L, 0.0L, (l + r) / 2.0L},
                        {0.0L, h / 2.0L, 0.0L, (b + t) / 2.0L},
                        {0.0L, 0.0L, -d / 2.0L, -(n + f) / 2.0L},
                        {0.0L, 0.0L, 0.0L, 1.0L}}};
        } else {
            inverse = {{{w / (2.0L * n), 0.0L, 0.0L, (r + l) / (2.0L * n)},
                        {0.0L, h / (2.0L * n), 0.0L, (t + b) / (2.0L * n)},
                        {0.0L, 0.0L, 0.0L, -1.0L},
                        {0.0L, 0.0L, -d / (2.0L * f * n), (f + n) / (2.0L * f * n)}}};
        }
    }

    // Of any sides, infinite or no number where they leave no room.

    static Matrix4 perspectiveMatrix(const std::array<Real, 6>& sides) {
        const auto [l, r, b, t, n, f] = sides;
        const Real w = r - l, h = t - b, d = f - n;
        return {{{2.0L * n / w, 0.0L, (r + l) / w, 0.0L},
                 {0.0L, 2.0L * n / h, (t + b) / h, 0.0L},
                 {0.0L, 0.0L, -(f + n) / d, -2.0L * f * n / d},
                 {0.0L, 0.0L, -1.0L, 0.0L}}};
    }
    static Matrix4 orthographicMatrix(const std::array<Real, 6>& sides) {
        const auto [l, r, b, t, n, f] = sides;
        const Real w = r - l, h = t - b, d = f - n;
        return {{{2.0L / w, 0.0L, 0.0L, -(r + l) / w},
                 {0.0L, 2.0L / h, 0.0L, -(t + b) / h},
                 {0.0L, 0.0L, -2.0L / d, -(f + n) / d},
                 {0.0L, 0.0L, 0.0L, 1.0L}}};
    }

    static Projection createDefault() {
        Projection projection;
        Judgement clear;
        projection.setPerspective(clear, 0.7853981633974483, 1.3333333333333333, 0.01, 10000.0);
        return projection;
    }

    /// The sides are those of the projection before, through its inverse, which stays. near and far are the depths
    /// of view space themselves, which are negative ahead.
    void setMatrix(Judgement& judge, const Matrix4& newMatrix, bool toOrthographic) {
        matrix = newMatrix;
        orthographic = toOrthographic;
        const auto at = [&](Real x, Real y, Real z, std::size_t wanted) {
            const SizedHomogeneous point = product(inverse, sized({x, y, z, 1.0L}));
            judge.cancels(point.size[wanted], point.value[wanted]);
            if (judge.atMost(std::abs(point.value[3]), 1e-4L)) {
                return point.value[wanted];
            }
            judge.cancels(point.size[3], point.value[3]);
            return point.value[wanted] / point.value[3];
        };
        l = at(-1.0L, 0.0L, -1.0L, 0), r = at(1.0L, 0.0L, -1.0L, 0);
        b = at(0.0L, -1.0L, -1.0L, 1), t = at(0.0L, 1.0L, -1.0L, 1);
        n = at(0.0L, 0.0L, -1.0L, 2), f = at(0.0L, 0.0L, 1.0L, 2);
    }

    void setPerspective(Judgement& judge, Real fovY, Real newAspect, Real nearDist, Real farDist) {
        if (judge.atMost(fovY, tolerance) || judge.atMost(newAspect, tolerance) || judge.atMost(nearDist, tolerance) ||
            judge.atMost(farDist, nearDist)) {
            return;
        }
        const Real top = std::tan(fovY / 2.0L) * nearDist;
        l = -top * newAspect, r = top * newAspect, b = -top, t = top, n = nearDist, f = farDist;
        orthographic = false;
        judge.cancels(f + n, f - n);
        rebuild();
    }

    void setOrthographic(Judgement& judge, Real width, Real height, Real nearDist, Real farDist) {
        if (judge.atMost(width, tolerance) || judge.atMost(height, tolerance) || judge.atMost(nearDist, tolerance) ||
            judge.atMost(farDist, nearDist)) {
            return;
        }
        setFrustum(judge, {-width / 2.0L, width / 2.0L, -height / 2.0L, height / 2.0L, nearDist, farDist}, true);
    }

    /// The ends, on the near plane, of an angle about the direction in which the middle of low and high lies.
    [[nodiscard]] std::array<Real, 2> ends(Judgement& judge, Real low, Real high, Real angle) const {
        const Real centre = std::atan((low + high) / 2.0L / n);
        for (const Real end : {centre - angle / 2.0L, centre + angle / 2.0L}) {
            // Near a right angle the tangent is all condition.
            judge.cancels(1.0L, std::cos(end) * std::cos(end));
        }
        return {std::tan(centre - angle / 2.0L) * n, std::tan(centre + angle / 2.0L) * n};
    }

    void setHorizontalFoV(Judgement& judge, Real angle) {
        if (!orthographic && !judge.atMost(angle, tolerance)) {
            const auto [nl, nr] = ends(judge, l, r, angle);
            const Real half = (nr - nl) / aspect() / 2.0L, middle = (b + t) / 2.0L;
            setFrustum(judge, {nl, nr, middle - half, middle + half, n, f}, false);
        }
    }

    void setVerticalFoV(Judgement& judge, Real angle) {
        if (!orthographic && !judge.atMost(angle, tolerance)) {
            const auto [nb, nt] = ends(judge, b, t, angle);
            const Real half = (nt - nb) * aspect() / 2.0L, middle = (l + r) / 2.0L;
            setFrustum(judge, {middle - half, middle + half, nb, nt, n, f}, false);
        }
    }

    void setFoV(Judgement& judge, Real horizontal, Real vertical) {
        if (orthographic || judge.atMost(horizontal, tolerance) || judge.atMost(vertical, tolerance)) {
            return;
        }
        const auto [nl, nr] = ends(judge, l, r, horizontal);
        const auto [nb, nt] = ends(judge, b, t, vertical);
        setFrustum(judge, {nl, nr, nb, nt, n, f}, false);
    }

    void setAspect(Judgement& judge, Real newAspect) {
        if (judge.atMost(newAspect, tolerance)) {
            return;
        }
        const Real k = aspect() / newAspect;
        setFrustum(judge, {l, r, b * k, t * k, n, f}, orthographic);
    }

    void setNear(Judgement& judge, Real nearDist) {
        if (judge.atMost(nearDist, tolerance) || judge.atMost(f, nearDist)) {
            return;
        }
        const Real k = orthographic ? 1.0L : nearDist / n;
        setFrustum(judge, {l * k, r * k, b * k, t * k, nearDist, f}, orthographic);
    }

    void setFar(Judgement& judge, Real farDist) {
        if (!judge.atMost(farDist, n)) {
            setFrustum(judge, {l, r, b, t, n, farDist}, orthographic);
        }
    }

    void zoom(Judgement& judge, Real factor) {
        if (factor < 0.0L) {
            return;
        }
        const Real mx = (l + r) / 2.0L, my = (b + t) / 2.0L;
        const Real hx = (r - l) * factor / 2.0L, hy = (t - b) * factor / 2.0L;
        setFrustum(judge, {mx - hx, mx + hx, my - hy, my + hy, n, f}, orthographic);
    }

    /// The angle between the near plane's points (low, n) and (high, n): by atan2, not by the component's acos.
    [[nodiscard]] Real angle(Judgement& judge, Real low, Real high) const {
        if (orthographic) {
            return 0.0L;
        }
        const Real result = std::abs(std::atan2(n * high - low * n, low * high + n * n));
        judge.cancels(1.0L, std::sin(result));
        return result;
    }
};

} // namespace camera::oracle
