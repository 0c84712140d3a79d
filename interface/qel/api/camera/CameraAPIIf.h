// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include <qel/api/base/BaseAPIIf.h>
#include <qel/api/base/Records.h>
#include <qel/api/camera/Results.h>
#include <qel/api/camera/States.h>
#include <qel/api/camera/Values.h>

namespace qel::api::camera {

/// The camera service: 79 operations over value records.
///
/// The service is stateless. An operation receives complete states, and writes the new state or the computed value
/// into `_return`; nothing is kept between calls, so one instance may be called from many threads at once.
///
/// Errors. No operation throws. A failed call sets `_return.mResult` (the code and a message) and leaves the value a
/// valid record, perhaps partly written. A successful call leaves `_return.mResult` as the caller passed it, so a
/// result record that is used again keeps an older error until the host resets it; only the three projection
/// getters set it to success themselves. A call fails when a state's `mPrivate` is shorter than its image, when a
/// Vector, Quaternion or Matrix holds too few values, or when memory runs out. Degenerate numbers (zero-length
/// vectors, sizes that are not positive, negligible angles) are no errors: the object stays as it was and the call
/// succeeds.
///
/// Arguments may be parts of `_return`: everything is read before anything is written. Storage that `_return`
/// already holds is used again.
///
/// Conventions. Angles are radians. World space is right-handed; the view looks along its own negative z axis, x to
/// its right, y up. Normalised device coordinates run from -1 to 1 on all axes. Screen positions are whole pixels
/// with the origin at the corner where normalised x and y are -1, that is the lower left; a depth runs from the
/// viewport's minimum depth at the near plane to its maximum at the far plane. 32-bit resolutions and window sizes
/// are read as unsigned, so -1 is 4294967295.
class CameraAPIIf : public virtual base::BaseAPIIf {
public:
    virtual void viewCreateDefault(ViewStateResult& _return) = 0;

    virtual void viewCreate(ViewStateResult& _return, const Vector& eye, const Vector& lookat, const Vector& up) = 0;

    virtual void viewSetEye(ViewStateResult& _return, const ViewState& state, const Vector& eye) = 0;

    virtual void viewSetViewAlongWorldAxis(ViewStateResult& _return, const ViewState& state, const Vector& target, const Vector& axis, const Vector& up) = 0;

    virtual void viewSetOrientation(ViewStateResult& _return, const ViewState& state, const Quaternion& orientation) = 0;

    virtual void viewUpdateLookat(ViewStateResult& _return, const ViewState& state, const Vector& eye, const Vector& lookat, const Vector& up) = 0;

    virtual void viewSetViewMatrix(ViewStateResult& _return, const ViewState& state, const Matrix& matrix) = 0;

    virtual void viewSetViewTransformMatrix(ViewStateResult& _return, const ViewState& state, const Matrix& matrix) = 0;

    virtual void viewYaw(ViewStateResult& _return, const ViewState& state, double angle) = 0;

    virtual void viewPitch(ViewStateResult& _return, const ViewState& state, double angle) = 0;

    virtual void viewRoll(ViewStateResult& _return, const ViewState& state, double angle) = 0;

    virtual void viewYawPitchRoll(ViewStateResult& _return, const ViewState& state, double yaw, double pitch, double roll) = 0;

    virtual void viewTranslateInViewSpace(ViewStateResult& _return, const ViewState& state, const Vector& offset) = 0;

    virtual void viewTranslateInWorldSpace(ViewStateResult& _return, const ViewState& state, const Vector& offset) = 0;

    virtual void viewRotateAboutWorldAxis(ViewStateResult& _return, const ViewState& state, const Vector& pivot, const Vector& axis, double angle, double secondAngle) = 0;

    virtual void viewRotateAboutViewAxes(ViewStateResult& _return, const ViewState& state, const Vector& pivot, double angle, double secondAngle) = 0;

    virtual void viewTransformWorldVectorToViewVector(VectorResult& _return, const ViewState& state, const Vector& vector) = 0;

    virtual void viewTransformViewVectorToWorldVector(VectorResult& _return, const ViewState& state, const Vector& vector) = 0;

    virtual void viewTransformWorldPointToViewPoint(VectorResult& _return, const ViewState& state, const Vector& point) = 0;

    virtual void viewTransformViewPointToWorldPoint(VectorResult& _return, const ViewState& state, const Vector& point) = 0;

    virtual void projectionCreateDefault(ProjectionStateResult& _return) = 0;

