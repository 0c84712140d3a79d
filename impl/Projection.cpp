// SPDX-License-Identifier: Apache-2.0
#include "impl/Projection.h"

#include <cmath>

#include "math/Tolerances.h"
#include "math/Vectors.h"

namespace qel::api::camera::impl {

using math::Frustum;
using math::Mat4;
using math::tolerance;

namespace {

/// The lower and upper end of an extent on the near plane.
struct Extent {
    double low;
    double high;
};

/// The extent seen under an angle whose centre direction is that of the given extent.
Extent extentOfAngle(const Extent& current, const double angle, const double nearDist) {
    const double centre = std::atan(((current.low + current.high) / 2.0) / nearDist);
    return {std::tan(centre - angle / 2.0) * nearDist, std::tan(centre + angle / 2.0) * nearDist};
}

} // namespace

Projection::Projection() { setPerspective(0.7853981633974483, 1.3333333333333333, 0.01, 10000.0); }

void Projection::setPerspective(const double verticalFoV, const double aspectRatio, const double nearDist,
                                const double farDist) {
    if (tolerance >= verticalFoV || tolerance >= aspectRatio || tolerance >= nearDist || nearDist >= farDist) {
        return;
    }
    const double top = std::tan(verticalFoV / 2.0) * nearDist;
    const double right = top * aspectRatio;
    mBlock.frustum = {-right, right, -top, top, nearDist, farDist};
    mBlock.type.value = 0;
    rebuildMatrices();
}

void Projection::setOrthographic(const double width, const double height, const double nearDist, const double farDist) {
    if (tolerance >= width || tolerance >= height || tolerance >= nearDist || nearDist >= farDist) {
        return;
    }
    mBlock.frustum = {-width / 2.0, width / 2.0, -height / 2.0, height / 2.0, nearDist, farDist};
    mBlock.type.value = 1;
    rebuildMatrices();
}

void Projection::setHorizontalFoV(const double angle) {
    if (isOrthographic() || tolerance >= angle) {
        return;
    }
    const auto& [l, r, b, t, n, f] = mBlock.frustum;
    const double aspect = (r - l) / (t - b);
    const auto [left, right] = extentOfAngle({l, r}, angle, n);
    const double halfHeight = ((right - left) / aspect) / 2.0;
    const double centre = (b + t) / 2.0;
    setFrustum({left, right, centre - halfHeight, centre + halfHeight, n, f}, false);
}

void Projection::setVerticalFoV(const double angle) {
    if (isOrthographic() || tolerance >= angle) {
        return;
    }
    const auto& [l, r, b, t, n, f] = mBlock.frustum;
    const double aspect = (r - l) / (t - b);
    const auto [bottom, top] = extentOfAngle({b, t}, angle, n);
    const double halfWidth = ((top - bottom) * aspect) / 2.0;
    const double centre = (l + r) / 2.0;
    setFrustum({centre - halfWidth, centre + halfWidth, bottom, top, n, f}, false);
}

void Projection::setFoV(const double horizontal, const double vertical) {
    if (isOrthographic() || tolerance >= horizontal || tolerance >= vertical) {
        return;
    }
    const auto& [l, r, b, t, n, f] = mBlock.frustum;
    const auto [left, right] = extentOfAngle({l, r}, horizontal, n);
    const auto [bottom, top] = extentOfAngle({b, t}, vertical, n);
    setFrustum({left, right, bottom, top, n, f}, false);
}

void Projection::setAspectRatio(const double aspectRatio) {
    if (tolerance >= aspectRatio) {
        return;
    }
    const auto& [l, r, b, t, n, f] = mBlock.frustum;
    const double scale = ((r - l) / (t - b)) / aspectRatio;
    setFrustum({l, r, b * scale, t * scale, n, f}, isOrthographic());
}

void Projection::setNear(const double nearDist) {
    if (tolerance >= nearDist || nearDist >= mBlock.frustum.farDist) {
        return;
    }
    Frustum frustum = mBlock.frustum;
    if (!isOrthographic()) {
        const double scale = nearDist / mBlock.frustum.nearDist;
        frustum = withSidesScaled(frustum, scale, scale);
    }
    frustum.nearDist = nearDist;
    setFrustum(frustum, isOrthographic());
}

void Projection::setFar(const double farDist) {
    if (mBlock.frustum.nearDist >= farDist) {
        return;
    }
    Frustum frustum = mBlock.frustum;
    frustum.farDist = farDist;
    setFrustum(frustum, isOrthographic());
}

void Projection::setProjectionMatrix(const Mat4& matrix, const bool orthographic) {
    mBlock.matrix = matrix;
    mBlock.type.value = orthographic ? 1 : 0;
    // mBlock.inverse is left alone on purpose, and near and far keep the sign that they come with: see the declaration.
    mBlock.frustum.left = math::transformPoint(mBlock.inverse, {-1.0, 0.0, -1.0}).x;
    mBlock.frustum.right = math::transformPoint(mBlock.inverse, {1.0, 0.0, -1.0}).x;
    mBlock.frustum.bottom = math::transformPoint(mBlock.inverse, {0.0, -1.0, -1.0}).y;
    mBlock.frustum.top = math::transformPoint(mBlock.inverse, {0.0, 1.0, -1.0}).y;
    mBlock.frustum.nearDist = math::transformPoint(mBlock.inverse, {0.0, 0.0, -1.0}).z;
    mBlock.frustum.farDist = math::transformPoint(mBlock.inverse, {0.0, 0.0, 1.0}).z;
}

void Projection::zoom(const double factor) {
    if (0.0 > factor) {
        return;
    }
    const auto& [l, r, b, t, n, f] = mBlock.frustum;
    const double centreX = (l + r) / 2.0;
    const double centreY = (b + t) / 2.0;
    const double halfWidth = (r - l) * factor / 2.0;
    const double halfHeight = (t - b) * factor / 2.0;
    setFrustum({centreX - halfWidth, centreX + halfWidth, centreY - halfHeight, centreY + halfHeight, n, f},
               isOrthographic());
}

void Projection::rebuildMatrices() {
    mBlock.matrix = isOrthographic() ? math::makeOrtho(mBlock.frustum) : math::makeFrustum(mBlock.frustum);
    mBlock.inverse =
        isOrthographic() ? math::makeOrthoInverse(mBlock.frustum) : math::makeFrustumInverse(mBlock.frustum);
}

} // namespace qel::api::camera::impl
