// SPDX-License-Identifier: Apache-2.0
#include "component/CameraLibraryHandler.h"

#include "component/Facade.h"
#include "component/ReadArguments.h"
#include "impl/PlanarCamera.h"

namespace qel::api::camera {

using namespace component;

using impl::PlanarCamera;

void CameraLibraryHandler::planarCameraCreateDefault(PlanarCameraStateResult& _return) {
    answer(_return, Failure::withText("Unable to create default PlanarCamera object."), [&] { return PlanarCamera(); });
}

void CameraLibraryHandler::planarCameraCreate(PlanarCameraStateResult& _return, const ViewState& view,
                                              const ProjectionState& projection, const SurfaceState& surface) {
    answer(_return, Failure::withText("Unable to create PlanarCamera object from arguments."),
           [&] { return PlanarCamera(blobOf(view), blobOf(projection), blobOf(surface)); });
}

void CameraLibraryHandler::planarCameraSetView(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                               const ViewState& view) {
    change(_return, Failure::ofCall(__func__), state, [&](PlanarCamera& camera) { camera.setView(blobOf(view)); });
}

void CameraLibraryHandler::planarCameraSetProjection(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                                     const ProjectionState& projection) {
    change(_return, Failure::ofCall(__func__), state,
           [&](PlanarCamera& camera) { camera.setProjection(blobOf(projection)); });
}

void CameraLibraryHandler::planarCameraSetSurface(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                                  const SurfaceState& surface) {
    change(_return, Failure::ofCall(__func__), state,
           [&](PlanarCamera& camera) { camera.setSurface(blobOf(surface)); });
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
    change(_return, Failure::ofCall(__func__), state, [&](PlanarCamera& camera) {
        camera.updateClippingPlanes(toVec3(centre, "centre"), radius, minimumNearDist);
    });
}

void CameraLibraryHandler::planarCameraFitWorldSpaceBoundingBox(PlanarCameraStateResult& _return,
                                                                const PlanarCameraState& state, const double x1,
                                                                const double y1, const double z1, const double x2,
                                                                const double y2, const double z2) {
    change(_return, Failure::ofCall(__func__), state, [&](PlanarCamera& camera) {
        camera.fitWorldSpaceBoundingBox({{x1, y1, z1}, {x2, y2, z2}});
    });
}

void CameraLibraryHandler::planarCameraFitViewSpaceBoundingBox(PlanarCameraStateResult& _return,
                                                               const PlanarCameraState& state, const double xMin,
                                                               const double yMin, const double zMin, const double xMax,
                                                               const double yMax, const double zMax) {
    change(_return, Failure::ofCall(__func__), state, [&](PlanarCamera& camera) {
        camera.fitViewSpaceBoundingBox({{xMin, yMin, zMin}, {xMax, yMax, zMax}});
    });
}

void CameraLibraryHandler::planarCameraSwitchProjectionType(PlanarCameraStateResult& _return,
                                                            const PlanarCameraState& state, const double x1,
                                                            const double y1, const double z1, const double x2,
                                                            const double y2, const double z2) {
    change(_return, Failure::ofCall(__func__), state, [&](PlanarCamera& camera) {
        camera.switchProjectionType({{x1, y1, z1}, {x2, y2, z2}});
    });
}

void CameraLibraryHandler::planarCameraSetViewAlongWorldAxis(PlanarCameraStateResult& _return,
                                                             const PlanarCameraState& state, const Vector& target,
                                                             const Vector& axis, const Vector& up) {
    change(_return, Failure::ofCall(__func__), state, [&](PlanarCamera& camera) {
        camera.view().setViewAlongWorldAxis(toVec3(target, "target"), toVec3(axis, "axis"), toVec3(up, "up"));
    });
}

} // namespace qel::api::camera
