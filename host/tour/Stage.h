// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include <qel/api/camera/CameraAPIIf.h>

#include "host/render/Renderer.h"
#include "host/render/Stroke.h"
#include "host/scene/Geometry.h"
#include "host/tour/CallRecorder.h"

namespace qel::host {

/// A pixel on the model, found in the renderer's depths as a program finds what its user clicked on.
struct Picked {
    std::int32_t x = 0;
    std::int32_t y = 0;
    double depth = 0.0;
    Vec3 point{}; ///< what is seen there, in the world

    [[nodiscard]] Vec2 pixel() const { return {static_cast<double>(x), static_cast<double>(y)}; }
};

/// What the steps of a tour work on: the one camera that goes through them, the model's box, and what a step keeps
/// for those after it. All that a host keeps of a camera is its state record.
class Stage {
public:
    Stage(api::camera::CameraAPIIf& component, Renderer& renderer, const Box& modelBox, std::int32_t windowWidth,
          std::int32_t windowHeight)
        : service(component), box(modelBox), width(windowWidth), height(windowHeight), mRenderer(renderer) {}

    CallRecorder service;
    const Box box;
    const std::int32_t width;  ///< of the window, in pixels
    const std::int32_t height; ///< of the window, in pixels

    api::camera::PlanarCameraState camera;
    api::camera::PlanarCameraState home; ///< a camera to come back to
    Strokes strokes;                     ///< what the current step draws over its picture

    Picked picked;                                           ///< where a zoom or a pan takes hold
    std::vector<Vec3> area;                                  ///< the corners of the zoomed area, at its depth
    std::pair<Vec3, Vec3> marks;                             ///< at the depth of the box's centre
    std::vector<std::pair<std::int32_t, std::int32_t>> drag; ///< the pixels a drag goes through

    /// Calls an operation on the camera and takes the camera it gives.
    template <OperationName name, class... Arguments>
    void change(const Arguments&... arguments) {
        camera = service.call<name>(camera, arguments...);
    }
    /// Calls an operation on the camera's projection and puts the projection it gives into the camera.
    template <OperationName name, class... Arguments>
    void changeProjection(const Arguments&... arguments) {
        change<"planarCameraSetProjection">(service.call<name>(camera.mProjectionState, arguments...));
    }

    /// Fits the model's box, with room around it for the box's lines.
    void fitBox();
    /// Puts the clipping planes around the sphere around the box.
    void updateClippingPlanes();
    /// Looks along an axis through the box's centre.
    void lookAlong(const Vec3& axis, const Vec3& up);
    void switchProjectionType();

    /// The pixel of the model nearest to a place in the picture, given in fractions from the lower left; where the
    /// model cannot be seen at all, the pixel of its box's centre.
    Picked pick(double x, double y);
    /// Where a point of the world lands in the current camera's picture.
    [[nodiscard]] std::optional<Vec2> toWindow(const Vec3& point) const { return CameraView(camera).toWindow(point); }

private:
    Renderer& mRenderer;
};

} // namespace qel::host
