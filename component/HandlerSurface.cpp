// SPDX-License-Identifier: Apache-2.0
#include "component/CameraLibraryHandler.h"

#include "component/Facade.h"
#include "component/ReadArguments.h"
#include "impl/Surface.h"

namespace qel::api::camera {

using namespace component;

using impl::Surface;

void CameraLibraryHandler::surfaceCreateDefault(SurfaceStateResult& _return) {
    answer(_return, Failure::withText("Unable to create Surface object."), [&] { return Surface(); });
}

void CameraLibraryHandler::surfaceCreate(SurfaceStateResult& _return, const double x, const double y,
                                         const double width, const double height, const double depthMin,
                                         const double depthMax, const std::int32_t resolutionX,
                                         const std::int32_t resolutionY) {
    answer(_return, Failure::withText("Unable to create Surface object."), [&] {
        Surface surface;
        surface.update({x, y, width, height, depthMin, depthMax}, toPixels(resolutionX), toPixels(resolutionY));
        return surface;
    });
}

void CameraLibraryHandler::surfaceSetViewport(SurfaceStateResult& _return, const SurfaceState& state,
                                              const Viewport& viewport) {
    change(_return, Failure::ofCall(__func__), state,
           [&](Surface& surface) { surface.setViewport(toViewport(viewport)); });
}

void CameraLibraryHandler::surfaceSetResolutionX(SurfaceStateResult& _return, const SurfaceState& state,
                                                 const std::int32_t resolutionX) {
    change(_return, Failure::ofCall(__func__), state,
           [&](Surface& surface) { surface.setResolutionX(toPixels(resolutionX)); });
}

void CameraLibraryHandler::surfaceSetResolutionY(SurfaceStateResult& _return, const SurfaceState& state,
                                                 const std::int32_t resolutionY) {
    change(_return, Failure::ofCall(__func__), state,
           [&](Surface& surface) { surface.setResolutionY(toPixels(resolutionY)); });
}

void CameraLibraryHandler::surfaceUpdate(SurfaceStateResult& _return, const SurfaceState& state, const double x,
                                         const double y, const double width, const double height, const double depthMin,
                                         const double depthMax, const std::int32_t resolutionX,
                                         const std::int32_t resolutionY) {
    change(_return, Failure::ofCall(__func__), state, [&](Surface& surface) {
        surface.update({x, y, width, height, depthMin, depthMax}, toPixels(resolutionX), toPixels(resolutionY));
    });
}

} // namespace qel::api::camera
