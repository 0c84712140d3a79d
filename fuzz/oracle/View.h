// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Numbers.h"

namespace camera::oracle {

struct View {
    Matrix4 toWorld{};
    Matrix4 toView{};
    Matrix3 rotation{};
    Vector eye;

    /// All parts from the rotation and the eye.
    void place(const Matrix3& newRotation, Vector newEye) {
        rotation = newRotation;
        eye = newEye;
        toWorld = {};
        toView = {};
        const std::array<Real, 3> position{eye.x, eye.y, eye.z};
        for (std::size_t i = 0; i < 3; ++i) {
            const Vector a = column(rotation, i);
            toView[i] = {a.x, a.y, a.z, -dot(a, eye)};
            toWorld[i] = {rotation[i][0], rotation[i][1], rotation[i][2], position[i]};
        }
        toView[3] = {0.0L, 0.0L, 0.0L, 1.0L};
        toWorld[3] = {0.0L, 0.0L, 0.0L, 1.0L};
    }

    void lookAt(Judgement& judge, Vector from, Vector at, Vector up) {
        const Vector direction = at - from;
        if (judge.atMost(length(direction), tolerance) || judge.atMost(length(up), tolerance)) {
            return;
        }
        judge.cancels(length(from) + length(at), length(direction));
        const Vector f = unit(direction);
        const Vector u = unit(up);
        if (judge.atMost(1.0L - std::abs(dot(f, u)), tolerance)) {
            return;
        }
        judge.cancels(1.0L, length(cross(f, u)));
        const Vector side = unit(cross(f, u));
        place(fromColumns(side, cross(side, f), -1.0L * f), from);
    }

    void turn(Vector about, Real angle) {
        place(fromColumns(turned(column(rotation, 0), about, angle), turned(column(rotation, 1), about, angle),
                          turned(column(rotation, 2), about, angle)),
              eye);
    }

    /// One of yaw (axis 1), pitch (0) and roll (2): by twice the angle.
    void turnByTwice(Judgement& judge, std::size_t which, Real angle) {
        if (!judge.atMost(std::abs(angle), tolerance)) {
            turn(axis(toView, which), 2.0L * angle);
        }
    }

    void yawPitchRoll(Judgement& judge, Real yaw, Real pitch, Real roll) {
        const View before = *this;
        const auto turnBy = [&](std::size_t which, Real angle) {
            if (!judge.atMost(std::abs(angle), tolerance)) {
                turn(axis(before.toView, which), angle);
            }
        };
        turnBy(0, pitch);
        turnBy(1, yaw);
        turnBy(2, roll);
    }

    void translateInWorld(Judgement& judge, Vector offset) {
        if (!judge.atMost(length(offset), tolerance)) {
            place(rotation, eye + offset);
        }
    }

    void translateInView(Judgement& judge, Vector offset) {
        if (!judge.atMost(length(offset), tolerance)) {
            place(rotation, eye + product(rotation, offset));
        }
    }

    void alongWorldAxis(Judgement& judge, Vector target, Vector along, Vector up) {
        if (judge.atMost(length(along), tolerance)) {
            return;
        }
        const Vector a = unit(along);
        const Real distance = length(eye - target);
        if (judge.atMost(distance, tolerance)) {
            lookAt(judge, eye, eye + a, up);
        } else {
            judge.cancels(length(eye) + length(target), distance);
            lookAt(judge, target - distance * a, target, up);
        }
    }

    void rotateAbout(Judgement& judge, Vector pivot, Vector about, Real angle, Real tilt, bool limited) {
        const bool turns = !judge.atMost(std::abs(angle), tolerance);
        bool tilts = !judge.atMost(std::abs(tilt), tolerance);
        if ((!turns && !tilts) || judge.atMost(length(about), tolerance)) {
            return;
        }
        const Vector a = unit(about);
        const Vector arm = eye - pivot;
        const Real distance = length(arm);
        Vector v = arm;
        if (distance != 0.0L) {
            v = unit(arm);
            judge.cancels(length(eye) + length(pivot), distance);
        }
        const Real cosine = dot(v, a);
        tilts = tilts && !judge.atMost(distance, tolerance) && !judge.below(1.0L - std::abs(cosine), tolerance);
        if (limited && tilts) {
            const Real pole = std::acos(std::clamp(cosine, -1.0L, 1.0L)) + tilt;
            if (judge.atMost(pole, tolerance) || judge.atMost(3.1415925535897933L, pole)) {
                tilts = false;
            }
        }
        Vector up = axis(toView, 1);
        Vector forward = -1.0L * column(rotation, 2);
        if (tilts) {
            judge.cancels(1.0L, length(cross(a, v)));
            const Vector t = unit(cross(a, v));
            up = turned(up, t, tilt);
            forward = turned(forward, t, tilt);
            v = turned(v, t, tilt);
        }
        if (turns) {
            up = turned(up, a, angle);
            forward = turned(forward, a, angle);
            v = turned(v, a, angle);
        }
        const Vector e = pivot + distance * v;
        lookAt(judge, e, e + forward, up);
    }

    [[nodiscard]] Vector vectorToView(Vector v) const {
        const Homogeneous r = product(toView, {v.x, v.y, v.z, 0.0L});
        return {r[0], r[1], r[2]};
    }
    [[nodiscard]] Vector pointToView(Vector p) const {
        const Homogeneous r = product(toView, {p.x, p.y, p.z, 1.0L});
        return {r[0], r[1], r[2]};
    }
    [[nodiscard]] Vector vectorToWorld(Vector v) const { return product(rotation, v); }
    [[nodiscard]] Vector pointToWorld(Vector p) const { return product(rotation, p) + eye; }
};

} // namespace camera::oracle
