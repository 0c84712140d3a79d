// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/api/camera/Operations.h>

namespace qel::api::camera::test {

inline Vector vectorOf(const double x, const double y, const double z) {
    Vector vector;
    vector.mData = {x, y, z};
    return vector;
}

inline Frustum frustumOf(const double left, const double right, const double bottom, const double top,
                         const double nearDist, const double farDist) {
    Frustum frustum;
    frustum.mLeft = left;
    frustum.mRight = right;
    frustum.mBottom = bottom;
    frustum.mTop = top;
    frustum.mNearDist = nearDist;
    frustum.mFarDist = farDist;
    return frustum;
}

inline Viewport viewportOf(const double x, const double y, const double width, const double height,
                           const double depthMin, const double depthMax) {
    Viewport viewport;
    viewport.mX = x;
    viewport.mY = y;
    viewport.mWidth = width;
    viewport.mHeight = height;
    viewport.mDepthMin = depthMin;
    viewport.mDepthMax = depthMax;
    return viewport;
}

inline Matrix matrixOf(std::vector<std::vector<double>> rows) {
    Matrix matrix;
    matrix.mData = std::move(rows);
    return matrix;
}

inline Quaternion quaternionOf(const double x, const double y, const double z, const double w) {
    Quaternion quaternion;
    quaternion.mData = {x, y, z, w};
    return quaternion;
}

/// Valid arguments for every operation, found by type and name. The states are those of a camera off the origin, with
/// an off-centre frustum and a viewport that is a part of the surface; with these arguments no operation is a no-op.
struct Samples {
    ViewState view;
    ProjectionState projection;
    SurfaceState surface;
    PlanarCameraState planarCamera;

    Samples() = default;

    explicit Samples(CameraAPIIf& service) {
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

    /// The argument of this type and name. An unknown name throws, so that no new argument goes untested.
    template <class Argument>
    [[nodiscard]] Argument argument(const std::string_view name) const {
        const std::string key(name);
        if constexpr (std::is_same_v<Argument, ViewState>) {
            return view;
        } else if constexpr (std::is_same_v<Argument, ProjectionState>) {
            return projection;
        } else if constexpr (std::is_same_v<Argument, SurfaceState>) {
            return surface;
        } else if constexpr (std::is_same_v<Argument, PlanarCameraState>) {
            return planarCamera;
        } else if constexpr (std::is_same_v<Argument, Vector>) {
            return vectors().at(key);
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
            return doubles().at(key);
        } else {
            static_assert(std::is_same_v<Argument, std::int32_t>, "an argument of a type that no sample has");
            return integers().at(key);
        }
    }

    template <class Result, class... Arguments>
    [[nodiscard]] auto argumentsOf(const Operation<Result, Arguments...>& operation) const {
        return argumentsOf(operation, std::index_sequence_for<Arguments...>());
    }

private:
    template <class Result, class... Arguments, std::size_t... Index>
    [[nodiscard]] auto argumentsOf(const Operation<Result, Arguments...>& operation,
                                   std::index_sequence<Index...>) const {
        return std::tuple<std::remove_cvref_t<Arguments>...>(
            argument<std::remove_cvref_t<Arguments>>(operation.argumentNames[Index])...);
    }

    static const std::map<std::string, Vector>& vectors() {
        static const std::map<std::string, Vector> values{
            {"eye", vectorOf(1.0, 2.0, 3.0)},     {"lookat", vectorOf(0.0, 0.5, -4.0)},
            {"up", vectorOf(0.0, 1.0, 0.25)},     {"target", vectorOf(0.5, -1.0, 0.0)},
            {"axis", vectorOf(0.25, 0.5, -1.0)},  {"offset", vectorOf(0.5, -0.25, 1.0)},
            {"pivot", vectorOf(0.25, 0.0, -0.5)}, {"centre", vectorOf(0.5, 0.25, -1.0)},
            {"anchor", vectorOf(0.25, 0.5, 0.0)}, {"point", vectorOf(0.5, -0.25, -2.0)},
            {"vector", vectorOf(1.0, -2.0, 0.5)},
        };
        return values;
    }

    static const std::map<std::string, double>& doubles() {
        static const std::map<std::string, double> values{
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
        return values;
    }

    static const std::map<std::string, std::int32_t>& integers() {
        static const std::map<std::string, std::int32_t> values{
            {"x", 200}, {"y", 250}, {"x1", 120},     {"y1", 180},     {"x2", 460},           {"y2", 420},
            {"dx", 15}, {"dy", -9}, {"width", 1200}, {"height", 700}, {"resolutionX", 1024}, {"resolutionY", 768},
        };
        return values;
    }
};

/// The same arguments but for the states, which differ in every part.
inline Samples otherSamples(CameraAPIIf& service) {
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
