// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <optional>

#include <qel/api/camera/CameraAPIIf.h>

#include "host/scene/Geometry.h"

namespace qel::host {

/// Rows of a matrix that acts on column vectors, as in the interface's record.
using Rows = std::array<std::array<double, 4>, 4>;

Rows operator*(const Rows& a, const Rows& b);

/// What a renderer takes from a camera's state record, and nothing that it works out on its own.
struct CameraView {
    Rows viewFromWorld{};
    Rows clipFromView{};
    bool orthographic = false;
    int width = 0;  ///< of the whole surface, in pixels
    int height = 0; ///< of the whole surface, in pixels
    api::camera::Viewport viewport;

    /// Throws std::invalid_argument where a matrix is not 4x4 or the surface cannot be drawn.
    explicit CameraView(const api::camera::PlanarCameraState& state);

    /// Where a point of the world lands in the picture; nothing where it is not in front of the eye.
    [[nodiscard]] std::optional<Vec2> toWindow(const Vec3& point) const;
    /// The view's axis 0, 1, 2 (right, up, backwards) as a direction of the world.
    [[nodiscard]] Vec3 axis(std::size_t index) const;
};

} // namespace qel::host
