// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <tuple>

#include <qel/api/camera/CameraAPIIf.h>

namespace qel::api::camera {

/// One operation of CameraAPIIf as a value: its name, the names of its arguments after `_return`, and itself.
template <class Result, class... Arguments>
struct Operation {
    using Member = void (CameraAPIIf::*)(Result&, Arguments...);

    std::string_view name;
    std::array<std::string_view, sizeof...(Arguments)> argumentNames;
    Member member;
};

namespace detail {
template <class Result, class... Arguments, class... Names>
constexpr Operation<Result, Arguments...> operation(std::string_view name,
                                                    void (CameraAPIIf::*member)(Result&, Arguments...),
                                                    Names... argumentNames) {
    static_assert(sizeof...(Names) == sizeof...(Arguments), "every argument of an operation has a name");
    return {name, {std::string_view(argumentNames)...}, member};
}
} // namespace detail

/// All operations of CameraAPIIf in the order of their declaration; an operation's number is its place here, from 0.
/// Whatever treats every operation alike (a test, a command line, a dispatcher for remote calls) walks this table.
inline constexpr std::tuple operations{
    detail::operation("viewCreateDefault", &CameraAPIIf::viewCreateDefault),
    detail::operation("viewCreate", &CameraAPIIf::viewCreate, "eye", "lookat", "up"),
    detail::operation("viewSetEye", &CameraAPIIf::viewSetEye, "state", "eye"),
    detail::operation("viewSetViewAlongWorldAxis", &CameraAPIIf::viewSetViewAlongWorldAxis, "state", "target", "axis",
                      "up"),
    detail::operation("viewSetOrientation", &CameraAPIIf::viewSetOrientation, "state", "orientation"),
    detail::operation("viewUpdateLookat", &CameraAPIIf::viewUpdateLookat, "state", "eye", "lookat", "up"),
    detail::operation("viewSetViewMatrix", &CameraAPIIf::viewSetViewMatrix, "state", "matrix"),
    detail::operation("viewSetViewTransformMatrix", &CameraAPIIf::viewSetViewTransformMatrix, "state", "matrix"),
    detail::operation("viewYaw", &CameraAPIIf::viewYaw, "state", "angle"),
    detail::operation("viewPitch", &CameraAPIIf::viewPitch, "state", "angle"),
    detail::operation("viewRoll", &CameraAPIIf::viewRoll, "state", "angle"),
    detail::operation("viewYawPitchRoll", &CameraAPIIf::viewYawPitchRoll, "state", "yaw", "pitch", "roll"),
    detail::operation("viewTranslateInViewSpace", &CameraAPIIf::viewTranslateInViewSpace, "state", "offset"),
    detail::operation("viewTranslateInWorldSpace", &CameraAPIIf::viewTranslateInWorldSpace, "state", "offset"),
    detail::operation("viewRotateAboutWorldAxis", &CameraAPIIf::viewRotateAboutWorldAxis, "state", "pivot", "axis",
                      "angle", "tilt"),
    detail::operation("viewRotateAboutViewAxes", &CameraAPIIf::viewRotateAboutViewAxes, "state", "pivot", "angle",
                      "tilt"),
    detail::operation("viewTransformWorldVectorToViewVector", &CameraAPIIf::viewTransformWorldVectorToViewVector,
                      "state", "vector"),
    detail::operation("viewTransformViewVectorToWorldVector", &CameraAPIIf::viewTransformViewVectorToWorldVector,
                      "state", "vector"),
    detail::operation("viewTransformWorldPointToViewPoint", &CameraAPIIf::viewTransformWorldPointToViewPoint, "state",
                      "point"),
    detail::operation("viewTransformViewPointToWorldPoint", &CameraAPIIf::viewTransformViewPointToWorldPoint, "state",
                      "point"),
    detail::operation("projectionCreateDefault", &CameraAPIIf::projectionCreateDefault),
    detail::operation("projectionCreate", &CameraAPIIf::projectionCreate, "frustum", "projectionType"),
    detail::operation("projectionSetFrustum", &CameraAPIIf::projectionSetFrustum, "state", "frustum", "projectionType"),
    detail::operation("projectionSetHFoV", &CameraAPIIf::projectionSetHFoV, "state", "horizontalFoV"),
    detail::operation("projectionGetHFoV", &CameraAPIIf::projectionGetHFoV, "state"),
    detail::operation("projectionSetVFoV", &CameraAPIIf::projectionSetVFoV, "state", "verticalFoV"),
    detail::operation("projectionGetVFoV", &CameraAPIIf::projectionGetVFoV, "state"),
    detail::operation("projectionSetFoV", &CameraAPIIf::projectionSetFoV, "state", "horizontalFoV", "verticalFoV"),
    detail::operation("projectionSetAspectRatio", &CameraAPIIf::projectionSetAspectRatio, "state", "aspectRatio"),
    detail::operation("projectionGetAspectRatio", &CameraAPIIf::projectionGetAspectRatio, "state"),
    detail::operation("projectionSetNear", &CameraAPIIf::projectionSetNear, "state", "nearDist"),
    detail::operation("projectionSetFar", &CameraAPIIf::projectionSetFar, "state", "farDist"),
    detail::operation("projectionUpdatePerspective", &CameraAPIIf::projectionUpdatePerspective, "state", "verticalFoV",
                      "aspectRatio", "nearDist", "farDist"),
    detail::operation("projectionUpdateOrthographic", &CameraAPIIf::projectionUpdateOrthographic, "state", "width",
                      "height", "nearDist", "farDist"),
    detail::operation("projectionSetProjectionMatrix", &CameraAPIIf::projectionSetProjectionMatrix, "state", "matrix",
                      "projectionType"),
    detail::operation("projectionZoom", &CameraAPIIf::projectionZoom, "state", "factor"),
    detail::operation("surfaceCreateDefault", &CameraAPIIf::surfaceCreateDefault),
    detail::operation("surfaceCreate", &CameraAPIIf::surfaceCreate, "x", "y", "width", "height", "depthMin", "depthMax",
                      "resolutionX", "resolutionY"),
    detail::operation("surfaceSetViewport", &CameraAPIIf::surfaceSetViewport, "state", "viewport"),
    detail::operation("surfaceSetResolutionX", &CameraAPIIf::surfaceSetResolutionX, "state", "resolutionX"),
    detail::operation("surfaceSetResolutionY", &CameraAPIIf::surfaceSetResolutionY, "state", "resolutionY"),
    detail::operation("surfaceUpdate", &CameraAPIIf::surfaceUpdate, "state", "x", "y", "width", "height", "depthMin",
                      "depthMax", "resolutionX", "resolutionY"),
    detail::operation("planarCameraCreateDefault", &CameraAPIIf::planarCameraCreateDefault),
    detail::operation("planarCameraCreate", &CameraAPIIf::planarCameraCreate, "view", "projection", "surface"),
    detail::operation("planarCameraSetView", &CameraAPIIf::planarCameraSetView, "state", "view"),
    detail::operation("planarCameraSetProjection", &CameraAPIIf::planarCameraSetProjection, "state", "projection"),
    detail::operation("planarCameraSetSurface", &CameraAPIIf::planarCameraSetSurface, "state", "surface"),
    detail::operation("planarCameraUpdateWindowSize", &CameraAPIIf::planarCameraUpdateWindowSize, "state", "width",
                      "height"),
    detail::operation("planarCameraUpdateClippingPlanes", &CameraAPIIf::planarCameraUpdateClippingPlanes, "state",
                      "centre", "radius", "minimumNearDist"),
    detail::operation("planarCameraFitWorldSpaceBoundingBox", &CameraAPIIf::planarCameraFitWorldSpaceBoundingBox,
                      "state", "x1", "y1", "z1", "x2", "y2", "z2"),
    detail::operation("planarCameraFitViewSpaceBoundingBox", &CameraAPIIf::planarCameraFitViewSpaceBoundingBox, "state",
                      "xMin", "yMin", "zMin", "xMax", "yMax", "zMax"),
    detail::operation("planarCameraSwitchProjectionType", &CameraAPIIf::planarCameraSwitchProjectionType, "state", "x1",
                      "y1", "z1", "x2", "y2", "z2"),
    detail::operation("planarCameraSetViewAlongWorldAxis", &CameraAPIIf::planarCameraSetViewAlongWorldAxis, "state",
                      "target", "axis", "up"),
    detail::operation("planarCameraRotateAboutViewAxes", &CameraAPIIf::planarCameraRotateAboutViewAxes, "state",
                      "pivot", "angle", "tilt"),
    detail::operation("planarCameraRotateAboutWorldAxis", &CameraAPIIf::planarCameraRotateAboutWorldAxis, "state",
                      "pivot", "axis", "angle", "tilt"),
    detail::operation("planarCameraTranslateInWorldSpace", &CameraAPIIf::planarCameraTranslateInWorldSpace, "state",
                      "offset"),
    detail::operation("planarCameraTranslateInViewSpace", &CameraAPIIf::planarCameraTranslateInViewSpace, "state",
                      "offset"),
    detail::operation("planarCameraYaw", &CameraAPIIf::planarCameraYaw, "state", "angle"),
    detail::operation("planarCameraPitch", &CameraAPIIf::planarCameraPitch, "state", "angle"),
    detail::operation("planarCameraRoll", &CameraAPIIf::planarCameraRoll, "state", "angle"),
    detail::operation("planarCameraYawPitchRoll", &CameraAPIIf::planarCameraYawPitchRoll, "state", "yaw", "pitch",
                      "roll"),
    detail::operation("planarCameraZoomArea", &CameraAPIIf::planarCameraZoomArea, "state", "x1", "y1", "depth1", "x2",
                      "y2", "depth2"),
    detail::operation("planarCameraZoomWithAnchor_Screen", &CameraAPIIf::planarCameraZoomWithAnchor_Screen, "state",
                      "x", "y", "depth", "factor"),
    detail::operation("planarCameraZoomWithAnchor_World", &CameraAPIIf::planarCameraZoomWithAnchor_World, "state",
                      "anchor", "factor"),
    detail::operation("planarCameraPanWithAnchor", &CameraAPIIf::planarCameraPanWithAnchor, "state", "x", "y", "depth",
                      "dx", "dy"),
    detail::operation("planarCameraArcballRotation", &CameraAPIIf::planarCameraArcballRotation, "state", "pivot", "x1",
                      "y1", "x2", "y2"),
    detail::operation("utilsMakePerspectiveMatrix", &CameraAPIIf::utilsMakePerspectiveMatrix, "frustum"),
    detail::operation("utilsMakeOrthographicMatrix", &CameraAPIIf::utilsMakeOrthographicMatrix, "frustum"),
    detail::operation("utilsConvertMatrixFromRowMajorToColumnMajor",
                      &CameraAPIIf::utilsConvertMatrixFromRowMajorToColumnMajor, "matrix"),
    detail::operation("transformScreenPointToViewPoint", &CameraAPIIf::transformScreenPointToViewPoint, "state", "x",
                      "y", "depth"),
    detail::operation("transformScreenPointToWorldPoint", &CameraAPIIf::transformScreenPointToWorldPoint, "state", "x",
                      "y", "depth"),
    detail::operation("transformViewPointToScreenPoint", &CameraAPIIf::transformViewPointToScreenPoint, "state",
                      "point"),
    detail::operation("transformWorldPointToScreenPoint", &CameraAPIIf::transformWorldPointToScreenPoint, "state",
                      "point"),
    detail::operation("transformWorldPointToViewPoint", &CameraAPIIf::transformWorldPointToViewPoint, "state", "point"),
    detail::operation("transformWorldVectorToViewVector", &CameraAPIIf::transformWorldVectorToViewVector, "state",
                      "vector"),
    detail::operation("transformViewPointToWorldPoint", &CameraAPIIf::transformViewPointToWorldPoint, "state", "point"),
    detail::operation("transformViewVectorToWorldVector", &CameraAPIIf::transformViewVectorToWorldVector, "state",
                      "vector"),
    detail::operation("transformScreenVectorToViewVector", &CameraAPIIf::transformScreenVectorToViewVector, "state",
                      "x1", "y1", "depth1", "x2", "y2", "depth2"),
    detail::operation("transformScreenVectorToWorldVector", &CameraAPIIf::transformScreenVectorToWorldVector, "state",
                      "x1", "y1", "depth1", "x2", "y2", "depth2"),
};

inline constexpr std::size_t operationCount = std::tuple_size_v<decltype(operations)>;

/// Calls visit(number, operation) for each operation in the order of the table.
template <class Visitor>
constexpr void forEachOperation(Visitor&& visit) {
    std::apply(
        [&](const auto&... operation) {
            std::size_t number = 0;
            (visit(number++, operation), ...);
        },
        operations);
}

namespace detail {
inline constexpr std::array<std::string_view, operationCount> operationNames = [] {
    std::array<std::string_view, operationCount> names{};
    forEachOperation([&](std::size_t number, const auto& operation) { names[number] = operation.name; });
    return names;
}();
} // namespace detail

/// The number of the operation of this name, or operationCount where there is none.
constexpr std::size_t findOperation(std::string_view name) {
    std::size_t number = 0;
    while (number < operationCount && detail::operationNames[number] != name) {
        ++number;
    }
    return number;
}

/// The number of the operation of this name, which is also its slot among the operations of CameraAPIIf. A wrong name
/// does not compile.
consteval std::size_t slotOf(std::string_view name) {
    const std::size_t number = findOperation(name);
    return number < operationCount ? number : throw "there is no operation of this name";
}

namespace detail {
constexpr bool operationNamesAreUnique() {
    bool unique = true;
    forEachOperation(
        [&](std::size_t number, const auto& operation) { unique = unique && findOperation(operation.name) == number; });
    return unique;
}
static_assert(operationNamesAreUnique());
} // namespace detail

} // namespace qel::api::camera
