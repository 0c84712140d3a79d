// SPDX-License-Identifier: Apache-2.0
// Runs every operation with ordinary arguments beside the second implementation in long double (oracle/): each step
// starts from the same blob and must arrive at the same numbers, to a bound that grows with the condition of what was
// computed. Steps on which rounding could decide a comparison are not judged.

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include <qel/api/base/BaseAPIIf.h>

#include "fuzz/Reached.h"
#include "fuzz/Written.h"
#include "fuzz/differential/DifferentialSteps.h"
#include "tests/component/support/Samples.h"

namespace camera::fuzz::differential {

namespace {

template <auto set, auto field, class Record>
void put(Step& step, const Record& record) {
    requireWritten(record);
    (step.service.*set)(step.result, step.state, record);
    require((step.result.mValue.*field).mPrivate == record.mPrivate, "a camera takes just the part given");
}

} // namespace

using Service = api::CameraAPIIf;
void adopt(Step& step, const api::ViewState& record) {
    put<&Service::planarCameraSetView, &api::PlanarCameraState::mViewState>(step, record);
}
void adopt(Step& step, const api::ProjectionState& record) {
    put<&Service::planarCameraSetProjection, &api::PlanarCameraState::mProjectionState>(step, record);
}
void adopt(Step& step, const api::SurfaceState& record) {
    put<&Service::planarCameraSetSurface, &api::PlanarCameraState::mSurfaceState>(step, record);
}
void adopt(Step& step, const api::PlanarCameraState& record) { step.result.mValue = record; }

namespace {

constexpr std::size_t mostSteps = 6;

/// The fewest times that each operation must have been judged while it did something.
constexpr std::uint64_t enough = 500;

Reached judged;

/// The steps in the order of the operations' table; each operation has one.
const std::array<Entry, api::operationCount>& steps() {
    static const std::array<Entry, api::operationCount> all = [] {
        std::array<Entry, api::operationCount> result{};
        for (const std::span<const Entry> entries : {viewSteps(), projectionSteps(), cameraSteps(), questionSteps()}) {
            for (const Entry& entry : entries) {
                result[api::findOperation(entry.name)] = entry;
            }
        }
        for (const Entry& entry : result) {
            require(entry.step != nullptr, "every operation has its step");
            judged.expect(std::string(entry.name) + " was judged while it did something");
        }
        return result;
    }();
    return all;
}

bool within(Real value, Real low, Real high) { return value >= low && value <= high; }

/// Whether matrices that a host has not set on its own hold the view, square to the rounding of a double: two ways of
/// turning a basis that is less than that agree no better than it is.
bool isOrdinary(const oracle::View& view) {
    constexpr Real square = 0x1p-48L;
    const oracle::Homogeneous last{0.0L, 0.0L, 0.0L, 1.0L};
    return oracle::isRotation(view.rotation, square) && oracle::isRotation(oracle::linearPart(view.toView), square) &&
           view.toView[3] == last && view.toWorld[3] == last && length(view.eye) < 1e4L;
}

bool isOrdinary(const oracle::Projection& p) {
    return within(p.n, 1e-4L, 1e4L) && within(p.f / p.n, 1.001L, 1e7L) && within(p.r - p.l, 1e-4L, 1e4L) &&
           within(p.t - p.b, 1e-4L, 1e4L) && (std::abs(p.l) + std::abs(p.r)) < 100.0L * (p.r - p.l) &&
           (std::abs(p.b) + std::abs(p.t)) < 100.0L * (p.t - p.b);
}

bool isOrdinary(const oracle::Surface& s) {
    return s.resolutionX < 100000 && s.resolutionY < 100000 && s.viewport[5] - s.viewport[4] > 0.01L &&
           s.viewport[2] > 1e-3L && s.viewport[3] > 1e-3L;
}

/// Whether a camera is one that numbers of a double's precision describe well: the start of any operation.
bool isOrdinary(const oracle::Camera& camera) {
    return isOrdinary(camera.view) && isOrdinary(camera.projection) && isOrdinary(camera.surface);
}

/// What an operation has no business with comes back bit for bit, whether the rest can be judged or not.
void requireKept(const Step& step, Part writes) {
    const api::PlanarCameraState &before = step.state, &after = step.result.mValue;
    require((writes & view) != 0 || before.mViewState.mPrivate == after.mViewState.mPrivate, "the view is kept");
    require((writes & projection) != 0 || before.mProjectionState.mPrivate == after.mProjectionState.mPrivate,
            "the projection is kept");
    require((writes & surface) != 0 || before.mSurfaceState.mPrivate == after.mSurfaceState.mPrivate,
            "the surface is kept");
}

void judge(const Step& step) {
    const api::PlanarCameraState& after = step.result.mValue;
    requireWritten(after);
    const impl::PlanarCamera got = objectIn(after);
    require(got.firstWord() == 0 && got.secondWord() == 0, "a camera's own two words are 0");
    if (step.judge.certain) {
        compareCameras(oracle::fromObject(got), step.camera, {step.judge.condition, step.scale});
    }
}

using api::test::frustumOf, api::test::quaternionOf, api::test::vectorOf;
using Cameras = std::array<api::PlanarCameraStateResult, 5>;

/// What an input may start from: as the service makes it, cameras of both types that lie askew in every part, and one
/// whose view was never placed, which its matrices' kinds tell.
Cameras starts(api::CameraAPIIf& service) {
    Cameras cameras;
    const auto askew = [&](std::size_t which, const api::Vector& eye, const api::Quaternion& orientation,
                           const api::Frustum& frustum, api::ProjectionType::type type,
                           const std::array<double, 4>& viewport, std::int32_t width) {
        api::ViewStateResult view;
        api::ProjectionStateResult projection;
        api::SurfaceStateResult surface;
        service.viewSetEye(view, cameras[0].mValue.mViewState, eye);
        service.viewSetOrientation(view, view.mValue, orientation);
        service.projectionCreate(projection, frustum, type);
        const auto& [x, w, low, high] = viewport;
        service.surfaceCreate(surface, x, 0.5 * x, w, 0.75, low, high, width, 600);
        service.planarCameraCreate(cameras[which], view.mValue, projection.mValue, surface.mValue);
    };
    constexpr auto perspective = api::ProjectionType::PERSPECTIVE, orthographic = api::ProjectionType::ORTHOGRAPHIC;
    service.planarCameraCreateDefault(cameras[0]);
    // The first orientation has a positive trace, the others a negative one, of which the largest components are x and
    // y.
    askew(1, vectorOf(3, -2, 5), quaternionOf(0.2, -0.3, 0.1, 0.9), frustumOf(-0.5, 0.5, -0.375, 0.375, 0.5, 50),
          perspective, {0, 1, 0, 1}, 800);
    askew(2, vectorOf(-4, 1, 2), quaternionOf(0.7, 0.5, -0.4, 0.2), frustumOf(-3, 5, -2, 4, 1, 40), orthographic,
          {0.25, 0.5, 0.125, 0.875}, 1024);
    askew(3, vectorOf(1, 7, -3), quaternionOf(-0.1, 0.9, 0.3, -0.2), frustumOf(-1, 3, -2, 1, 1.5, 30), perspective,
          {0.125, 0.625, 0, 1}, 300);
    api::ViewStateResult unplaced;
    service.viewCreate(unplaced, vectorOf(1, 2, 3), vectorOf(1, 2, 3), vectorOf(0, 1, 0));
    service.planarCameraSetView(cameras[4], cameras[0].mValue, unplaced.mValue);
    for (const api::PlanarCameraStateResult& camera : cameras) {
        requireWritten(camera.mValue);
        require(isOrdinary(oracle::fromObject(objectIn(camera.mValue))), "an input starts from an ordinary camera");
    }
    return cameras;
}

/// Runs an operation and judges what comes of it; whether it has written a camera.
bool take(Step& step, std::size_t number) {
    const oracle::Camera before = step.camera;
    const Entry& entry = steps()[number];
    entry.step(step);
    const bool asks = entry.writes == nothing;
    if (!asks) {
        require(step.result.mResult.mError == 0, "a part goes into a camera");
        requireKept(step, entry.writes);
        judge(step);
    }
    if (step.judge.certain && (asks || !(step.camera == before))) {
        judged.count(number);
    }
    return !asks;
}

} // namespace
} // namespace camera::fuzz::differential

