// SPDX-License-Identifier: Apache-2.0
// The operations on a view, most of which a camera has too.

#include "fuzz/differential/DifferentialSteps.h"

namespace camera::fuzz::differential {
namespace {

constexpr auto createDefault = [](Step& s, auto run) {
    s.camera.view = oracle::Camera::createDefault().view;
    run();
};

constexpr auto create = [](Step& s, auto run) {
    const api::Vector eye = s.takenVector(), at = s.takenVector(), up = s.takenVector();
    s.camera.view = oracle::View::create(s.judge, real(eye), real(at), real(up));
    run(eye, at, up);
};

constexpr auto setEye = [](Step& s, auto run) {
    const api::Vector eye = s.takenVector();
    s.camera.view.moveTo(real(eye));
    run(eye);
};

constexpr auto updateLookat = [](Step& s, auto run) {
    const api::Vector eye = s.takenVector(), at = s.takenVector(), up = s.takenVector();
    s.camera.view.lookAt(s.judge, real(eye), real(at), real(up));
    run(eye, at, up);
};

/// Of any length: short ones, which are not made longer, too.
constexpr auto setOrientation = [](Step& s, auto run) {
    api::Quaternion orientation;
    auto& q = orientation.mData;
    const double length = s.bytes.byte() % 8 == 0 ? 1e-5 : 1.0;
    for (std::size_t i = 0; i < 4; ++i) {
        q.push_back(length * coordinate(s.bytes));
    }
    s.camera.view.setOrientation(s.judge, {q[0], q[1], q[2], q[3]});
    run(orientation);
};

constexpr auto alongWorldAxis = [](Step& s, auto run) {
    const api::Vector target = s.takenVector(), along = s.takenVector(), up = s.takenVector();
    s.camera.view.alongWorldAxis(s.judge, real(target), real(along), real(up));
    run(target, along, up);
};

template <std::size_t axis>
constexpr auto turnByTwice = [](Step& s, auto run) {
    const double a = angle(s.bytes);
    s.camera.view.turnByTwice(s.judge, axis, a);
    run(a);
};

constexpr auto yawPitchRoll = [](Step& s, auto run) {
    const double yaw = angle(s.bytes), pitch = angle(s.bytes), roll = angle(s.bytes);
    s.camera.view.yawPitchRoll(s.judge, yaw, pitch, roll);
    run(yaw, pitch, roll);
};

/// Some offsets are so small that they may count as nothing.
template <void (oracle::View::*member)(oracle::Judgement&, oracle::Vector)>
constexpr auto translate = [](Step& s, auto run) {
    api::Vector offset = s.takenVector();
    if (s.bytes.byte() % 16 == 1) {
        for (double& value : offset.mData) {
            value *= 1e-8;
        }
    }
    (s.camera.view.*member)(s.judge, real(offset));
    run(offset);
};

constexpr auto rotateAboutWorldAxis = [](Step& s, auto run) {
    const api::Vector pivot = s.takenVector(), about = s.takenVector();
    const double a = angle(s.bytes), tilt = angle(s.bytes);
    s.camera.view.rotateAbout(s.judge, real(pivot), real(about), a, tilt, true);
    run(pivot, about, a, tilt);
};

constexpr auto rotateAboutViewAxes = [](Step& s, auto run) {
    const api::Vector pivot = s.takenVector();
    const double a = angle(s.bytes), tilt = angle(s.bytes);
    s.camera.view.rotateAbout(s.judge, real(pivot), oracle::axis(s.camera.view.toView, 1), a, tilt, false);
    run(pivot, a, tilt);
};

template <void (oracle::View::*member)(oracle::Judgement&, const oracle::Matrix4&)>
constexpr auto setMatrix = [](Step& s, auto run) {
    const api::Matrix matrix = s.takenMatrix();
    (s.camera.view.*member)(s.judge, real(matrix));
    run(matrix);
};

} // namespace

std::span<const Entry> viewSteps() {
    using oracle::View;
    static constexpr std::array entries{
        entry<"viewCreateDefault">(view, createDefault),
        entry<"viewCreate">(view, create),
        entry<"viewSetEye">(view, setEye),
        entry<"viewUpdateLookat">(view, updateLookat),
        entry<"viewSetOrientation">(view, setOrientation),
        entry<"viewSetViewMatrix">(view, setMatrix<&View::setViewMatrix>),
        entry<"viewSetViewTransformMatrix">(view, setMatrix<&View::setViewTransformMatrix>),
        entry<"viewSetViewAlongWorldAxis">(view, alongWorldAxis),
        entry<"viewYaw">(view, turnByTwice<1>),
        entry<"viewPitch">(view, turnByTwice<0>),
        entry<"viewRoll">(view, turnByTwice<2>),
        entry<"viewYawPitchRoll">(view, yawPitchRoll),
        entry<"viewTranslateInViewSpace">(view, translate<&View::translateInView>),
        entry<"viewTranslateInWorldSpace">(view, translate<&View::translateInWorld>),
        entry<"viewRotateAboutWorldAxis">(view, rotateAboutWorldAxis),
        entry<"viewRotateAboutViewAxes">(view, rotateAboutViewAxes),
        entry<"planarCameraSetViewAlongWorldAxis">(view, alongWorldAxis),
        entry<"planarCameraYaw">(view, turnByTwice<1>),
        entry<"planarCameraPitch">(view, turnByTwice<0>),
        entry<"planarCameraRoll">(view, turnByTwice<2>),
        entry<"planarCameraYawPitchRoll">(view, yawPitchRoll),
        entry<"planarCameraTranslateInViewSpace">(view, translate<&View::translateInView>),
        entry<"planarCameraTranslateInWorldSpace">(view, translate<&View::translateInWorld>),
        entry<"planarCameraRotateAboutWorldAxis">(view, rotateAboutWorldAxis),
        entry<"planarCameraRotateAboutViewAxes">(view, rotateAboutViewAxes),
    };
    return entries;
}

} // namespace camera::fuzz::differential
