// SPDX-License-Identifier: Apache-2.0
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

#include <benchmark/benchmark.h>

#include "bench/Benchmarks.h"
#include "bench/FloorCameras.h"
#include "bench/FloorRecords.h"
#include "bench/FloorViews.h"
#include "bench/TypedCalls.h"

namespace qel::bench {

namespace floors {

namespace {

/// Image in, change, record out.
template <class Change>
void throughView(ViewStateResult& result, const ViewState& state, const Change& change) {
    auto view = imageIn<ViewImage>(state.mPrivate);
    change(view);
    viewOut(result.mValue, view);
}

template <class Change>
void throughCamera(PlanarCameraStateResult& result, const PlanarCameraState& state, const Change& change) {
    auto camera = imageIn<PlanarCameraImage>(state.mPrivate);
    change(camera);
    planarOut(result.mValue, camera);
}

/// Of the image, the one matrix.
math::Mat4 matrixIn(const ViewState& state, std::size_t at) {
    math::Mat4 m;
    std::memcpy(m.mElements.data(), state.mPrivate.data() + at, sizeof m.mElements);
    return m;
}

math::Mat4 mat(const Matrix& matrix) {
    math::Mat4 m;
    for (std::size_t r = 0; r < 4; ++r) {
        for (std::size_t k = 0; k < 4; ++k) {
            m(r, k) = matrix.mData[r][k];
        }
    }
    return m;
}

void pointOut(VectorResult& result, const math::Vec3& v) { listOut(result.mValue.mData, std::array{v.x, v.y, v.z}); }

using V = const Vector&;
using VS = const ViewState&;
using PS = const PlanarCameraState&;
using Int = std::int32_t;

/// What an operation costs at least in this shape: image in, the same mathematics, record out, and no component
/// around it. A floor takes what its operation takes and gives the same bits; it needs a result that holds a result
/// already.
template <class Result, class... Arguments>
struct Floor {
    std::string_view name; ///< of the operation
    void (*run)(Result&, Arguments...);
};

template <class Result, class... Arguments>
constexpr Floor<Result, Arguments...> floorOf(std::string_view name, void (*run)(Result&, Arguments...)) {
    return {name, run};
}

// clang-format off
constexpr std::tuple table{
    floorOf("viewCreate", +[](ViewStateResult& r, V eye, V lookat, V up) {
        ViewImage view{};
        lookAt(view, vec(eye), vec(lookat), vec(up));
        viewOut(r.mValue, view);
    }),
    floorOf("viewSetEye", +[](ViewStateResult& r, VS s, V eye) { throughView(r, s, [&](ViewImage& v) { setEye(v, vec(eye)); }); }),
    floorOf("viewSetOrientation", +[](ViewStateResult& r, VS s, const Quaternion& q) { throughView(r, s, [&](ViewImage& v) { setOrientation(v, {q.mData[0], q.mData[1], q.mData[2], q.mData[3]}); }); }),
    floorOf("viewUpdateLookat", +[](ViewStateResult& r, VS s, V eye, V lookat, V up) { throughView(r, s, [&](ViewImage& v) { lookAt(v, vec(eye), vec(lookat), vec(up)); }); }),
    floorOf("viewSetViewMatrix", +[](ViewStateResult& r, VS s, const Matrix& m) { throughView(r, s, [&](ViewImage& v) { setViewMatrix(v, mat(m)); }); }),
    floorOf("viewSetViewTransformMatrix", +[](ViewStateResult& r, VS s, const Matrix& m) { throughView(r, s, [&](ViewImage& v) { setViewTransformMatrix(v, mat(m)); }); }),
    floorOf("viewSetViewAlongWorldAxis", +[](ViewStateResult& r, VS s, V target, V axis, V up) { throughView(r, s, [&](ViewImage& v) { setViewAlongWorldAxis(v, vec(target), vec(axis), vec(up)); }); }),
    floorOf("viewYaw", +[](ViewStateResult& r, VS s, double angle) { throughView(r, s, [&](ViewImage& v) { turnByTwice(v, angle, 1); }); }),
    floorOf("viewPitch", +[](ViewStateResult& r, VS s, double angle) { throughView(r, s, [&](ViewImage& v) { turnByTwice(v, angle, 0); }); }),
    floorOf("viewRoll", +[](ViewStateResult& r, VS s, double angle) { throughView(r, s, [&](ViewImage& v) { turnByTwice(v, angle, 2); }); }),
    floorOf("viewYawPitchRoll", +[](ViewStateResult& r, VS s, double yaw, double pitch, double roll) { throughView(r, s, [&](ViewImage& v) { yawPitchRoll(v, yaw, pitch, roll); }); }),
    floorOf("viewTranslateInViewSpace", +[](ViewStateResult& r, VS s, V offset) { throughView(r, s, [&](ViewImage& v) { translateInViewSpace(v, vec(offset)); }); }),
    floorOf("viewTranslateInWorldSpace", +[](ViewStateResult& r, VS s, V offset) { throughView(r, s, [&](ViewImage& v) { setEye(v, eyeOf(v) + vec(offset)); }); }),
    floorOf("viewRotateAboutWorldAxis", +[](ViewStateResult& r, VS s, V pivot, V axis, double angle, double tilt) { throughView(r, s, [&](ViewImage& v) { rotateAbout(v, vec(pivot), vec(axis), angle, tilt, true); }); }),
    floorOf("viewRotateAboutViewAxes", +[](ViewStateResult& r, VS s, V pivot, double angle, double tilt) { throughView(r, s, [&](ViewImage& v) { rotateAbout(v, vec(pivot), axis(v, 1), angle, tilt, false); }); }),
    floorOf("viewTransformWorldVectorToViewVector", +[](VectorResult& r, VS s, V vector) { pointOut(r, transformVector(matrixIn(s, offsetof(ViewImage, viewMatrix)), vec(vector))); }),
    floorOf("viewTransformViewVectorToWorldVector", +[](VectorResult& r, VS s, V vector) { pointOut(r, transformVector(matrixIn(s, offsetof(ViewImage, viewTransformMatrix)), vec(vector))); }),
    floorOf("viewTransformWorldPointToViewPoint", +[](VectorResult& r, VS s, V point) { pointOut(r, transformPlacementPoint(matrixIn(s, offsetof(ViewImage, viewMatrix)), vec(point))); }),
    floorOf("viewTransformViewPointToWorldPoint", +[](VectorResult& r, VS s, V point) { pointOut(r, transformPlacementPoint(matrixIn(s, offsetof(ViewImage, viewTransformMatrix)), vec(point))); }),
    floorOf("planarCameraSetViewAlongWorldAxis", +[](PlanarCameraStateResult& r, PS s, V target, V axis, V up) { throughCamera(r, s, [&](PlanarCameraImage& c) { setViewAlongWorldAxis(c.view, vec(target), vec(axis), vec(up)); }); }),
    floorOf("planarCameraYaw", +[](PlanarCameraStateResult& r, PS s, double angle) { throughCamera(r, s, [&](PlanarCameraImage& c) { turnByTwice(c.view, angle, 1); }); }),
    floorOf("planarCameraPitch", +[](PlanarCameraStateResult& r, PS s, double angle) { throughCamera(r, s, [&](PlanarCameraImage& c) { turnByTwice(c.view, angle, 0); }); }),
    floorOf("planarCameraRoll", +[](PlanarCameraStateResult& r, PS s, double angle) { throughCamera(r, s, [&](PlanarCameraImage& c) { turnByTwice(c.view, angle, 2); }); }),
    floorOf("planarCameraYawPitchRoll", +[](PlanarCameraStateResult& r, PS s, double yaw, double pitch, double roll) { throughCamera(r, s, [&](PlanarCameraImage& c) { yawPitchRoll(c.view, yaw, pitch, roll); }); }),
    floorOf("planarCameraTranslateInViewSpace", +[](PlanarCameraStateResult& r, PS s, V offset) { throughCamera(r, s, [&](PlanarCameraImage& c) { translateInViewSpace(c.view, vec(offset)); }); }),
    floorOf("planarCameraTranslateInWorldSpace", +[](PlanarCameraStateResult& r, PS s, V offset) { throughCamera(r, s, [&](PlanarCameraImage& c) { setEye(c.view, eyeOf(c.view) + vec(offset)); }); }),
    floorOf("planarCameraRotateAboutWorldAxis", +[](PlanarCameraStateResult& r, PS s, V pivot, V axis, double angle, double tilt) { throughCamera(r, s, [&](PlanarCameraImage& c) { rotateAbout(c.view, vec(pivot), vec(axis), angle, tilt, true); }); }),
    floorOf("planarCameraRotateAboutViewAxes", +[](PlanarCameraStateResult& r, PS s, V pivot, double angle, double tilt) { throughCamera(r, s, [&](PlanarCameraImage& c) { rotateAbout(c.view, vec(pivot), axis(c.view, 1), angle, tilt, false); }); }),
    floorOf("planarCameraCreate",
            +[](PlanarCameraStateResult& r, VS view, const ProjectionState& projection, const SurfaceState& surface) {
                planarOut(r.mValue, {{}, {}, imageIn<ViewImage>(view.mPrivate),
                                     imageIn<ProjectionImage>(projection.mPrivate),
                                     imageIn<SurfaceImage>(surface.mPrivate)});
            }),
    floorOf("planarCameraSetView", +[](PlanarCameraStateResult& r, PS s, VS view) { throughCamera(r, s, [&](PlanarCameraImage& c) { c.view = imageIn<ViewImage>(view.mPrivate); }); }),
    floorOf("planarCameraSetProjection", +[](PlanarCameraStateResult& r, PS s, const ProjectionState& projection) { throughCamera(r, s, [&](PlanarCameraImage& c) { c.projection = imageIn<ProjectionImage>(projection.mPrivate); }); }),
    floorOf("planarCameraSetSurface", +[](PlanarCameraStateResult& r, PS s, const SurfaceState& surface) { throughCamera(r, s, [&](PlanarCameraImage& c) { c.surface = imageIn<SurfaceImage>(surface.mPrivate); }); }),
    floorOf("planarCameraUpdateWindowSize", +[](PlanarCameraStateResult& r, PS s, Int width, Int height) { throughCamera(r, s, [&](PlanarCameraImage& c) { resize(c, static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height)); }); }),
    floorOf("planarCameraUpdateClippingPlanes", +[](PlanarCameraStateResult& r, PS s, V centre, double radius, double minimum) { throughCamera(r, s, [&](PlanarCameraImage& c) { clip(c, vec(centre), radius, minimum); }); }),
    floorOf("planarCameraFitWorldSpaceBoundingBox", +[](PlanarCameraStateResult& r, PS s, double x1, double y1, double z1, double x2, double y2, double z2) { throughCamera(r, s, [&](PlanarCameraImage& c) { fit(c, toView(c.view, Bounds{{x1, y1, z1}, {x2, y2, z2}})); }); }),
    floorOf("planarCameraFitViewSpaceBoundingBox", +[](PlanarCameraStateResult& r, PS s, double x1, double y1, double z1, double x2, double y2, double z2) { throughCamera(r, s, [&](PlanarCameraImage& c) { fit(c, {{x1, y1, z1}, {x2, y2, z2}}); }); }),
    floorOf("planarCameraSwitchProjectionType", +[](PlanarCameraStateResult& r, PS s, double x1, double y1, double z1, double x2, double y2, double z2) { throughCamera(r, s, [&](PlanarCameraImage& c) { switchType(c, {{x1, y1, z1}, {x2, y2, z2}}); }); }),
    floorOf("planarCameraZoomArea", +[](PlanarCameraStateResult& r, PS s, Int x1, Int y1, double depth1, Int x2, Int y2, double depth2) { throughCamera(r, s, [&](PlanarCameraImage& c) { zoomArea(c, {double(x1), double(y1), depth1}, {double(x2), double(y2), depth2}); }); }),
    floorOf("planarCameraZoomWithAnchor_Screen", +[](PlanarCameraStateResult& r, PS s, Int x, Int y, double depth, double factor) { throughCamera(r, s, [&](PlanarCameraImage& c) { zoomAbout(c, x, y, depth, factor); }); }),
    floorOf("planarCameraZoomWithAnchor_World", +[](PlanarCameraStateResult& r, PS s, V anchor, double factor) { throughCamera(r, s, [&](PlanarCameraImage& c) { zoomAboutWorld(c, vec(anchor), factor); }); }),
    floorOf("planarCameraPanWithAnchor", +[](PlanarCameraStateResult& r, PS s, Int x, Int y, double depth, Int dx, Int dy) { throughCamera(r, s, [&](PlanarCameraImage& c) { pan(c, x, y, depth, dx, dy); }); }),
    floorOf("planarCameraArcballRotation", +[](PlanarCameraStateResult& r, PS s, V pivot, Int x1, Int y1, Int x2, Int y2) { throughCamera(r, s, [&](PlanarCameraImage& c) { arcball(c, vec(pivot), ballPoint(c.surface, x1, y1), ballPoint(c.surface, x2, y2)); }); }),
};
// clang-format on

template <class Call, class Run>
void runFloor(benchmark::State& state, Run run, CameraAPIIf& camera, const Workload& workload) {
    const auto arguments = Call::arguments(workload);
    typename Call::Result result;
    Call::run(camera, result, arguments);
    const typename Call::Result expected = result;
    const auto call = [&] { std::apply([&](const auto&... argument) { run(result, argument...); }, arguments); };
    call();
    if (!(result == expected)) {
        throw std::logic_error("the floor of " + std::string(Call::operation.name) + " gives another result");
    }
    benchmark::DoNotOptimize(run);
    for (auto _ : state) {
        call();
        benchmark::ClobberMemory();
    }
}

} // namespace

} // namespace floors

void registerFloors(api::camera::CameraAPIIf& camera, const Workload& workload) {
    const auto registerFloor = [&]<std::size_t Index>() {
        static constexpr const auto& floor = std::get<Index>(floors::table);
        forEachCall([&]<class Call>(Call) {
            if constexpr (Call::operation.name == floor.name) {
                benchmark::RegisterBenchmark(
                    ("floor/" + std::string(floor.name)).c_str(),
                    [&](benchmark::State& state) { floors::runFloor<Call>(state, floor.run, camera, workload); });
            }
        });
    };
    [&]<std::size_t... Index>(std::index_sequence<Index...>) { (registerFloor.template operator()<Index>(), ...); }
    (std::make_index_sequence<std::tuple_size_v<decltype(floors::table)>>());
}

} // namespace qel::bench
