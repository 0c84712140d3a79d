// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qel::api::camera::math {

/// Bound of everything that must be strictly positive (sizes, distances, fields of view), and the length or angle
/// below which a vector or a turn is taken for nothing. Well above the rounding of coordinates near 1, well below
/// what a person can see or a mouse can express.
inline constexpr double tolerance = 1e-7;

/// Homogeneous w at or below this in absolute value is not divided by: an affine product may leave a trace of
/// rounding in w where 0 is meant.
inline constexpr double homogeneousTolerance = 1e-4;

/// A quaternion shorter than this is used as it is instead of being normalised: its direction is noise.
inline constexpr double quaternionTolerance = 1e-4;

/// Guards the reciprocals of the affine inverse. Single precision on purpose: the bound is the float nearest to
/// 1e-8, 9.99999993922529e-9.
inline constexpr double reciprocalTolerance = 1e-8F;

} // namespace qel::api::camera::math