extern "C" bool fuzzReachedEverything() {
    return camera::fuzz::differential::judged.everything(camera::fuzz::differential::enough);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace camera::fuzz;
    using namespace camera::fuzz::differential;
    static const std::unique_ptr<qel::api::base::BaseAPIIf> instance(createComponentInstance());
    static auto* const service = dynamic_cast<api::CameraAPIIf*>(instance.get());
    static const Cameras first = starts(*service);

    Bytes bytes(data, size);
    const std::size_t choice = bytes.byte();
    const api::PlanarCameraStateResult& pristine = first[choice % first.size()];
    // The camera, the one before it, and room for the next.
    static std::array<api::PlanarCameraStateResult, 3> cameras;
    cameras[0] = pristine;
    cameras[1] = first[(choice + 1 + choice / first.size() % (first.size() - 1)) % first.size()]; // another one

    for (std::size_t i = 0; i < mostSteps && !bytes.empty(); ++i) {
        const std::size_t number = bytes.byte() % api::operationCount;
        camera::oracle::Camera start = camera::oracle::fromObject(objectIn(cameras[0].mValue));
        // A question can be asked of a camera that a host's own matrices describe, too.
        if (!isOrdinary(start) && steps()[number].writes != nothing) {
            cameras[0] = pristine;
            start = camera::oracle::fromObject(objectIn(pristine.mValue));
        }
        Step step{*service, cameras[0].mValue, cameras[1].mValue, cameras[2], start, bytes, {}, 1.0L, {}};
        if (take(step, number)) {
            std::swap(cameras[0], cameras[1]);
            std::swap(cameras[0], cameras[2]);
        }
    }
    return 0;
}
