// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>

namespace qel::bench {

/// What the peers are asked: the camera and the arguments of the workload, or their like.
namespace scene {
// Not constants to the compiler, which would else do a peer's work beforehand.
inline std::array<double, 3> eye{4.0, 3.0, 6.0};
inline std::array<double, 3> target{0.1, 0.2, -0.3};
inline std::array<double, 3> up{0.1, 1.0, 0.2};
inline std::array<double, 3> point{0.4, 0.3, -0.2};
inline std::array<double, 6> bounds{-1.0, 1.0, -1.5, 1.25, -0.5, 0.75}; ///< x, y, z, lower before upper

inline double verticalFoV = 0.7; ///< radians
inline double aspect = 4.0 / 3.0;
inline double nearDist = 0.1;
inline double farDist = 100.0;
} // namespace scene

template <class Vector>
Vector toType(const std::array<double, 3>& values) {
    return Vector(values[0], values[1], values[2]);
}

} // namespace qel::bench
