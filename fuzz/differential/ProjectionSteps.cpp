// SPDX-License-Identifier: Apache-2.0
// The operations on a projection and on a surface.

#include "fuzz/differential/DifferentialSteps.h"

namespace camera::fuzz::differential {
namespace {

api::ProjectionType::type typeOf(bool orthographic) {
    return orthographic ? api::ProjectionType::ORTHOGRAPHIC : api::ProjectionType::PERSPECTIVE;
}

void createDefaultProjection(Step& s) {
    s.camera.projection = oracle::Projection::createDefault();
    change<"projectionCreateDefault">(s);
}

void createProjection(Step& s) {
    const api::Frustum f = frustum(s.bytes);
    const bool orthographic = s.bytes.byte() % 2 != 0;
    s.camera.projection = oracle::Projection::createDefault();
    s.camera.projection.setFrustum(s.judge, real(f), orthographic);
    change<"projectionCreate">(s, f, typeOf(orthographic));
}

void setFrustum(Step& s) {
    const api::Frustum f = frustum(s.bytes);
    const bool orthographic = s.bytes.byte() % 2 != 0;
    s.camera.projection.setFrustum(s.judge, real(f), orthographic);
    change<"projectionSetFrustum">(s, f, typeOf(orthographic));
}

/// An operation with one number.
template <Name name, void (oracle::Projection::*member)(oracle::Judgement&, Real)>
void setNumber(Step& s) {
    const double value = factor(s.bytes);
    (s.camera.projection.*member)(s.judge, value);
    change<name>(s, value);
}

void setFar(Step& s) {
    const double value = 64.0 * factor(s.bytes);
    s.camera.projection.setFar(s.judge, value);
    change<"projectionSetFar">(s, value);
}

void setFoV(Step& s) {
    const double horizontal = factor(s.bytes), vertical = factor(s.bytes);
    s.camera.projection.setFoV(s.judge, horizontal, vertical);
    change<"projectionSetFoV">(s, horizontal, vertical);
}

void updatePerspective(Step& s) {
    const double angle = factor(s.bytes), aspect = factor(s.bytes), n = factor(s.bytes), f = n + 16.0 * factor(s.bytes);
    s.camera.projection.setPerspective(s.judge, angle, aspect, n, f);
    s.judge.cancels(1.0L, std::cos(angle / 2.0L) * std::cos(angle / 2.0L));
    change<"projectionUpdatePerspective">(s, angle, aspect, n, f);
}

void updateOrthographic(Step& s) {
    const double width = factor(s.bytes), height = factor(s.bytes), n = factor(s.bytes);
    const double f = n + 16.0 * factor(s.bytes);
    s.camera.projection.setOrthographic(s.judge, width, height, n, f);
    change<"projectionUpdateOrthographic">(s, width, height, n, f);
}

void setProjectionMatrix(Step& s) {
    const api::Matrix matrix = s.takenMatrix();
    const bool orthographic = s.bytes.byte() % 2 != 0;
    s.camera.projection.setMatrix(s.judge, real(matrix), orthographic);
    change<"projectionSetProjectionMatrix">(s, matrix, typeOf(orthographic));
}

// Surfaces.

void createDefaultSurface(Step& s) {
    s.camera.surface = oracle::Surface::createDefault();
    change<"surfaceCreateDefault">(s);
}

void createSurface(Step& s) {
    const api::Viewport v = viewport(s.bytes);
    const std::int32_t x = resolution(s.bytes), y = resolution(s.bytes);
    s.camera.surface = oracle::Surface::createDefault();
    s.camera.surface.update(real(v), asUnsigned(x), asUnsigned(y));
    change<"surfaceCreate">(s, v.mX, v.mY, v.mWidth, v.mHeight, v.mDepthMin, v.mDepthMax, x, y);
}

void setViewport(Step& s) {
    const api::Viewport v = viewport(s.bytes);
    s.camera.surface.setViewport(real(v));
    change<"surfaceSetViewport">(s, v);
}

void setResolutionX(Step& s) {
    const std::int32_t x = resolution(s.bytes);
    s.camera.surface.resize(asUnsigned(x), 0);
    change<"surfaceSetResolutionX">(s, x);
}

void setResolutionY(Step& s) {
    const std::int32_t y = resolution(s.bytes);
    s.camera.surface.resize(0, asUnsigned(y));
    change<"surfaceSetResolutionY">(s, y);
}

void updateSurface(Step& s) {
    const api::Viewport v = viewport(s.bytes);
    const std::int32_t x = resolution(s.bytes), y = resolution(s.bytes);
    s.camera.surface.update(real(v), asUnsigned(x), asUnsigned(y));
    change<"surfaceUpdate">(s, v.mX, v.mY, v.mWidth, v.mHeight, v.mDepthMin, v.mDepthMax, x, y);
}

} // namespace

std::span<const Entry> projectionSteps() {
    using oracle::Projection;
    static constexpr std::array entries{
        Entry{"projectionCreateDefault", createDefaultProjection, projection},
        Entry{"projectionCreate", createProjection, projection},
        Entry{"projectionSetFrustum", setFrustum, projection},
        Entry{"projectionSetHFoV", setNumber<"projectionSetHFoV", &Projection::setHorizontalFoV>, projection},
        Entry{"projectionSetVFoV", setNumber<"projectionSetVFoV", &Projection::setVerticalFoV>, projection},
        Entry{"projectionSetFoV", setFoV, projection},
        Entry{"projectionSetAspectRatio", setNumber<"projectionSetAspectRatio", &Projection::setAspect>, projection},
        Entry{"projectionSetNear", setNumber<"projectionSetNear", &Projection::setNear>, projection},
        Entry{"projectionSetFar", setFar, projection},
        Entry{"projectionUpdatePerspective", updatePerspective, projection},
        Entry{"projectionUpdateOrthographic", updateOrthographic, projection},
        Entry{"projectionSetProjectionMatrix", setProjectionMatrix, projection},
        Entry{"projectionZoom", setNumber<"projectionZoom", &Projection::zoom>, projection},
    };
    return entries;
}

std::span<const Entry> surfaceSteps() {
    static constexpr std::array entries{
        Entry{"surfaceCreateDefault", createDefaultSurface, surface},
        Entry{"surfaceCreate", createSurface, surface},
        Entry{"surfaceSetViewport", setViewport, surface},
        Entry{"surfaceSetResolutionX", setResolutionX, surface},
        Entry{"surfaceSetResolutionY", setResolutionY, surface},
        Entry{"surfaceUpdate", updateSurface, surface},
    };
    return entries;
}

} // namespace camera::fuzz::differential
