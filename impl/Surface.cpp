// SPDX-License-Identifier: Apache-2.0
#include "impl/Surface.h"

#include "math/Tolerances.h"

namespace qel::api::camera::impl {

using math::Mat4;
using math::tolerance;
using math::Viewport;

Surface::Surface() { update({0.0, 0.0, 1.0, 1.0, 0.0, 1.0}, 640, 480); }

void Surface::update(const Viewport& viewport, const std::uint32_t resolutionX, const std::uint32_t resolutionY) {
    if (0.0 > viewport.x || viewport.x > 1.0 || 0.0 > viewport.y || viewport.y > 1.0 || tolerance >= viewport.width ||
        tolerance >= viewport.height || resolutionX == 0 || resolutionY == 0) {
        return;
    }
    mBlock.viewport = viewport;
    mBlock.resolutionX = resolutionX;
    mBlock.resolutionY = resolutionY;
    rebuildMatrices();
}

void Surface::setResolution(const std::uint32_t resolutionX, const std::uint32_t resolutionY) {
    if (resolutionX == 0 || resolutionY == 0) {
        return;
    }
    mBlock.resolutionX = resolutionX;
    mBlock.resolutionY = resolutionY;
    rebuildMatrices();
}

void Surface::setResolutionX(const std::uint32_t resolutionX) {
    if (resolutionX == 0) {
        return;
    }
    mBlock.resolutionX = resolutionX;
    rebuildMatrices();
}

void Surface::setResolutionY(const std::uint32_t resolutionY) {
    if (resolutionY == 0) {
        return;
    }
    mBlock.resolutionY = resolutionY;
    rebuildMatrices();
}

void Surface::rebuildMatrices() {
    mBlock.matrix = math::makeViewport(mBlock.viewport, mBlock.resolutionX, mBlock.resolutionY);
    mBlock.inverse = math::makeViewportInverse(mBlock.viewport, mBlock.resolutionX, mBlock.resolutionY);
}

} // namespace qel::api::camera::impl
