// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include <qel/api/camera/Results.h>

#include "fuzz/Expectations.h"
#include "fuzz/Require.h"

namespace camera::fuzz {

// What a record that an operation wrote looks like, whatever the arguments were: lists of the right length, and fields
// that say what the image says. The image may have been forged before, so nothing is asked of its numbers themselves.

/// Little-endian on every machine, as images are.
template <class Word>
[[nodiscard]] Word wordAt(const std::string& image, std::size_t offset) {
    Word word = 0;
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(&word, image.data() + offset, sizeof word);
    } else {
        for (std::size_t i = 0; i < sizeof word; ++i) {
            word |= static_cast<Word>(static_cast<std::uint8_t>(image[offset + i])) << (8U * i);
        }
    }
    return word;
}
[[nodiscard]] inline double numberAt(const std::string& image, std::size_t offset) {
    return std::bit_cast<double>(wordAt<std::uint64_t>(image, offset));
}

inline void requireNumber(const std::string& image, std::size_t offset, double value) {
    require(std::bit_cast<std::uint64_t>(value) == wordAt<std::uint64_t>(image, offset),
            "a field holds what the image holds");
}

inline void requireImage(const std::string& image, std::size_t size) {
    require(image.size() == size, "an image has its kind's size");
    require(wordAt<std::uint64_t>(image, 0) == 0, "an image begins with zero bytes");
}

/// The four bytes after a matrix's kind word or a projection's type.
inline void requirePadding(const std::string& image, std::size_t offset) {
    require(wordAt<std::uint32_t>(image, offset) == 0, "an image's padding is zero");
}

/// The rows of the record are the columns' elements of the image.
inline void requireMatrix(const std::string& image, std::size_t offset, const api::Matrix& matrix) {
    require(matrix.mData.size() == 4, "a matrix has four rows");
    for (std::size_t row = 0; row < 4; ++row) {
        require(matrix.mData[row].size() == 4, "a row has four values");
        for (std::size_t column = 0; column < 4; ++column) {
            requireNumber(image, offset + 8 * (4 * column + row), matrix.mData[row][column]);
        }
    }
}

inline void requireWritten(double) {}
inline void requireWritten(const api::Vector& vector) {
    require(vector.mData.size() == 3, "a vector has three values");
}

using Axis = std::array<double, 3>;

inline Axis cross(const Axis& a, const Axis& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
inline double dot(const Axis& a, const Axis& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

/// The quaternion turns the world's axes into the view's, and the component that was drawn as a root is positive. Asked
/// of rotations alone: a forged image may hold a matrix that is none.
inline void requireOrientation(const std::array<Axis, 3>& axes, const std::vector<double>& q) {
    double defect = 0.0; // how far the axes are from unit length and right angles
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = i; j < 3; ++j) {
            defect += std::abs(dot(axes[i], axes[j]) - (i == j ? 1.0 : 0.0));
        }
    }
    const bool rotation = defect <= 1e-6 && dot(cross(axes[0], axes[1]), axes[2]) > 0.0; // not where NaN is among them
    if (!rotation) {
        return;
    }
    const double bound = 32.0 * defect + 64.0 * std::numeric_limits<double>::epsilon();
    const Axis vector{q[0], q[1], q[2]};
    const double scalar = q[3];
    require(std::abs(dot(vector, vector) + scalar * scalar - 1.0) <= bound, "a rotation's quaternion has length 1");
    for (std::size_t i = 0; i < 3; ++i) {
        Axis axis{};
        axis[i] = 1.0;
        const Axis once = cross(vector, axis);
        const Axis again = cross(vector, once);
        for (std::size_t k = 0; k < 3; ++k) {
            require(std::abs(axis[k] + 2.0 * (scalar * once[k] + again[k]) - axes[i][k]) <= bound,
                    "an orientation turns the world's axes into the view's");
        }
    }

    constexpr double clear = 1e-5; // where rounding leaves no doubt which component came from the root
    const std::array<double, 3> diagonal{axes[0][0], axes[1][1], axes[2][2]};
    const double trace = diagonal[0] + diagonal[1] + diagonal[2];
    if (trace > clear) {
        require(scalar > 0.0, "an orientation's scalar is positive");
    }
    for (std::size_t i = 0; i < 3 && trace < -clear; ++i) {
        if (diagonal[i] > diagonal[(i + 1) % 3] + clear && diagonal[i] > diagonal[(i + 2) % 3] + clear) {
            require(vector[i] > 0.0, "an orientation's greatest component is positive");
        }
    }
}

