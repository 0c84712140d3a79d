// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include <thrift/protocol/TProtocol.h>

#include <qel/api/Field.h>

#include "wire/ChooseWire.h"
#include "wire/ReadElements.h"
#include "wire/SkipField.h"
#include "wire/WireTypes.h"

namespace qel::api::records {

template <class Reader, class Record>
void readFields(Reader& reader, Record& record);
template <class Writer, class Record>
void writeFields(Writer& writer, const Record& record);

/// A list grows as its elements arrive: the size that a message announces costs nothing until the bytes are there.
template <class Reader, class Element>
void readList(Reader& reader, std::vector<Element>& list) {
    wire::ReadElements<Element> elements(list);
    const wire::Elements announced = reader.beginElements(::apache::thrift::protocol::T_LIST);
    if constexpr (std::is_same_v<Element, double>) {
        reader.readNumbers(elements, announced.size);
    } else {
        elements.reserve(std::min<std::size_t>(announced.size, reader.listsAtHand()));
        for (std::uint32_t i = 0; i < announced.size; ++i) {
            readList(reader, elements.next());
        }
    }
    reader.endElements(::apache::thrift::protocol::T_LIST);
}

template <class Reader, class Value>
void readValue(Reader& reader, Value& value, Form form) {
    if constexpr (std::is_same_v<Value, std::string>) {
        form == Form::binary ? reader.readBytes(value) : reader.readText(value);
    } else if constexpr (std::is_enum_v<Value>) {
        std::int32_t number = 0;
        reader.read(number);
        value = static_cast<Value>(number);
    } else if constexpr (requires { typename Value::value_type; }) {
        readList(reader, value);
    } else if constexpr (std::is_class_v<Value>) {
        readFields(reader, value);
    } else {
        reader.read(value);
    }
}

/// Reads the value into `field` if the header names it by id and wire type.
template <class Reader, class Record, class FieldType>
bool readIfNamed(Reader& reader, Record& record, wire::FieldHeader header, const FieldType& field) {
    if (header.id != field.id || header.type != wire::wireType<typename FieldType::Value>()) {
        return false;
    }
    readValue(reader, record.*field.member, field.form);
    field.markSet(record, true);
    return true;
}

template <class Reader, class Record>
void readFields(Reader& reader, Record& record) {
    static_assert(fieldIdsAreSound<Record>());
    const wire::InputDepth depth(reader.protocol());
    const auto outer = reader.beginStruct();
    for (wire::FieldHeader header = reader.beginField(); header.type != wire::T_STOP; header = reader.beginField()) {
        const bool known =
            std::apply([&](const auto&... field) { return (readIfNamed(reader, record, header, field) || ...); },
                       FieldTable<Record>::fields);
        if (!known) {
            wire::skipField(reader, header.type);
        }
        reader.endField();
    }
    reader.endStruct(outer);
}

template <class Writer, class Value>
void writeValue(Writer& writer, const Value& value, Form form) {
    if constexpr (std::is_same_v<Value, std::string>) {
        form == Form::binary ? writer.writeBytes(value) : writer.writeText(value);
    } else if constexpr (std::is_enum_v<Value>) {
        writer.write(static_cast<std::int32_t>(value));
    } else if constexpr (requires { typename Value::value_type; }) {
        writer.beginList(wire::wireType<typename Value::value_type>(), static_cast<std::uint32_t>(value.size()));
        for (const auto& element : value) {
            writeValue(writer, element, form);
        }
        writer.endList();
    } else if constexpr (std::is_class_v<Value>) {
        writeFields(writer, value);
    } else {
        writer.write(value);
    }
}

template <class Writer, class Record>
void writeFields(Writer& writer, const Record& record) {
    const wire::OutputDepth depth(writer.protocol());
    const auto outer = writer.beginStruct(FieldTable<Record>::recordName);
    forEachField<Record>([&](const auto& field) {
        using Value = typename std::remove_cvref_t<decltype(field)>::Value;
        if (field.form == Form::optional && !field.isSet(record)) {
            return;
        }
        writer.beginField(field.name, wire::wireType<Value>(), field.id);
        writeValue(writer, record.*field.member, field.form);
        writer.endField();
    });
    writer.endStruct(outer);
}

/// Fills the record from the protocol; returns the bytes read.
template <class Record>
std::uint32_t readRecord(Record& record, wire::TProtocol& protocol) {
    return wire::withReader(protocol, [&](auto& reader) { readFields(reader, record); });
}

/// Writes the record to the protocol; returns the bytes written.
template <class Record>
std::uint32_t writeRecord(const Record& record, wire::TProtocol& protocol) {
    return wire::withWriter(protocol, [&](auto& writer) { writeFields(writer, record); });
}

} // namespace qel::api::records
