// SPDX-License-Identifier: Apache-2.0
// The methods and functions of impl that the operations call, on an object that is there already: what is left of an
// operation's time is the price of its records. Each gives what its operation gives, which is compared first.
#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <benchmark/benchmark.h>

#include "bench/Benchmarks.h"
#include "bench/TypedCalls.h"
#include "component/ReadArguments.h"
#include "component/ReadState.h"
#include "impl/SpaceTransforms.h"

namespace qel::bench {
namespace {

using namespace api::camera;
using impl::PlanarCamera;
using impl::Projection;
using impl::Surface;
using impl::View;
using math::Vec3;

/// Whether the payload of a result holds just this.
bool holds(double payload, double number) { return payload == number; }
bool holds(const Vector& payload, const Vec3& v) { return payload.mData == std::vector{v.x, v.y, v.z}; }
template <class State, class Object>
bool holds(const State& payload, const Object& object) {
    std::array<char, impl::blobSize<Object>> blob{};
    object.writeTo(blob);
    return payload.mPrivate == std::string_view(blob.data(), blob.size());
}

class Register {
public:
    Register(CameraAPIIf& camera, const Workload& workload) : mCamera(camera), mWorkload(workload) {}

    /// An argument of an operation as the workload has it, in impl's terms.
    [[nodiscard]] Vec3 vector(std::string_view name) const {
        return component::toVec3(given<Vector>(name), "argument");
    }
    [[nodiscard]] double number(std::string_view name) const { return given<double>(name); }
    [[nodiscard]] std::int32_t whole(std::string_view name) const { return given<std::int32_t>(name); }

    template <class Argument>
    [[nodiscard]] Argument given(std::string_view name, std::string_view operation = {}) const {
        Argument argument{};
        mWorkload.give(argument, operation, name);
        return argument;
    }

