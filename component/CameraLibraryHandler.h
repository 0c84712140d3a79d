// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include <qel/api/base/Records.h>
#include <qel/api/camera/CameraAPIIf.h>
#include <qel/api/camera/Results.h>
#include <qel/api/camera/States.h>
#include <qel/api/camera/Values.h>

namespace qel::api::camera {

/// The camera service. Holds nothing that an operation reads, so any number of threads may use one handler.
class CameraLibraryHandler final : public CameraAPIIf {
public:
    CameraLibraryHandler() noexcept = default;

    void getComponentVersion(base::StringResult& _return) override;
    void getComponentVariant(base::StringResult& _return) override;
    void getComponentName(base::StringResult& _return) override;

    void viewCreateDefault(ViewStateResult& _return) override;
    void viewCreate(ViewStateResult& _return, const Vector& eye, const Vector& lookat, const Vector& up) override;
    void viewSetEye(ViewStateResult& _return, const ViewState& state, const Vector& eye) override;
    void viewSetViewAlongWorldAxis(ViewStateResult& _return, const ViewState& state, const Vector& target,
                                   const Vector& axis, const Vector& up) override;
    void viewSetOrientation(ViewStateResult& _return, const ViewState& state, const Quaternion& orientation) override;
    void viewUpdateLookat(ViewStateResult& _return, const ViewState& state, const Vector& eye, const Vector& lookat,
                          const Vector& up) override;
    void viewSetViewMatrix(ViewStateResult& _return, const ViewState& state, const Matrix& matrix) override;
    void viewSetViewTransformMatrix(ViewStateResult& _return, const ViewState& state, const Matrix& matrix) override;
    void viewYaw(ViewStateResult& _return, const ViewState& state, double angle) override;
    void viewPitch(ViewStateResult& _return, const ViewState& state, double angle) override;
    void viewRoll(ViewStateResult& _return, const ViewState& state, double angle) override;
    void viewYawPitchRoll(ViewStateResult& _return, const ViewState& state, double yaw, double pitch,
                          double roll) override;
    void viewTranslateInViewSpace(ViewStateResult& _return, const ViewState& state, const Vector& offset) override;
    void viewTranslateInWorldSpace(ViewStateResult& _return, const ViewState& state, const Vector& offset) override;
    void viewRotateAboutWorldAxis(ViewStateResult& _return, const ViewState& state, const Vector& pivot,
                                  const Vector& axis, double angle, double tilt) override;
    void viewRotateAboutViewAxes(ViewStateResult& _return, const ViewState& state, const Vector& pivot, double angle,
                                 double tilt) override;
    void viewTransformWorldVectorToViewVector(VectorResult& _return, const ViewState& state,
                                              const Vector& vector) override;
    void viewTransformViewVectorToWorldVector(VectorResult& _return, const ViewState& state,
                                              const Vector& vector) override;
    void viewTransformWorldPointToViewPoint(VectorResult& _return, const ViewState& state,
                                            const Vector& point) override;
    void viewTransformViewPointToWorldPoint(VectorResult& _return, const ViewState& state,
                                            const Vector& point) override;
    void projectionCreateDefault(ProjectionStateResult& _return) override;
    void projectionCreate(ProjectionStateResult& _return, const Frustum& frustum,
                          ProjectionType::type projectionType) override;
    void projectionSetFrustum(ProjectionStateResult& _return, const ProjectionState& state, const Frustum& frustum,
                              ProjectionType::type projectionType) override;
    void projectionSetHFoV(ProjectionStateResult& _return, const ProjectionState& state, double horizontalFoV) override;
    void projectionGetHFoV(DoubleResult& _return, const ProjectionState& state) override;
    void projectionSetVFoV(ProjectionStateResult& _return, const ProjectionState& state, double verticalFoV) override;
    void projectionGetVFoV(DoubleResult& _return, const ProjectionState& state) override;
    void projectionSetFoV(ProjectionStateResult& _return, const ProjectionState& state, double horizontalFoV,
                          double verticalFoV) override;
    void projectionSetAspectRatio(ProjectionStateResult& _return, const ProjectionState& state,
                                  double aspectRatio) override;
    void projectionGetAspectRatio(DoubleResult& _return, const ProjectionState& state) override;
    void projectionSetNear(ProjectionStateResult& _return, const ProjectionState& state, double nearDist) override;
    void projectionSetFar(ProjectionStateResult& _return, const ProjectionState& state, double farDist) override;
    void projectionUpdatePerspective(ProjectionStateResult& _return, const ProjectionState& state, double verticalFoV,
                                     double aspectRatio, double nearDist, double farDist) override;
    void projectionUpdateOrthographic(ProjectionStateResult& _return, const ProjectionState& state, double width,
                                      double height, double nearDist, double farDist) override;
    void projectionSetProjectionMatrix(ProjectionStateResult& _return, const ProjectionState& state,
                                       const Matrix& matrix, ProjectionType::type projectionType) override;
    void projectionZoom(ProjectionStateResult& _return, const ProjectionState& state, double factor) override;
    void surfaceCreateDefault(SurfaceStateResult& _return) override;
    void surfaceCreate(SurfaceStateResult& _return, double x, double y, double width, double height, double depthMin,
                       double depthMax, std::int32_t resolutionX, std::int32_t resolutionY) override;
    void surfaceSetViewport(SurfaceStateResult& _return, const SurfaceState& state, const Viewport& viewport) override;
    void surfaceSetResolutionX(SurfaceStateResult& _return, const SurfaceState& state,
                               std::int32_t resolutionX) override;
    void surfaceSetResolutionY(SurfaceStateResult& _return, const SurfaceState& state,
                               std::int32_t resolutionY) override;
    void surfaceUpdate(SurfaceStateResult& _return, const SurfaceState& state, double x, double y, double width,
                       double height, double depthMin, double depthMax, std::int32_t resolutionX,
                       std::int32_t resolutionY) override;
    void planarCameraCreateDefault(PlanarCameraStateResult& _return) override;
    void planarCameraCreate(PlanarCameraStateResult& _return, const ViewState& view, const ProjectionState& projection,
                            const SurfaceState& surface) override;
    void planarCameraSetView(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                             const ViewState& view) override;
    void planarCameraSetProjection(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                   const ProjectionState& projection) override;
    void planarCameraSetSurface(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                const SurfaceState& surface) override;
    void planarCameraUpdateWindowSize(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                      std::int32_t width, std::int32_t height) override;
    void planarCameraUpdateClippingPlanes(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                          const Vector& centre, double radius, double minimumNearDist) override;
    void planarCameraFitWorldSpaceBoundingBox(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                              double x1, double y1, double z1, double x2, double y2,
                                              double z2) override;
    void planarCameraFitViewSpaceBoundingBox(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                             double xMin, double yMin, double zMin, double xMax, double yMax,
                                             double zMax) override;
    void planarCameraSwitchProjectionType(PlanarCameraStateResult& _return, const PlanarCameraState& state, double x1,
                                          double y1, double z1, double x2, double y2, double z2) override;
    void planarCameraSetViewAlongWorldAxis(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                           const Vector& target, const Vector& axis, const Vector& up) override;
    void planarCameraRotateAboutViewAxes(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                         const Vector& pivot, double angle, double tilt) override;
    void planarCameraRotateAboutWorldAxis(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                          const Vector& pivot, const Vector& axis, double angle, double tilt) override;
    void planarCameraTranslateInWorldSpace(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                           const Vector& offset) override;
    void planarCameraTranslateInViewSpace(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                          const Vector& offset) override;
    void planarCameraYaw(PlanarCameraStateResult& _return, const PlanarCameraState& state, double angle) override;
    void planarCameraPitch(PlanarCameraStateResult& _return, const PlanarCameraState& state, double angle) override;
    void planarCameraRoll(PlanarCameraStateResult& _return, const PlanarCameraState& state, double angle) override;
    void planarCameraYawPitchRoll(PlanarCameraStateResult& _return, const PlanarCameraState& state, double yaw,
                                  double pitch, double roll) override;
    void planarCameraZoomArea(PlanarCameraStateResult& _return, const PlanarCameraState& state, std::int32_t x1,
                              std::int32_t y1, double depth1, std::int32_t x2, std::int32_t y2, double depth2) override;
    void planarCameraZoomWithAnchor_Screen(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                           std::int32_t x, std::int32_t y, double depth, double factor) override;
    void planarCameraZoomWithAnchor_World(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                          const Vector& anchor, double factor) override;
    void planarCameraPanWithAnchor(PlanarCameraStateResult& _return, const PlanarCameraState& state, std::int32_t x,
                                   std::int32_t y, double depth, std::int32_t dx, std::int32_t dy) override;
    void planarCameraArcballRotation(PlanarCameraStateResult& _return, const PlanarCameraState& state,
                                     const Vector& pivot, std::int32_t x1, std::int32_t y1, std::int32_t x2,
                                     std::int32_t y2) override;
    void utilsMakePerspectiveMatrix(MatrixResult& _return, const Frustum& frustum) override;
    void utilsMakeOrthographicMatrix(MatrixResult& _return, const Frustum& frustum) override;
    void utilsConvertMatrixFromRowMajorToColumnMajor(MatrixResult& _return, const Matrix& matrix) override;
    void transformScreenPointToViewPoint(VectorResult& _return, const PlanarCameraState& state, std::int32_t x,
                                         std::int32_t y, double depth) override;
    void transformScreenPointToWorldPoint(VectorResult& _return, const PlanarCameraState& state, std::int32_t x,
                                          std::int32_t y, double depth) override;
    void transformViewPointToScreenPoint(VectorResult& _return, const PlanarCameraState& state,
                                         const Vector& point) override;
    void transformWorldPointToScreenPoint(VectorResult& _return, const PlanarCameraState& state,
                                          const Vector& point) override;
    void transformWorldPointToViewPoint(VectorResult& _return, const PlanarCameraState& state,
                                        const Vector& point) override;
    void transformWorldVectorToViewVector(VectorResult& _return, const PlanarCameraState& state,
                                          const Vector& vector) override;
    void transformViewPointToWorldPoint(VectorResult& _return, const PlanarCameraState& state,
                                        const Vector& point) override;
    void transformViewVectorToWorldVector(VectorResult& _return, const PlanarCameraState& state,
                                          const Vector& vector) override;
    void transformScreenVectorToViewVector(VectorResult& _return, const PlanarCameraState& state, std::int32_t x1,
                                           std::int32_t y1, double depth1, std::int32_t x2, std::int32_t y2,
                                           double depth2) override;
    void transformScreenVectorToWorldVector(VectorResult& _return, const PlanarCameraState& state, std::int32_t x1,
                                            std::int32_t y1, double depth1, std::int32_t x2, std::int32_t y2,
                                            double depth2) override;

private:
    // Part of the object's layout; no operation reads them and they own nothing.
    [[maybe_unused]] void* mFirst = nullptr;
    [[maybe_unused]] void* mSecond = nullptr;
};

} // namespace qel::api::camera
