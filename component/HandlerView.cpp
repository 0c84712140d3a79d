// SPDX-License-Identifier: Apache-2.0
#include "component/CameraLibraryHandler.h"

#include "component/Facade.h"
#include "component/ReadArguments.h"
#include "impl/View.h"

namespace qel::api::camera {

using namespace component;

using impl::View;

void CameraLibraryHandler::viewCreateDefault(ViewStateResult& _return) {
    answer(_return, Failure::withText("Unable to create View object."), [&] { return View(); });
}

void CameraLibraryHandler::viewCreate(ViewStateResult& _return, const Vector& eye, const Vector& lookat,
                                      const Vector& up) {
    answer(_return, Failure::withText("Unable to create View object."),
           [&] { return View(toVec3(eye, "eye"), toVec3(lookat, "lookat"), toVec3(up, "up")); });
}

void CameraLibraryHandler::viewSetEye(ViewStateResult& _return, const ViewState& state, const Vector& eye) {
    change(_return, Failure::ofCall(__func__), state, [&](View& view) { view.setEye(toVec3(eye, "eye")); });
}

void CameraLibraryHandler::viewSetViewAlongWorldAxis(ViewStateResult& _return, const ViewState& state,
                                                     const Vector& target, const Vector& axis, const Vector& up) {
    change(_return, Failure::ofCall(__func__), state, [&](View& view) {
        view.setViewAlongWorldAxis(toVec3(target, "target"), toVec3(axis, "axis"), toVec3(up, "up"));
    });
}

void CameraLibraryHandler::viewSetOrientation(ViewStateResult& _return, const ViewState& state,
                                              const Quaternion& orientation) {
    change(_return, Failure::ofCall(__func__), state,
           [&](View& view) { view.setOrientation(toQuat(orientation, "orientation")); });
}

void CameraLibraryHandler::viewUpdateLookat(ViewStateResult& _return, const ViewState& state, const Vector& eye,
                                            const Vector& lookat, const Vector& up) {
    change(_return, Failure::ofCall(__func__), state,
           [&](View& view) { view.lookAt(toVec3(eye, "eye"), toVec3(lookat, "lookat"), toVec3(up, "up")); });
}

void CameraLibraryHandler::viewSetViewMatrix(ViewStateResult& _return, const ViewState& state, const Matrix& matrix) {
    change(_return, Failure::ofCall(__func__), state,
           [&](View& view) { view.setViewMatrix(toMat4(matrix, "matrix")); });
}

void CameraLibraryHandler::viewSetViewTransformMatrix(ViewStateResult& _return, const ViewState& state,
                                                      const Matrix& matrix) {
    change(_return, Failure::ofCall(__func__), state,
           [&](View& view) { view.setViewTransformMatrix(toMat4(matrix, "matrix")); });
}

void CameraLibraryHandler::viewYaw(ViewStateResult& _return, const ViewState& state, const double angle) {
    change(_return, Failure::ofCall(__func__), state, [&](View& view) { view.yaw(angle); });
}

void CameraLibraryHandler::viewPitch(ViewStateResult& _return, const ViewState& state, const double angle) {
    change(_return, Failure::ofCall(__func__), state, [&](View& view) { view.pitch(angle); });
}

void CameraLibraryHandler::viewRoll(ViewStateResult& _return, const ViewState& state, const double angle) {
    change(_return, Failure::ofCall(__func__), state, [&](View& view) { view.roll(angle); });
}

void CameraLibraryHandler::viewYawPitchRoll(ViewStateResult& _return, const ViewState& state, const double yaw,
                                            const double pitch, const double roll) {
    change(_return, Failure::ofCall(__func__), state, [&](View& view) { view.yawPitchRoll(yaw, pitch, roll); });
}

void CameraLibraryHandler::viewTranslateInViewSpace(ViewStateResult& _return, const ViewState& state,
                                                    const Vector& offset) {
    change(_return, Failure::ofCall(__func__), state,
           [&](View& view) { view.translateInViewSpace(toVec3(offset, "offset")); });
}

void CameraLibraryHandler::viewTranslateInWorldSpace(ViewStateResult& _return, const ViewState& state,
                                                     const Vector& offset) {
    change(_return, Failure::ofCall(__func__), state,
           [&](View& view) { view.translateInWorldSpace(toVec3(offset, "offset")); });
}

void CameraLibraryHandler::viewRotateAboutWorldAxis(ViewStateResult& _return, const ViewState& state,
                                                    const Vector& pivot, const Vector& axis, const double angle,
                                                    const double tilt) {
    change(_return, Failure::ofCall(__func__), state,
           [&](View& view) { view.rotateAboutWorldAxis(toVec3(pivot, "pivot"), toVec3(axis, "axis"), angle, tilt); });
}

void CameraLibraryHandler::viewRotateAboutViewAxes(ViewStateResult& _return, const ViewState& state,
                                                   const Vector& pivot, const double angle, const double tilt) {
    change(_return, Failure::ofCall(__func__), state,
           [&](View& view) { view.rotateAboutViewAxes(toVec3(pivot, "pivot"), angle, tilt); });
}

void CameraLibraryHandler::viewTransformWorldVectorToViewVector(VectorResult& _return, const ViewState& state,
                                                                const Vector& vector) {
    answer(_return, Failure::ofCall(__func__),
           [&] { return toObject(state).worldToViewVector(toVec3(vector, "vector")); });
}

void CameraLibraryHandler::viewTransformViewVectorToWorldVector(VectorResult& _return, const ViewState& state,
                                                                const Vector& vector) {
    answer(_return, Failure::ofCall(__func__),
           [&] { return toObject(state).viewToWorldVector(toVec3(vector, "vector")); });
}

void CameraLibraryHandler::viewTransformWorldPointToViewPoint(VectorResult& _return, const ViewState& state,
                                                              const Vector& point) {
    answer(_return, Failure::ofCall(__func__),
           [&] { return toObject(state).worldToViewPoint(toVec3(point, "point")); });
}

void CameraLibraryHandler::viewTransformViewPointToWorldPoint(VectorResult& _return, const ViewState& state,
                                                              const Vector& point) {
    answer(_return, Failure::ofCall(__func__),
           [&] { return toObject(state).viewToWorldPoint(toVec3(point, "point")); });
}

} // namespace qel::api::camera
