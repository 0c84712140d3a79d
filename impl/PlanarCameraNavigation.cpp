// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>

#include "impl/PlanarCamera.h"
#include "impl/SpaceTransforms.h"
#include "math/Pipeline.h"
#include "math/Tolerances.h"

namespace qel::api::camera::impl {

using math::Frustum;
using math::Vec3;

namespace {

/// The depth assumed where both corners of a zoom rectangle show background.
constexpr double backgroundDepth = 0.9;

/// The smallest width and height of a zoom rectangle, in view space.
constexpr double smallestExtent = 0.001;

/// Adds as the hardware does, wrapping around instead of overflowing.
std::int32_t wrappingSum(const std::int32_t a, const std::int32_t b) noexcept {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

/// False for a NaN too.
bool fitsInt32(const double value) noexcept {
    return value >= static_cast<double>(std::numeric_limits<std::int32_t>::min()) &&
           value <= static_cast<double>(std::numeric_limits<std::int32_t>::max());
}

/// Where the line from the eye through the point meets the near plane.
Vec3 projectToNear(const Vec3& point, const double nearDist) noexcept { return point * (-nearDist / point.z); }

/// The point of the unit sphere that a pixel of the window stands for.
///
/// Bell's variant of Shoemake's arcball (Graphics Interface 1992): a sphere that runs out into a hyperbolic sheet,
/// so that no pixel is off the ball. The sheet begins at radius 0.5, nearer than where the two surfaces meet
/// smoothly, and the aspect ratio is truncated to a whole number; recorded drags depend on both.
Vec3 arcballPoint(const Surface& surface, const Pixel& pixel) {
    const std::uint32_t resolutionX = surface.resolutionX();
    const std::uint32_t resolutionY = surface.resolutionY();
    if (resolutionY == 0) {
        throw std::domain_error("the surface's resolution y: expected at least 1, got 0");
    }
    const math::Viewport& viewport = surface.viewport();
    const double scale = 1.0 / static_cast<double>(std::min(resolutionX, resolutionY));
    const std::uint32_t wholeAspect = resolutionX / resolutionY;
    const double left = static_cast<double>(resolutionX) * viewport.x;
    const double bottom = static_cast<double>(resolutionY) * viewport.y;
    const double x = ((static_cast<double>(pixel.x) - left) * scale) * 2.0 - static_cast<double>(wholeAspect);
    const double y = ((static_cast<double>(pixel.y) - bottom) * scale) * 2.0 - 1.0;
    const double radius = std::sqrt(x * x + y * y);
    if (radius > 0.5) {
        Vec3 point{x, y, 0.5 / radius};
        math::normalise3(point);
        return point;
    }
    return {x, y, std::sqrt(1.0 - radius * radius)};
}

} // namespace

void PlanarCamera::zoomArea(ScreenPoint first, ScreenPoint second) {
    if (first.x == second.x && first.y == second.y) {
        return;
    }
    if (first.depth < 0.0 || first.depth > 1.0 || second.depth < 0.0 || second.depth > 1.0) {
        return;
    }
    if (std::abs(first.depth - second.depth) <= math::tolerance &&
        std::abs(first.depth - mSurface.viewport().depthMax) <= math::tolerance) {
        first.depth = backgroundDepth;
        second.depth = backgroundDepth;
    }

    const Frustum frustum = mProjection.frustum();
    const bool perspective = !mProjection.isOrthographic();
    Vec3 p1 = screenToView(*this, first);
    Vec3 p2 = screenToView(*this, second);
    const double distance = -std::max(p1.z, p2.z); // of the nearer corner, positive ahead
    if (perspective) {
        p1 = projectToNear(p1, frustum.nearDist);
        p2 = projectToNear(p2, frustum.nearDist);
    }

    const double xMin = std::min(p1.x, p2.x);
    const double xMax = std::max(p1.x, p2.x);
    const double yMin = std::min(p1.y, p2.y);
    const double yMax = std::max(p1.y, p2.y);
    double width = xMax - xMin;
    double height = yMax - yMin;
    if (width < smallestExtent) {
        width = smallestExtent;
    }
    if (height < smallestExtent) {
        height = smallestExtent;
    }
    const double aspect = (frustum.right - frustum.left) / (frustum.top - frustum.bottom);
    if (width > aspect * height) {
        height = width / aspect;
    } else {
        width = aspect * height;
    }
    mProjection.setFrustum({-width / 2.0, width / 2.0, -height / 2.0, height / 2.0, frustum.nearDist, frustum.farDist},
                           !perspective);

    double centreX = (xMin + xMax) / 2.0;
    double centreY = (yMin + yMax) / 2.0;
    if (perspective) {
        const double scale = distance / frustum.nearDist;
        centreX *= scale;
        centreY *= scale;
    }
    mView.translateInViewSpace({centreX, centreY, 0.0});
}

void PlanarCamera::zoomWithAnchor(const ScreenPoint& anchor, const double factor) {
    const Vec3 before = screenToView(*this, anchor);
    mProjection.zoom(factor);
    const Vec3 after = screenToView(*this, anchor);
    mView.translateInViewSpace({before.x - after.x, before.y - after.y, 0.0});
}

void PlanarCamera::zoomWithAnchor(const Vec3& anchor, const double factor) {
    const Vec3 pixel = worldToScreen(*this, anchor); // whole pixels already: the anchor is snapped on purpose
    if (!fitsInt32(pixel.x) || !fitsInt32(pixel.y)) {
        return;
    }
    zoomWithAnchor(ScreenPoint{static_cast<std::int32_t>(pixel.x), static_cast<std::int32_t>(pixel.y), pixel.z},
                   factor);
}

void PlanarCamera::panWithAnchor(const ScreenPoint& anchor, const std::int32_t dx, const std::int32_t dy) {
    const Vec3 from = screenToView(*this, anchor);
    const Vec3 to = screenToView(*this, {wrappingSum(anchor.x, dx), wrappingSum(anchor.y, dy), anchor.depth});
    mView.translateInViewSpace({from.x - to.x, from.y - to.y, 0.0});
}

void PlanarCamera::arcballRotation(const Vec3& centre, const Pixel& from, const Pixel& to) {
    const Vec3 start = arcballPoint(mSurface, from);
    const Vec3 end = arcballPoint(mSurface, to);
    Vec3 axis = cross(end, start);
    math::normalise3(axis);
    const double angle = std::acos(dot(start, end)); // not clamped: rounding may give NaN, which turns nothing
    mView.rotateAboutAxis(centre, mView.rotation() * axis, angle, 0.0, View::PoleLimit::off);
}

} // namespace qel::api::camera::impl
