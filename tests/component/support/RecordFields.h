// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include <qel/api/base/BaseFields.h>
#include <qel/api/camera/Fields.h>

namespace qel::api::camera::test {

// What the tests do with any record, folding over its field table.

template <class Type>
concept IsRecord = requires {
    FieldTable<Type>::fields;
};

/// Calls visit(field, value) for the record's own fields.
template <class Record, class Visitor>
void forEachField(Record& record, const Visitor& visit) {
    std::apply([&](const auto&... field) { (visit(field, record.*(field.member)), ...); },
               FieldTable<std::remove_const_t<Record>>::fields);
}

inline void appendBytes(std::string& bytes, const void* data, const std::size_t size) {
    bytes.append(static_cast<const char*>(data), size);
}

template <class Value>
void appendValue(std::string& bytes, const Value& value) {
    if constexpr (IsRecord<Value>) {
        forEachField(value, [&](const auto& field, const auto& member) {
            bytes += field.isSet(value) ? '+' : '-';
            appendValue(bytes, member);
        });
    } else if constexpr (std::is_arithmetic_v<Value> || std::is_enum_v<Value>) {
        appendBytes(bytes, &value, sizeof value);
    } else { // a string or a list
        const std::uint64_t size = value.size();
        appendBytes(bytes, &size, sizeof size);
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

/// The records of one type that a record is made of, itself perhaps included.
template <class Part, class Whole>
void collectParts(Whole& whole, std::vector<Part*>& parts) {
    if constexpr (std::is_same_v<Part, Whole>) {
        parts.push_back(&whole);
    } else if constexpr (IsRecord<Whole>) {
        forEachField(whole, [&](const auto&, auto& value) { collectParts(value, parts); });
    }
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

} // namespace qel::api::camera::test
