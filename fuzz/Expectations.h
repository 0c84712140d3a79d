// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <qel/api/camera/Operations.h>

#include "fuzz/StateObjects.h"

namespace camera::fuzz {

// Which calls fail, whatever else their arguments are, and with what words.

/// The types of argument that can hold less than their operation reads.
template <class Type>
concept CanBeShort = IsState<Type> || std::is_same_v<Type, api::Vector> || std::is_same_v<Type, api::Quaternion> ||
    std::is_same_v<Type, api::Matrix>;

template <class Type>
bool isShort(const Type& argument) {
    if constexpr (IsState<Type>) {
        return argument.mPrivate.size() < blobSize<Type>;
    } else if constexpr (std::is_same_v<Type, api::Matrix>) {
        const auto& rows = argument.mData;
        return rows.size() < 4 ||
               std::any_of(rows.begin(), rows.begin() + 4, [](const auto& row) { return row.size() < 4; });
    } else if constexpr (CanBeShort<Type>) {
        return argument.mData.size() < (std::is_same_v<Type, api::Vector> ? 3 : 4);
    } else {
        return false;
    }
}

/// The transpose takes a matrix of any shape that has a first row and none shorter than it.
inline bool cannotBeTransposed(const api::Matrix& matrix) {
    const auto& rows = matrix.mData;
    return rows.empty() ||
           std::any_of(rows.begin(), rows.end(), [&](const auto& row) { return row.size() < rows.front().size(); });
}

/// Of a complete camera; only a forged one has no height.
inline bool hasNoHeight(const api::PlanarCameraState& state) {
    return !isShort(state) && objectIn(state).surface().resolutionY() == 0;
}

inline std::string failureText(std::string_view name) {
    const std::size_t create = name.find("Create");
    if (create == std::string_view::npos) {
        return "Call to " + std::string(name) + "() failed.";
    }
    const std::string kind(api::groupOf(name));
    if (kind == "PlanarCamera") {
        return name.ends_with("Default") ? "Unable to create default PlanarCamera object."
                                         : "Unable to create PlanarCamera object from arguments.";
    }
    return "Unable to create " + kind + " object.";
}

inline std::int32_t failureCode(std::string_view name) { return api::groupOf(name) == "Utilities" ? 4 : -1; }

/// The getters set the outcome on success; everything else leaves it as the caller passed it.
template <class Result>
constexpr bool resetsOutcome = std::is_same_v<Result, api::DoubleResult>;

} // namespace camera::fuzz
