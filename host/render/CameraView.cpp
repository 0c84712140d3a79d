// SPDX-License-Identifier: Apache-2.0
#include "host/render/CameraView.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace qel::host {
namespace {

Rows rows(const api::camera::Matrix& matrix, const char* name) {
    Rows result{};
    const auto isRow = [](const auto& row) { return row.size() == 4; };
    if (matrix.mData.size() != 4 || !std::all_of(matrix.mData.begin(), matrix.mData.end(), isRow)) {
        throw std::invalid_argument(std::string(name) + " is not a matrix of 4 rows of 4");
    }
    for (std::size_t row = 0; row < 4; ++row) {
        std::copy(matrix.mData[row].begin(), matrix.mData[row].end(), result[row].begin());
    }
    return result;
}

std::array<double, 4> multiply(const Rows& matrix, const std::array<double, 4>& v) {
    std::array<double, 4> result{};
    for (std::size_t row = 0; row < 4; ++row) {
        result[row] = matrix[row][0] * v[0] + matrix[row][1] * v[1] + matrix[row][2] * v[2] + matrix[row][3] * v[3];
    }
    return result;
}

int pixels(double resolution) {
    constexpr double most = 16384.0;
    if (!(resolution >= 1.0 && resolution <= most)) {
        throw std::invalid_argument("a surface of " + std::to_string(resolution) + " pixels cannot be drawn");
    }
    return static_cast<int>(resolution);
}

} // namespace

Rows operator*(const Rows& a, const Rows& b) {
    Rows result{};
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            for (std::size_t k = 0; k < 4; ++k) {
                result[row][column] += a[row][k] * b[k][column];
            }
        }
    }
    return result;
}

CameraView::CameraView(const api::camera::PlanarCameraState& state)
    : viewFromWorld(rows(state.mViewState.mViewMatrix, "mViewMatrix")),
      clipFromView(rows(state.mProjectionState.mProjectionMatrix, "mProjectionMatrix")),
      orthographic(state.mProjectionState.mProjectionType == api::camera::ProjectionType::ORTHOGRAPHIC),
      width(pixels(state.mSurfaceState.mResolutionX)),
      height(pixels(state.mSurfaceState.mResolutionY)),
      viewport(state.mSurfaceState.mViewport) {}

std::optional<Vec2> CameraView::toWindow(const Vec3& point) const {
    const auto clip = multiply(clipFromView, multiply(viewFromWorld, {point[0], point[1], point[2], 1.0}));
    if (!(clip[3] > 0.0)) {
        return std::nullopt;
    }
    return Vec2{(viewport.mX + viewport.mWidth * (clip[0] / clip[3] + 1.0) / 2.0) * width,
                (viewport.mY + viewport.mHeight * (clip[1] / clip[3] + 1.0) / 2.0) * height};
}

Vec3 CameraView::axis(std::size_t index) const {
    return {viewFromWorld[index][0], viewFromWorld[index][1], viewFromWorld[index][2]};
}

} // namespace qel::host
