// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cmath>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

#include "tests/records/SameBits.h"

namespace camera::fuzz {

using qel::api::IsRecord;
using qel::api::sameBits;

/// What a message about a record brings into a default one: every field is written and so flagged, apart from an
/// optional one whose flag is down.
template <class Record>
Record arrived(Record record) {
    qel::api::forEachField<Record>([&](const auto& field) {
        auto& member = record.*field.member;
        using Member = std::remove_cvref_t<decltype(member)>;
        if (field.form == qel::api::Form::optional && !field.isSet(record)) {
            member = {};
            return;
        }
        if constexpr (IsRecord<Member>) {
            member = arrived(member);
        }
        field.markSet(record, true);
    });
    return record;
}

/// Takes away what JSON in Thrift does not carry: the sign and the payload of a NaN, whose sign depends on the machine
/// where it is read, and the zero bytes of a text, which its writer spells \\u0000 and its reader drops.
template <class Value>
Value asJsonCarries(Value value, qel::api::Form form = qel::api::Form::plain) {
    if constexpr (std::is_same_v<Value, double>) {
        return std::isnan(value) ? std::numeric_limits<double>::quiet_NaN() : value;
    } else if constexpr (std::is_same_v<Value, std::string>) {
        if (form != qel::api::Form::binary) {
            std::erase(value, '\0');
        }
    } else if constexpr (IsRecord<Value>) {
        qel::api::forEachField<Value>(
            [&](const auto& field) { value.*field.member = asJsonCarries(value.*field.member, field.form); });
    } else if constexpr (std::is_class_v<Value>) {
        for (auto& element : value) {
            element = asJsonCarries(element);
        }
    }
    return value;
}

/// Whether every field has arrived and holds something else than in a default record, at any depth. An optional field
/// may be missing.
template <class Record>
bool isFull(const Record& record) {
    static const Record pristine;
    bool full = true;
    qel::api::forEachField<Record>([&](const auto& field) {
        const auto& member = record.*field.member;
        using Member = std::remove_cvref_t<decltype(member)>;
        if (field.form == qel::api::Form::optional) {
            return;
        }
        if constexpr (IsRecord<Member>) {
            full = full && field.isSet(record) && isFull(member);
        } else {
            full = full && field.isSet(record) && !sameBits(member, pristine.*field.member);
        }
    });
    return full;
}

} // namespace camera::fuzz
