// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <string_view>

namespace qel::api::camera::test {

/// The operation of a slot and what it says when it fails.
struct Slot {
    std::string_view operation;
    const char* failureMessage;
};

/// Written out, since hosts rely on the order of the slots and on the texts.
inline constexpr std::array<Slot, 79> slots{{
    {"viewCreateDefault", "Unable to create View object."},
    {"viewCreate", "Unable to create View object."},
    {"viewSetEye", "Call to viewSetEye() failed."},
    {"viewSetViewAlongWorldAxis", "Call to viewSetViewAlongWorldAxis() failed."},
    {"viewSetOrientation", "Call to viewSetOrientation() failed."},
    {"viewUpdateLookat", "Call to viewUpdateLookat() failed."},
    {"viewSetViewMatrix", "Call to viewSetViewMatrix() failed."},
    {"viewSetViewTransformMatrix", "Call to viewSetViewTransformMatrix() failed."},
    {"viewYaw", "Call to viewYaw() failed."},
    {"viewPitch", "Call to viewPitch() failed."},
    {"viewRoll", "Call to viewRoll() failed."},
    {"viewYawPitchRoll", "Call to viewYawPitchRoll() failed."},
    {"viewTranslateInViewSpace", "Call to viewTranslateInViewSpace() failed."},
    {"viewTranslateInWorldSpace", "Call to viewTranslateInWorldSpace() failed."},
    {"viewRotateAboutWorldAxis", "Call to viewRotateAboutWorldAxis() failed."},
    {"viewRotateAboutViewAxes", "Call to viewRotateAboutViewAxes() failed."},
    {"viewTransformWorldVectorToViewVector", "Call to viewTransformWorldVectorToViewVector() failed."},
    {"viewTransformViewVectorToWorldVector", "Call to viewTransformViewVectorToWorldVector() failed."},
    {"viewTransformWorldPointToViewPoint", "Call to viewTransformWorldPointToViewPoint() failed."},
    {"viewTransformViewPointToWorldPoint", "Call to viewTransformViewPointToWorldPoint() failed."},
    {"projectionCreateDefault", "Unable to create Projection object."},
    {"projectionCreate", "Unable to create Projection object."},
    {"projectionSetFrustum", "Call to projectionSetFrustum() failed."},
    {"projectionSetHFoV", "Call to projectionSetHFoV() failed."},
    {"projectionGetHFoV", "Call to projectionGetHFoV() failed."},
    {"projectionSetVFoV", "Call to projectionSetVFoV() failed."},
    {"projectionGetVFoV", "Call to projectionGetVFoV() failed."},
    {"projectionSetFoV", "Call to projectionSetFoV() failed."},
    {"projectionSetAspectRatio", "Call to projectionSetAspectRatio() failed."},
    {"projectionGetAspectRatio", "Call to projectionGetAspectRatio() failed."},
    {"projectionSetNear", "Call to projectionSetNear() failed."},
    {"projectionSetFar", "Call to projectionSetFar() failed."},
    {"projectionUpdatePerspective", "Call to projectionUpdatePerspective() failed."},
    {"projectionUpdateOrthographic", "Call to projectionUpdateOrthographic() failed."},
    {"projectionSetProjectionMatrix", "Call to projectionSetProjectionMatrix() failed."},
    {"projectionZoom", "Call to projectionZoom() failed."},
    {"surfaceCreateDefault", "Unable to create Surface object."},
    {"surfaceCreate", "Unable to create Surface object."},
    {"surfaceSetViewport", "Call to surfaceSetViewport() failed."},
    {"surfaceSetResolutionX", "Call to surfaceSetResolutionX() failed."},
    {"surfaceSetResolutionY", "Call to surfaceSetResolutionY() failed."},
    {"surfaceUpdate", "Call to surfaceUpdate() failed."},
    {"planarCameraCreateDefault", "Unable to create default PlanarCamera object."},
    {"planarCameraCreate", "Unable to create PlanarCamera object from arguments."},
    {"planarCameraSetView", "Call to planarCameraSetView() failed."},
    {"planarCameraSetProjection", "Call to planarCameraSetProjection() failed."},
    {"planarCameraSetSurface", "Call to planarCameraSetSurface() failed."},
    {"planarCameraUpdateWindowSize", "Call to planarCameraUpdateWindowSize() failed."},
    {"planarCameraUpdateClippingPlanes", "Call to planarCameraUpdateClippingPlanes() failed."},
    {"planarCameraFitWorldSpaceBoundingBox", "Call to planarCameraFitWorldSpaceBoundingBox() failed."},
    {"planarCameraFitViewSpaceBoundingBox", "Call to planarCameraFitViewSpaceBoundingBox() failed."},
    {"planarCameraSwitchProjectionType", "Call to planarCameraSwitchProjectionType() failed."},
    {"planarCameraSetViewAlongWorldAxis", "Call to planarCameraSetViewAlongWorldAxis() failed."},
    {"planarCameraRotateAboutViewAxes", "Call to planarCameraRotateAboutViewAxes() failed."},
    {"planarCameraRotateAboutWorldAxis", "Call to planarCameraRotateAboutWorldAxis() failed."},
    {"planarCameraTranslateInWorldSpace", "Call to planarCameraTranslateInWorldSpace() failed."},
    {"planarCameraTranslateInViewSpace", "Call to planarCameraTranslateInViewSpace() failed."},
    {"planarCameraYaw", "Call to planarCameraYaw() failed."},
    {"planarCameraPitch", "Call to planarCameraPitch() failed."},
    {"planarCameraRoll", "Call to planarCameraRoll() failed."},
    {"planarCameraYawPitchRoll", "Call to planarCameraYawPitchRoll() failed."},
    {"planarCameraZoomArea", "Call to planarCameraZoomArea() failed."},
    {"planarCameraZoomWithAnchor_Screen", "Call to planarCameraZoomWithAnchor_Screen() failed."},
    {"planarCameraZoomWithAnchor_World", "Call to planarCameraZoomWithAnchor_World() failed."},
    {"planarCameraPanWithAnchor", "Call to planarCameraPanWithAnchor() failed."},
    {"planarCameraArcballRotation", "Call to planarCameraArcballRotation() failed."},
    {"utilsMakePerspectiveMatrix", "Call to utilsMakePerspectiveMatrix() failed."},
    {"utilsMakeOrthographicMatrix", "Call to utilsMakeOrthographicMatrix() failed."},
    {"utilsConvertMatrixFromRowMajorToColumnMajor", "Call to utilsConvertMatrixFromRowMajorToColumnMajor() failed."},
    {"transformScreenPointToViewPoint", "Call to transformScreenPointToViewPoint() failed."},
    {"transformScreenPointToWorldPoint", "Call to transformScreenPointToWorldPoint() failed."},
    {"transformViewPointToScreenPoint", "Call to transformViewPointToScreenPoint() failed."},
    {"transformWorldPointToScreenPoint", "Call to transformWorldPointToScreenPoint() failed."},
    {"transformWorldPointToViewPoint", "Call to transformWorldPointToViewPoint() failed."},
    {"transformWorldVectorToViewVector", "Call to transformWorldVectorToViewVector() failed."},
    {"transformViewPointToWorldPoint", "Call to transformViewPointToWorldPoint() failed."},
    {"transformViewVectorToWorldVector", "Call to transformViewVectorToWorldVector() failed."},
    {"transformScreenVectorToViewVector", "Call to transformScreenVectorToViewVector() failed."},
    {"transformScreenVectorToWorldVector", "Call to transformScreenVectorToWorldVector() failed."},
}};

} // namespace qel::api::camera::test