    virtual void projectionCreate(ProjectionStateResult& _return, const Frustum& frustum, ProjectionType::type type) = 0;

    virtual void projectionSetFrustum(ProjectionStateResult& _return, const ProjectionState& state, const Frustum& frustum, ProjectionType::type type) = 0;

    virtual void projectionSetHFoV(ProjectionStateResult& _return, const ProjectionState& state, double horizontalFoV) = 0;

    virtual void projectionGetHFoV(DoubleResult& _return, const ProjectionState& state) = 0;

    virtual void projectionSetVFoV(ProjectionStateResult& _return, const ProjectionState& state, double verticalFoV) = 0;

    virtual void projectionGetVFoV(DoubleResult& _return, const ProjectionState& state) = 0;

    virtual void projectionSetFoV(ProjectionStateResult& _return, const ProjectionState& state, double horizontalFoV, double verticalFoV) = 0;

    virtual void projectionSetAspectRatio(ProjectionStateResult& _return, const ProjectionState& state, double aspectRatio) = 0;

    virtual void projectionGetAspectRatio(DoubleResult& _return, const ProjectionState& state) = 0;

    virtual void projectionSetNear(ProjectionStateResult& _return, const ProjectionState& state, double nearDist) = 0;

    virtual void projectionSetFar(ProjectionStateResult& _return, const ProjectionState& state, double farDist) = 0;

    virtual void projectionUpdatePerspective(ProjectionStateResult& _return, const ProjectionState& state, double verticalFoV, double aspectRatio, double nearDist, double farDist) = 0;

    virtual void projectionUpdateOrthographic(ProjectionStateResult& _return, const ProjectionState& state, double width, double height, double nearDist, double farDist) = 0;

    virtual void projectionSetProjectionMatrix(ProjectionStateResult& _return, const ProjectionState& state, const Matrix& matrix, ProjectionType::type type) = 0;

    virtual void projectionZoom(ProjectionStateResult& _return, const ProjectionState& state, double factor) = 0;

    virtual void surfaceCreateDefault(SurfaceStateResult& _return) = 0;

    virtual void surfaceCreate(SurfaceStateResult& _return, double x, double y, double width, double height, double depthMin, double depthMax, std::int32_t resolutionX, std::int32_t resolutionY) = 0;

    virtual void surfaceSetViewport(SurfaceStateResult& _return, const SurfaceState& state, const Viewport& viewport) = 0;

    virtual void surfaceSetResolutionX(SurfaceStateResult& _return, const SurfaceState& state, std::int32_t resolutionX) = 0;

    virtual void surfaceSetResolutionY(SurfaceStateResult& _return, const SurfaceState& state, std::int32_t resolutionY) = 0;

    virtual void surfaceUpdate(SurfaceStateResult& _return, const SurfaceState& state, double x, double y, double width, double height, double depthMin, double depthMax, std::int32_t resolutionX, std::int32_t resolutionY) = 0;

    virtual void planarCameraCreateDefault(PlanarCameraStateResult& _return) = 0;

    virtual void planarCameraCreate(PlanarCameraStateResult& _return, const ViewState& view, const ProjectionState& projection, const SurfaceState& surface) = 0;

    virtual void planarCameraSetView(PlanarCameraStateResult& _return, const PlanarCameraState& state, const ViewState& view) = 0;

    virtual void planarCameraSetProjection(PlanarCameraStateResult& _return, const PlanarCameraState& state, const ProjectionState& projection) = 0;

    virtual void planarCameraSetSurface(PlanarCameraStateResult& _return, const PlanarCameraState& state, const SurfaceState& surface) = 0;

    virtual void planarCameraUpdateWindowSize(PlanarCameraStateResult& _return, const PlanarCameraState& state, std::int32_t width, std::int32_t height) = 0;

    virtual void planarCameraUpdateClippingPlanes(PlanarCameraStateResult& _return, const PlanarCameraState& state, const Vector& centre, double radius, double minimumNear) = 0;

    virtual void planarCameraFitWorldSpaceBoundingBox(PlanarCameraStateResult& _return, const PlanarCameraState& state, double x1, double y1, double z1, double x2, double y2, double z2) = 0;

    virtual void planarCameraFitViewSpaceBoundingBox(PlanarCameraStateResult& _return, const PlanarCameraState& state, double xMin, double yMin, double zMin, double xMax, double yMax, double zMax) = 0;

    virtual void planarCameraSwitchProjectionType(PlanarCameraStateResult& _return, const PlanarCameraState& state, double x1, double y1, double z1, double x2, double y2, double z2) = 0;

