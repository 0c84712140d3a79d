// SPDX-License-Identifier: Apache-2.0
// The operations on a view, most of which a camera has too.

#include "fuzz/differential/DifferentialSteps.h"

namespace camera::fuzz::differential {
namespace {

void createDefault(Step& s) {
    s.camera.view = oracle::Camera::createDefault().view;
    change<"viewCreateDefault">(s);
}

void create(Step& s) {
    const api::Vector eye = s.takenVector(), at = s.takenVector(), up = s.takenVector();
    s.camera.view = oracle::View::create(s.judge, real(eye), real(at), real(up));
    change<"viewCreate">(s, eye, at, up);
}

void setEye(Step& s) {
    const api::Vector eye = s.takenVector();
    s.camera.view.moveTo(real(eye));
    change<"viewSetEye">(s, eye);
}

void updateLookat(Step& s) {
    const api::Vector eye = s.takenVector(), at = s.takenVector(), up = s.takenVector();
    s.camera.view.lookAt(s.judge, real(eye), real(at), real(up));
    change<"viewUpdateLookat">(s, eye, at, up);
}

/// Of any length: short ones, which are not made longer, too.
void setOrientation(Step& s) {
    api::Quaternion orientation;
    const double length = s.bytes.byte() % 8 == 0 ? 1e-5 : 1.0;
    for (std::size_t i = 0; i < 4; ++i) {
        orientation.mData.push_back(length * coordinate(s.bytes));
    }
    const auto& q = orientation.mData;
    s.camera.view.setOrientation(s.judge, {q[0], q[1], q[2], q[3]});
    change<"viewSetOrientation">(s, orientation);
}

void setViewMatrix(Step& s) {
    const api::Matrix matrix = s.takenMatrix();
    s.camera.view.setViewMatrix(s.judge, real(matrix));
    change<"viewSetViewMatrix">(s, matrix);
}

void setViewTransformMatrix(Step& s) {
    const api::Matrix matrix = s.takenMatrix();
    s.camera.view.setViewTransformMatrix(s.judge, real(matrix));
    change<"viewSetViewTransformMatrix">(s, matrix);
}

template <Name name>
void alongWorldAxis(Step& s) {
    const api::Vector target = s.takenVector(), along = s.takenVector(), up = s.takenVector();
    s.camera.view.alongWorldAxis(s.judge, real(target), real(along), real(up));
    change<name>(s, target, along, up);
}

template <Name name, std::size_t axis>
void turnByTwice(Step& s) {
    const double a = angle(s.bytes);
    s.camera.view.turnByTwice(s.judge, axis, a);
    change<name>(s, a);
}

template <Name name>
void yawPitchRoll(Step& s) {
    const double yaw = angle(s.bytes), pitch = angle(s.bytes), roll = angle(s.bytes);
    s.camera.view.yawPitchRoll(s.judge, yaw, pitch, roll);
    change<name>(s, yaw, pitch, roll);
}

/// Some offsets are so small that they may count as nothing.
api::Vector offsetOf(Step& s) {
    api::Vector offset = s.takenVector();
    if (s.bytes.byte() % 16 == 1) {
        for (double& value : offset.mData) {
            value *= 1e-8;
        }
    }
    return offset;
}

template <Name name>
void translateInView(Step& s) {
    const api::Vector offset = offsetOf(s);
    s.camera.view.translateInView(s.judge, real(offset));
    change<name>(s, offset);
}

template <Name name>
void translateInWorld(Step& s) {
    const api::Vector offset = offsetOf(s);
    s.camera.view.translateInWorld(s.judge, real(offset));
    change<name>(s, offset);
}

template <Name name>
void rotateAboutWorldAxis(Step& s) {
    const api::Vector pivot = s.takenVector(), about = s.takenVector();
    const double a = angle(s.bytes), tilt = angle(s.bytes);
    s.camera.view.rotateAbout(s.judge, real(pivot), real(about), a, tilt, true);
    change<name>(s, pivot, about, a, tilt);
}

template <Name name>
void rotateAboutViewAxes(Step& s) {
    const api::Vector pivot = s.takenVector();
    const double a = angle(s.bytes), tilt = angle(s.bytes);
    s.camera.view.rotateAbout(s.judge, real(pivot), oracle::axis(s.camera.view.toView, 1), a, tilt, false);
    change<name>(s, pivot, a, tilt);
}

} // namespace

std::span<const Entry> viewSteps() {
    static constexpr std::array entries{
        Entry{"viewCreateDefault", createDefault, view},
        Entry{"viewCreate", create, view},
        Entry{"viewSetEye", setEye, view},
        Entry{"viewSetViewAlongWorldAxis", alongWorldAxis<"viewSetViewAlongWorldAxis">, view},
        Entry{"viewSetOrientation", setOrientation, view},
        Entry{"viewUpdateLookat", updateLookat, view},
        Entry{"viewSetViewMatrix", setViewMatrix, view},
        Entry{"viewSetViewTransformMatrix", setViewTransformMatrix, view},
        Entry{"viewYaw", turnByTwice<"viewYaw", 1>, view},
        Entry{"viewPitch", turnByTwice<"viewPitch", 0>, view},
        Entry{"viewRoll", turnByTwice<"viewRoll", 2>, view},
        Entry{"viewYawPitchRoll", yawPitchRoll<"viewYawPitchRoll">, view},
        Entry{"viewTranslateInViewSpace", translateInView<"viewTranslateInViewSpace">, view},
        Entry{"viewTranslateInWorldSpace", translateInWorld<"viewTranslateInWorldSpace">, view},
        Entry{"viewRotateAboutWorldAxis", rotateAboutWorldAxis<"viewRotateAboutWorldAxis">, view},
        Entry{"viewRotateAboutViewAxes", rotateAboutViewAxes<"viewRotateAboutViewAxes">, view},
        Entry{"planarCameraSetViewAlongWorldAxis", alongWorldAxis<"planarCameraSetViewAlongWorldAxis">, view},
        Entry{"planarCameraRotateAboutViewAxes", rotateAboutViewAxes<"planarCameraRotateAboutViewAxes">, view},
        Entry{"planarCameraRotateAboutWorldAxis", rotateAboutWorldAxis<"planarCameraRotateAboutWorldAxis">, view},
        Entry{"planarCameraTranslateInWorldSpace", translateInWorld<"planarCameraTranslateInWorldSpace">, view},
        Entry{"planarCameraTranslateInViewSpace", translateInView<"planarCameraTranslateInViewSpace">, view},
        Entry{"planarCameraYaw", turnByTwice<"planarCameraYaw", 1>, view},
        Entry{"planarCameraPitch", turnByTwice<"planarCameraPitch", 0>, view},
        Entry{"planarCameraRoll", turnByTwice<"planarCameraRoll", 2>, view},
        Entry{"planarCameraYawPitchRoll", yawPitchRoll<"planarCameraYawPitchRoll">, view},
    };
    return entries;
}

} // namespace camera::fuzz::differential
