// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

#include "support/RecordFields.h"

namespace qel::test {

/// A state, whose image says everything that it is.
template <class Type>
concept HasImage = requires(const Type& value) {
    value.mPrivate;
};

/// A number that a record holds, or up to eight bytes of what is the same on every machine: a length, a set-flag, a
/// text, a resolution, a matrix's kind word.
struct Item {
    std::uint64_t bits = 0;
    bool isNumber = false;

    [[nodiscard]] double number() const { return std::bit_cast<double>(bits); }
};

// Where in a state's image stand words and unused bytes, eight at a time; everything else there is doubles. Other texts
// hold none.

template <class Record>
bool isWordAt(const Record&, std::size_t) {
    return true;
}
template <std::size_t Count>
bool isOneOf(const std::array<std::size_t, Count>& offsets, const std::size_t offset) {
    return std::find(offsets.begin(), offsets.end(), offset) != offsets.end();
}
inline bool isWordAt(const api::camera::ViewState&, const std::size_t offset) {
    return isOneOf<4>({0, 136, 272, 352}, offset); // header, the matrices' kinds
}
inline bool isWordAt(const api::camera::ProjectionState&, const std::size_t offset) {
    return isOneOf<4>({0, 136, 272, 280}, offset); // header, the matrices' kinds, type
}
inline bool isWordAt(const api::camera::SurfaceState&, const std::size_t offset) {
    return isOneOf<4>({0, 184, 320, 328}, offset); // header, the matrices' kinds, resolutions
}
inline bool isWordAt(const api::camera::PlanarCameraState& state, const std::size_t offset) {
    return offset < 24 || (offset < 408   ? isWordAt(state.mViewState, offset - 24)
                           : offset < 744 ? isWordAt(state.mProjectionState, offset - 408)
                                          : isWordAt(state.mSurfaceState, offset - 744));
}

inline std::uint64_t bytesAt(const std::string& text, const std::size_t offset) {
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < 8 && offset + i < text.size(); ++i) {
        bits |= std::uint64_t{static_cast<std::uint8_t>(text[offset + i])} << (8U * i);
    }
    return bits;
}

/// All that a record holds, in order. Two records are the same exactly when their items are.
template <class Value>
void collectItems(const Value& value, std::vector<Item>& items) {
    if constexpr (api::camera::test::IsRecord<Value>) {
        api::camera::test::forEachField(value, [&](const auto& field, const auto& member) {
            items.push_back({field.isSet(value) ? 1U : 0U});
            if constexpr (std::is_same_v<std::remove_cvref_t<decltype(member)>, std::string>) {
                items.push_back({member.size()});
                for (std::size_t i = 0; i < member.size(); i += 8) {
                    items.push_back({bytesAt(member, i), !isWordAt(value, i)});
                }
            } else {
                collectItems(member, items);
            }
        });
    } else if constexpr (std::is_same_v<Value, double>) {
        items.push_back({std::bit_cast<std::uint64_t>(value), true});
    } else if constexpr (std::is_arithmetic_v<Value> || std::is_enum_v<Value>) {
        items.push_back({static_cast<std::uint32_t>(value)});
    } else {
        items.push_back({value.size()});
        for (const auto& element : value) {
            collectItems(element, items);
        }
    }
}

} // namespace qel::test
