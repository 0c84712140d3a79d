// SPDX-License-Identifier: Apache-2.0
// The operations on a projection and on a surface.

#include "fuzz/differential/DifferentialSteps.h"

namespace camera::fuzz::differential {
namespace {

api::ProjectionType::type typeOf(bool orthographic) {
    return orthographic ? api::ProjectionType::ORTHOGRAPHIC : api::ProjectionType::PERSPECTIVE;
}

constexpr auto createDefaultProjection = [](Step& s, auto run) {
    s.camera.projection = oracle::Projection::createDefault();
    run();
};

template <bool fromDefault>
constexpr auto setFrustum = [](Step& s, auto run) {
    const api::Frustum f = frustum(s.bytes);
    const bool orthographic = s.bytes.byte() % 2 != 0;
    if (fromDefault) {
        s.camera.projection = oracle::Projection::createDefault();
    }
    s.camera.projection.setFrustum(s.judge, real(f), orthographic);
    run(f, typeOf(orthographic));
};

/// An operation with one number.
template <void (oracle::Projection::*member)(oracle::Judgement&, Real), int scale = 1>
constexpr auto setNumber = [](Step& s, auto run) {
    const double value = scale * factor(s.bytes);
    (s.camera.projection.*member)(s.judge, value);
    run(value);
};

constexpr auto setFoV = [](Step& s, auto run) {
    const double horizontal = factor(s.bytes), vertical = factor(s.bytes);
    s.camera.projection.setFoV(s.judge, horizontal, vertical);
    run(horizontal, vertical);
};

constexpr auto updatePerspective = [](Step& s, auto run) {
    const double angle = factor(s.bytes), aspect = factor(s.bytes), n = factor(s.bytes), f = n + 16.0 * factor(s.bytes);
    s.camera.projection.setPerspective(s.judge, angle, aspect, n, f);
    s.judge.cancels(1.0L, std::cos(angle / 2.0L) * std::cos(angle / 2.0L));
    run(angle, aspect, n, f);
};

constexpr auto updateOrthographic = [](Step& s, auto run) {
    const double width = factor(s.bytes), height = factor(s.bytes), n = factor(s.bytes);
    const double f = n + 16.0 * factor(s.bytes);
    s.camera.projection.setOrthographic(s.judge, width, height, n, f);
    run(width, height, n, f);
};

constexpr auto setProjectionMatrix = [](Step& s, auto run) {
    const api::Matrix matrix = s.takenMatrix();
    const bool orthographic = s.bytes.byte() % 2 != 0;
    s.camera.projection.setMatrix(s.judge, real(matrix), orthographic);
    run(matrix, typeOf(orthographic));
};

constexpr auto createDefaultSurface = [](Step& s, auto run) {
    s.camera.surface = oracle::Surface::createDefault();
    run();
};

template <bool fromDefault>
constexpr auto updateSurface = [](Step& s, auto run) {
    const api::Viewport v = viewport(s.bytes);
    const std::int32_t x = resolution(s.bytes), y = resolution(s.bytes);
    if (fromDefault) {
        s.camera.surface = oracle::Surface::createDefault();
    }
    s.camera.surface.update(real(v), asUnsigned(x), asUnsigned(y));
    run(v.mX, v.mY, v.mWidth, v.mHeight, v.mDepthMin, v.mDepthMax, x, y);
};

constexpr auto setViewport = [](Step& s, auto run) {
    const api::Viewport v = viewport(s.bytes);
    s.camera.surface.setViewport(real(v));
    run(v);
};

template <bool isX>
constexpr auto setResolution = [](Step& s, auto run) {
    const std::int32_t pixels = resolution(s.bytes);
    s.camera.surface.resize(isX ? asUnsigned(pixels) : 0, isX ? 0 : asUnsigned(pixels));
    run(pixels);
};

} // namespace

std::span<const Entry> projectionSteps() {
    using oracle::Projection;
    static constexpr std::array entries{
        entry<"projectionCreateDefault">(projection, createDefaultProjection),
        entry<"projectionCreate">(projection, setFrustum<true>),
        entry<"projectionSetFrustum">(projection, setFrustum<false>),
        entry<"projectionSetHFoV">(projection, setNumber<&Projection::setHorizontalFoV>),
        entry<"projectionSetVFoV">(projection, setNumber<&Projection::setVerticalFoV>),
        entry<"projectionSetFoV">(projection, setFoV),
        entry<"projectionSetAspectRatio">(projection, setNumber<&Projection::setAspect>),
        entry<"projectionSetNear">(projection, setNumber<&Projection::setNear>),
        entry<"projectionSetFar">(projection, setNumber<&Projection::setFar, 64>),
        entry<"projectionUpdatePerspective">(projection, updatePerspective),
        entry<"projectionUpdateOrthographic">(projection, updateOrthographic),
        entry<"projectionSetProjectionMatrix">(projection, setProjectionMatrix),
        entry<"projectionZoom">(projection, setNumber<&Projection::zoom>),
        entry<"surfaceCreateDefault">(surface, createDefaultSurface),
        entry<"surfaceCreate">(surface, updateSurface<true>),
        entry<"surfaceSetViewport">(surface, setViewport),
        entry<"surfaceSetResolutionX">(surface, setResolution<true>),
        entry<"surfaceSetResolutionY">(surface, setResolution<false>),
        entry<"surfaceUpdate">(surface, updateSurface<false>),
    };
    return entries;
}

} // namespace camera::fuzz::differential
