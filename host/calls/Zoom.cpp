// SPDX-License-Identifier: Apache-2.0
#include "host/calls/Zoom.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

#include "host/calls/ServiceCall.h"

namespace qel::host {

using api::camera::CameraAPIIf;
using api::camera::PlanarCameraState;

PlanarCameraState zoomAbout(CameraAPIIf& service, const PlanarCameraState& state, Pixel anchor, double depth,
                            double factor) {
    const auto& projection = state.mProjectionState;
    if (factor > 1.0 && projection.mProjectionType == api::camera::ProjectionType::PERSPECTIVE) {
        constexpr double widest = 120.0 * std::numbers::pi / 180.0;
        const auto& frustum = projection.mFrustum;
        // Off the axis, the same extent is a smaller angle.
        const double extent = std::max(frustum.mRight - frustum.mLeft, frustum.mTop - frustum.mBottom);
        const double growth = 2.0 * std::tan(widest / 2.0) * frustum.mNearDist / extent;
        factor = std::clamp(growth, 1.0, factor);
    }
    return call<"planarCameraZoomWithAnchor_Screen">(service, state, anchor.x, anchor.y, depth, factor);
}

PlanarCameraState zoomIntoArea(CameraAPIIf& service, const PlanarCameraState& state, Pixel from, Pixel to,
                               double depth) {
    constexpr double smallestExtent = 0.001; // that planarCameraZoomArea magnifies
    const auto& frustum = state.mProjectionState.mFrustum;
    const double extent = std::min(frustum.mRight - frustum.mLeft, frustum.mTop - frustum.mBottom);
    const Vec2 window{static_cast<double>(state.mSurfaceState.mResolutionX),
                      static_cast<double>(state.mSurfaceState.mResolutionY)};
    const Vec2 size{static_cast<double>(to.x) - from.x, static_cast<double>(to.y) - from.y};
    const double share = std::max(std::abs(size.x) / window.x, std::abs(size.y) / window.y);
    if (share == 0.0 || extent * share >= smallestExtent) {
        return call<"planarCameraZoomArea">(service, state, from.x, from.y, depth, to.x, to.y, depth);
    }
    // About a corner, which is a whole pixel; the middle may not be, and the zoom would magnify the rest.
    const auto zoomed = call<"planarCameraZoomWithAnchor_Screen">(service, state, from.x, from.y, depth, share);
    const auto way = [&](double whole, double part, std::int32_t corner) {
        return static_cast<std::int32_t>(std::lround((whole - part / share) / 2.0 - corner));
    };
    return call<"planarCameraPanWithAnchor">(service, zoomed, from.x, from.y, depth, way(window.x, size.x, from.x),
                                             way(window.y, size.y, from.y));
}

} // namespace qel::host
