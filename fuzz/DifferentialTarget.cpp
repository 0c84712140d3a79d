// SPDX-License-Identifier: Apache-2.0
// Runs the operations on a camera with ordinary arguments beside the second implementation in long double (oracle/):
// each step starts from the same image and must arrive at the same numbers, to a bound that grows with the condition
// of what was computed. Steps on which rounding could decide a comparison are not judged.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <utility>

#include <qel/api/base/BaseAPIIf.h>
#include <qel/api/camera/CameraAPIIf.h>

#include "Bytes.h"
#include "Require.h"
#include "oracle/FromImage.h"

namespace camera::fuzz {
namespace {

namespace api = qel::api::camera;
using oracle::Judgement;
using oracle::Real;

/// Of the scale of the numbers compared, for an operation of condition 1: some hundred roundings.
constexpr Real bound = 512.0L * 0x1p-52L;

constexpr std::size_t mostSteps = 6;

// Ordinary arguments.

/// -8 to 8.
double coordinate(Bytes& bytes) { return (bytes.byte() - 128) / 16.0; }
/// -3.2 to 3.2, of which a few are 0.
double angle(Bytes& bytes) {
    const std::uint8_t byte = bytes.byte();
    return byte < 8 ? 0.0 : (byte - 132) / 39.0;
}
/// 0.01 to 5, evenly over the magnitudes.
double factor(Bytes& bytes) { return std::ldexp(1.0 + (bytes.byte() % 32) / 32.0, bytes.byte() % 9 - 6); }
double depth(Bytes& bytes) { return bytes.byte() / 255.0; }
std::int32_t pixel(Bytes& bytes) { return static_cast<std::int32_t>(bytes.word(2) % 2048) - 512; }

api::Vector vector(Bytes& bytes) {
    api::Vector record;
    record.mData = {coordinate(bytes), coordinate(bytes), coordinate(bytes)};
    return record;
}
oracle::Vector real(const api::Vector& record) { return {record.mData[0], record.mData[1], record.mData[2]}; }

/// A camera as the service holds it and as the second implementation sees it.
struct Step {
    api::CameraAPIIf& service;
    api::PlanarCameraStateResult& result;
    const api::PlanarCameraState& state;
    oracle::Camera camera;
    Judgement judge;
    Real scale = 1.0L; ///< the largest of the arguments
    Bytes& bytes;

