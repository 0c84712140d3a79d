// SPDX-License-Identifier: Apache-2.0
#include "impl/PlanarCamera.h"

#include <iostream>

#include "math/Pipeline.h"
#include "math/Tolerances.h"

namespace qel::api::camera::impl {

void PlanarCamera::updateWindowSize(const std::uint32_t width, const std::uint32_t height) {
    if (width == 0 || height == 0) {
        return;
    }
    const double scaleX = static_cast<double>(width) / static_cast<double>(mSurface.resolutionX());
    const double scaleY = static_cast<double>(height) / static_cast<double>(mSurface.resolutionY());
    mProjection.setFrustum(withSidesScaled(mProjection.frustum(), scaleX, scaleY), mProjection.isOrthographic());
    mSurface.setResolution(width, height);
}

void PlanarCamera::updateClippingPlanes(const math::Vec3& centre, const double radius, const double minimumNearDist) {
    if (radius <= math::tolerance || minimumNearDist <= math::tolerance) {
        return;
    }
    const double z = mView.worldToViewPoint(centre).z;
    if (z - radius >= 0.0) {
        return;
    }
    math::Frustum frustum = mProjection.frustum();
    double nearDist = -(z + radius) * 0.95;
    if (!(nearDist > minimumNearDist)) { // a NaN gives way to the minimum too
        nearDist = minimumNearDist;
    }
    if (!mProjection.isOrthographic()) {
        const double scale = nearDist / frustum.nearDist;
        frustum = withSidesScaled(frustum, scale, scale);
    }
    frustum.nearDist = nearDist;
    frustum.farDist = -(z - radius) * 1.05;
    mProjection.setFrustum(frustum, mProjection.isOrthographic());
}

void PlanarCamera::updateFromScreen() {
    std::cout << "[PlanarCamera::updateFromScreen] function not yet implemented" << std::endl;
}

void PlanarCamera::updateFromWindow() {
    std::cout << "[PlanarCamera::updateFromWindow] function not yet implemented" << std::endl;
}

std::string PlanarCamera::typeName() const { return "PlanarCamera"; }

} // namespace qel::api::camera::impl
