// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/api/camera/Fields.h>

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

/// A row of the table; spelled once here because the name stands in it twice.
#define QEL_API_OPERATION(NAME, ...) detail::operation(#NAME, &CameraAPIIf::NAME __VA_OPT__(, ) __VA_ARGS__)

/// All operations of CameraAPIIf in the order of their declaration; an operation's number is its place here, from 0.
/// Whatever treats every operation alike (a test, a command line, a dispatcher for remote calls) walks this table.
inline constexpr std::tuple operations{
    QEL_API_OPERATION(viewCreateDefault),
    QEL_API_OPERATION(viewCreate, "eye", "lookat", "up"),
    QEL_API_OPERATION(viewSetEye, "state", "eye"),
    QEL_API_OPERATION(viewSetViewAlongWorldAxis, "state", "target", "axis", "up"),
    QEL_API_OPERATION(viewSetOrientation, "state", "orientation"),
    QEL_API_OPERATION(viewUpdateLookat, "state", "eye", "lookat", "up"),
    QEL_API_OPERATION(viewSetViewMatrix, "state", "matrix"),
    QEL_API_OPERATION(viewSetViewTransformMatrix, "state", "matrix"),
    QEL_API_OPERATION(viewYaw, "state", "angle"),
    QEL_API_OPERATION(viewPitch, "state", "angle"),
    QEL_API_OPERATION(viewRoll, "state", "angle"),
    QEL_API_OPERATION(viewYawPitchRoll, "state", "yaw", "pitch", "roll"),
    QEL_API_OPERATION(viewTranslateInViewSpace, "state", "offset"),
    QEL_API_OPERATION(viewTranslateInWorldSpace, "state", "offset"),
    QEL_API_OPERATION(viewRotateAboutWorldAxis, "state", "pivot", "axis", "angle", "tilt"),
    QEL_API_OPERATION(viewRotateAboutViewAxes, "state", "pivot", "angle", "tilt"),
    QEL_API_OPERATION(viewTransformWorldVectorToViewVector, "state", "vector"),
    QEL_API_OPERATION(viewTransformViewVectorToWorldVector, "state", "vector"),
    QEL_API_OPERATION(viewTransformWorldPointToViewPoint, "state", "point"),
    QEL_API_OPERATION(viewTransformViewPointToWorldPoint, "state", "point"),
    QEL_API_OPERATION(projectionCreateDefault),
    QEL_API_OPERATION(projectionCreate, "frustum", "projectionType"),
    QEL_API_OPERATION(projectionSetFrustum, "state", "frustum", "projectionType"),
    QEL_API_OPERATION(projectionSetHFoV, "state", "horizontalFoV"),
    QEL_API_OPERATION(projectionGetHFoV, "state"),
    QEL_API_OPERATION(projectionSetVFoV, "state", "verticalFoV"),
    QEL_API_OPERATION(projectionGetVFoV, "state"),
    QEL_API_OPERATION(projectionSetFoV, "state", "horizontalFoV", "verticalFoV"),
    QEL_API_OPERATION(projectionSetAspectRatio, "state", "aspectRatio"),
    QEL_API_OPERATION(projectionGetAspectRatio, "state"),
    QEL_API_OPERATION(projectionSetNear, "state", "nearDist"),
    QEL_API_OPERATION(projectionSetFar, "state", "farDist"),
    QEL_API_OPERATION(projectionUpdatePerspective, "state", "verticalFoV", "aspectRatio", "nearDist", "farDist"),
    QEL_API_OPERATION(projectionUpdateOrthographic, "state", "width", "height", "nearDist", "farDist"),
    QEL_API_OPERATION(projectionSetProjectionMatrix, "state", "matrix", "projectionType"),
    QEL_API_OPERATION(projectionZoom, "state", "factor"),
    QEL_API_OPERATION(surfaceCreateDefault),
    QEL_API_OPERATION(surfaceCreate, "x", "y", "width", "height", "depthMin", "depthMax", "resolutionX", "resolutionY"),
    QEL_API_OPERATION(surfaceSetViewport, "state", "viewport"),
    QEL_API_OPERATION(surfaceSetResolutionX, "state", "resolutionX"),
    QEL_API_OPERATION(surfaceSetResolutionY, "state", "resolutionY"),
    QEL_API_OPERATION(surfaceUpdate, "state", "x", "y", "width", "height", "depthMin", "depthMax", "resolutionX",
                      "resolutionY"),
    QEL_API_OPERATION(planarCameraCreateDefault),
    QEL_API_OPERATION(planarCameraCreate, "view", "projection", "surface"),
    QEL_API_OPERATION(planarCameraSetView, "state", "view"),
    QEL_API_OPERATION(planarCameraSetProjection, "state", "projection"),
    QEL_API_OPERATION(planarCameraSetSurface, "state", "surface"),
    QEL_API_OPERATION(planarCameraUpdateWindowSize, "state", "width", "height"),
    QEL_API_OPERATION(planarCameraUpdateClippingPlanes, "state", "centre", "radius", "minimumNearDist"),
    QEL_API_OPERATION(planarCameraFitWorldSpaceBoundingBox, "state", "x1", "y1", "z1", "x2", "y2", "z2"),
    QEL_API_OPERATION(planarCameraFitViewSpaceBoundingBox, "state", "xMin", "yMin", "zMin", "xMax", "yMax", "zMax"),
    QEL_API_OPERATION(planarCameraSwitchProjectionType, "state", "x1", "y1", "z1", "x2", "y2", "z2"),
    QEL_API_OPERATION(planarCameraSetViewAlongWorldAxis, "state", "target", "axis", "up"),
    QEL_API_OPERATION(planarCameraRotateAboutViewAxes, "state", "pivot", "angle", "tilt"),
    QEL_API_OPERATION(planarCameraRotateAboutWorldAxis, "state", "pivot", "axis", "angle", "tilt"),
    QEL_API_OPERATION(planarCameraTranslateInWorldSpace, "state", "offset"),
    QEL_API_OPERATION(planarCameraTranslateInViewSpace, "state", "offset"),
    QEL_API_OPERATION(planarCameraYaw, "state", "angle"),
    QEL_API_OPERATION(planarCameraPitch, "state", "angle"),
    QEL_API_OPERATION(planarCameraRoll, "state", "angle"),
    QEL_API_OPERATION(planarCameraYawPitchRoll, "state", "yaw", "pitch", "roll"),
    QEL_API_OPERATION(planarCameraZoomArea, "state", "x1", "y1", "depth1", "x2", "y2", "depth2"),
    QEL_API_OPERATION(planarCameraZoomWithAnchor_Screen, "state", "x", "y", "depth", "factor"),
    QEL_API_OPERATION(planarCameraZoomWithAnchor_World, "state", "anchor", "factor"),
    QEL_API_OPERATION(planarCameraPanWithAnchor, "state", "x", "y", "depth", "dx", "dy"),
    QEL_API_OPERATION(planarCameraArcballRotation, "state", "pivot", "x1", "y1", "x2", "y2"),
    QEL_API_OPERATION(utilsMakePerspectiveMatrix, "frustum"),
    QEL_API_OPERATION(utilsMakeOrthographicMatrix, "frustum"),
    QEL_API_OPERATION(utilsConvertMatrixFromRowMajorToColumnMajor, "matrix"),
    QEL_API_OPERATION(transformScreenPointToViewPoint, "state", "x", "y", "depth"),
    QEL_API_OPERATION(transformScreenPointToWorldPoint, "state", "x", "y", "depth"),
    QEL_API_OPERATION(transformViewPointToScreenPoint, "state", "point"),
    QEL_API_OPERATION(transformWorldPointToScreenPoint, "state", "point"),
    QEL_API_OPERATION(transformWorldPointToViewPoint, "state", "point"),
    QEL_API_OPERATION(transformWorldVectorToViewVector, "state", "vector"),
    QEL_API_OPERATION(transformViewPointToWorldPoint, "state", "point"),
    QEL_API_OPERATION(transformViewVectorToWorldVector, "state", "vector"),
    QEL_API_OPERATION(transformScreenVectorToViewVector, "state", "x1", "y1", "depth1", "x2", "y2", "depth2"),
    QEL_API_OPERATION(transformScreenVectorToWorldVector, "state", "x1", "y1", "depth1", "x2", "y2", "depth2"),
};

