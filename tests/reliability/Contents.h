// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include "tests/component/support/Blobs.h"
#include "tests/component/support/RecordFields.h"

namespace qel::api::camera::test {

/// A state, whose blob says everything that it is.
template <class Type>
concept HasBlob = requires(const Type& value) {
    value.mPrivate;
};

/// A number that a record holds, or up to eight bytes of what is the same on every machine: a length, a set-flag, a
/// text, a resolution, a matrix's kind word.
struct Item {
    std::uint64_t bits = 0;
    bool isNumber = false;
    std::size_t part = 0; ///< numbers of one vector, matrix or frustum, there or in a blob, have the same

    [[nodiscard]] double number() const { return std::bit_cast<double>(bits); }
};

/// Whether a double stands at an offset of a record's text, which is taken eight bytes at a time: only blobs hold some.
template <class Record>
bool isDoubleAt(const Record& record, const std::size_t offset) {
    if constexpr (HasBlob<Record>) {
        static const std::set<std::size_t> doubles = [&] {
            std::set<std::size_t> offsets;
            for (const Stretch& stretch : stretchesOf(record)) {
                for (std::size_t i = 0; stretch.holds == Holds::doubles && i < stretch.size; i += 8) {
                    offsets.insert(stretch.offset + i);
                }
            }
            return offsets;
        }();
        return doubles.contains(offset);
    }
    return false;
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
        if constexpr (IsRecord<Value>) {
            ++mPart;
            forEachField(value, [&](const auto& field, const auto& member) {
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
            const std::uint64_t bits = bitsAt(text, i, std::min<std::size_t>(8, text.size() - i));
            if (isDoubleAt(record, i)) {
                mItems.push_back({bits, true, mPart});
            } else {
                addWord(bits);
                ++mPart;
            }
        }
    }

    void addWord(const std::uint64_t bits) { mItems.push_back({bits, false, mPart}); }

    std::vector<Item> mItems;
    std::size_t mPart = 0;
};

} // namespace qel::api::camera::test
