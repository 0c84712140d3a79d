// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "tests/records/SameBits.h"

namespace qel::api::camera::test {

// What the tests do with any record, folding over its field table.

/// Calls visit(field, value) for the record's own fields.
template <class Record, class Visitor>
void forEachField(Record& record, const Visitor& visit) {
    std::apply([&](const auto&... field) { (visit(field, record.*(field.member)), ...); },
               FieldTable<std::remove_const_t<Record>>::fields);
}

/// Little-endian on every machine.
template <class Number>
void appendNumber(std::string& bytes, const Number number) {
    for (std::size_t i = 0; i < sizeof number; ++i) {
        bytes += static_cast<char>(static_cast<std::uint64_t>(number) >> (8U * i) & 0xFFU);
    }
}

/// Records field by field with their flags, lists and texts after their length.
template <class Value>
void appendValue(std::string& bytes, const Value& value) {
    if constexpr (IsRecord<Value>) {
        forEachField(value, [&](const auto& field, const auto& member) {
            bytes += field.isSet(value) ? '+' : '-';
            appendValue(bytes, member);
        });
    } else if constexpr (std::is_same_v<Value, double>) {
        appendNumber(bytes, std::bit_cast<std::uint64_t>(value));
    } else if constexpr (std::is_arithmetic_v<Value> || std::is_enum_v<Value>) {
        appendNumber(bytes, value);
    } else { // a string or a list
        appendNumber(bytes, std::uint64_t{value.size()});
        for (const auto& element : value) {
            appendValue(bytes, element);
        }
    }
}

/// Every bit of a record: values, set-flags, lengths. Two records are the same exactly when these are; unlike ==,
/// which takes 0 for -0 and no NaN for another.
template <class Record>
[[nodiscard]] std::string fingerprint(const Record& record) {
    std::string bytes;
    appendValue(bytes, record);
    return bytes;
}

/// Lowers or raises all set-flags of a record and of the records in it.
template <class Record>
void setAllFlags(Record& record, const bool set) {
    forEachField(record, [&](const auto& field, auto& value) {
        field.markSet(record, set);
        if constexpr (IsRecord<std::remove_cvref_t<decltype(value)>>) {
            setAllFlags(value, set);
        }
    });
}

/// The flags of a record and of the records in it, in field order.
template <class Record>
[[nodiscard]] std::string flagsOf(const Record& record) {
    std::string flags;
    forEachField(record, [&](const auto& field, const auto& value) {
        flags += field.isSet(record) ? '+' : '-';
        if constexpr (IsRecord<std::remove_cvref_t<decltype(value)>>) {
            flags += flagsOf(value);
        }
    });
    return flags;
}

/// The storage that a record's strings and lists hold on the heap, in field order.
template <class Value>
void collectStorage(const Value& value, std::vector<const void*>& storage) {
    if constexpr (IsRecord<Value>) {
        forEachField(value, [&](const auto&, const auto& member) { collectStorage(member, storage); });
    } else if constexpr (std::is_same_v<Value, std::string>) {
        if (value.capacity() > std::string().capacity()) {
            storage.push_back(value.data());
        }
    } else if constexpr (!std::is_arithmetic_v<Value> && !std::is_enum_v<Value>) {
        if (value.capacity() > 0) {
            storage.push_back(value.data());
        }
        for (const auto& element : value) {
            collectStorage(element, storage);
        }
    }
}

template <class Record>
[[nodiscard]] std::vector<const void*> storageOf(const Record& record) {
    std::vector<const void*> storage;
    collectStorage(record, storage);
    return storage;
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

/// Makes every list and every text of a value longer than it has to be.
template <class Value>
void makeTooLong(Value& value) {
    if constexpr (IsRecord<Value>) {
        forEachField(value, [](const auto&, auto& member) { makeTooLong(member); });
    } else if constexpr (std::is_same_v<Value, std::string>) {
        value.append(1000, '\xAB');
    } else if constexpr (std::is_same_v<Value, std::vector<std::vector<double>>>) {
        for (auto& row : value) {
            row.push_back(99.0);
        }
        value.emplace_back();
    } else if constexpr (!std::is_arithmetic_v<Value> && !std::is_enum_v<Value>) {
        value.insert(value.end(), 3, 99.0);
    }
}

} // namespace qel::api::camera::test
