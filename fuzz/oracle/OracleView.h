// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "fuzz/oracle/OracleOrientation.h"

namespace camera::oracle {

/// What a matrix's kind word can say of those of a view.
enum class Kind : std::uint32_t { identity = 1, translation = 2, rotation = 4, rotationTranslation = 16, general = 64 };

inline Kind withTranslation(Kind kind) {
    return kind == Kind::identity ? Kind::translation : kind == Kind::rotation ? Kind::rotationTranslation : kind;
}

/// A host can set the matrices without the rest, and operations rebuild some of the parts only, so each does here
/// what it is to do with each part.
struct View {
    Matrix4 toWorld{};
    Matrix4 toView{};
    Matrix3 rotation{};
    Vector eye;
    Kind toWorldKind = Kind::general;
    Kind toViewKind = Kind::general;

    friend bool operator==(const View&, const View&) = default;

    /// Every matrix the identity.
    static View identity() {
        View view;
        view.place({{{1.0L, 0.0L, 0.0L}, {0.0L, 1.0L, 0.0L}, {0.0L, 0.0L, 1.0L}}}, {});
        view.toWorldKind = view.toViewKind = Kind::identity;
        return view;
    }

    /// As a new one is made: unplaced where the look-at is refused.
    static View create(Judgement& judge, Vector from, Vector at, Vector up) {
        View view = identity();
        view.lookAt(judge, from, at, up);
        return view;
    }

    /// All parts from the rotation and the eye.
    void place(const Matrix3& newRotation, Vector newEye) {
        toWorld[3] = {0.0L, 0.0L, 0.0L, 1.0L};
        toView[3] = {0.0L, 0.0L, 0.0L, 1.0L};
        toWorldKind = toViewKind = Kind::general;
        eye = newEye;
        orient(newRotation);
        moveTo(newEye);
    }

    void moveTo(Vector newEye) {
        eye = newEye;
        toWorld[0][3] = eye.x, toWorld[1][3] = eye.y, toWorld[2][3] = eye.z;
        toWorldKind = withTranslation(toWorldKind);
        followEye();
    }

    void orient(const Matrix3& newRotation) {
        rotation = newRotation;
        for (std::size_t r = 0; r < 3; ++r) {
            for (std::size_t k = 0; k < 3; ++k) {
                toWorld[r][k] = rotation[r][k];
                toView[r][k] = rotation[k][r];
            }
        }
        followEye();
    }

    void followEye() {
        for (std::size_t i = 0; i < 3; ++i) {
            toView[i][3] = -dot(column(rotation, i), eye);
        }
        toViewKind = withTranslation(toViewKind);
    }

    void setOrientation(Judgement& judge, Quaternion q) {
        const Real norm = std::sqrt(q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3]);
        if (!judge.below(norm, 1e-4L)) {
            for (Real& component : q) {
                component /= norm;
            }
        }
        orient(rotationOf(q));
    }

    void setViewMatrix(Judgement& judge, const Matrix4& matrix) {
        toView = matrix;
        rotation = transposed(rotationOf(quaternionOf(judge, linearPart(toView))));
        eye = -1.0L * product(rotation, translation(toView));
        toWorld = affineInverse(judge, toView);
        toWorldKind = toViewKind = Kind::general;
    }

    /// The rotation is that of the view matrix before, transposed.
    void setViewTransformMatrix(Judgement& judge, const Matrix4& matrix) {
        rotation = rotationOf(quaternionOf(judge, linearPart(toView)));
        toWorld = matrix;
        eye = translation(toWorld);
        toView = affineInverse(judge, toWorld);
        toWorldKind = toViewKind = Kind::general;
    }

    /// Of a matrix of the general kind, whose axes are taken to be of unit length.
    static Matrix4 affineInverse(Judgement& judge, const Matrix4& m) {
        const Real h = judge.atMost(std::abs(m[3][3]), 1e-8L) ? 0.0L : 1.0L / m[3][3];
        Matrix4 inverse{};
        for (std::size_t r = 0; r < 3; ++r) {
            Real moved = 0.0L;
            for (std::size_t k = 0; k < 3; ++k) {
                inverse[r][k] = m[k][r];
                moved += m[k][r] * m[k][3];
            }
            inverse[r][3] = -moved * h;
        }
        inverse[3][3] = h;
        return inverse;
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
        orient(fromColumns(turned(column(rotation, 0), about, angle), turned(column(rotation, 1), about, angle),
                           turned(column(rotation, 2), about, angle)));
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
            moveTo(eye + offset);
        }
    }

    void translateInView(Judgement& judge, Vector offset) {
        if (!judge.atMost(length(offset), tolerance)) {
            moveTo(eye + product(rotation, offset));
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
        const auto turnAll = [&](Vector around, Real by) {
            up = turned(up, around, by), forward = turned(forward, around, by), v = turned(v, around, by);
        };
        if (tilts) {
            judge.cancels(1.0L, length(cross(a, v)));
            turnAll(unit(cross(a, v)), tilt);
        }
        if (turns) {
            turnAll(a, angle);
        }
        const Vector e = pivot + distance * v;
        lookAt(judge, e, e + forward, up);
    }

    /// A vector through a placement's matrix: divided by w where that is not negligible, which a host's own matrix
    /// can make it.
    static Sized vectorThrough(Judgement& judge, const Matrix4& m, Vector v) {
        SizedHomogeneous r = product(m, sized({v.x, v.y, v.z, 0.0L}));
        if (!judge.atMost(std::abs(r.value[3]), 1e-4L)) {
            judge.cancels(r.size[3], r.value[3]);
            r = scaled(r, 1.0L / r.value[3]);
        }
        return threeOf(r);
    }
    /// The translation comes after the division.
    static Sized pointThrough(Judgement& judge, const Matrix4& m, Vector p) {
        const Sized v = vectorThrough(judge, m, p);
        return {v.value + translation(m), v.size + length(translation(m))};
    }

    [[nodiscard]] Sized vectorToView(Judgement& judge, Vector v) const { return vectorThrough(judge, toView, v); }
    [[nodiscard]] Sized pointToView(Judgement& judge, Vector p) const { return pointThrough(judge, toView, p); }

    // A camera goes back to the world by the rotation and the eye, a view alone by its matrix.

    [[nodiscard]] Sized vectorToWorld(const Sized& v) const {
        Real largest = 0.0L;
        for (const auto& row : rotation) {
            largest = std::max(largest, std::abs(row[0]) + std::abs(row[1]) + std::abs(row[2]));
        }
        return {product(rotation, v.value), largest * v.size};
    }
    [[nodiscard]] Sized pointToWorld(const Sized& p) const {
        const Sized v = vectorToWorld(p);
        return {v.value + eye, v.size + length(eye)};
    }
};

} // namespace camera::oracle