inline void requireWritten(const api::ViewState& state) {
    const std::string& image = state.mPrivate;
    requireImage(image, viewImageSize);
    requireMatrix(image, 8, state.mViewTransformMatrix);
    requirePadding(image, 140);
    requireMatrix(image, 144, state.mViewMatrix);
    requirePadding(image, 276);
    requirePadding(image, 356);

    requireWritten(state.mEye);
    requireWritten(state.mDirection);
    require(state.mOrientation.mData.size() == 4, "an orientation has four values");
    std::array<Axis, 3> axes{};
    for (std::size_t i = 0; i < 9; ++i) {
        axes[i / 3][i % 3] = numberAt(image, 280 + 8 * i);
    }
    for (std::size_t i = 0; i < 3; ++i) {
        requireNumber(image, 360 + 8 * i, state.mEye.mData[i]);
        const double direction = state.mDirection.mData[i];
        const double backwards = axes[2][i];
        require(std::isnan(backwards) // whose sign and payload are the machine's
                    ? std::isnan(direction)
                    : std::bit_cast<std::uint64_t>(direction) == std::bit_cast<std::uint64_t>(-backwards),
                "a view looks along its negative z axis");
    }
    requireOrientation(axes, state.mOrientation.mData);
}

inline void requireWritten(const api::ProjectionState& state) {
    const std::string& image = state.mPrivate;
    requireImage(image, projectionImageSize);
    requireMatrix(image, 8, state.mProjectionMatrix);
    requirePadding(image, 140);
    requirePadding(image, 276);
    require(state.mProjectionType == (wordAt<std::uint32_t>(image, 280) == 1 ? api::ProjectionType::ORTHOGRAPHIC
                                                                             : api::ProjectionType::PERSPECTIVE),
            "a projection is of its image's type");
    requirePadding(image, 284);
    const api::Frustum& frustum = state.mFrustum;
    std::size_t offset = 288;
    for (const double value :
         {frustum.mLeft, frustum.mRight, frustum.mBottom, frustum.mTop, frustum.mNearDist, frustum.mFarDist}) {
        requireNumber(image, offset, value);
        offset += 8;
    }
}

inline void requireWritten(const api::SurfaceState& state) {
    const std::string& image = state.mPrivate;
    requireImage(image, surfaceImageSize);
    const api::Viewport& viewport = state.mViewport;
    std::size_t offset = 8;
    for (const double value :
         {viewport.mX, viewport.mY, viewport.mWidth, viewport.mHeight, viewport.mDepthMin, viewport.mDepthMax}) {
        requireNumber(image, offset, value);
        offset += 8;
    }
    requirePadding(image, 188);
    requirePadding(image, 324);
    require(state.mResolutionX == wordAt<std::uint32_t>(image, 328), "a surface is as wide as its image says");
    require(state.mResolutionY == wordAt<std::uint32_t>(image, 332), "a surface is as high as its image says");
}

inline void requireWritten(const api::PlanarCameraState& state) {
    requireWritten(state.mViewState);
    requireWritten(state.mProjectionState);
    requireWritten(state.mSurfaceState);
    const std::string& image = state.mPrivate;
    requireImage(image, cameraImageSize);
    require(image.compare(24, viewImageSize, state.mViewState.mPrivate) == 0, "a camera holds its view");
    require(image.compare(408, projectionImageSize, state.mProjectionState.mPrivate) == 0,
            "a camera holds its projection");
    require(image.compare(744, surfaceImageSize, state.mSurfaceState.mPrivate) == 0, "a camera holds its surface");
}

} // namespace camera::fuzz
