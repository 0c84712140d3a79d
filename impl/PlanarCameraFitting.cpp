// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <cmath>

#include "impl/PlanarCamera.h"
#include "math/Pipeline.h"
#include "math/Tolerances.h"

namespace qel::api::camera::impl {

using math::Frustum;
using math::Vec3;

namespace {

/// Half of the 45 degrees that a fitted box's diagonal fills.
constexpr double halfFittingAngle = 0.39269908169872414;

/// Larger than any coordinate of a box in practice; kept at the largest float, in a double: saved cameras depend on it.
constexpr double largestCoordinate = 3.4028234663852886e38;

} // namespace

/// The box around the eight corners as the view sees them. A corner coordinate that is NaN is passed over, so the
/// corner is the second argument of min and max.
Box PlanarCamera::toViewSpace(const Box& worldBox) const noexcept {
    const auto& [a, b] = worldBox;
    if (isNegligible(b - a)) {
        const Vec3 point = mView.worldToViewPoint(a);
        return {point, point};
    }
    Vec3 low{largestCoordinate, largestCoordinate, largestCoordinate};
    Vec3 high = -low;
    for (const double x : {a.x, b.x}) {
        for (const double y : {a.y, b.y}) {
            for (const double z : {a.z, b.z}) {
                const Vec3 corner = mView.worldToViewPoint({x, y, z});
                low = {std::min(low.x, corner.x), std::min(low.y, corner.y), std::min(low.z, corner.z)};
                high = {std::max(high.x, corner.x), std::max(high.y, corner.y), std::max(high.z, corner.z)};
            }
        }
    }
    return {low, high};
}

void PlanarCamera::fitWorldSpaceBoundingBox(const Box& box) {
    if (isNegligible(box.second - box.first)) {
        return;
    }
    fitViewSpaceBoundingBox(toViewSpace(box));
}

void PlanarCamera::fitViewSpaceBoundingBox(const Box& box) {
    const Vec3 size = box.second - box.first;
    if (isNegligible(size)) {
        return;
    }
    const double diagonal = length(size);
    const double halfDiagonal = diagonal * 0.5;
    const double diagonalAcross = std::sqrt(size.x * size.x + size.y * size.y);
    const double distance = (diagonalAcross * 0.5) / std::tan(halfFittingAngle);

    const Vec3 centre{(box.first.x + box.second.x) / 2.0, (box.first.y + box.second.y) / 2.0,
                      (box.first.z + box.second.z) / 2.0};
    const Vec3 offset{centre.x, centre.y, centre.z + halfDiagonal + distance};
    if (length(offset) > math::tolerance) { // a NaN length moves nothing
        mView.translateInViewSpace(offset);
    }

    double halfWidth = size.x * 0.5;
    double halfHeight = size.y * 0.5;
    if (!mProjection.isOrthographic()) {
        // The front face, as it appears on the near plane that the new frustum has.
        const double scale = distance / (halfDiagonal + distance - size.z * 0.5);
        halfWidth *= scale;
        halfHeight *= scale;
    }
    const double aspect = mProjection.aspectRatio();
    if (halfWidth > aspect * halfHeight) {
        halfHeight = halfWidth / aspect;
    } else {
        halfWidth = aspect * halfHeight;
    }
    mProjection.setFrustum({-halfWidth, halfWidth, -halfHeight, halfHeight, distance, diagonal + distance},
                           mProjection.isOrthographic());
}

void PlanarCamera::switchProjectionType(const Box& box) {
    if (isNegligible(box.second - box.first)) {
        return;
    }
    const Frustum& frustum = mProjection.frustum();
    const double halfHeight = (frustum.top - frustum.bottom) * 0.5;
    const Box viewBox = toViewSpace(box);
    const double centreZ = (viewBox.first.z + viewBox.second.z) * 0.5;
    const double distance = centreZ > frustum.nearDist ? frustum.nearDist : -centreZ;

    const bool becomesOrthographic = !mProjection.isOrthographic();
    const double newHalfHeight =
        becomesOrthographic ? distance * (halfHeight / frustum.nearDist) : (halfHeight / distance) * frustum.nearDist;
    const double scale = newHalfHeight / halfHeight;
    mProjection.setFrustum(withSidesScaled(frustum, scale, scale), becomesOrthographic);
}

} // namespace qel::api::camera::impl
