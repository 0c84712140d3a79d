// SPDX-License-Identifier: Apache-2.0
// The operations on a camera as a whole, and those that put one together.

#include <cstdlib>

#include "fuzz/differential/DifferentialSteps.h"

namespace camera::fuzz::differential {
namespace {

using oracle::ScreenPoint;

constexpr auto viewAndProjection = static_cast<Part>(view | projection);
constexpr auto projectionAndSurface = static_cast<Part>(projection | surface);

void createDefault(Step& s) {
    s.camera = oracle::Camera::createDefault();
    change<"planarCameraCreateDefault">(s);
}

/// Each part of the camera or of an earlier one.
void create(Step& s) {
    const std::uint8_t choice = s.bytes.byte();
    const oracle::Camera other = oracle::Image(s.other.mPrivate).camera();
    const api::PlanarCameraState& v = (choice & 1U) != 0 ? s.other : s.state;
    const api::PlanarCameraState& p = (choice & 2U) != 0 ? s.other : s.state;
    const api::PlanarCameraState& f = (choice & 4U) != 0 ? s.other : s.state;
    s.camera = {(choice & 1U) != 0 ? other.view : s.camera.view,
                (choice & 2U) != 0 ? other.projection : s.camera.projection,
                (choice & 4U) != 0 ? other.surface : s.camera.surface};
    change<"planarCameraCreate">(s, v.mViewState, p.mProjectionState, f.mSurfaceState);
}

void setView(Step& s) {
    s.camera.view = oracle::Image(s.other.mPrivate).camera().view;
    change<"planarCameraSetView">(s, s.other.mViewState);
}

void setProjection(Step& s) {
    s.camera.projection = oracle::Image(s.other.mPrivate).camera().projection;
    change<"planarCameraSetProjection">(s, s.other.mProjectionState);
}

void setSurface(Step& s) {
    s.camera.surface = oracle::Image(s.other.mPrivate).camera().surface;
    change<"planarCameraSetSurface">(s, s.other.mSurfaceState);
}

void updateWindowSize(Step& s) {
    const std::int32_t width = resolution(s.bytes), height = resolution(s.bytes);
    s.camera.updateWindowSize(s.judge, asUnsigned(width), asUnsigned(height));
    change<"planarCameraUpdateWindowSize">(s, width, height);
}

void updateClippingPlanes(Step& s) {
    const api::Vector centre = s.takenVector();
    const double radius = factor(s.bytes), minimum = factor(s.bytes);
    s.camera.updateClippingPlanes(s.judge, real(centre), radius, minimum);
    change<"planarCameraUpdateClippingPlanes">(s, centre, radius, minimum);
}

/// An operation on the two corners of a box.
template <Name name, void (oracle::Camera::*member)(oracle::Judgement&, oracle::Vector, oracle::Vector)>
void onBox(Step& s) {
    const api::Vector first = s.takenVector(), second = s.takenVector();
    (s.camera.*member)(s.judge, real(first), real(second));
    const auto &a = first.mData, &b = second.mData;
    change<name>(s, a[0], a[1], a[2], b[0], b[1], b[2]);
}

void zoomArea(Step& s) {
    const std::int32_t x1 = pixel(s.bytes), y1 = pixel(s.bytes), x2 = pixel(s.bytes), y2 = pixel(s.bytes);
    const double d1 = depth(s.bytes), d2 = depth(s.bytes);
    s.camera.zoomArea(s.judge, {x1, y1, d1}, {x2, y2, d2});
    change<"planarCameraZoomArea">(s, x1, y1, d1, x2, y2, d2);
}

void zoomAtPixel(Step& s) {
    const std::int32_t x = pixel(s.bytes), y = pixel(s.bytes);
    const double d = depth(s.bytes), by = factor(s.bytes);
    s.camera.zoomAt(s.judge, ScreenPoint{x, y, d}, by);
    change<"planarCameraZoomWithAnchor_Screen">(s, x, y, d, by);
}

void zoomAtPoint(Step& s) {
    const api::Vector anchor = s.takenVector();
    const double by = factor(s.bytes);
    s.camera.zoomAt(s.judge, real(anchor), by);
    change<"planarCameraZoomWithAnchor_World">(s, anchor, by);
}

void pan(Step& s) {
    const std::int32_t x = pixel(s.bytes), y = pixel(s.bytes), dx = pixel(s.bytes), dy = pixel(s.bytes);
    const double d = depth(s.bytes);
    s.camera.pan(s.judge, {x, y, d}, dx, dy);
    change<"planarCameraPanWithAnchor">(s, x, y, d, dx, dy);
}

void arcball(Step& s) {
    const api::Vector centre = s.takenVector();
    const std::int32_t x1 = std::abs(pixel(s.bytes)), y1 = std::abs(pixel(s.bytes));
    const std::int32_t x2 = std::abs(pixel(s.bytes)), y2 = std::abs(pixel(s.bytes));
    s.camera.arcball(s.judge, real(centre), asUnsigned(x1), asUnsigned(y1), asUnsigned(x2), asUnsigned(y2));
    change<"planarCameraArcballRotation">(s, centre, x1, y1, x2, y2);
}

} // namespace

std::span<const Entry> cameraSteps() {
    using oracle::Camera;
    static constexpr std::array entries{
        Entry{"planarCameraCreateDefault", createDefault, everything},
        Entry{"planarCameraCreate", create, everything},
        Entry{"planarCameraSetView", setView, view},
        Entry{"planarCameraSetProjection", setProjection, projection},
        Entry{"planarCameraSetSurface", setSurface, surface},
        Entry{"planarCameraUpdateWindowSize", updateWindowSize, projectionAndSurface},
        Entry{"planarCameraUpdateClippingPlanes", updateClippingPlanes, projection},
        Entry{"planarCameraFitWorldSpaceBoundingBox",
              onBox<"planarCameraFitWorldSpaceBoundingBox", &Camera::fitWorldBox>, viewAndProjection},
        Entry{"planarCameraFitViewSpaceBoundingBox", onBox<"planarCameraFitViewSpaceBoundingBox", &Camera::fitViewBox>,
              viewAndProjection},
        Entry{"planarCameraSwitchProjectionType",
              onBox<"planarCameraSwitchProjectionType", &Camera::switchProjectionType>, projection},
        Entry{"planarCameraZoomArea", zoomArea, viewAndProjection},
        Entry{"planarCameraZoomWithAnchor_Screen", zoomAtPixel, viewAndProjection},
        Entry{"planarCameraZoomWithAnchor_World", zoomAtPoint, viewAndProjection},
        Entry{"planarCameraPanWithAnchor", pan, view},
        Entry{"planarCameraArcballRotation", arcball, view},
    };
    return entries;
}

} // namespace camera::fuzz::differential
