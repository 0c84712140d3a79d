// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <tuple>

namespace qel::api {

/// How a field differs from a plain one.
enum class Form : std::uint8_t {
    plain,    ///< always written and printed
    optional, ///< written and printed only while its set-flag is raised
    binary    ///< a std::string that holds bytes, not text; always written
};

/// One field of a record, as the field tables list it: its identity on the wire and in text, where its value
/// lives, and its set-flag. The flags are bit-fields, which no pointer can reach, hence the two functions.
template <class RecordType, class ValueType>
struct Field {
    using Record = RecordType;
    using Value = ValueType;

    std::int16_t id;
    const char* name;
    Value Record::*member;
    Form form;
    bool (*isSet)(const Record& record);
    void (*markSet)(Record& record, bool set);
};

/// The field table of a record: a std::tuple of its Field entries in declared order, which is the order of
/// writing and printing. Ids are explicit and ascending. Everything that treats a record field by field
/// (reading, writing, printing, comparing, a host's own tools) folds over this table.
/// Defined in <qel/api/base/BaseFields.h> and <qel/api/camera/Fields.h>.
template <class Record>
struct FieldTable;

/// Calls visit(field) for each entry of the record's field table, in order.
template <class Record, class Visitor>
constexpr void forEachField(Visitor&& visit) {
    std::apply([&](const auto&... field) { (visit(field), ...); }, FieldTable<Record>::fields);
}

/// Whether the ids of a table start at 1 and ascend, and so are unique. Every step is less than 16, which is what one
/// byte of the Compact protocol holds.
template <class Record>
constexpr bool fieldIdsAreSound() {
    bool sound = true;
    int last = 0;
    forEachField<Record>([&](const auto& field) {
        sound = sound && (last == 0 ? field.id == 1 : field.id > last && field.id - last < 16);
        last = field.id;
    });
    return sound && last > 0;
}

} // namespace qel::api

/// The field table of the record SPACE::RECORD, for use in the namespace qel::api; its entries follow as QEL_API_FIELD.
#define QEL_API_FIELD_TABLE(SPACE, RECORD, ...)            \
    template <>                                            \
    struct FieldTable<SPACE::RECORD> {                     \
        using Record = SPACE::RECORD;                      \
        static constexpr const char* recordName = #RECORD; \
        static constexpr std::tuple fields{__VA_ARGS__};   \
    }

/// An entry of the field table of Record; spelled once here because a bit-field's name must be repeated for each use
/// of it.
#define QEL_API_FIELD(ID, MEMBER, FORM)                                         \
    ::qel::api::Field<Record, decltype(Record::MEMBER)> {                       \
        ID, #MEMBER, &Record::MEMBER, ::qel::api::Form::FORM,                   \
            [](const Record& record) -> bool { return record.__isset.MEMBER; }, \
            [](Record& record, bool set) { record.__isset.MEMBER = set; }       \
    }
