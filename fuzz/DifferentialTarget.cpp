// SPDX-License-Identifier: Apache-2.0
// Runs every operation with ordinary arguments beside the second implementation in long double (oracle/): each step
// starts from the same image and must arrive at the same numbers, to a bound that grows with the condition of what was
// computed. Steps on which rounding could decide a comparison are not judged.

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <qel/api/base/BaseAPIIf.h>

#include "fuzz/differential/DifferentialSteps.h"

namespace camera::fuzz::differential {

void adopt(Step& step, const api::ViewState& record) {
    viewOf(record);
    step.service.planarCameraSetView(step.result, step.state, record);
    require(step.result.mValue.mViewState.mPrivate == record.mPrivate, "a camera takes just the view given");
}

void adopt(Step& step, const api::ProjectionState& record) {
    projectionOf(record);
    step.service.planarCameraSetProjection(step.result, step.state, record);
    require(step.result.mValue.mProjectionState.mPrivate == record.mPrivate,
            "a camera takes just the projection given");
}

void adopt(Step& step, const api::SurfaceState& record) {
    surfaceOf(record);
    step.service.planarCameraSetSurface(step.result, step.state, record);
    require(step.result.mValue.mSurfaceState.mPrivate == record.mPrivate, "a camera takes just the surface given");
}

void adopt(Step& step, const api::PlanarCameraState& record) { step.result.mValue = record; }

namespace {

constexpr std::size_t mostSteps = 6;

/// The fewest times that each operation must have been judged while it did something.
constexpr std::uint64_t enough = 500;

struct Operation {
    Entry entry{};
    std::uint64_t runs = 0;
    std::uint64_t judged = 0;
};

/// In slot order; each operation of the table has its step.
std::array<Operation, api::operationCount>& operations() {
    static std::array<Operation, api::operationCount> all = [] {
        std::array<Operation, api::operationCount> result{};
        for (const std::span<const Entry> entries :
             {viewSteps(), projectionSteps(), surfaceSteps(), cameraSteps(), questionSteps()}) {
            for (const Entry& entry : entries) {
                api::forEachOperation([&](std::size_t slot, const auto& operation) {
                    if (operation.name == entry.name) {
                        result[slot].entry = entry;
                    }
                });
            }
        }
        for (const Operation& operation : result) {
            require(operation.entry.step != nullptr, "every operation has its step");
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
    const oracle::Camera got = cameraOf(step.result.mValue);
    if (step.judge.certain) {
        compareViews(got.view, step.camera.view, step.exactness());
        compareProjections(got.projection, step.camera.projection, step.exactness());
        compareSurfaces(got.surface, step.camera.surface);
    }
}

using Cameras = std::array<api::PlanarCameraStateResult, 5>;

/// What an input may start from: as the service makes it, cameras of both types that lie askew in every part, and one
/// whose view was never placed, which its matrices' kinds tell.
Cameras starts(api::CameraAPIIf& service) {
    Cameras cameras;
    for (api::PlanarCameraStateResult& camera : cameras) {
        service.planarCameraCreateDefault(camera);
    }
    const auto vectorOf = [](double x, double y, double z) {
        api::Vector v;
        v.mData = {x, y, z};
        return v;
    };
    const auto place = [&](std::size_t which, const api::Vector& eye, const std::vector<double>& orientation) {
        api::ViewStateResult view;
        api::Quaternion q;
        q.mData = orientation;
        service.viewSetEye(view, cameras[which].mValue.mViewState, eye);
        service.viewSetOrientation(view, view.mValue, q);
        service.planarCameraSetView(cameras[which], cameras[which].mValue, view.mValue);
    };
    const auto project = [&](std::size_t which, const std::array<double, 6>& sides, api::ProjectionType::type type) {
        api::Frustum f;
        f.mLeft = sides[0], f.mRight = sides[1], f.mBottom = sides[2], f.mTop = sides[3];
        f.mNearDist = sides[4], f.mFarDist = sides[5];
        api::ProjectionStateResult projection;
        service.projectionCreate(projection, f, type);
        service.planarCameraSetProjection(cameras[which], cameras[which].mValue, projection.mValue);
    };
    const auto show = [&](std::size_t which, double x, double width, double low, double high, std::int32_t pixels) {
        api::SurfaceStateResult surface;
        service.surfaceCreate(surface, x, 0.5 * x, width, 0.75, low, high, pixels, 600);
        service.planarCameraSetSurface(cameras[which], cameras[which].mValue, surface.mValue);
    };
    // The second orientation has a positive trace, the third and fourth a negative one, of which the largest
    // components are x and y.
    place(1, vectorOf(3.0, -2.0, 5.0), {0.2, -0.3, 0.1, 0.9});
    project(1, {-0.5, 0.5, -0.375, 0.375, 0.5, 50.0}, api::ProjectionType::PERSPECTIVE);
    show(1, 0.0, 1.0, 0.0, 1.0, 800);
    place(2, vectorOf(-4.0, 1.0, 2.0), {0.7, 0.5, -0.4, 0.2});
    project(2, {-3.0, 5.0, -2.0, 4.0, 1.0, 40.0}, api::ProjectionType::ORTHOGRAPHIC);
    show(2, 0.25, 0.5, 0.125, 0.875, 1024);
    place(3, vectorOf(1.0, 7.0, -3.0), {-0.1, 0.9, 0.3, -0.2});
    project(3, {-1.0, 3.0, -2.0, 1.0, 1.5, 30.0}, api::ProjectionType::PERSPECTIVE);
    show(3, 0.125, 0.625, 0.0, 1.0, 300);
    api::ViewStateResult unplaced;
    service.viewCreate(unplaced, vectorOf(1.0, 2.0, 3.0), vectorOf(1.0, 2.0, 3.0), vectorOf(0.0, 1.0, 0.0));
    service.planarCameraSetView(cameras[4], cameras[4].mValue, unplaced.mValue);
    for (const api::PlanarCameraStateResult& camera : cameras) {
        require(isOrdinary(cameraOf(camera.mValue)), "an input starts from an ordinary camera");
    }
    return cameras;
}

/// Runs an operation and judges what comes of it; whether it has written a camera.
bool take(Step& step, Operation& operation) {
    const oracle::Camera before = step.camera;
    operation.entry.step(step);
    require(step.called == operation.entry.name, "an operation's step runs it");
    ++operation.runs;
    const bool asks = operation.entry.writes == nothing;
    if (!asks) {
        require(step.result.mResult.mError == 0, "a part goes into a camera");
        requireKept(step, operation.entry.writes);
        judge(step);
    }
    if (step.judge.certain && (asks || !(step.camera == before))) {
        ++operation.judged;
    }
    return !asks;
}

} // namespace
} // namespace camera::fuzz::differential

extern "C" bool fuzzReachedEverything() {
    using namespace camera::fuzz::differential;
    bool all = true;
    for (const Operation& operation : operations()) {
        if (operation.judged < enough) {
            std::fprintf(stderr, "%s was judged %llu times of %llu while it did something, %llu are wanted\n",
                         std::string(operation.entry.name).c_str(), static_cast<unsigned long long>(operation.judged),
                         static_cast<unsigned long long>(operation.runs), static_cast<unsigned long long>(enough));
            all = false;
        }
    }
    return all;
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
        Operation& operation = operations()[bytes.byte() % api::operationCount];
        camera::oracle::Camera start = camera::oracle::Image(cameras[0].mValue.mPrivate).camera();
        // A question can be asked of a camera that a host's own matrices describe, too.
        if (!isOrdinary(start) && operation.entry.writes != nothing) {
            cameras[0] = pristine;
            start = camera::oracle::Image(pristine.mValue.mPrivate).camera();
        }
        Step step{*service, cameras[0].mValue, cameras[1].mValue, cameras[2], start, bytes, {}, 1.0L, {}};
        if (take(step, operation)) {
            std::swap(cameras[0], cameras[1]);
            std::swap(cameras[0], cameras[2]);
        }
    }
    return 0;
}
