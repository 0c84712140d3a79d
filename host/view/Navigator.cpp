// SPDX-License-Identifier: Apache-2.0
#include "host/view/Navigator.h"

#include <cmath>
#include <utility>

#include "host/calls/ServiceCall.h"
#include "host/calls/Zoom.h"

namespace qel::host {

Navigator::Navigator(api::camera::CameraAPIIf& service, const Box& model, std::int32_t width, std::int32_t height,
                     DepthAt depthAt)
    : mService(service),
      mModel(model),
      mCentre(toVector(model.centre())),
      mWidth(width),
      mHeight(height),
      mDepthAt(std::move(depthAt)),
      mCamera(sized(call<"planarCameraCreateDefault">(service))),
      mHistory{mCamera} {
    look({-1, -1, -1}, {0, 1, 0});
    fit();
    mHistory = {mCamera}; // undo ends here
    mCurrent = 0;
}

void Navigator::beginDrag(Drag drag, Pixel at) {
    mPicked = pick(at);
    mFrom = at;
    mDrag = drag;
}

void Navigator::drag(Pixel to) {
    const State& start = mHistory[mCurrent];
    if (mDrag == Drag::rotate) {
        mCamera =
            clipped(call<"planarCameraArcballRotation">(mService, start, mPicked.point, mFrom.x, mFrom.y, to.x, to.y));
    } else if (mDrag == Drag::pan) {
        mCamera = clipped(call<"planarCameraPanWithAnchor">(mService, start, mFrom.x, mFrom.y, mPicked.depth,
                                                            to.x - mFrom.x, to.y - mFrom.y));
    }
}

void Navigator::endDrag(Pixel to) {
    if (mDrag == Drag::area) {
        // What is in the middle of the rectangle goes to the middle of the window, whatever its corners lie on.
        const double depth = pick({(mFrom.x + to.x) / 2, (mFrom.y + to.y) / 2}).depth;
        mCamera = zoomIntoArea(mService, mCamera, mFrom, to, depth);
    }
    keep(mCamera);
}

void Navigator::zoom(Pixel at, double turns) {
    const State zoomed = zoomAbout(mService, mCamera, at, pick(at).depth, std::pow(0.9, turns));
    mCurrent = mZoomedAt == at && !mDrag ? mBeforeZoom : mCurrent;
    mBeforeZoom = mCurrent;
    keep(zoomed);
    mZoomedAt = at;
}

void Navigator::fit() {
    const auto& [a, b] = mModel;
    keep(call<"planarCameraFitWorldSpaceBoundingBox">(mService, mCamera, a[0], a[1], a[2], b[0], b[1], b[2]));
}

void Navigator::look(const Vec3& axis, const Vec3& up) {
    keep(call<"planarCameraSetViewAlongWorldAxis">(mService, mCamera, mCentre, toVector(axis), toVector(up)));
}

void Navigator::switchProjection() {
    const auto& [a, b] = mModel;
    keep(call<"planarCameraSwitchProjectionType">(mService, mCamera, a[0], a[1], a[2], b[0], b[1], b[2]));
}

void Navigator::resize(std::int32_t width, std::int32_t height) {
    keepDrag();
    mWidth = width;
    mHeight = height;
    goTo(mCurrent);
}

/// A drag under way is what is undone then, and nothing before it.
void Navigator::undo() {
    const std::size_t before = mDrag ? mCurrent : mCurrent - 1;
    keepDrag();
    goTo(before);
}

/// What is seen at a pixel. Where nothing is: the model's centre and its depth, so that the space around a model moves
/// along with it; and where that is behind the eye, a depth between the clipping planes.
Navigator::Picked Navigator::pick(Pixel at) const {
    if (const double depth = mDepthAt(mCamera, at); depth < 1.0) {
        return {depth, call<"transformScreenPointToWorldPoint">(mService, mCamera, at.x, at.y, depth)};
    }
    const double depth = call<"transformWorldPointToScreenPoint">(mService, mCamera, mCentre).mData[2];
    return {depth > 0.0 && depth < 1.0 ? depth : 0.5, mCentre};
}

/// The state with its clipping planes close around the model, for depths as precise as they can be; to an eye inside it
/// the near plane keeps a distance, for the same reason.
Navigator::State Navigator::clipped(const State& state) const {
    return call<"planarCameraUpdateClippingPlanes">(mService, state, mCentre, mModel.radius(), mModel.radius() * 0.01);
}

Navigator::State Navigator::sized(const State& state) const {
    return call<"planarCameraUpdateWindowSize">(mService, state, mWidth, mHeight);
}

/// Makes the state the camera, and the newest of the history in place of what was undone.
void Navigator::keep(const State& state) {
    mCamera = clipped(state);
    mDrag.reset();
    mZoomedAt.reset();
    if (!(mCamera == mHistory[mCurrent])) {
        mHistory.resize(++mCurrent);
        mHistory.push_back(mCamera);
    }
}

/// Makes a state of the history the camera. The window may have another size than when it was seen.
void Navigator::goTo(std::size_t index) {
    if (index < mHistory.size()) {
        mHistory[index] = sized(mHistory[index]);
        mCamera = mHistory[index];
        mCurrent = index;
        mDrag.reset();
        mZoomedAt.reset();
    }
}

} // namespace qel::host
