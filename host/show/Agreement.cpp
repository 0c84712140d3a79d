// SPDX-License-Identifier: Apache-2.0
#include "host/show/Agreement.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace qel::host {

namespace {

constexpr double tolerance = 1e-6;
/// Of the largest number of a list: what rounding may leave where 0 should be.
constexpr double roundingLeft = 1e-12;

bool near(double a, double b, double allowed) {
    if (!std::isfinite(a) || !std::isfinite(b)) {
        return std::isfinite(a) == std::isfinite(b);
    }
    return std::abs(a - b) <= allowed;
}

double largest(std::span<const double> numbers) {
    double most = 0;
    for (const double number : numbers) {
        most = std::max(most, std::abs(number));
    }
    return most;
}

} // namespace

bool agree(double a, double b) { return near(a, b, tolerance * std::max(std::abs(a), std::abs(b))); }

bool agree(std::span<const double> a, std::span<const double> b) {
    if (a.size() != b.size()) {
        return false;
    }
    const double left = roundingLeft * std::max(largest(a), largest(b));
    return std::ranges::equal(
        a, b, [&](double x, double y) { return near(x, y, tolerance * std::max(std::abs(x), std::abs(y)) + left); });
}

bool areInverse(const BlobMatrix& a, const BlobMatrix& b) {
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            double sum = 0;
            double size = 1;
            for (std::size_t k = 0; k < 4; ++k) {
                const double term = a(row, k) * b(k, column);
                sum += term;
                size += std::abs(term);
            }
            if (std::isfinite(sum) && !near(sum, row == column ? 1 : 0, tolerance * size)) {
                return false;
            }
        }
    }
    return true;
}

bool sameAxes(const BlobMatrix& a, const BlobMatrix& b) {
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            if (!near(a(row, column), b(row, column), tolerance)) {
                return false;
            }
        }
    }
    return true;
}

bool isRotation(const BlobMatrix& matrix) {
    for (std::size_t a = 0; a < 3; ++a) {
        for (std::size_t b = 0; b < 3; ++b) {
            const double product =
                matrix(0, a) * matrix(0, b) + matrix(1, a) * matrix(1, b) + matrix(2, a) * matrix(2, b);
            if (!(std::abs(product - (a == b ? 1 : 0)) <= tolerance)) {
                return false;
            }
        }
    }
    return true;
}

BlobMatrix projectionMatrix(const std::array<double, 6>& frustum, bool orthographic) {
    const auto [left, right, bottom, top, near, far] = frustum;
    const double width = right - left;
    const double height = top - bottom;
    const double depth = far - near;
    BlobMatrix matrix;
    if (orthographic) {
        matrix(0, 0) = 2 / width;
        matrix(1, 1) = 2 / height;
        matrix(2, 2) = -2 / depth;
        matrix(0, 3) = -(right + left) / width;
        matrix(1, 3) = -(top + bottom) / height;
        matrix(2, 3) = -(far + near) / depth;
        matrix(3, 3) = 1;
    } else {
        matrix(0, 0) = 2 * near / width;
        matrix(1, 1) = 2 * near / height;
        matrix(0, 2) = (right + left) / width;
        matrix(1, 2) = (top + bottom) / height;
        matrix(2, 2) = -(far + near) / depth;
        matrix(2, 3) = -2 * far * near / depth;
        matrix(3, 2) = -1;
    }
    return matrix;
}

BlobMatrix screenMatrix(const std::array<double, 6>& viewport, double resolutionX, double resolutionY) {
    const auto [x, y, width, height, depthMin, depthMax] = viewport;
    BlobMatrix matrix;
    matrix(0, 0) = width * resolutionX / 2;
    matrix(1, 1) = height * resolutionY / 2;
    matrix(2, 2) = (depthMax - depthMin) / 2;
    matrix(0, 3) = (x + width / 2) * resolutionX;
    matrix(1, 3) = (y + height / 2) * resolutionY;
    matrix(2, 3) = (depthMax + depthMin) / 2;
    matrix(3, 3) = 1;
    return matrix;
}

std::array<double, 6> viewportOf(const BlobMatrix& toScreen, double resolutionX, double resolutionY) {
    const double halfWidth = toScreen(0, 0);
    const double halfHeight = toScreen(1, 1);
    return {(toScreen(0, 3) - halfWidth) / resolutionX,
            (toScreen(1, 3) - halfHeight) / resolutionY,
            2 * halfWidth / resolutionX,
            2 * halfHeight / resolutionY,
            toScreen(2, 3) - toScreen(2, 2),
            toScreen(2, 3) + toScreen(2, 2)};
}

BlobMatrix rotationOf(const std::array<double, 4>& quaternion) {
    const auto [x, y, z, w] = quaternion;
    BlobMatrix matrix;
    matrix(0, 0) = 1 - 2 * (y * y + z * z);
    matrix(0, 1) = 2 * (x * y - w * z);
    matrix(0, 2) = 2 * (x * z + w * y);
    matrix(1, 0) = 2 * (x * y + w * z);
    matrix(1, 1) = 1 - 2 * (x * x + z * z);
    matrix(1, 2) = 2 * (y * z - w * x);
    matrix(2, 0) = 2 * (x * z - w * y);
    matrix(2, 1) = 2 * (y * z + w * x);
    matrix(2, 2) = 1 - 2 * (x * x + y * y);
    return matrix;
}

bool allFinite(std::span<const double> numbers) {
    return std::ranges::all_of(numbers, [](double number) { return std::isfinite(number); });
}

} // namespace qel::host