    double taken(double value) {
        scale = std::max(scale, std::abs(Real(value)));
        return value;
    }
    api::Vector takenVector() {
        api::Vector record = vector(bytes);
        for (const double value : record.mData) {
            taken(value);
        }
        return record;
    }
};

// The projection's operations have no form for a camera: its projection goes out and comes back.

template <class Change>
void changeProjection(Step& step, const Change& change) {
    static api::ProjectionStateResult projection;
    change(projection, step.state.mProjectionState);
    require(projection.mResult.mError == 0, "a call on a projection succeeds");
    step.service.planarCameraSetProjection(step.result, step.state, projection.mValue);
}

template <class Change>
void changeView(Step& step, const Change& change) {
    static api::ViewStateResult view;
    change(view, step.state.mViewState);
    require(view.mResult.mError == 0, "a call on a view succeeds");
    step.service.planarCameraSetView(step.result, step.state, view.mValue);
}

template <class Change>
void changeSurface(Step& step, const Change& change) {
    static api::SurfaceStateResult surface;
    change(surface, step.state.mSurfaceState);
    require(surface.mResult.mError == 0, "a call on a surface succeeds");
    step.service.planarCameraSetSurface(step.result, step.state, surface.mValue);
}

void viewStep(Step& s, unsigned which) {
    oracle::View& view = s.camera.view;
    switch (which) {
    case 0: {
        const api::Vector eye = s.takenVector(), at = s.takenVector(), up = s.takenVector();
        view.lookAt(s.judge, real(eye), real(at), real(up));
        return changeView(s, [&](auto& r, const auto& v) { s.service.viewUpdateLookat(r, v, eye, at, up); });
    }
    case 1: {
        const api::Vector eye = s.takenVector();
        view.place(view.rotation, real(eye));
        return changeView(s, [&](auto& r, const auto& v) { s.service.viewSetEye(r, v, eye); });
    }
    case 2: {
        const double a = angle(s.bytes);
        view.turnByTwice(s.judge, 1, a);
        return s.service.planarCameraYaw(s.result, s.state, a);
    }
    case 3: {
        const double a = angle(s.bytes);
        view.turnByTwice(s.judge, 0, a);
        return s.service.planarCameraPitch(s.result, s.state, a);
    }
    case 4: {
        const double a = angle(s.bytes);
        view.turnByTwice(s.judge, 2, a);
        return s.service.planarCameraRoll(s.result, s.state, a);
    }
    case 5: {
        const double y = angle(s.bytes), p = angle(s.bytes), r = angle(s.bytes);
        view.yawPitchRoll(s.judge, y, p, r);
        return s.service.planarCameraYawPitchRoll(s.result, s.state, y, p, r);
    }
    case 6: {
        const api::Vector offset = s.takenVector();
        view.translateInView(s.judge, real(offset));
        return s.service.planarCameraTranslateInViewSpace(s.result, s.state, offset);
    }
    case 7: {
        const api::Vector offset = s.takenVector();
        view.translateInWorld(s.judge, real(offset));
        return s.service.planarCameraTranslateInWorldSpace(s.result, s.state, offset);
    }
    case 8: {
        const api::Vector target = s.takenVector(), along = s.takenVector(), up = s.takenVector();
        view.alongWorldAxis(s.judge, real(target), real(along), real(up));
        return s.service.planarCameraSetViewAlongWorldAxis(s.result, s.state, target, along, up);
    }
    case 9: {
        const api::Vector pivot = s.takenVector(), about = s.takenVector();
        const double a = angle(s.bytes), tilt = angle(s.bytes);
        view.rotateAbout(s.judge, real(pivot), real(about), a, tilt, true);
        return s.service.planarCameraRotateAboutWorldAxis(s.result, s.state, pivot, about, a, tilt);
    }
    default: {
        const api::Vector pivot = s.takenVector();
        const double a = angle(s.bytes), tilt = angle(s.bytes);
        view.rotateAbout(s.judge, real(pivot), oracle::axis(view.toView, 1), a, tilt, false);
        return s.service.planarCameraRotateAboutViewAxes(s.result, s.state, pivot, a, tilt);
    }
    }
}

void projectionStep(Step& s, unsigned which) {
    oracle::Projection& p = s.camera.projection;
    const double a = factor(s.bytes);
    switch (which) {
    case 0: {
        api::Frustum f;
        f.mLeft = coordinate(s.bytes), f.mRight = coordinate(s.bytes), f.mBottom = coordinate(s.bytes);
        f.mTop = coordinate(s.bytes), f.mNearDist = a, f.mFarDist = a + 16.0 * factor(s.bytes);
        const bool orthographic = s.bytes.byte() % 2 != 0;
        p.setFrustum(s.judge, {f.mLeft, f.mRight, f.mBottom, f.mTop, f.mNearDist, f.mFarDist}, orthographic);
        return changeProjection(s, [&](auto& r, const auto& state) {
            s.service.projectionSetFrustum(
                r, state, f, orthographic ? api::ProjectionType::ORTHOGRAPHIC : api::ProjectionType::PERSPECTIVE);
        });
    }
    case 1:
        p.setHorizontalFoV(s.judge, a);
        return changeProjection(s, [&](auto& r, const auto& state) { s.service.projectionSetHFoV(r, state, a); });
    case 2:
        p.setVerticalFoV(s.judge, a);
        return changeProjection(s, [&](auto& r, const auto& state) { s.service.projectionSetVFoV(r, state, a); });
    case 3: {
        const double v = factor(s.bytes);
        p.setFoV(s.judge, a, v);
        return changeProjection(s, [&](auto& r, const auto& state) { s.service.projectionSetFoV(r, state, a, v); });
    }
    case 4:
        p.setAspect(s.judge, a);
        return changeProjection(s,
                                [&](auto& r, const auto& state) { s.service.projectionSetAspectRatio(r, state, a); });
    case 5:
        p.setNear(s.judge, a);
        return changeProjection(s, [&](auto& r, const auto& state) { s.service.projectionSetNear(r, state, a); });
    case 6:
        p.setFar(s.judge, 64.0 * a);
        return changeProjection(s, [&](auto& r, const auto& state) { s.service.projectionSetFar(r, state, 64.0 * a); });
    case 7: {
        const double aspect = factor(s.bytes), n = factor(s.bytes), f = n + 16.0 * factor(s.bytes);
        p.setPerspective(s.judge, a, aspect, n, f);
        s.judge.cancels(1.0L, std::cos(a / 2.0L) * std::cos(a / 2.0L));
        return changeProjection(
            s, [&](auto& r, const auto& state) { s.service.projectionUpdatePerspective(r, state, a, aspect, n, f); });
    }
    case 8: {
        const double height = factor(s.bytes), n = factor(s.bytes), f = n + 16.0 * factor(s.bytes);
        p.setOrthographic(s.judge, a, height, n, f);
        return changeProjection(
            s, [&](auto& r, const auto& state) { s.service.projectionUpdateOrthographic(r, state, a, height, n, f); });
    }
    default:
        p.zoom(s.judge, a);
        return changeProjection(s, [&](auto& r, const auto& state) { s.service.projectionZoom(r, state, a); });
    }
}

void cameraStep(Step& s, unsigned which) {
    oracle::Camera& c = s.camera;
    switch (which) {
    case 0: {
        const auto w = static_cast<std::int32_t>(s.bytes.word(2) % 4096),
                   h = static_cast<std::int32_t>(s.bytes.word(2) % 4096);
        c.updateWindowSize(s.judge, static_cast<std::uint32_t>(w), static_cast<std::uint32_t>(h));
        return s.service.planarCameraUpdateWindowSize(s.result, s.state, w, h);
    }
    case 1: {
        const api::Vector centre = s.takenVector();
        const double radius = factor(s.bytes), minimum = factor(s.bytes);
        c.updateClippingPlanes(s.judge, real(centre), radius, minimum);
        return s.service.planarCameraUpdateClippingPlanes(s.result, s.state, centre, radius, minimum);
    }
    case 2: {
        const api::Vector a = s.takenVector(), b = s.takenVector();
        c.fitWorldBox(s.judge, real(a), real(b));
        return s.service.planarCameraFitWorldSpaceBoundingBox(s.result, s.state, a.mData[0], a.mData[1], a.mData[2],
                                                              b.mData[0], b.mData[1], b.mData[2]);
    }
    case 3: {
        const api::Vector a = s.takenVector(), b = s.takenVector();
        c.fitViewBox(s.judge, real(a), real(b));
        return s.service.planarCameraFitViewSpaceBoundingBox(s.result, s.state, a.mData[0], a.mData[1], a.mData[2],
                                                             b.mData[0], b.mData[1], b.mData[2]);
    }
    case 4: {
        const api::Vector a = s.takenVector(), b = s.takenVector();
        c.switchProjectionType(s.judge, real(a), real(b));
        return s.service.planarCameraSwitchProjectionType(s.result, s.state, a.mData[0], a.mData[1], a.mData[2],
                                                          b.mData[0], b.mData[1], b.mData[2]);
    }
    case 5: {
        const std::int32_t x1 = pixel(s.bytes), y1 = pixel(s.bytes), x2 = pixel(s.bytes), y2 = pixel(s.bytes);
        const double d1 = depth(s.bytes), d2 = depth(s.bytes);
        c.zoomArea(s.judge, {x1, y1, d1}, {x2, y2, d2});
        return s.service.planarCameraZoomArea(s.result, s.state, x1, y1, d1, x2, y2, d2);
    }
    case 6: {
        const std::int32_t x = pixel(s.bytes), y = pixel(s.bytes);
        const double d = depth(s.bytes), f = factor(s.bytes);
        c.zoomAt(s.judge, oracle::ScreenPoint{x, y, d}, f);
        return s.service.planarCameraZoomWithAnchor_Screen(s.result, s.state, x, y, d, f);
    }
    case 7: {
        const api::Vector anchor = s.takenVector();
        const double f = factor(s.bytes);
        c.zoomAt(s.judge, real(anchor), f);
        return s.service.planarCameraZoomWithAnchor_World(s.result, s.state, anchor, f);
    }
    case 8: {
        const std::int32_t x = pixel(s.bytes), y = pixel(s.bytes), dx = pixel(s.bytes), dy = pixel(s.bytes);
        const double d = depth(s.bytes);
        c.pan(s.judge, {x, y, d}, dx, dy);
        return s.service.planarCameraPanWithAnchor(s.result, s.state, x, y, d, dx, dy);
    }
    case 9: {
        const api::Vector centre = s.takenVector();
        const std::int32_t x1 = std::abs(pixel(s.bytes)), y1 = std::abs(pixel(s.bytes));
        const std::int32_t x2 = std::abs(pixel(s.bytes)), y2 = std::abs(pixel(s.bytes));
        c.arcball(s.judge, real(centre), static_cast<std::uint32_t>(x1), static_cast<std::uint32_t>(y1),
                  static_cast<std::uint32_t>(x2), static_cast<std::uint32_t>(y2));
        return s.service.planarCameraArcballRotation(s.result, s.state, centre, x1, y1, x2, y2);
    }
    case 10: {
        const double x = depth(s.bytes), y = depth(s.bytes), w = factor(s.bytes), h = factor(s.bytes);
        const auto rx = static_cast<std::int32_t>(s.bytes.word(2) % 4096),
                   ry = static_cast<std::int32_t>(s.bytes.word(2) % 4096);
        c.surface.update({x, y, w, h, 0.0L, 1.0L}, static_cast<std::uint32_t>(rx), static_cast<std::uint32_t>(ry));
        return changeSurface(
            s, [&](auto& r, const auto& state) { s.service.surfaceUpdate(r, state, x, y, w, h, 0.0, 1.0, rx, ry); });
    }
    default: {
        const auto rx = static_cast<std::int32_t>(s.bytes.word(2) % 4096);
        c.surface.resize(static_cast<std::uint32_t>(rx), 0);
        return changeSurface(s, [&](auto& r, const auto& state) { s.service.surfaceSetResolutionX(r, state, rx); });
    }
    }
}

// The comparison.

[[noreturn]] void differs(const char* what, Real got, Real expected, Real allowed) {
    std::array<char, 200> line{};
    std::snprintf(line.data(), line.size(), "%s: got %.21Lg, expected %.21Lg, differ by %.3Lg, allowed is %.3Lg", what,
                  got, expected, std::abs(got - expected), allowed);
    broken(line.data());
}

void compare(const char* what, Real got, Real expected, Real allowed) {
    if (!(std::abs(got - expected) <= allowed)) {
        differs(what, got, expected, allowed);
    }
}

template <class Matrix>
void compareMatrix(const char* what, const Matrix& got, const Matrix& expected, Real allowed, Real relative) {
    for (std::size_t r = 0; r < got.size(); ++r) {
        for (std::size_t k = 0; k < got.size(); ++k) {
            compare(what, got[r][k], expected[r][k], allowed + relative * std::abs(expected[r][k]));
        }
    }
}

void compareCameras(const Step& step, const oracle::Camera& got) {
    const oracle::Camera& expected = step.camera;
    const Real e = bound * step.judge.condition;
    const Real place = e * (step.scale + length(expected.view.eye));
    compareMatrix("rotation", got.view.rotation, expected.view.rotation, e, 0.0L);
    compareMatrix("view transform matrix", got.view.toWorld, expected.view.toWorld, place, e);
    compareMatrix("view matrix", got.view.toView, expected.view.toView, place, e);
    compare("eye x", got.view.eye.x, expected.view.eye.x, place);
    compare("eye y", got.view.eye.y, expected.view.eye.y, place);
    compare("eye z", got.view.eye.z, expected.view.eye.z, place);

    const oracle::Projection& p = expected.projection;
    require(got.projection.orthographic == p.orthographic, "the type of the projection");
    const Real sides = e * std::max({std::abs(p.l), std::abs(p.r), std::abs(p.b), std::abs(p.t)});
    compare("left", got.projection.l, p.l, sides);
    compare("right", got.projection.r, p.r, sides);
    compare("bottom", got.projection.b, p.b, sides);
    compare("top", got.projection.t, p.t, sides);
    compare("near", got.projection.n, p.n, e * p.n);
    compare("far", got.projection.f, p.f, e * p.f);
    compareMatrix("projection matrix", got.projection.matrix, p.matrix, e, e);
    compareMatrix("inverse projection matrix", got.projection.inverse, p.inverse, sides / std::min(p.n, 1.0L), e);

    const oracle::Surface& s = expected.surface;
    require(got.surface.resolutionX == s.resolutionX && got.surface.resolutionY == s.resolutionY, "the resolution");
    compareMatrix("viewport matrix", got.surface.matrix, s.matrix, bound, bound);
    compareMatrix("inverse viewport matrix", got.surface.inverse, s.inverse, bound, bound);
}

void compareVector(const char* what, const api::VectorResult& got, const oracle::Vector& expected, Real allowed) {
    require(got.mResult.mError == 0, "a question with arguments of the right shape succeeds");
    compare(what, got.mValue.mData[0], expected.x, allowed);
    compare(what, got.mValue.mData[1], expected.y, allowed);
    compare(what, got.mValue.mData[2], expected.z, allowed);
}

/// The operations that answer with numbers instead of a camera.
void questionStep(Step& s, unsigned which) {
    static api::VectorResult answer;
    static api::DoubleResult number;
    const oracle::Camera& c = s.camera;
    const api::Vector v = s.takenVector();
    const Real place = bound * (s.scale + length(c.view.eye)) * 4.0L;
    switch (which) {
    case 0:
        s.service.transformWorldPointToViewPoint(answer, s.state, v);
        return compareVector("world point to view", answer, c.view.pointToView(real(v)), place);
    case 1:
        s.service.transformWorldVectorToViewVector(answer, s.state, v);
        return compareVector("world vector to view", answer, c.view.vectorToView(real(v)), place);
    case 2:
        s.service.transformViewPointToWorldPoint(answer, s.state, v);
        return compareVector("view point to world", answer, c.view.pointToWorld(real(v)), place);
    case 3:
        s.service.transformViewVectorToWorldVector(answer, s.state, v);
        return compareVector("view vector to world", answer, c.view.vectorToWorld(real(v)), place);
    case 4: {
        const oracle::Vector expected = c.viewToScreen(s.judge, real(v));
        s.service.transformViewPointToScreenPoint(answer, s.state, v);
        require(answer.mResult.mError == 0, "a question with arguments of the right shape succeeds");
        if (s.judge.certain) {
            require(answer.mValue.mData[0] == static_cast<double>(expected.x), "view point to screen: pixel x");
            require(answer.mValue.mData[1] == static_cast<double>(expected.y), "view point to screen: pixel y");
            const Real scale = std::abs(c.projection.matrix[2][2]) + std::abs(c.projection.matrix[2][3]) + 1.0L;
            compare("view point to screen: depth", answer.mValue.mData[2], expected.z,
                    bound * s.judge.condition * (scale + std::abs(expected.z)) * 16.0L);
        }
        return;
    }
    case 5: {
        const oracle::ScreenPoint point{pixel(s.bytes), pixel(s.bytes), depth(s.bytes)};
        const oracle::Vector expected = c.screenToView(s.judge, point);
        s.service.transformScreenPointToViewPoint(answer, s.state, point.x, point.y, static_cast<double>(point.depth));
        if (s.judge.certain) {
            compareVector("screen point to view", answer, expected,
                          bound * s.judge.condition * 4.0L * (1.0L + length(expected) + c.projection.n));
        }
        return;
    }
    default: {
        const bool horizontal = which == 6;
        const oracle::Projection& p = c.projection;
        const Real expected = horizontal ? p.angle(s.judge, p.l, p.r) : p.angle(s.judge, p.b, p.t);
        horizontal ? s.service.projectionGetHFoV(number, s.state.mProjectionState)
                   : s.service.projectionGetVFoV(number, s.state.mProjectionState);
        require(number.mResult.mError == 0, "a getter succeeds");
        if (p.orthographic) {
            require(number.mValue == 0.0, "an orthographic projection has no angle");
        } else if (s.judge.certain) {
            compare("field of view", number.mValue, expected, bound * s.judge.condition);
        }
        return;
    }
    }
}

/// Whether a camera is one that numbers of a double's precision describe well.
bool isOrdinary(const oracle::Camera& camera) {
    const oracle::Projection& p = camera.projection;
    const auto within = [](Real value, Real low, Real high) { return value >= low && value <= high; };
    return length(camera.view.eye) < 1e4L && within(p.n, 1e-4L, 1e4L) && within(p.f / p.n, 1.001L, 1e7L) &&
           within(p.r - p.l, 1e-4L, 1e4L) && within(p.t - p.b, 1e-4L, 1e4L) &&
           (std::abs(p.l) + std::abs(p.r)) < 100.0L * (p.r - p.l) &&
           (std::abs(p.b) + std::abs(p.t)) < 100.0L * (p.t - p.b);
}

} // namespace
} // namespace camera::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace camera::fuzz;
    static const std::unique_ptr<qel::api::base::BaseAPIIf> instance(createComponentInstance());
    static auto* const service = dynamic_cast<api::CameraAPIIf*>(instance.get());
    static const api::PlanarCameraStateResult pristine = [] {
        api::PlanarCameraStateResult result;
        service->planarCameraCreateDefault(result);
        return result;
    }();
    static std::array<api::PlanarCameraStateResult, 2> results;
    results[0] = pristine;

    Bytes bytes(data, size);
    for (std::size_t i = 0; i < mostSteps && !bytes.empty(); ++i) {
        Step step{
            *service, results[1], results[0].mValue, camera::oracle::Image(results[0].mValue.mPrivate).camera(), {},
            1.0L,     bytes};
        const unsigned what = bytes.byte();
        switch (what % 4) {
        case 0: viewStep(step, what / 4 % 11); break;
        case 1: projectionStep(step, what / 4 % 10); break;
        case 2: cameraStep(step, what / 4 % 12); break;
        default: questionStep(step, what / 4 % 8); continue;
        }
        require(results[1].mResult.mError == 0, "a call with arguments of the right shape succeeds");
        const camera::oracle::Camera got = camera::oracle::Image(results[1].mValue.mPrivate).camera();
        // What should have come decides where it is known: an answer that is far off must not end the input unseen.
        if (!isOrdinary(step.judge.certain ? step.camera : got)) {
            break;
        }
        if (step.judge.certain) {
            compareCameras(step, got);
        }
        std::swap(results[0], results[1]);
    }
    return 0;
}
