// SPDX-License-Identifier: Apache-2.0
#include "host/tour/Stage.h"

#include <cmath>
#include <limits>

namespace qel::host {
namespace {

/// Of the box's diagonal.
constexpr double marginAroundBox = 0.02;
/// Of the radius of the sphere around the box: how near the near plane may come to an eye inside the sphere.
constexpr double nearestNear = 0.02;

/// Whether the model covers a pixel and all its neighbours, so that the point seen there is not one of its edge.
bool isCovered(const DepthImage& depths, int x, int y, float background) {
    for (int row = y - 1; row <= y + 1; ++row) {
        for (int column = x - 1; column <= x + 1; ++column) {
            if (!(depths.at(column, row) < background)) {
                return false;
            }
        }
    }
    return true;
}

} // namespace

void Stage::fitBox() {
    const Box room = box.grown(marginAroundBox * 2.0 * box.radius());
    const auto& [a, b] = std::pair(room.minimum, room.maximum);
    change<"planarCameraFitWorldSpaceBoundingBox">(a[0], a[1], a[2], b[0], b[1], b[2]);
}

void Stage::updateClippingPlanes() {
    change<"planarCameraUpdateClippingPlanes">(toVector(box.centre()), box.radius(), box.radius() * nearestNear);
}

void Stage::lookAlong(const Vec3& axis, const Vec3& up) {
    change<"planarCameraSetViewAlongWorldAxis">(toVector(box.centre()), toVector(axis), toVector(up));
}

void Stage::switchProjectionType() {
    const auto& [a, b] = std::pair(box.minimum, box.maximum);
    change<"planarCameraSwitchProjectionType">(a[0], a[1], a[2], b[0], b[1], b[2]);
}

Picked Stage::pick(double x, double y) {
    const DepthImage depths = mRenderer.drawDepth(camera);
    const auto background = static_cast<float>(camera.mSurfaceState.mViewport.mDepthMax);
    Picked found;
    double nearest = std::numeric_limits<double>::infinity();
    for (int row = 1; row + 1 < depths.height; ++row) {
        for (int column = 1; column + 1 < depths.width; ++column) {
            const double distance = std::hypot(column - x * depths.width, row - y * depths.height);
            if (distance < nearest && isCovered(depths, column, row, background)) {
                nearest = distance;
                found.x = column;
                found.y = row;
                found.depth = static_cast<double>(depths.at(column, row));
            }
        }
    }
    if (!std::isfinite(nearest)) {
        const Vec3 centre = toVec3(service.call<"transformWorldPointToScreenPoint">(camera, toVector(box.centre())));
        const bool seen = centre[0] >= 0.0 && centre[0] < width && centre[1] >= 0.0 && centre[1] < height;
        found.x = seen ? static_cast<std::int32_t>(centre[0]) : width / 2;
        found.y = seen ? static_cast<std::int32_t>(centre[1]) : height / 2;
        found.depth = seen ? centre[2] : 0.5;
    }
    found.point = toVec3(service.call<"transformScreenPointToWorldPoint">(camera, found.x, found.y, found.depth));
    return found;
}

} // namespace qel::host
