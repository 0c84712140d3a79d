// SPDX-License-Identifier: Apache-2.0
#include "component/CameraLibraryHandler.h"

#include "component/Facade.h"
#include "component/ReadArguments.h"
#include "impl/PlanarCamera.h"

namespace qel::api::camera {

using namespace component;

using impl::PlanarCamera;
using impl::ScreenPoint;

void CameraLibraryHandler::planarCameraRotateAboutViewAxes(PlanarCameraStateResult& _return,
                                                           const PlanarCameraState& state, const Vector& pivot,
                                                           const double angle, const double tilt) {
    change(_return, Failure::ofCall(__func__), state,
           [&](PlanarCamera& camera) { camera.view().rotateAboutViewAxes(toVec3(pivot, "pivot"), angle, tilt); });
}

void CameraLibraryHandler::planarCameraRotateAboutWorldAxis(PlanarCameraStateResult& _return,
                                                            const PlanarCameraState& state, const Vector& pivot,
                                                            const Vector& axis, const double angle, const double tilt) {
    change(_return, Failure::ofCall(__func__), state, [&](PlanarCamera& camera) {
        camera.view().rotateAboutWorldAxis(toVec3(pivot, "pivot"), toVec3(axis, "axis"), angle, tilt);
    });
}

void CameraLibraryHandler::planarCameraTranslateInWorldSpace(PlanarCameraStateResult& _return,
                                                             const PlanarCameraState& state, const Vector& offset) {
    change(_return, Failure::ofCall(__func__), state,
           [&](PlanarCamera& camera) { camera.view().translateInWorldSpace(toVec3(offset, "offset")); });
}

void CameraLibraryHandler::planarCameraTranslateInViewSpace(PlanarCameraStateResult& _return,
                                                            const PlanarCameraState& state, const Vector& offset) {
    change(_return, Failure::ofCall(__func__), state,
           [&](PlanarCamera& camera) { camera.view().translateInViewSpace(toVec3(offset, "offset")); });
}

void CameraLibraryHandler::planarCameraYaw(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                           const double angle) {
    change(_return, Failure::ofCall(__func__), state, [&](PlanarCamera& camera) { camera.view().yaw(angle); });
}

void CameraLibraryHandler::planarCameraPitch(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                             const double angle) {
    change(_return, Failure::ofCall(__func__), state, [&](PlanarCamera& camera) { camera.view().pitch(angle); });
}

void CameraLibraryHandler::planarCameraRoll(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                            const double angle) {
    change(_return, Failure::ofCall(__func__), state, [&](PlanarCamera& camera) { camera.view().roll(angle); });
}

void CameraLibraryHandler::planarCameraYawPitchRoll(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                                    const double yaw, const double pitch, const double roll) {
    change(_return, Failure::ofCall(__func__), state,
           [&](PlanarCamera& camera) { camera.view().yawPitchRoll(yaw, pitch, roll); });
}

void CameraLibraryHandler::planarCameraZoomArea(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                                const std::int32_t x1, const std::int32_t y1, const double depth1,
                                                const std::int32_t x2, const std::int32_t y2, const double depth2) {
    change(_return, Failure::ofCall(__func__), state, [&](PlanarCamera& camera) {
        camera.zoomArea({x1, y1, depth1}, {x2, y2, depth2});
    });
}

void CameraLibraryHandler::planarCameraZoomWithAnchor_Screen(PlanarCameraStateResult& _return,
                                                             const PlanarCameraState& state, const std::int32_t x,
                                                             const std::int32_t y, const double depth,
                                                             const double factor) {
    change(_return, Failure::ofCall(__func__), state, [&](PlanarCamera& camera) {
        camera.zoomWithAnchor(ScreenPoint{x, y, depth}, factor);
    });
}

void CameraLibraryHandler::planarCameraZoomWithAnchor_World(PlanarCameraStateResult& _return,
                                                            const PlanarCameraState& state, const Vector& anchor,
                                                            const double factor) {
    change(_return, Failure::ofCall(__func__), state,
           [&](PlanarCamera& camera) { camera.zoomWithAnchor(toVec3(anchor, "anchor"), factor); });
}

void CameraLibraryHandler::planarCameraPanWithAnchor(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                                     const std::int32_t x, const std::int32_t y, const double depth,
                                                     const std::int32_t dx, const std::int32_t dy) {
    change(_return, Failure::ofCall(__func__), state, [&](PlanarCamera& camera) {
        camera.panWithAnchor({x, y, depth}, dx, dy);
    });
}

void CameraLibraryHandler::planarCameraArcballRotation(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                                       const Vector& pivot, const std::int32_t x1,
                                                       const std::int32_t y1, const std::int32_t x2,
                                                       const std::int32_t y2) {
    change(_return, Failure::ofCall(__func__), state, [&](PlanarCamera& camera) {
        camera.arcballRotation(toVec3(pivot, "pivot"), {toPixels(x1), toPixels(y1)}, {toPixels(x2), toPixels(y2)});
    });
}

} // namespace qel::api::camera
