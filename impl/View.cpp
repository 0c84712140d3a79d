// SPDX-License-Identifier: Apache-2.0
#include "impl/View.h"

#include <cmath>

#include "math/Tolerances.h"

namespace qel::api::camera::impl {

using math::Mat3;
using math::Mat4;
using math::MatrixKind;
using math::Quat;
using math::tolerance;
using math::Vec3;

namespace {

/// Pi less the tolerance: a tilt may come this close to the far pole.
constexpr double largestPoleAngle = 3.1415925535897933;

} // namespace

View::View() : View({0.0, 0.0, 0.0}, {0.0, 0.0, -1.0}, {0.0, 1.0, 0.0}) {}

View::View(const Vec3& eye, const Vec3& lookat, const Vec3& up) { lookAt(eye, lookat, up); }

void View::lookAt(const Vec3& eye, const Vec3& lookat, Vec3 up) {
    Vec3 forward = lookat - eye;
    if (math::normalise3(forward) <= tolerance || math::normalise3(up) <= tolerance) {
        return;
    }
    if (1.0 - std::abs(dot(forward, up)) <= tolerance) {
        return;
    }
    Vec3 side = cross(forward, up);
    math::normalise3(side);
    const Vec3 newUp = cross(side, forward);

    mBlock.viewMatrix = {{side.x, newUp.x, -forward.x, 0.0,                           //
                          side.y, newUp.y, -forward.y, 0.0,                           //
                          side.z, newUp.z, -forward.z, 0.0,                           //
                          -dot(side, eye), -dot(newUp, eye), dot(forward, eye), 1.0}, //
                         MatrixKind::general};
    mBlock.rotation = {{side.x, side.y, side.z, newUp.x, newUp.y, newUp.z, -forward.x, -forward.y, -forward.z},
                       MatrixKind::general};
    mBlock.viewTransformMatrix = {{side.x, side.y, side.z, 0.0,             //
                                   newUp.x, newUp.y, newUp.z, 0.0,          //
                                   -forward.x, -forward.y, -forward.z, 0.0, //
                                   eye.x, eye.y, eye.z, 1.0},
                                  MatrixKind::general};
    mBlock.eye = eye;
}

void View::setOrientation(Quat orientation) {
    const double norm = length(orientation);
    if (norm >= math::quaternionTolerance) {
        orientation = {orientation.x / norm, orientation.y / norm, orientation.z / norm, orientation.w / norm};
    }
    mBlock.rotation = math::mat3FromQuaternion(orientation);
    math::setLinearPart(mBlock.viewTransformMatrix, mBlock.rotation);
    math::setLinearPart(mBlock.viewMatrix, transposed(mBlock.rotation));
    updateViewMatrixTranslation();
    mBlock.viewMatrix.mKind = withTranslation(mBlock.viewMatrix.mKind);
}

void View::yaw(const double angle) { turnByTwice(angle, yAxis()); }
void View::pitch(const double angle) { turnByTwice(angle, xAxis()); }
void View::roll(const double angle) { turnByTwice(angle, zAxis()); }

/// Takes the angle for the half angle of the quaternion, on purpose.
void View::turnByTwice(const double angle, const Vec3& axis) {
    if (std::abs(angle) <= tolerance) {
        return;
    }
    setOrientation(math::quaternionOfHalfAngle(axis, angle) * math::mat3ToQuaternion(mBlock.rotation));
}

void View::yawPitchRoll(const double yaw, const double pitch, const double roll) {
    if (std::abs(yaw) <= tolerance && std::abs(pitch) <= tolerance && std::abs(roll) <= tolerance) {
        return;
    }
    Quat orientation = math::mat3ToQuaternion(mBlock.rotation);
    if (std::abs(pitch) > tolerance) {
        orientation = math::quaternionOfHalfAngle(xAxis(), pitch / 2.0) * orientation;
    }
    if (std::abs(yaw) > tolerance) {
        orientation = math::quaternionOfHalfAngle(yAxis(), yaw / 2.0) * orientation;
    }
    if (std::abs(roll) > tolerance) {
        orientation = math::quaternionOfHalfAngle(zAxis(), roll / 2.0) * orientation;
    }
    setOrientation(orientation);
}

void View::setViewAlongWorldAxis(const Vec3& target, Vec3 axis, const Vec3& up) {
    if (math::normalise3(axis) <= tolerance) {
        return;
    }
    const double distance = length(mBlock.eye - target);
    if (distance > tolerance) {
        lookAt(target - axis * distance, target, up);
    } else {
        lookAt(mBlock.eye, mBlock.eye + axis, up);
    }
}

void View::setViewMatrix(const Mat4& matrix) {
    mBlock.viewMatrix = matrix;
    mBlock.rotation = transposed(math::mat3FromQuaternion(math::mat4ToQuaternion(mBlock.viewMatrix)));
    mBlock.eye = -(mBlock.rotation * math::translation(mBlock.viewMatrix));
    mBlock.viewTransformMatrix = math::affineInverse4(mBlock.viewMatrix);
}

void View::setViewTransformMatrix(const Mat4& matrix) {
    mBlock.viewTransformMatrix = matrix;
    // Of the old view matrix, and not transposed: see the declaration.
    mBlock.rotation = math::mat3FromQuaternion(math::mat4ToQuaternion(mBlock.viewMatrix));
    mBlock.eye = math::translation(matrix);
    mBlock.viewMatrix = math::affineInverse4(matrix);
}

void View::rotateAboutAxis(const Vec3& pivot, Vec3 axis, const double angle, const double tilt,
                           const PoleLimit poleLimit) {
    if (std::abs(angle) <= tolerance && std::abs(tilt) <= tolerance) {
        return;
    }
    if (math::normalise3(axis) <= tolerance) {
        return;
    }
    Vec3 arm = mBlock.eye - pivot;
    const double distance = math::normalise3(arm);
    const double cosine = dot(arm, axis);

    bool tilts = std::abs(tilt) > tolerance && distance > tolerance && 1.0 - std::abs(cosine) >= tolerance;
    if (poleLimit == PoleLimit::on) {
        const double poleAngle = std::acos(cosine) + tilt;
        if (poleAngle <= tolerance || poleAngle >= largestPoleAngle) {
            tilts = false;
        }
    }

    Quat turn;
    if (tilts) {
        Vec3 tiltAxis = cross(axis, arm);
        math::normalise3(tiltAxis);
        turn = math::quaternionOfHalfAngle(tiltAxis, tilt / 2.0);
    }
    if (std::abs(angle) > tolerance) {
        turn = math::quaternionOfHalfAngle(axis, angle / 2.0) * turn;
    }

    const Vec3 up = rotateByQuaternion(turn, yAxis());
    const Vec3 forward = rotateByQuaternion(turn, direction());
    const Vec3 eye = pivot + rotateByQuaternion(turn, arm) * distance;
    lookAt(eye, eye + forward, up);
}

void View::rotateAboutWorldAxis(const Vec3& pivot, const Vec3& axis, const double angle, const double tilt) {
    rotateAboutAxis(pivot, axis, angle, tilt, PoleLimit::on);
}

void View::rotateAboutViewAxes(const Vec3& pivot, const double angle, const double tilt) {
    rotateAboutAxis(pivot, yAxis(), angle, tilt, PoleLimit::off);
}

} // namespace qel::api::camera::impl
