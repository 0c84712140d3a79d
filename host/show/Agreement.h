// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <span>

#include "host/show/StateBlob.h"

namespace qel::host {

// Whether parts of a state that follow from each other do so, worked out here from first principles and without the
// component. Two numbers agree that differ by a millionth of their size at most: matrices that come from single
// precision are off by a tenth of that, and a disagreement which a person should know of by far more.
// Numbers that are not finite agree with each other, and are left out of products; allFinite tells of them.

bool agree(double a, double b);
/// Number by number; where the list as a whole is large, tiny numbers may differ by rounding.
bool agree(std::span<const double> a, std::span<const double> b);

/// Whether the product of both is the identity.
bool areInverse(const BlobMatrix& a, const BlobMatrix& b);
/// Whether the upper left 3x3 of both are the same, in units of 1, the length of an axis.
bool sameAxes(const BlobMatrix& a, const BlobMatrix& b);
/// Whether the axes of the upper left 3x3 have the length 1 and are perpendicular.
bool isRotation(const BlobMatrix& matrix);

/// The matrix of a perspective or orthographic frustum: glFrustum and glOrtho.
BlobMatrix projectionMatrix(const std::array<double, 6>& frustum, bool orthographic);
/// The matrix from normalised device coordinates to pixels: glViewport and glDepthRange, unrounded.
BlobMatrix screenMatrix(const std::array<double, 6>& viewport, double resolutionX, double resolutionY);
/// The viewport from which screenMatrix would make this matrix.
std::array<double, 6> viewportOf(const BlobMatrix& toScreen, double resolutionX, double resolutionY);
/// The rotation of a quaternion x, y, z, w of length 1, in the upper left 3x3.
BlobMatrix rotationOf(const std::array<double, 4>& quaternion);

bool allFinite(std::span<const double> numbers);

} // namespace qel::host
