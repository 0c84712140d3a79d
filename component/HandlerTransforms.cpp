// SPDX-License-Identifier: Apache-2.0
#include "component/CameraLibraryHandler.h"

#include <cstdint>

#include "component/Facade.h"
#include "component/ReadArguments.h"
#include "impl/SpaceTransforms.h"

namespace qel::api::camera {

using namespace component;
using impl::PlanarCamera;

void CameraLibraryHandler::transformScreenPointToViewPoint(VectorResult& _return, const PlanarCameraState& state,
                                                           const std::int32_t x, const std::int32_t y,
                                                           const double depth) {
    answer(_return, Failure::ofCall(__func__), [&] { return screenToView(toObject(state), {x, y, depth}); });
}

void CameraLibraryHandler::transformScreenPointToWorldPoint(VectorResult& _return, const PlanarCameraState& state,
                                                            const std::int32_t x, const std::int32_t y,
                                                            const double depth) {
    answer(_return, Failure::ofCall(__func__), [&] {
        const PlanarCamera camera = toObject(state);
        return viewPointToWorld(camera, screenToView(camera, {x, y, depth}));
    });
}

void CameraLibraryHandler::transformViewPointToScreenPoint(VectorResult& _return, const PlanarCameraState& state,
                                                           const Vector& point) {
    answer(_return, Failure::ofCall(__func__), [&] { return viewToScreen(toObject(state), toVec3(point, "point")); });
}

void CameraLibraryHandler::transformWorldPointToScreenPoint(VectorResult& _return, const PlanarCameraState& state,
                                                            const Vector& point) {
    answer(_return, Failure::ofCall(__func__), [&] { return worldToScreen(toObject(state), toVec3(point, "point")); });
}

void CameraLibraryHandler::transformWorldPointToViewPoint(VectorResult& _return, const PlanarCameraState& state,
                                                          const Vector& point) {
    answer(_return, Failure::ofCall(__func__),
           [&] { return toObject(state).view().worldToViewPoint(toVec3(point, "point")); });
}

void CameraLibraryHandler::transformWorldVectorToViewVector(VectorResult& _return, const PlanarCameraState& state,
                                                            const Vector& vector) {
    answer(_return, Failure::ofCall(__func__),
           [&] { return toObject(state).view().worldToViewVector(toVec3(vector, "vector")); });
}

void CameraLibraryHandler::transformViewPointToWorldPoint(VectorResult& _return, const PlanarCameraState& state,
                                                          const Vector& point) {
    answer(_return, Failure::ofCall(__func__),
           [&] { return viewPointToWorld(toObject(state), toVec3(point, "point")); });
}

void CameraLibraryHandler::transformViewVectorToWorldVector(VectorResult& _return, const PlanarCameraState& state,
                                                            const Vector& vector) {
    answer(_return, Failure::ofCall(__func__),
           [&] { return viewVectorToWorld(toObject(state), toVec3(vector, "vector")); });
}

void CameraLibraryHandler::transformScreenVectorToViewVector(VectorResult& _return, const PlanarCameraState& state,
                                                             const std::int32_t x1, const std::int32_t y1,
                                                             const double depth1, const std::int32_t x2,
                                                             const std::int32_t y2, const double depth2) {
    answer(_return, Failure::ofCall(__func__), [&] {
        return screenVectorToView(toObject(state), {x1, y1, depth1}, {x2, y2, depth2});
    });
}

void CameraLibraryHandler::transformScreenVectorToWorldVector(VectorResult& _return, const PlanarCameraState& state,
                                                              const std::int32_t x1, const std::int32_t y1,
                                                              const double depth1, const std::int32_t x2,
                                                              const std::int32_t y2, const double depth2) {
    answer(_return, Failure::ofCall(__func__), [&] {
        const PlanarCamera camera = toObject(state);
        return viewVectorToWorld(camera, screenVectorToView(camera, {x1, y1, depth1}, {x2, y2, depth2}));
    });
}

} // namespace qel::api::camera
