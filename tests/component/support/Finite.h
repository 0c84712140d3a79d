// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cmath>
#include <cstddef>

#include <qel/api/camera/States.h>

#include "tests/component/support/Blobs.h"
#include "tests/component/support/RecordFields.h"

namespace qel::api::camera::test {

// Whether all numbers of a state are finite: those of its image, and those that it shows.

inline bool areFinite(const std::string& image, const std::size_t start, const std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        if (!std::isfinite(doubleAt(image, start + 8 * i))) {
            return false;
        }
    }
    return true;
}

/// Lists of doubles and doubles in a record, those of records in it included.
template <class Value>
bool showsFiniteNumbers(const Value& value) {
    if constexpr (std::is_same_v<Value, double>) {
        return std::isfinite(value);
    } else if constexpr (IsRecord<Value>) {
        bool finite = true;
        forEachField(value, [&](const auto&, const auto& member) { finite = showsFiniteNumbers(member) && finite; });
        return finite;
    } else if constexpr (!std::is_same_v<Value, std::string> && !std::is_enum_v<Value>) {
        bool finite = true;
        for (const auto& element : value) {
            finite = showsFiniteNumbers(element) && finite;
        }
        return finite;
    } else {
        return true;
    }
}

inline bool isFinite(const ViewState& state) {
    return areFinite(state.mPrivate, at::viewTransformMatrix, 16) && areFinite(state.mPrivate, at::viewMatrix, 16) &&
           areFinite(state.mPrivate, at::rotation, 9) && areFinite(state.mPrivate, at::eye, 3) &&
           showsFiniteNumbers(state);
}
inline bool isFinite(const ProjectionState& state) {
    return areFinite(state.mPrivate, at::projectionMatrix, 16) &&
           areFinite(state.mPrivate, at::projectionInverse, 16) && areFinite(state.mPrivate, at::frustum, 6) &&
           showsFiniteNumbers(state);
}
inline bool isFinite(const SurfaceState& state) {
    return areFinite(state.mPrivate, at::viewport, 6) && areFinite(state.mPrivate, at::surfaceMatrix, 16) &&
           areFinite(state.mPrivate, at::surfaceInverse, 16) && showsFiniteNumbers(state);
}
/// The nested images are those of the whole.
inline bool isFinite(const PlanarCameraState& state) {
    return isFinite(state.mViewState) && isFinite(state.mProjectionState) && isFinite(state.mSurfaceState);
}

} // namespace qel::api::camera::test
