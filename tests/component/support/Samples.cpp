// SPDX-License-Identifier: Apache-2.0
#include "tests/component/support/Samples.h"

#include <cstdint>
#include <map>
#include <type_traits>

namespace qel::api::camera::test {

namespace {

const std::map<std::string_view, Vector> vectors{
    {"eye", vectorOf(1.0, 2.0, 3.0)},      {"lookat", vectorOf(0.0, 0.5, -4.0)},  {"up", vectorOf(0.0, 1.0, 0.25)},
    {"target", vectorOf(0.5, -1.0, 0.0)},  {"axis", vectorOf(0.25, 0.5, -1.0)},   {"offset", vectorOf(0.5, -0.25, 1.0)},
    {"pivot", vectorOf(0.25, 0.0, -0.5)},  {"centre", vectorOf(0.5, 0.25, -1.0)}, {"anchor", vectorOf(0.25, 0.5, 0.0)},
    {"point", vectorOf(0.5, -0.25, -2.0)}, {"vector", vectorOf(1.0, -2.0, 0.5)},
};

const std::map<std::string_view, double> doubles{
    {"angle", 0.375},     {"tilt", -0.25},
    {"yaw", 0.125},       {"pitch", -0.25},
    {"roll", 0.5},        {"horizontalFoV", 0.9},
    {"verticalFoV", 0.7}, {"aspectRatio", 1.75},
    {"nearDist", 0.75},   {"farDist", 40.0},
    {"width", 0.75},      {"height", 0.5},
    {"factor", 0.5},      {"x", 0.25},
    {"y", 0.125},         {"depthMin", 0.125},
    {"depthMax", 0.875},  {"depth", 0.75},
    {"depth1", 0.5},      {"depth2", 0.75},
    {"radius", 1.5},      {"minimumNearDist", 0.125},
    {"x1", -1.0},         {"y1", 1.5},
    {"z1", -2.0},         {"x2", 2.0},
    {"y2", -1.0},         {"z2", 1.0},
    {"xMin", -1.0},       {"yMin", -0.5},
    {"zMin", -6.0},       {"xMax", 2.0},
    {"yMax", 1.0},        {"zMax", -3.0},
};

const std::map<std::string_view, std::int32_t> integers{
    {"x", 200}, {"y", 250}, {"x1", 120},     {"y1", 180},     {"x2", 460},           {"y2", 420},
    {"dx", 15}, {"dy", -9}, {"width", 1200}, {"height", 700}, {"resolutionX", 1024}, {"resolutionY", 768},
};

} // namespace

Samples::Samples(CameraAPIIf& service) {
    ViewStateResult viewResult;
    service.viewCreate(viewResult, vectorOf(3.0, 2.0, 5.0), vectorOf(0.5, 0.25, -1.0), vectorOf(0.0, 1.0, 0.0));
    view = viewResult.mValue;
    ProjectionStateResult projectionResult;
    service.projectionCreate(projectionResult, frustumOf(-0.4, 0.6, -0.3, 0.35, 0.5, 50.0),
                             ProjectionType::PERSPECTIVE);
    projection = projectionResult.mValue;
    SurfaceStateResult surfaceResult;
    service.surfaceCreate(surfaceResult, 0.125, 0.25, 0.5, 0.625, 0.0, 1.0, 800, 600);
    surface = surfaceResult.mValue;
    PlanarCameraStateResult planarResult;
    service.planarCameraCreate(planarResult, view, projection, surface);
    planarCamera = planarResult.mValue;
}

AnyArgument Samples::argument(const std::string_view name, const AnyArgument& blank) const {
    const auto choose = [&]<class Argument>(const Argument&) -> AnyArgument {
        if constexpr (std::is_same_v<Argument, ViewState>) {
            return view;
        } else if constexpr (std::is_same_v<Argument, ProjectionState>) {
            return projection;
        } else if constexpr (std::is_same_v<Argument, SurfaceState>) {
            return surface;
        } else if constexpr (std::is_same_v<Argument, PlanarCameraState>) {
            return planarCamera;
        } else if constexpr (std::is_same_v<Argument, Vector>) {
            return vectors.at(name);
        } else if constexpr (std::is_same_v<Argument, Quaternion>) {
            return quaternionOf(0.1, 0.2, 0.3, 0.9);
        } else if constexpr (std::is_same_v<Argument, Matrix>) {
            return matrixOf({{0.0, -1.0, 0.0, 2.0}, {1.0, 0.0, 0.0, 3.0}, {0.0, 0.0, 1.0, -4.0}, {0.0, 0.0, 0.0, 1.0}});
        } else if constexpr (std::is_same_v<Argument, Frustum>) {
            return frustumOf(-1.0, 2.0, -1.5, 1.0, 0.25, 20.0);
        } else if constexpr (std::is_same_v<Argument, Viewport>) {
            return viewportOf(0.25, 0.125, 0.5, 0.75, 0.125, 0.875);
        } else if constexpr (std::is_same_v<Argument, ProjectionType::type>) {
            return ProjectionType::ORTHOGRAPHIC;
        } else if constexpr (std::is_same_v<Argument, double>) {
            return doubles.at(name);
        } else {
            static_assert(std::is_same_v<Argument, std::int32_t>, "an argument of a type that no sample has");
            return integers.at(name);
        }
    };
    return std::visit(choose, blank);
}

Arguments Samples::argumentsOf(const AnyOperation& operation) const {
    Arguments arguments;
    for (std::size_t i = 0; i < operation.blank.size(); ++i) {
        arguments.push_back(argument(operation.argumentNames[i], operation.blank[i]));
    }
    return arguments;
}

AnyArgument Samples::payload(const AnyResult& result) const {
    const AnyArgument blank = payloadOf(result);
    return std::holds_alternative<double>(blank) ? blank : argument("point", blank);
}

Samples otherSamples(CameraAPIIf& service) {
    Samples samples(service);
    ViewStateResult view;
    service.viewRotateAboutWorldAxis(view, samples.view, vectorOf(0.0, 0.0, 0.0), vectorOf(0.0, 1.0, 0.0), 1.0, 0.25);
    samples.view = view.mValue;
    ProjectionStateResult projection;
    service.projectionUpdateOrthographic(projection, samples.projection, 3.0, 2.0, 0.25, 30.0);
    samples.projection = projection.mValue;
    SurfaceStateResult surface;
    service.surfaceCreate(surface, 0.0, 0.25, 0.75, 0.5, 0.25, 0.75, 1000, 500);
    samples.surface = surface.mValue;
    PlanarCameraStateResult planarCamera;
    service.planarCameraCreate(planarCamera, samples.view, samples.projection, samples.surface);
    samples.planarCamera = planarCamera.mValue;
    return samples;
}

} // namespace qel::api::camera::test
