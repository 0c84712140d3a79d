// SPDX-License-Identifier: Apache-2.0
// The operations on a camera as a whole, and those that put one together.

#include <cstdlib>

#include "fuzz/differential/DifferentialSteps.h"

namespace camera::fuzz::differential {
namespace {

constexpr auto viewAndProjection = static_cast<Part>(view | projection);
constexpr auto projectionAndSurface = static_cast<Part>(projection | surface);

constexpr auto createDefault = [](Step& s, auto run) {
    s.camera = oracle::Camera::createDefault();
    run();
};

/// Each part of the camera or of an earlier one.
constexpr auto create = [](Step& s, auto run) {
    const std::uint8_t choice = s.bytes.byte();
    const oracle::Camera other = s.otherCamera();
    const api::PlanarCameraState& v = (choice & 1U) != 0 ? s.other : s.state;
    const api::PlanarCameraState& p = (choice & 2U) != 0 ? s.other : s.state;
    const api::PlanarCameraState& f = (choice & 4U) != 0 ? s.other : s.state;
    s.camera = {(choice & 1U) != 0 ? other.view : s.camera.view,
                (choice & 2U) != 0 ? other.projection : s.camera.projection,
                (choice & 4U) != 0 ? other.surface : s.camera.surface};
    run(v.mViewState, p.mProjectionState, f.mSurfaceState);
};

template <auto part, auto field>
constexpr auto setPart = [](Step& s, auto run) {
    s.camera.*part = s.otherCamera().*part;
    run(s.other.*field);
};

constexpr auto updateWindowSize = [](Step& s, auto run) {
    const std::int32_t width = resolution(s.bytes), height = resolution(s.bytes);
    s.camera.updateWindowSize(s.judge, asUnsigned(width), asUnsigned(height));
    run(width, height);
};

constexpr auto updateClippingPlanes = [](Step& s, auto run) {
    const api::Vector centre = s.takenVector();
    const double radius = factor(s.bytes), minimum = factor(s.bytes);
    s.camera.updateClippingPlanes(s.judge, real(centre), radius, minimum);
    run(centre, radius, minimum);
};

/// An operation on the two corners of a box.
template <void (oracle::Camera::*member)(oracle::Judgement&, oracle::Vector, oracle::Vector)>
constexpr auto onBox = [](Step& s, auto run) {
    const api::Vector first = s.takenVector(), second = s.takenVector();
    (s.camera.*member)(s.judge, real(first), real(second));
    const auto &a = first.mData, &b = second.mData;
    run(a[0], a[1], a[2], b[0], b[1], b[2]);
};

constexpr auto zoomArea = [](Step& s, auto run) {
    const std::int32_t x1 = pixel(s.bytes), y1 = pixel(s.bytes), x2 = pixel(s.bytes), y2 = pixel(s.bytes);
    const double d1 = depth(s.bytes), d2 = depth(s.bytes);
    s.camera.zoomArea(s.judge, {x1, y1, d1}, {x2, y2, d2});
    run(x1, y1, d1, x2, y2, d2);
};

constexpr auto zoomAtPixel = [](Step& s, auto run) {
    const std::int32_t x = pixel(s.bytes), y = pixel(s.bytes);
    const double d = depth(s.bytes), by = factor(s.bytes);
    s.camera.zoomAt(s.judge, oracle::ScreenPoint{x, y, d}, by);
    run(x, y, d, by);
};

constexpr auto zoomAtPoint = [](Step& s, auto run) {
    const api::Vector anchor = s.takenVector();
    const double by = factor(s.bytes);
    s.camera.zoomAt(s.judge, real(anchor), by);
    run(anchor, by);
};

constexpr auto pan = [](Step& s, auto run) {
    const std::int32_t x = pixel(s.bytes), y = pixel(s.bytes), dx = pixel(s.bytes), dy = pixel(s.bytes);
    const double d = depth(s.bytes);
    s.camera.pan(s.judge, {x, y, d}, dx, dy);
    run(x, y, d, dx, dy);
};

constexpr auto arcball = [](Step& s, auto run) {
    const api::Vector centre = s.takenVector();
    const std::int32_t x1 = std::abs(pixel(s.bytes)), y1 = std::abs(pixel(s.bytes));
    const std::int32_t x2 = std::abs(pixel(s.bytes)), y2 = std::abs(pixel(s.bytes));
    s.camera.arcball(s.judge, real(centre), asUnsigned(x1), asUnsigned(y1), asUnsigned(x2), asUnsigned(y2));
    run(centre, x1, y1, x2, y2);
};

} // namespace

std::span<const Entry> cameraSteps() {
    using oracle::Camera;
    using Record = api::PlanarCameraState;
    static constexpr std::array entries{
        entry<"planarCameraCreateDefault">(everything, createDefault),
        entry<"planarCameraCreate">(everything, create),
        entry<"planarCameraSetView">(view, setPart<&Camera::view, &Record::mViewState>),
        entry<"planarCameraSetProjection">(projection, setPart<&Camera::projection, &Record::mProjectionState>),
        entry<"planarCameraSetSurface">(surface, setPart<&Camera::surface, &Record::mSurfaceState>),
        entry<"planarCameraUpdateWindowSize">(projectionAndSurface, updateWindowSize),
        entry<"planarCameraUpdateClippingPlanes">(projection, updateClippingPlanes),
        entry<"planarCameraFitWorldSpaceBoundingBox">(viewAndProjection, onBox<&Camera::fitWorldBox>),
        entry<"planarCameraFitViewSpaceBoundingBox">(viewAndProjection, onBox<&Camera::fitViewBox>),
        entry<"planarCameraSwitchProjectionType">(projection, onBox<&Camera::switchProjectionType>),
        entry<"planarCameraZoomArea">(viewAndProjection, zoomArea),
        entry<"planarCameraZoomWithAnchor_Screen">(viewAndProjection, zoomAtPixel),
        entry<"planarCameraZoomWithAnchor_World">(viewAndProjection, zoomAtPoint),
        entry<"planarCameraPanWithAnchor">(view, pan),
        entry<"planarCameraArcballRotation">(view, arcball),
    };
    return entries;
}

} // namespace camera::fuzz::differential
