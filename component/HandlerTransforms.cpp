// SPDX-License-Identifier: Apache-2.0
#include "component/CameraLibraryHandler.h"

#include <cstddef>
#include <cstdint>

#include "component/Facade.h"
#include "component/ReadArguments.h"
#include "component/ReadImage.h"
#include "impl/SpaceTransforms.h"

namespace qel::api::camera {

namespace {

// Of the camera a transform reads the few matrices that it needs.

bool isOrthographic(const char* projectionImage) noexcept {
    return readNumber<std::int32_t>(projectionImage + offsetof(ProjectionImage, type)) == 1;
}

impl::ScreenToView screenToView(const PlanarCameraState& state) {
    const char* surface = surfaceImageOf(state);
    const char* projection = projectionImageOf(state);
    return {readMatrix<4>(surface + offsetof(SurfaceImage, inverse)),
            readMatrix<4>(projection + offsetof(ProjectionImage, matrix)),
            readMatrix<4>(projection + offsetof(ProjectionImage, inverse)), isOrthographic(projection)};
}

impl::ViewToScreen viewToScreen(const PlanarCameraState& state) {
    const char* projection = projectionImageOf(state);
    return {readMatrix<4>(projection + offsetof(ProjectionImage, matrix)),
            readMatrix<4>(surfaceImageOf(state) + offsetof(SurfaceImage, matrix)), isOrthographic(projection)};
}

math::Mat4 viewMatrixOf(const PlanarCameraState& state) {
    return readMatrix<4>(viewImageOf(state) + offsetof(ViewImage, viewMatrix));
}

math::Mat3 rotationOf(const PlanarCameraState& state) {
    return readMatrix<3>(viewImageOf(state) + offsetof(ViewImage, rotation));
}

math::Vec3 eyeOf(const PlanarCameraState& state) { return readVec3(viewImageOf(state) + offsetof(ViewImage, eye)); }

} // namespace

void CameraLibraryHandler::transformScreenPointToViewPoint(VectorResult& _return, const PlanarCameraState& state,
                                                           const std::int32_t x, const std::int32_t y,
                                                           const double depth) {
    answer(_return, Failure::ofCall(__func__), [&] { return transform(screenToView(state), {x, y, depth}); });
}

void CameraLibraryHandler::transformScreenPointToWorldPoint(VectorResult& _return, const PlanarCameraState& state,
                                                            const std::int32_t x, const std::int32_t y,
                                                            const double depth) {
    answer(_return, Failure::ofCall(__func__), [&] {
        return impl::viewPointToWorld(rotationOf(state), eyeOf(state), transform(screenToView(state), {x, y, depth}));
    });
}

void CameraLibraryHandler::transformViewPointToScreenPoint(VectorResult& _return, const PlanarCameraState& state,
                                                           const Vector& point) {
    answer(_return, Failure::ofCall(__func__), [&] { return transform(viewToScreen(state), toVec3(point, "point")); });
}

void CameraLibraryHandler::transformWorldPointToScreenPoint(VectorResult& _return, const PlanarCameraState& state,
                                                            const Vector& point) {
    answer(_return, Failure::ofCall(__func__), [&] {
        return transform(viewToScreen(state), transformPlacementPoint(viewMatrixOf(state), toVec3(point, "point")));
    });
}

void CameraLibraryHandler::transformWorldPointToViewPoint(VectorResult& _return, const PlanarCameraState& state,
                                                          const Vector& point) {
    answer(_return, Failure::ofCall(__func__),
           [&] { return transformPlacementPoint(viewMatrixOf(state), toVec3(point, "point")); });
}

void CameraLibraryHandler::transformWorldVectorToViewVector(VectorResult& _return, const PlanarCameraState& state,
                                                            const Vector& vector) {
    answer(_return, Failure::ofCall(__func__),
           [&] { return transformVector(viewMatrixOf(state), toVec3(vector, "vector")); });
}

void CameraLibraryHandler::transformViewPointToWorldPoint(VectorResult& _return, const PlanarCameraState& state,
                                                          const Vector& point) {
    answer(_return, Failure::ofCall(__func__),
           [&] { return impl::viewPointToWorld(rotationOf(state), eyeOf(state), toVec3(point, "point")); });
}

void CameraLibraryHandler::transformViewVectorToWorldVector(VectorResult& _return, const PlanarCameraState& state,
                                                            const Vector& vector) {
    answer(_return, Failure::ofCall(__func__), [&] { return rotationOf(state) * toVec3(vector, "vector"); });
}

void CameraLibraryHandler::transformScreenVectorToViewVector(VectorResult& _return, const PlanarCameraState& state,
                                                             const std::int32_t x1, const std::int32_t y1,
                                                             const double depth1, const std::int32_t x2,
                                                             const std::int32_t y2, const double depth2) {
    answer(_return, Failure::ofCall(__func__), [&] {
        return transformVector(screenToView(state), {x1, y1, depth1}, {x2, y2, depth2});
    });
}

void CameraLibraryHandler::transformScreenVectorToWorldVector(VectorResult& _return, const PlanarCameraState& state,
                                                              const std::int32_t x1, const std::int32_t y1,
                                                              const double depth1, const std::int32_t x2,
                                                              const std::int32_t y2, const double depth2) {
    answer(_return, Failure::ofCall(__func__), [&] {
        return rotationOf(state) * transformVector(screenToView(state), {x1, y1, depth1}, {x2, y2, depth2});
    });
}

} // namespace qel::api::camera
