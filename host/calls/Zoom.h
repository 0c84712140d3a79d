// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <qel/api/camera/CameraAPIIf.h>

#include "host/scene/Geometry.h"

namespace qel::host {

/// planarCameraZoomWithAnchor_Screen by a factor, which for a perspective stops where it would see more than 120
/// degrees in width or height: wider, it draws a model out into lines. Where it sees more already, it grows no further.
api::camera::PlanarCameraState zoomAbout(api::camera::CameraAPIIf& service, const api::camera::PlanarCameraState& state,
                                         Pixel anchor, double depth, double factor);

/// The rectangle between two pixels, at a depth, fills the window: by planarCameraZoomArea, or where that would stop
/// before, as it does for a rectangle of less than 0.001 units on the near plane, by a zoom and a pan to whole pixels.
api::camera::PlanarCameraState zoomIntoArea(api::camera::CameraAPIIf& service,
                                            const api::camera::PlanarCameraState& state, Pixel from, Pixel to,
                                            double depth);

} // namespace qel::host
