// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <type_traits>
#include <vector>

#include "tests/component/support/RecordFields.h"

namespace qel::api::camera::test {

template <class Value>
[[nodiscard]] std::string bitsOf(const Value& value) {
    std::string bits;
    appendValue(bits, value);
    return bits;
}

/// Expects of a payload that a call left behind when it ran out of memory: every number, image and list of numbers is
/// the one from before or the one that the call writes, bit for bit and never a mixture; a row of a matrix that was not
/// there before may be empty; the set-flags are as they were.
template <class Value>
void expectOldOrNew(const Value& actual, const Value& before, const Value& written, const std::string& place) {
    if constexpr (IsRecord<Value>) {
        forEachField(actual, [&](const auto& field, const auto& value) {
            const std::string inside = place + '.' + field.name;
            EXPECT_EQ(field.isSet(actual), field.isSet(before)) << inside << "'s set-flag";
            expectOldOrNew(value, before.*(field.member), written.*(field.member), inside);
        });
    } else if constexpr (std::is_same_v<Value, std::vector<std::vector<double>>>) {
        ASSERT_TRUE(actual.size() == before.size() || actual.size() == written.size()) << place << "'s rows";
        for (std::size_t row = 0; row < actual.size(); ++row) {
            const std::vector<double> none;
            expectOldOrNew(actual[row], row < before.size() ? before[row] : none,
                           row < written.size() ? written[row] : none, place + '[' + std::to_string(row) + ']');
        }
    } else {
        const std::string bits = bitsOf(actual);
        EXPECT_TRUE(bits == bitsOf(before) || bits == bitsOf(written)) << place << " is neither the old nor the new";
    }
}

/// Makes every number and every byte of a value another one; lengths stay.
template <class Value>
void makeOther(Value& value) {
    if constexpr (IsRecord<Value>) {
        forEachField(value, [](const auto&, auto& member) { makeOther(member); });
    } else if constexpr (std::is_enum_v<Value>) {
        value = value == Value(0) ? Value(1) : Value(0);
    } else if constexpr (std::is_same_v<Value, char>) {
        value = static_cast<char>(value ^ 0x55);
    } else if constexpr (std::is_arithmetic_v<Value>) {
        value += 0.8125; // unlikely to be what a mistake adds
    } else {
        for (auto& element : value) {
            makeOther(element);
        }
    }
}

/// Makes every list and every text of a value too short, so that each has to grow again.
template <class Value>
void makeTooShort(Value& value) {
    if constexpr (IsRecord<Value>) {
        forEachField(value, [](const auto&, auto& member) { makeTooShort(member); });
    } else if constexpr (std::is_same_v<Value, std::vector<std::vector<double>>>) {
        value = Value(2, std::vector<double>(1)); // no storage left over, as shrinking would
    } else if constexpr (!std::is_arithmetic_v<Value> && !std::is_enum_v<Value>) {
        value = Value(1, typename Value::value_type());
    }
}

} // namespace qel::api::camera::test
