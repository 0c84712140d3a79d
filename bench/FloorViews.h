// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>

#include "bench/FloorRecords.h"

namespace qel::bench::floors {

// What operations do to a view, by hand on its image.

using math::MatrixKind;
using math::Quat;
using math::Vec3;

inline constexpr auto general = static_cast<std::uint32_t>(MatrixKind::general);

inline std::uint32_t translated(std::uint32_t kind) {
    return static_cast<std::uint32_t>(math::withTranslation(static_cast<MatrixKind>(kind)));
}

inline Vec3 axis(const ViewImage& view, std::size_t row) {
    const auto& e = view.viewMatrix.elements;
    return {e[row], e[4 + row], e[8 + row]};
}

inline Vec3 eyeOf(const ViewImage& view) { return {view.eye[0], view.eye[1], view.eye[2]}; }

inline Vec3 rotated(const ViewImage& view, const Vec3& v) {
    const auto& r = view.rotation.elements;
    return {r[0] * v.x + r[3] * v.y + r[6] * v.z, r[1] * v.x + r[4] * v.y + r[7] * v.z,
            r[2] * v.x + r[5] * v.y + r[8] * v.z};
}

inline Quat orientationOf(const ViewImage& view) {
    return math::mat3ToQuaternion({view.rotation.elements, MatrixKind::general});
}

inline void setViewMatrixTranslation(ViewImage& view) {
    const auto& r = view.rotation.elements;
    const auto& [x, y, z] = view.eye;
    view.viewMatrix.elements[12] = -(r[0] * x + r[1] * y + r[2] * z);
    view.viewMatrix.elements[13] = -(r[3] * x + r[4] * y + r[5] * z);
    view.viewMatrix.elements[14] = -(r[6] * x + r[7] * y + r[8] * z);
    view.viewMatrix.kind = translated(view.viewMatrix.kind);
}

inline void setEye(ViewImage& view, const Vec3& eye) {
    view.eye = {eye.x, eye.y, eye.z};
    setViewMatrixTranslation(view);
    view.viewTransformMatrix.elements[12] = eye.x;
    view.viewTransformMatrix.elements[13] = eye.y;
    view.viewTransformMatrix.elements[14] = eye.z;
    view.viewTransformMatrix.kind = translated(view.viewTransformMatrix.kind);
}

inline void translateInViewSpace(ViewImage& view, const Vec3& offset) {
    if (!isNegligible(offset)) {
        setEye(view, eyeOf(view) + rotated(view, offset));
    }
}

inline void lookAt(ViewImage& view, const Vec3& eye, const Vec3& lookat, Vec3 up) {
    Vec3 f = lookat - eye;
    if (math::normalise3(f) <= math::tolerance || math::normalise3(up) <= math::tolerance ||
        1.0 - std::abs(dot(f, up)) <= math::tolerance) {
        return;
    }
    Vec3 s = cross(f, up);
    math::normalise3(s);
    const Vec3 u = cross(s, f);
    view.viewMatrix = {
        {s.x, u.x, -f.x, 0.0, s.y, u.y, -f.y, 0.0, s.z, u.z, -f.z, 0.0, -dot(s, eye), -dot(u, eye), dot(f, eye), 1.0},
        general,
        {}};
    view.viewTransformMatrix = {
        {s.x, s.y, s.z, 0.0, u.x, u.y, u.z, 0.0, -f.x, -f.y, -f.z, 0.0, eye.x, eye.y, eye.z, 1.0}, general, {}};
    view.rotation = {{s.x, s.y, s.z, u.x, u.y, u.z, -f.x, -f.y, -f.z}, general, {}};
    view.eye = {eye.x, eye.y, eye.z};
}

inline void setOrientation(ViewImage& view, Quat q) {
    const double norm = math::length(q);
    if (norm >= math::quaternionTolerance) {
        q = {q.x / norm, q.y / norm, q.z / norm, q.w / norm};
    }
    const math::Mat3 m = math::mat3FromQuaternion(q);
    view.rotation.elements = m.mElements;
    view.rotation.kind = static_cast<std::uint32_t>(m.mKind);
    for (std::size_t k = 0; k < 3; ++k) {
        for (std::size_t r = 0; r < 3; ++r) {
            view.viewTransformMatrix.elements[4 * k + r] = m(r, k);
            view.viewMatrix.elements[4 * k + r] = m(k, r);
        }
    }
    setViewMatrixTranslation(view);
}

/// By twice the angle about a row of the view matrix.
inline void turnByTwice(ViewImage& view, double angle, std::size_t row) {
    if (std::abs(angle) > math::tolerance) {
        setOrientation(view, math::quaternionOfHalfAngle(axis(view, row), angle) * orientationOf(view));
    }
}

inline void yawPitchRoll(ViewImage& view, double yaw, double pitch, double roll) {
    Quat q = orientationOf(view);
    q = math::quaternionOfHalfAngle(axis(view, 0), pitch / 2.0) * q;
    q = math::quaternionOfHalfAngle(axis(view, 1), yaw / 2.0) * q;
    q = math::quaternionOfHalfAngle(axis(view, 2), roll / 2.0) * q;
    setOrientation(view, q);
}

inline void setViewAlongWorldAxis(ViewImage& view, const Vec3& target, Vec3 direction, const Vec3& up) {
    if (math::normalise3(direction) <= math::tolerance) {
        return;
    }
    const double distance = length(eyeOf(view) - target);
    if (distance > math::tolerance) {
        lookAt(view, target - direction * distance, target, up);
    } else {
        lookAt(view, eyeOf(view), eyeOf(view) + direction, up);
    }
}

inline void setViewMatrix(ViewImage& view, const math::Mat4& m) {
    const math::Mat4 inverse = math::affineInverse4(m);
    const math::Mat3 rotation = transposed(math::mat3FromQuaternion(math::mat4ToQuaternion(m)));
    const Vec3 eye = -(rotation * math::translation(m));
    view.viewMatrix = {m.mElements, general, {}};
    view.rotation = {rotation.mElements, static_cast<std::uint32_t>(rotation.mKind), {}};
    view.eye = {eye.x, eye.y, eye.z};
    view.viewTransformMatrix = {inverse.mElements, general, {}};
}

inline void setViewTransformMatrix(ViewImage& view, const math::Mat4& m) {
    const math::Mat4 inverse = math::affineInverse4(m);
    const math::Mat3 rotation =
        math::mat3FromQuaternion(math::mat4ToQuaternion({view.viewMatrix.elements, MatrixKind::general}));
    view.viewTransformMatrix = {m.mElements, general, {}};
    view.rotation = {rotation.mElements, static_cast<std::uint32_t>(rotation.mKind), {}};
    view.eye = {m(0, 3), m(1, 3), m(2, 3)};
    view.viewMatrix = {inverse.mElements, general, {}};
}

/// With `limited`, a tilt that ends at a pole is left out.
inline void rotateAbout(ViewImage& view, const Vec3& pivot, Vec3 turnAxis, double angle, double tilt, bool limited) {
    if ((std::abs(angle) <= math::tolerance && std::abs(tilt) <= math::tolerance) ||
        math::normalise3(turnAxis) <= math::tolerance) {
        return;
    }
    Vec3 arm = eyeOf(view) - pivot;
    const double distance = math::normalise3(arm);
    const double cosine = dot(arm, turnAxis);
    bool tilts =
        std::abs(tilt) > math::tolerance && distance > math::tolerance && 1.0 - std::abs(cosine) >= math::tolerance;
    if (limited) {
        const double poleAngle = std::acos(cosine) + tilt;
        tilts = tilts && poleAngle > math::tolerance && poleAngle < 3.1415925535897933;
    }
    Quat turn;
    if (tilts) {
        Vec3 tiltAxis = cross(turnAxis, arm);
        math::normalise3(tiltAxis);
        turn = math::quaternionOfHalfAngle(tiltAxis, tilt / 2.0);
    }
    if (std::abs(angle) > math::tolerance) {
        turn = math::quaternionOfHalfAngle(turnAxis, angle / 2.0) * turn;
    }
    const auto& r = view.rotation.elements;
    const Vec3 up = rotateByQuaternion(turn, axis(view, 1));
    const Vec3 forward = rotateByQuaternion(turn, {-r[6], -r[7], -r[8]});
    const Vec3 eye = pivot + rotateByQuaternion(turn, arm) * distance;
    lookAt(view, eye, eye + forward, up);
}

inline Vec3 toView(const ViewImage& view, const Vec3& p) {
    return math::transformPlacementPoint({view.viewMatrix.elements, MatrixKind::general}, p);
}

} // namespace qel::bench::floors
