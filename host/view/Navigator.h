// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include <qel/api/camera/CameraAPIIf.h>

#include "host/scene/Geometry.h"

namespace qel::host {

/// What a viewer's user does to the camera, free of windows and graphics: an event becomes an operation of the service,
/// and camera() is to be drawn as it says. What the service refuses throws std::runtime_error and changes nothing.
///
/// States are values. A drag is one operation on the state in which it began, whatever way the mouse takes, so rounding
/// does not add up; whatever else is done ends it. The history is a list of states, and undo takes an older one.
class Navigator {
public:
    using State = api::camera::PlanarCameraState;
    /// The depth buffer at a pixel when the model is drawn as a camera says: 1 where nothing of it is seen.
    using DepthAt = std::function<double(const State&, Pixel)>;

    enum class Drag {
        rotate, ///< an arcball about the point that was picked, or about the model's centre where none was
        pan,    ///< what was picked stays under the cursor
        area,   ///< a rectangle, which fills the window in the end
    };

    /// Sees all of the model, from its right, upper, front corner, in a window of so many pixels.
    Navigator(api::camera::CameraAPIIf& service, const Box& model, std::int32_t width, std::int32_t height,
              DepthAt depthAt);

    [[nodiscard]] const State& camera() const { return mCamera; }
    [[nodiscard]] std::optional<Drag> dragged() const { return mDrag; }
    [[nodiscard]] Pixel from() const { return mFrom; } ///< where the drag began

    void beginDrag(Drag drag, Pixel at);
    void drag(Pixel to);
    void endDrag(Pixel to);
    /// About what is seen there; turns above 0 magnify, those below 0 widen a perspective to 120 degrees at most. Turns
    /// one after the other at a pixel are one step of the history.
    void zoom(Pixel at, double turns);
    void fit();
    void look(const Vec3& axis, const Vec3& up); ///< along the axis, at the model's centre
    void switchProjection();

    /// The scale stays: a larger window shows more. An icon's 0 by 0 changes nothing.
    void resize(std::int32_t width, std::int32_t height);
    /// Takes a state from elsewhere, made for a window of any size.
    void restore(const State& state) { keep(sized(state)); }
    void undo();
    void redo() { mDrag ? keep(mCamera) : goTo(mCurrent + 1); }

private:
    struct Picked {
        double depth = 0.0;
        api::camera::Vector point; ///< in the world
    };
    [[nodiscard]] Picked pick(Pixel at) const;
    [[nodiscard]] State clipped(const State& state) const;
    [[nodiscard]] State sized(const State& state) const;
    void keep(const State& state);
    void keepDrag() { mDrag ? keep(mCamera) : void(); }
    void goTo(std::size_t index);

    api::camera::CameraAPIIf& mService;
    Box mModel;
    api::camera::Vector mCentre;
    std::int32_t mWidth;
    std::int32_t mHeight;
    DepthAt mDepthAt;
    State mCamera;
    std::vector<State> mHistory;
    std::size_t mCurrent = 0;       ///< where in the history a drag begins
    std::optional<Pixel> mZoomedAt; ///< where nothing else was kept since
    std::size_t mBeforeZoom = 0;    ///< where in the history that began

    std::optional<Drag> mDrag;
    Pixel mFrom;
    Picked mPicked;
};

} // namespace qel::host