#undef QEL_API_OPERATION

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
    return number < operationCount ? number : throw std::out_of_range("there is no operation of this name");
}

// What the table is called by in text: the group of an operation, and the types of its arguments and its result. For
// whatever lists or documents the operations.

/// The group of an operation, by what its name begins with; empty for a name that begins like no operation.
constexpr std::string_view groupOf(std::string_view operationName) {
    constexpr std::pair<std::string_view, std::string_view> groups[]{
        {"view", "View"},       {"projection", "Projection"}, {"surface", "Surface"}, {"planarCamera", "PlanarCamera"},
        {"utils", "Utilities"}, {"transform", "Transforms"}};
    for (const auto& [beginning, group] : groups) {
        if (operationName.substr(0, beginning.size()) == beginning) {
            return group;
        }
    }
    return {};
}

namespace detail {
constexpr bool everyNameIsUniqueAndInAGroup() {
    bool sound = true;
    forEachOperation([&](std::size_t number, const auto& operation) {
        sound = sound && findOperation(operation.name) == number && !groupOf(operation.name).empty();
    });
    return sound;
}
static_assert(everyNameIsUniqueAndInAGroup());
} // namespace detail

/// The name of the type of an argument or a result, of which references and constness do not count: a record's own,
/// "ProjectionType", "double" or "int32".
template <class Type>
constexpr std::string_view typeName() {
    using Value = std::remove_cvref_t<Type>;
    if constexpr (std::is_same_v<Value, double>) {
        return "double";
    } else if constexpr (std::is_same_v<Value, std::int32_t>) {
        return "int32";
    } else if constexpr (std::is_same_v<Value, ProjectionType::type>) {
        return "ProjectionType";
    } else {
        return FieldTable<Value>::recordName;
    }
}

/// The names of the types of an operation's arguments after `_return`, beside its argumentNames.
template <class Result, class... Arguments>
constexpr std::array<std::string_view, sizeof...(Arguments)> argumentTypes(const Operation<Result, Arguments...>&) {
    return {typeName<Arguments>()...};
}

/// The name of the record into which an operation writes.
template <class Result, class... Arguments>
constexpr std::string_view resultType(const Operation<Result, Arguments...>&) {
    return typeName<Result>();
}

} // namespace qel::api::camera
