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

#include "tests/component/support/RecordFields.h"

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
    std::size_t part = 0; ///< numbers of one vector, matrix or frustum, there or in an image, have the same

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

/// All that a value holds, in order. Two are the same exactly when their items are.
class Contents {
public:
    template <class Value>
    explicit Contents(const Value& value) {
        add(value);
    }

    [[nodiscard]] const std::vector<Item>& items() const { return mItems; }

private:
    template <class Value>
    void add(const Value& value) {
        if constexpr (api::camera::test::IsRecord<Value>) {
            ++mPart;
            api::camera::test::forEachField(value, [&](const auto& field, const auto& member) {
                addWord(field.isSet(value) ? 1U : 0U);
                if constexpr (std::is_same_v<std::remove_cvref_t<decltype(member)>, std::string>) {
                    addText(value, member);
                } else {
                    add(member);
                }
            });
        } else if constexpr (std::is_same_v<Value, double>) {
            mItems.push_back({std::bit_cast<std::uint64_t>(value), true, mPart});
        } else if constexpr (std::is_arithmetic_v<Value> || std::is_enum_v<Value>) {
            addWord(static_cast<std::uint32_t>(value));
        } else {
            addWord(value.size());
            for (const auto& element : value) {
                add(element);
            }
        }
    }

    template <class Record>
    void addText(const Record& record, const std::string& text) {
        addWord(text.size());
        for (std::size_t i = 0; i < text.size(); i += 8) {
            if (isWordAt(record, i)) {
                addWord(bytesAt(text, i));
                ++mPart;
            } else {
                mItems.push_back({bytesAt(text, i), true, mPart});
            }
        }
    }

    void addWord(const std::uint64_t bits) { mItems.push_back({bits, false, mPart}); }

    std::vector<Item> mItems;
    std::size_t mPart = 0;
};

} // namespace qel::test
