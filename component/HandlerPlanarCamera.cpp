// SPDX-License-Identifier: Apache-2.0
#include "component/CameraLibraryHandler.h"

#include "component/Facade.h"
#include "component/ReadArguments.h"
#include "impl/PlanarCamera.h"

namespace qel::api::camera {

using impl::PlanarCamera;
using impl::View;

void CameraLibraryHandler::planarCameraCreateDefault(PlanarCameraStateResult& _return) {
    answer(_return, Failure::withText("Unable to create default PlanarCamera object."), [&] { return PlanarCamera(); });
}

// These four put a camera together from images.

void CameraLibraryHandler::planarCameraCreate(PlanarCameraStateResult& _return, const ViewState& view,
                                              const ProjectionState& projection, const SurfaceState& surface) {
    answer(_return, Failure::withText("Unable to create PlanarCamera object from arguments."), [&] {
        return CameraBytes{{}, {viewImageOf(view)}, {projectionImageOf(projection)}, {surfaceImageOf(surface)}};
    });
}

void CameraLibraryHandler::planarCameraSetView(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                               const ViewState& view) {
    answer(_return, Failure::ofCall(__func__), [&] {
        CameraBytes camera = bytesOf(state);
        camera.view = {viewImageOf(view)};
        return camera;
    });
}

void CameraLibraryHandler::planarCameraSetProjection(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                                     const ProjectionState& projection) {
    answer(_return, Failure::ofCall(__func__), [&] {
        CameraBytes camera = bytesOf(state);
        camera.projection = {projectionImageOf(projection)};
        return camera;
    });
}

void CameraLibraryHandler::planarCameraSetSurface(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                                  const SurfaceState& surface) {
    answer(_return, Failure::ofCall(__func__), [&] {
        CameraBytes camera = bytesOf(state);
        camera.surface = {surfaceImageOf(surface)};
        return camera;
    });
}

void CameraLibraryHandler::planarCameraUpdateWindowSize(PlanarCameraStateResult& _return,
                                                        const PlanarCameraState& state, const std::int32_t width,
                                                        const std::int32_t height) {
    change(_return, Failure::ofCall(__func__), state,
           [&](PlanarCamera& camera) { camera.updateWindowSize(toPixels(width), toPixels(height)); });
}

void CameraLibraryHandler::planarCameraUpdateClippingPlanes(PlanarCameraStateResult& _return,
                                                            const PlanarCameraState& state, const Vector& centre,
                                                            const double radius, const double minimumNearDist) {
    changeViewAndProjection(_return, Failure::ofCall(__func__), state, [&](PlanarCamera& camera) {
        camera.updateClippingPlanes(toVec3(centre, "centre"), radius, minimumNearDist);
    });
}

void CameraLibraryHandler::planarCameraFitWorldSpaceBoundingBox(PlanarCameraStateResult& _return,
                                                                const PlanarCameraState& state, const double x1,
                                                                const double y1, const double z1, const double x2,
                                                                const double y2, const double z2) {
    changeViewAndProjection(_return, Failure::ofCall(__func__), state, [&](PlanarCamera& camera) {
        camera.fitWorldSpaceBoundingBox({{x1, y1, z1}, {x2, y2, z2}});
    });
}

void CameraLibraryHandler::planarCameraFitViewSpaceBoundingBox(PlanarCameraStateResult& _return,
                                                               const PlanarCameraState& state, const double xMin,
                                                               const double yMin, const double zMin, const double xMax,
                                                               const double yMax, const double zMax) {
    changeViewAndProjection(_return, Failure::ofCall(__func__), state, [&](PlanarCamera& camera) {
        camera.fitViewSpaceBoundingBox({{xMin, yMin, zMin}, {xMax, yMax, zMax}});
    });
}

void CameraLibraryHandler::planarCameraSwitchProjectionType(PlanarCameraStateResult& _return,
                                                            const PlanarCameraState& state, const double x1,
                                                            const double y1, const double z1, const double x2,
                                                            const double y2, const double z2) {
    changeViewAndProjection(_return, Failure::ofCall(__func__), state, [&](PlanarCamera& camera) {
        camera.switchProjectionType({{x1, y1, z1}, {x2, y2, z2}});
    });
}

void CameraLibraryHandler::planarCameraSetViewAlongWorldAxis(PlanarCameraStateResult& _return,
                                                             const PlanarCameraState& state, const Vector& target,
                                                             const Vector& axis, const Vector& up) {
    changeView(_return, Failure::ofCall(__func__), state, [&](View& view) {
        view.setViewAlongWorldAxis(toVec3(target, "target"), toVec3(axis, "axis"), toVec3(up, "up"));
    });
}

} // namespace qel::api::camera
