// SPDX-License-Identifier: Apache-2.0
#include "component/CameraLibraryHandler.h"

#include "component/Facade.h"
#include "component/ReadArguments.h"
#include "impl/Projection.h"

namespace qel::api::camera {

using namespace component;

using impl::Projection;

namespace {

/// The three getters reset the outcome on success, unlike the other operations, and leave the message's set-flag alone.
template <class Get>
void get(DoubleResult& _return, const Failure failure, const ProjectionState& state, const Get& get) noexcept {
    attempt(_return, failure, [&] {
        _return.mValue = get(toObject(state));
        _return.mResult.mError = CameraAPIError::CAMERA_API_SUCCESS;
        _return.mResult.mMessage.clear();
    });
}

} // namespace

void CameraLibraryHandler::projectionCreateDefault(ProjectionStateResult& _return) {
    answer(_return, Failure::withText("Unable to create Projection object."), [&] { return Projection(); });
}

void CameraLibraryHandler::projectionCreate(ProjectionStateResult& _return, const Frustum& frustum,
                                            const ProjectionType::type projectionType) {
    answer(_return, Failure::withText("Unable to create Projection object."), [&] {
        Projection projection;
        projection.setFrustum(toFrustum(frustum), isOrthographic(projectionType));
        return projection;
    });
}

void CameraLibraryHandler::projectionSetFrustum(ProjectionStateResult& _return, const ProjectionState& state,
                                                const Frustum& frustum, const ProjectionType::type projectionType) {
    change(_return, Failure::ofCall(__func__), state,
           [&](Projection& projection) { projection.setFrustum(toFrustum(frustum), isOrthographic(projectionType)); });
}

void CameraLibraryHandler::projectionSetHFoV(ProjectionStateResult& _return, const ProjectionState& state,
                                             const double horizontalFoV) {
    change(_return, Failure::ofCall(__func__), state,
           [&](Projection& projection) { projection.setHorizontalFoV(horizontalFoV); });
}

void CameraLibraryHandler::projectionGetHFoV(DoubleResult& _return, const ProjectionState& state) {
    get(_return, Failure::ofCall(__func__), state,
        [](const Projection& projection) { return projection.horizontalFoV(); });
}

void CameraLibraryHandler::projectionSetVFoV(ProjectionStateResult& _return, const ProjectionState& state,
                                             const double verticalFoV) {
    change(_return, Failure::ofCall(__func__), state,
           [&](Projection& projection) { projection.setVerticalFoV(verticalFoV); });
}

void CameraLibraryHandler::projectionGetVFoV(DoubleResult& _return, const ProjectionState& state) {
    get(_return, Failure::ofCall(__func__), state,
        [](const Projection& projection) { return projection.verticalFoV(); });
}

void CameraLibraryHandler::projectionSetFoV(ProjectionStateResult& _return, const ProjectionState& state,
                                            const double horizontalFoV, const double verticalFoV) {
    change(_return, Failure::ofCall(__func__), state,
           [&](Projection& projection) { projection.setFoV(horizontalFoV, verticalFoV); });
}

void CameraLibraryHandler::projectionSetAspectRatio(ProjectionStateResult& _return, const ProjectionState& state,
                                                    const double aspectRatio) {
    change(_return, Failure::ofCall(__func__), state,
           [&](Projection& projection) { projection.setAspectRatio(aspectRatio); });
}

void CameraLibraryHandler::projectionGetAspectRatio(DoubleResult& _return, const ProjectionState& state) {
    get(_return, Failure::ofCall(__func__), state,
        [](const Projection& projection) { return projection.aspectRatio(); });
}

void CameraLibraryHandler::projectionSetNear(ProjectionStateResult& _return, const ProjectionState& state,
                                             const double nearDist) {
    change(_return, Failure::ofCall(__func__), state, [&](Projection& projection) { projection.setNear(nearDist); });
}

void CameraLibraryHandler::projectionSetFar(ProjectionStateResult& _return, const ProjectionState& state,
                                            const double farDist) {
    change(_return, Failure::ofCall(__func__), state, [&](Projection& projection) { projection.setFar(farDist); });
}

void CameraLibraryHandler::projectionUpdatePerspective(ProjectionStateResult& _return, const ProjectionState& state,
                                                       const double verticalFoV, const double aspectRatio,
                                                       const double nearDist, const double farDist) {
    change(_return, Failure::ofCall(__func__), state,
           [&](Projection& projection) { projection.setPerspective(verticalFoV, aspectRatio, nearDist, farDist); });
}

void CameraLibraryHandler::projectionUpdateOrthographic(ProjectionStateResult& _return, const ProjectionState& state,
                                                        const double width, const double height, const double nearDist,
                                                        const double farDist) {
    change(_return, Failure::ofCall(__func__), state,
           [&](Projection& projection) { projection.setOrthographic(width, height, nearDist, farDist); });
}

void CameraLibraryHandler::projectionSetProjectionMatrix(ProjectionStateResult& _return, const ProjectionState& state,
                                                         const Matrix& matrix,
                                                         const ProjectionType::type projectionType) {
    change(_return, Failure::ofCall(__func__), state, [&](Projection& projection) {
        projection.setProjectionMatrix(toMat4(matrix, "matrix"), isOrthographic(projectionType));
    });
}

void CameraLibraryHandler::projectionZoom(ProjectionStateResult& _return, const ProjectionState& state,
                                          const double factor) {
    change(_return, Failure::ofCall(__func__), state, [&](Projection& projection) { projection.zoom(factor); });
}

} // namespace qel::api::camera
