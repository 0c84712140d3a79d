// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>

#include "fuzz/oracle/OracleCamera.h"
#include "impl/PlanarCamera.h"

// The numbers of the component's objects, which are those of their blobs, for the second implementation to start from
// and to be compared with.
namespace camera::oracle {

namespace impl = qel::api::camera::impl;

template <std::size_t Order>
[[nodiscard]] auto fromObject(const qel::api::camera::math::BasicMatrix<double, Order, Order>& matrix) {
    std::array<std::array<Real, Order>, Order> m{};
    for (std::size_t r = 0; r < Order; ++r) {
        for (std::size_t k = 0; k < Order; ++k) {
            m[r][k] = matrix(r, k);
        }
    }
    return m;
}

[[nodiscard]] inline View fromObject(const impl::View& object) {
    const auto& [x, y, z] = object.eye();
    return {fromObject(object.viewTransformMatrix()),
            fromObject(object.viewMatrix()),
            fromObject(object.rotation()),
            {x, y, z},
            static_cast<Kind>(object.viewTransformMatrix().mKind),
            static_cast<Kind>(object.viewMatrix().mKind)};
}

[[nodiscard]] inline Projection fromObject(const impl::Projection& object) {
    const auto& f = object.frustum();
    return {fromObject(object.matrix()),
            fromObject(object.inverse()),
            object.isOrthographic(),
            f.left,
            f.right,
            f.bottom,
            f.top,
            f.nearDist,
            f.farDist};
}

[[nodiscard]] inline Surface fromObject(const impl::Surface& object) {
    const auto& v = object.viewport();
    return {{v.x, v.y, v.width, v.height, v.depthMin, v.depthMax},
            fromObject(object.matrix()),
            fromObject(object.inverse()),
            object.resolutionX(),
            object.resolutionY()};
}

[[nodiscard]] inline Camera fromObject(const impl::PlanarCamera& object) {
    return {fromObject(object.view()), fromObject(object.projection()), fromObject(object.surface())};
}

} // namespace camera::oracle
