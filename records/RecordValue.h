// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <tuple>
#include <utility>

#include <qel/api/Field.h>

namespace qel::api::records {

template <class Record, class FieldType>
bool equalField(const Record& a, const Record& b, const FieldType& field) {
    if (field.form == Form::optional) {
        const bool set = field.isSet(a);
        return set == field.isSet(b) && (!set || a.*field.member == b.*field.member);
    }
    return a.*field.member == b.*field.member;
}

/// Equal values, field by field. An absent optional field equals an absent one, whatever value it holds.
template <class Record>
bool equalRecords(const Record& a, const Record& b) {
    return std::apply([&](const auto&... field) { return (equalField(a, b, field) && ...); },
                      FieldTable<Record>::fields);
}

template <class Record>
void swapRecords(Record& a, Record& b) noexcept {
    forEachField<Record>([&](const auto& field) {
        using std::swap;
        swap(a.*field.member, b.*field.member);
    });
    std::swap(a.__isset, b.__isset);
}

} // namespace qel::api::records
