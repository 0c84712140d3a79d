// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <qel/api/camera/CameraAPIIf.h>

#include "Require.h"

namespace camera::fuzz {

namespace api = qel::api::camera;

// What an operation owes whatever its arguments are: which calls fail and with what words, and what a record that it
// wrote looks like.

inline constexpr std::size_t viewImageSize = 384;
inline constexpr std::size_t projectionImageSize = 336;
inline constexpr std::size_t surfaceImageSize = 336;
inline constexpr std::size_t cameraImageSize = 1080;

// Whether an argument holds less than its operation reads.

inline bool isShort(const api::Vector& vector) { return vector.mData.size() < 3; }
inline bool isShort(const api::Quaternion& quaternion) { return quaternion.mData.size() < 4; }
inline bool isShort(const api::Matrix& matrix) {
    if (matrix.mData.size() < 4) {
        return true;
    }
    for (std::size_t row = 0; row < 4; ++row) {
        if (matrix.mData[row].size() < 4) {
            return true;
        }
    }
    return false;
}
inline bool isShort(const api::ViewState& state) { return state.mPrivate.size() < viewImageSize; }
inline bool isShort(const api::ProjectionState& state) { return state.mPrivate.size() < projectionImageSize; }
inline bool isShort(const api::SurfaceState& state) { return state.mPrivate.size() < surfaceImageSize; }
inline bool isShort(const api::PlanarCameraState& state) { return state.mPrivate.size() < cameraImageSize; }
template <class Other>
bool isShort(const Other&) {
    return false;
}

/// The transpose takes a matrix of any shape that has a first row and none shorter than it.
inline bool cannotBeTransposed(const api::Matrix& matrix) {
    if (matrix.mData.empty()) {
        return true;
    }
    for (const std::vector<double>& row : matrix.mData) {
        if (row.size() < matrix.mData.front().size()) {
            return true;
        }
    }
    return false;
}

/// The last four bytes of a complete camera image: only a forged one has no height.
inline bool hasNoHeight(const api::PlanarCameraState& state) {
    return state.mPrivate.size() >= cameraImageSize &&
           state.mPrivate.compare(cameraImageSize - 4, 4, std::string_view("\0\0\0\0", 4)) == 0;
}

inline std::string failureText(std::size_t slot, std::string_view name) {
    switch (slot) {
    case 0:
    case 1: return "Unable to create View object.";
    case 20:
    case 21: return "Unable to create Projection object.";
    case 36:
    case 37: return "Unable to create Surface object.";
    case 42: return "Unable to create default PlanarCamera object.";
    case 43: return "Unable to create PlanarCamera object from arguments.";
    default: return "Call to " + std::string(name) + "() failed.";
    }
}

inline std::int32_t failureCode(std::size_t slot) { return slot >= 66 && slot <= 68 ? 4 : -1; }

/// The three getters set the outcome on success; everything else leaves it as the caller passed it.
inline bool resetsOutcome(std::size_t slot) { return slot == 24 || slot == 26 || slot == 29; }

// What was written: lists of the right length, and the same numbers in the fields and in the image.

inline void requireImage(const std::string& image, std::size_t size) {
    require(image.size() == size, "an image has its kind's size");
    require(image.compare(0, 8, std::string_view("\0\0\0\0\0\0\0\0", 8)) == 0, "an image begins with zero bytes");
}

inline void requireNumber(const std::string& image, std::size_t offset, double value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    for (std::size_t i = 0; i < 8; ++i) {
        require(static_cast<std::uint8_t>(image[offset + i]) == static_cast<std::uint8_t>(bits >> (8U * i)),
                "a field holds what the image holds");
    }
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

inline void requireWritten(const api::Vector& vector) {
    require(vector.mData.size() == 3, "a vector has three values");
}
inline void requireWritten(double) {}

inline void requireWritten(const api::ViewState& state) {
    requireImage(state.mPrivate, viewImageSize);
    requireMatrix(state.mPrivate, 8, state.mViewTransformMatrix);
    requireMatrix(state.mPrivate, 144, state.mViewMatrix);
    requireWritten(state.mEye);
    requireWritten(state.mDirection);
    require(state.mOrientation.mData.size() == 4, "an orientation has four values");
    for (std::size_t i = 0; i < 3; ++i) {
        requireNumber(state.mPrivate, 360 + 8 * i, state.mEye.mData[i]);
    }
}

inline void requireWritten(const api::ProjectionState& state) {
    requireImage(state.mPrivate, projectionImageSize);
    requireMatrix(state.mPrivate, 8, state.mProjectionMatrix);
    require(state.mProjectionType == api::ProjectionType::PERSPECTIVE ||
                state.mProjectionType == api::ProjectionType::ORTHOGRAPHIC,
            "a projection is of one of the two types");
    const api::Frustum& frustum = state.mFrustum;
    std::size_t offset = 288;
    for (const double value :
         {frustum.mLeft, frustum.mRight, frustum.mBottom, frustum.mTop, frustum.mNearDist, frustum.mFarDist}) {
        requireNumber(state.mPrivate, offset, value);
        offset += 8;
    }
}

inline void requireWritten(const api::SurfaceState& state) {
    requireImage(state.mPrivate, surfaceImageSize);
    requireNumber(state.mPrivate, 8, state.mViewport.mX);
    requireNumber(state.mPrivate, 48, state.mViewport.mDepthMax);
    require(state.mResolutionX >= 0.0 && state.mResolutionX <= 4294967295.0, "a resolution is an unsigned number");
    require(state.mResolutionY >= 0.0 && state.mResolutionY <= 4294967295.0, "a resolution is an unsigned number");
}

inline void requireWritten(const api::PlanarCameraState& state) {
    requireWritten(state.mViewState);
    requireWritten(state.mProjectionState);
    requireWritten(state.mSurfaceState);
    requireImage(state.mPrivate, cameraImageSize);
    require(state.mPrivate.compare(24, viewImageSize, state.mViewState.mPrivate) == 0, "a camera holds its view");
    require(state.mPrivate.compare(408, projectionImageSize, state.mProjectionState.mPrivate) == 0,
            "a camera holds its projection");
    require(state.mPrivate.compare(744, surfaceImageSize, state.mSurfaceState.mPrivate) == 0,
            "a camera holds its surface");
}

inline void requireWritten(const api::Matrix&) {} // of any shape: the target compares it with the argument's

} // namespace camera::fuzz