    virtual void planarCameraSetViewAlongWorldAxis(PlanarCameraStateResult& _return, const PlanarCameraState& state, const Vector& target, const Vector& axis, const Vector& up) = 0;

    virtual void planarCameraRotateAboutViewAxes(PlanarCameraStateResult& _return, const PlanarCameraState& state, const Vector& pivot, double angle, double secondAngle) = 0;

    virtual void planarCameraRotateAboutWorldAxis(PlanarCameraStateResult& _return, const PlanarCameraState& state, const Vector& pivot, const Vector& axis, double angle, double secondAngle) = 0;

    virtual void planarCameraTranslateInWorldSpace(PlanarCameraStateResult& _return, const PlanarCameraState& state, const Vector& offset) = 0;

    virtual void planarCameraTranslateInViewSpace(PlanarCameraStateResult& _return, const PlanarCameraState& state, const Vector& offset) = 0;

    virtual void planarCameraYaw(PlanarCameraStateResult& _return, const PlanarCameraState& state, double angle) = 0;

    virtual void planarCameraPitch(PlanarCameraStateResult& _return, const PlanarCameraState& state, double angle) = 0;

    virtual void planarCameraRoll(PlanarCameraStateResult& _return, const PlanarCameraState& state, double angle) = 0;

    virtual void planarCameraYawPitchRoll(PlanarCameraStateResult& _return, const PlanarCameraState& state, double yaw, double pitch, double roll) = 0;

    virtual void planarCameraZoomArea(PlanarCameraStateResult& _return, const PlanarCameraState& state, std::int32_t x1, std::int32_t y1, double depth1, std::int32_t x2, std::int32_t y2, double depth2) = 0;

    virtual void planarCameraZoomWithAnchor_Screen(PlanarCameraStateResult& _return, const PlanarCameraState& state, std::int32_t x, std::int32_t y, double depth, double factor) = 0;

    virtual void planarCameraZoomWithAnchor_World(PlanarCameraStateResult& _return, const PlanarCameraState& state, const Vector& anchor, double factor) = 0;

    virtual void planarCameraPanWithAnchor(PlanarCameraStateResult& _return, const PlanarCameraState& state, std::int32_t x, std::int32_t y, double depth, std::int32_t dx, std::int32_t dy) = 0;

    virtual void planarCameraArcballRotation(PlanarCameraStateResult& _return, const PlanarCameraState& state, const Vector& centre, std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2) = 0;

    virtual void utilsMakePerspectiveMatrix(MatrixResult& _return, const Frustum& frustum) = 0;

    virtual void utilsMakeOrthographicMatrix(MatrixResult& _return, const Frustum& frustum) = 0;

    virtual void utilsConvertMatrixFromRowMajorToColumnMajor(MatrixResult& _return, const Matrix& matrix) = 0;

    virtual void transformScreenPointToViewPoint(VectorResult& _return, const PlanarCameraState& state, std::int32_t x, std::int32_t y, double depth) = 0;

    virtual void transformScreenPointToWorldPoint(VectorResult& _return, const PlanarCameraState& state, std::int32_t x, std::int32_t y, double depth) = 0;

    virtual void transformViewPointToScreenPoint(VectorResult& _return, const PlanarCameraState& state, const Vector& point) = 0;

    virtual void transformWorldPointToScreenPoint(VectorResult& _return, const PlanarCameraState& state, const Vector& point) = 0;

    virtual void transformWorldPointToViewPoint(VectorResult& _return, const PlanarCameraState& state, const Vector& point) = 0;

    virtual void transformWorldVectorToViewVector(VectorResult& _return, const PlanarCameraState& state, const Vector& vector) = 0;

    virtual void transformViewPointToWorldPoint(VectorResult& _return, const PlanarCameraState& state, const Vector& point) = 0;

    virtual void transformViewVectorToWorldVector(VectorResult& _return, const PlanarCameraState& state, const Vector& vector) = 0;

    virtual void transformScreenVectorToViewVector(VectorResult& _return, const PlanarCameraState& state, std::int32_t x1, std::int32_t y1, double depth1, std::int32_t x2, std::int32_t y2, double depth2) = 0;

    virtual void transformScreenVectorToWorldVector(VectorResult& _return, const PlanarCameraState& state, std::int32_t x1, std::int32_t y1, double depth1, std::int32_t x2, std::int32_t y2, double depth2) = 0;

};

} // namespace qel::api::camera