    /// `work` changes a copy of the start, or answers a question about it. The numbers that it carries along
    /// are no constants to the compiler, which knows nothing of the workload.
    template <std::size_t number, class Object, class Work>
    void add(const Object& start, const Work& work) const {
        using Operation = Call<number>;
        benchmark::RegisterBenchmark(("impl/" + std::string(Operation::operation.name)).c_str(),
                                     [start, work, &camera = mCamera, &workload = mWorkload](benchmark::State& state) {
                                         const auto once = [&] {
                                             if constexpr (std::is_void_v<std::invoke_result_t<Work, Object&>>) {
                                                 Object object = start;
                                                 work(object);
                                                 return object;
                                             } else {
                                                 return work(start);
                                             }
                                         };
                                         typename Operation::Result expected;
                                         Operation::run(camera, expected, Operation::arguments(workload));
                                         if (!holds(expected.mValue, once())) {
                                             throw std::logic_error("impl gives another result than " +
                                                                    std::string(Operation::operation.name));
                                         }
                                         for (auto _ : state) {
                                             auto answer = once();
                                             benchmark::DoNotOptimize(answer);
                                             benchmark::ClobberMemory();
                                         }
                                     });
    }

private:
    CameraAPIIf& mCamera;
    const Workload& mWorkload;
};

} // namespace

void registerImpl(CameraAPIIf& service, const Workload& workload) {
    const Register in(service, workload);
    const View view = component::toObject(workload.camera().mViewState);
    const Projection projection = component::toObject(workload.camera().mProjectionState);
    const Surface surface = component::toObject(workload.camera().mSurfaceState);
    const PlanarCamera camera = component::toObject(workload.camera());

    const Vec3 eye = in.vector("eye"), lookat = in.vector("lookat"), up = in.vector("up");
    const Vec3 target = in.vector("target"), axis = in.vector("axis"), offset = in.vector("offset");
    const Vec3 pivot = in.vector("pivot"), vector = in.vector("vector"), point = in.vector("point");
    const double angle = in.number("angle"), tilt = in.number("tilt"), yaw = in.number("yaw");
    const double pitch = in.number("pitch"), roll = in.number("roll"), factor = in.number("factor");
    const impl::Box box{{in.number("x1"), in.number("y1"), in.number("z1")},
                        {in.number("x2"), in.number("y2"), in.number("z2")}};
    const impl::Box viewBox{{in.number("xMin"), in.number("yMin"), in.number("zMin")},
                            {in.number("xMax"), in.number("yMax"), in.number("zMax")}};
    const impl::ScreenPoint pixel{in.whole("x"), in.whole("y"), in.number("depth")};
    const impl::ScreenPoint first{in.whole("x1"), in.whole("y1"), in.number("depth1")};
    const impl::ScreenPoint second{in.whole("x2"), in.whole("y2"), in.number("depth2")};

    const math::Quat turn = component::toQuat(in.given<Quaternion>("orientation"), "orientation");
    const math::Mat4 matrix = component::toMat4(in.given<Matrix>("matrix", "viewSetViewMatrix"), "matrix");
    const math::Mat4 transform = component::toMat4(in.given<Matrix>("matrix", "viewSetViewTransformMatrix"), "matrix");
    in.add<slotOf("viewCreate")>(view, [eye, lookat, up](View& v) { v = View(eye, lookat, up); });
    in.add<slotOf("viewSetEye")>(view, [eye](View& v) { v.setEye(eye); });
    in.add<slotOf("viewSetOrientation")>(view, [turn](View& v) { v.setOrientation(turn); });
    in.add<slotOf("viewUpdateLookat")>(view, [eye, lookat, up](View& v) { v.lookAt(eye, lookat, up); });
    in.add<slotOf("viewSetViewMatrix")>(view, [matrix](View& v) { v.setViewMatrix(matrix); });
    in.add<slotOf("viewSetViewTransformMatrix")>(view, [transform](View& v) { v.setViewTransformMatrix(transform); });
    in.add<slotOf("viewSetViewAlongWorldAxis")>(
        view, [target, axis, up](View& v) { v.setViewAlongWorldAxis(target, axis, up); });
    in.add<slotOf("viewYaw")>(view, [angle](View& v) { v.yaw(angle); });
    in.add<slotOf("viewPitch")>(view, [angle](View& v) { v.pitch(angle); });
    in.add<slotOf("viewRoll")>(view, [angle](View& v) { v.roll(angle); });
    in.add<slotOf("viewYawPitchRoll")>(view, [yaw, pitch, roll](View& v) { v.yawPitchRoll(yaw, pitch, roll); });
    in.add<slotOf("viewTranslateInViewSpace")>(view, [offset](View& v) { v.translateInViewSpace(offset); });
    in.add<slotOf("viewTranslateInWorldSpace")>(view, [offset](View& v) { v.translateInWorldSpace(offset); });
    in.add<slotOf("viewRotateAboutWorldAxis")>(
        view, [pivot, axis, angle, tilt](View& v) { v.rotateAboutWorldAxis(pivot, axis, angle, tilt); });
    in.add<slotOf("viewRotateAboutViewAxes")>(
        view, [pivot, angle, tilt](View& v) { v.rotateAboutViewAxes(pivot, angle, tilt); });
    in.add<slotOf("viewTransformWorldVectorToViewVector")>(
        view, [vector](const View& v) { return v.worldToViewVector(vector); });
    in.add<slotOf("viewTransformViewVectorToWorldVector")>(
        view, [vector](const View& v) { return v.viewToWorldVector(vector); });
    in.add<slotOf("viewTransformWorldPointToViewPoint")>(view,
                                                         [point](const View& v) { return v.worldToViewPoint(point); });
    in.add<slotOf("viewTransformViewPointToWorldPoint")>(view,
                                                         [point](const View& v) { return v.viewToWorldPoint(point); });

    const math::Frustum frustum = component::toFrustum(in.given<Frustum>("frustum"));
    const double horizontalFoV = in.number("horizontalFoV"), verticalFoV = in.number("verticalFoV");
    const double aspectRatio = in.number("aspectRatio"), nearDist = in.number("nearDist");
    const double farDist = in.number("farDist"), width = in.number("width"), height = in.number("height");
    in.add<slotOf("projectionSetFrustum")>(projection, [frustum](Projection& p) { p.setFrustum(frustum, false); });
    in.add<slotOf("projectionSetHFoV")>(projection,
                                        [horizontalFoV](Projection& p) { p.setHorizontalFoV(horizontalFoV); });
    in.add<slotOf("projectionSetVFoV")>(projection, [verticalFoV](Projection& p) { p.setVerticalFoV(verticalFoV); });
    in.add<slotOf("projectionSetFoV")>(
        projection, [horizontalFoV, verticalFoV](Projection& p) { p.setFoV(horizontalFoV, verticalFoV); });
    in.add<slotOf("projectionSetAspectRatio")>(projection,
                                               [aspectRatio](Projection& p) { p.setAspectRatio(aspectRatio); });
    in.add<slotOf("projectionSetNear")>(projection, [nearDist](Projection& p) { p.setNear(nearDist); });
    in.add<slotOf("projectionSetFar")>(projection, [farDist](Projection& p) { p.setFar(farDist); });
    in.add<slotOf("projectionUpdatePerspective")>(projection,
                                                  [verticalFoV, aspectRatio, nearDist, farDist](Projection& p) {
                                                      p.setPerspective(verticalFoV, aspectRatio, nearDist, farDist);
                                                  });
    in.add<slotOf("projectionUpdateOrthographic")>(projection, [width, height, nearDist, farDist](Projection& p) {
        p.setOrthographic(width, height, nearDist, farDist);
    });
    in.add<slotOf("projectionZoom")>(projection, [factor](Projection& p) { p.zoom(factor); });
    in.add<slotOf("projectionGetHFoV")>(projection, [](const Projection& p) { return p.horizontalFoV(); });
    in.add<slotOf("projectionGetVFoV")>(projection, [](const Projection& p) { return p.verticalFoV(); });
    in.add<slotOf("projectionGetAspectRatio")>(projection, [](const Projection& p) { return p.aspectRatio(); });

    const auto resolutionX = component::toPixels(in.whole("resolutionX"));
    const auto resolutionY = component::toPixels(in.whole("resolutionY"));
    const math::Viewport viewport{in.number("x"), in.number("y"),        width,
                                  height,         in.number("depthMin"), in.number("depthMax")};
    in.add<slotOf("surfaceSetResolutionX")>(surface, [resolutionX](Surface& s) { s.setResolutionX(resolutionX); });
    in.add<slotOf("surfaceSetResolutionY")>(surface, [resolutionY](Surface& s) { s.setResolutionY(resolutionY); });
    in.add<slotOf("surfaceUpdate")>(
        surface, [viewport, resolutionX, resolutionY](Surface& s) { s.update(viewport, resolutionX, resolutionY); });

    const auto windowWidth = component::toPixels(in.whole("width")),
               windowHeight = component::toPixels(in.whole("height"));
    const Vec3 centre = in.vector("centre"), anchor = in.vector("anchor");
    const double radius = in.number("radius"), minimum = in.number("minimumNearDist");
    const std::int32_t dx = in.whole("dx"), dy = in.whole("dy");
    const impl::Pixel from{component::toPixels(first.x), component::toPixels(first.y)};
    const impl::Pixel to{component::toPixels(second.x), component::toPixels(second.y)};
    in.add<slotOf("planarCameraSetViewAlongWorldAxis")>(
        camera, [target, axis, up](PlanarCamera& c) { c.view().setViewAlongWorldAxis(target, axis, up); });
    in.add<slotOf("planarCameraYaw")>(camera, [angle](PlanarCamera& c) { c.view().yaw(angle); });
    in.add<slotOf("planarCameraPitch")>(camera, [angle](PlanarCamera& c) { c.view().pitch(angle); });
    in.add<slotOf("planarCameraRoll")>(camera, [angle](PlanarCamera& c) { c.view().roll(angle); });
    in.add<slotOf("planarCameraYawPitchRoll")>(
        camera, [yaw, pitch, roll](PlanarCamera& c) { c.view().yawPitchRoll(yaw, pitch, roll); });
    in.add<slotOf("planarCameraTranslateInViewSpace")>(
        camera, [offset](PlanarCamera& c) { c.view().translateInViewSpace(offset); });
    in.add<slotOf("planarCameraTranslateInWorldSpace")>(
        camera, [offset](PlanarCamera& c) { c.view().translateInWorldSpace(offset); });
    in.add<slotOf("planarCameraRotateAboutWorldAxis")>(camera, [pivot, axis, angle, tilt](PlanarCamera& c) {
        c.view().rotateAboutWorldAxis(pivot, axis, angle, tilt);
    });
    in.add<slotOf("planarCameraRotateAboutViewAxes")>(
        camera, [pivot, angle, tilt](PlanarCamera& c) { c.view().rotateAboutViewAxes(pivot, angle, tilt); });
    in.add<slotOf("planarCameraUpdateWindowSize")>(
        camera, [windowWidth, windowHeight](PlanarCamera& c) { c.updateWindowSize(windowWidth, windowHeight); });
    in.add<slotOf("planarCameraUpdateClippingPlanes")>(
        camera, [centre, radius, minimum](PlanarCamera& c) { c.updateClippingPlanes(centre, radius, minimum); });
    in.add<slotOf("planarCameraFitWorldSpaceBoundingBox")>(camera,
                                                           [box](PlanarCamera& c) { c.fitWorldSpaceBoundingBox(box); });
    in.add<slotOf("planarCameraFitViewSpaceBoundingBox")>(
        camera, [viewBox](PlanarCamera& c) { c.fitViewSpaceBoundingBox(viewBox); });
    in.add<slotOf("planarCameraSwitchProjectionType")>(camera, [box](PlanarCamera& c) { c.switchProjectionType(box); });
    in.add<slotOf("planarCameraZoomArea")>(camera, [first, second](PlanarCamera& c) { c.zoomArea(first, second); });
    in.add<slotOf("planarCameraZoomWithAnchor_Screen")>(
        camera, [pixel, factor](PlanarCamera& c) { c.zoomWithAnchor(pixel, factor); });
    in.add<slotOf("planarCameraZoomWithAnchor_World")>(
        camera, [anchor, factor](PlanarCamera& c) { c.zoomWithAnchor(anchor, factor); });
    in.add<slotOf("planarCameraPanWithAnchor")>(camera,
                                                [pixel, dx, dy](PlanarCamera& c) { c.panWithAnchor(pixel, dx, dy); });
    in.add<slotOf("planarCameraArcballRotation")>(
        camera, [pivot, from, to](PlanarCamera& c) { c.arcballRotation(pivot, from, to); });
    in.add<slotOf("transformScreenPointToViewPoint")>(
        camera, [pixel](const PlanarCamera& c) { return screenToView(c, pixel); });
    in.add<slotOf("transformScreenPointToWorldPoint")>(
        camera, [pixel](const PlanarCamera& c) { return viewPointToWorld(c, screenToView(c, pixel)); });
    in.add<slotOf("transformViewPointToScreenPoint")>(
        camera, [point](const PlanarCamera& c) { return viewToScreen(c, point); });
    in.add<slotOf("transformWorldPointToScreenPoint")>(
        camera, [point](const PlanarCamera& c) { return worldToScreen(c, point); });
    in.add<slotOf("transformWorldPointToViewPoint")>(
        camera, [point](const PlanarCamera& c) { return c.view().worldToViewPoint(point); });
    in.add<slotOf("transformWorldVectorToViewVector")>(
        camera, [vector](const PlanarCamera& c) { return c.view().worldToViewVector(vector); });
    in.add<slotOf("transformViewPointToWorldPoint")>(
        camera, [point](const PlanarCamera& c) { return viewPointToWorld(c, point); });
    in.add<slotOf("transformViewVectorToWorldVector")>(
        camera, [vector](const PlanarCamera& c) { return viewVectorToWorld(c, vector); });
    in.add<slotOf("transformScreenVectorToViewVector")>(
        camera, [first, second](const PlanarCamera& c) { return screenVectorToView(c, first, second); });
    in.add<slotOf("transformScreenVectorToWorldVector")>(camera, [first, second](const PlanarCamera& c) {
        return viewVectorToWorld(c, screenVectorToView(c, first, second));
    });
}

} // namespace qel::bench
