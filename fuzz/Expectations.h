// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <qel/api/camera/CameraAPIIf.h>

namespace camera::fuzz {

namespace api = qel::api::camera;

// Which calls fail, whatever else their arguments are, and with what words.

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

} // namespace camera::fuzz
