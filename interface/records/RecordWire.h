// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

#include <thrift/protocol/TProtocol.h>

#include "DepthGuard.h"
#include "RecordValue.h"
#include "SkipField.h"

namespace qel::api::records {

using ::apache::thrift::protocol::TProtocol;
using ::apache::thrift::protocol::TType;

template <class Record>
std::uint32_t readRecord(Record& record, TProtocol& protocol);
template <class Record>
std::uint32_t writeRecord(const Record& record, TProtocol& protocol);

template <class Value>
struct IsList : std::false_type {};
template <class Element>
struct IsList<std::vector<Element>> : std::true_type {};

/// The wire type of a member.
template <class Value>
constexpr TType wireType() {
    if constexpr (std::is_same_v<Value, double>) {
        return ::apache::thrift::protocol::T_DOUBLE;
    } else if constexpr (std::is_same_v<Value, std::int32_t> || std::is_enum_v<Value>) {
        return ::apache::thrift::protocol::T_I32;
    } else if constexpr (std::is_same_v<Value, std::string>) {
        return ::apache::thrift::protocol::T_STRING;
    } else if constexpr (IsList<Value>::value) {
        return ::apache::thrift::protocol::T_LIST;
    } else {
        return ::apache::thrift::protocol::T_STRUCT;
    }
}

inline std::uint32_t readValue(TProtocol& protocol, double& value, Form) { return protocol.readDouble(value); }
inline std::uint32_t readValue(TProtocol& protocol, std::int32_t& value, Form) { return protocol.readI32(value); }
inline std::uint32_t readValue(TProtocol& protocol, std::string& value, Form form) {
    return form == Form::binary ? protocol.readBinary(value) : protocol.readString(value);
}

template <class Value>
    requires std::is_enum_v<Value>
std::uint32_t readValue(TProtocol& protocol, Value& value, Form) {
    std::int32_t number = 0;
    const std::uint32_t count = protocol.readI32(number);
    value = static_cast<Value>(number);
    return count;
}

template <class Record>
    requires std::is_class_v<Record>
std::uint32_t readValue(TProtocol& protocol, Record& record, Form) {
    return readRecord(record, protocol);
}

/// Cuts a list to the elements that have been read, also when an exception ends the reading.
template <class Element>
class ReadElements {
public:
    explicit ReadElements(std::vector<Element>& list) : mList(list) {}
    ~ReadElements() { mList.erase(mList.begin() + static_cast<std::ptrdiff_t>(mCount), mList.end()); }

    ReadElements(const ReadElements&) = delete;
    ReadElements& operator=(const ReadElements&) = delete;

    /// The place of the next element: one that the list still holds from before, or a new one.
    Element& next() {
        if (mCount == mList.size()) {
            mList.emplace_back();
        }
        return mList[mCount++];
    }

private:
    std::vector<Element>& mList;
    std::size_t mCount = 0;
};

/// A list grows as its elements arrive: the size that a message announces costs nothing until the bytes are there.
/// Elements that the list already holds are read over, so their storage is used again.
template <class Element>
std::uint32_t readValue(TProtocol& protocol, std::vector<Element>& list, Form form) {
    ReadElements<Element> elements(list);
    TType elementType = ::apache::thrift::protocol::T_STOP;
    std::uint32_t size = 0;
    std::uint32_t count = protocol.readListBegin(elementType, size);
    for (std::uint32_t i = 0; i < size; ++i) {
        count += readValue(protocol, elements.next(), form);
    }
    return count + protocol.readListEnd();
}

inline std::uint32_t writeValue(TProtocol& protocol, double value, Form) { return protocol.writeDouble(value); }
inline std::uint32_t writeValue(TProtocol& protocol, std::int32_t value, Form) { return protocol.writeI32(value); }
inline std::uint32_t writeValue(TProtocol& protocol, const std::string& value, Form form) {
    return form == Form::binary ? protocol.writeBinary(value) : protocol.writeString(value);
}

template <class Value>
    requires std::is_enum_v<Value>
std::uint32_t writeValue(TProtocol& protocol, Value value, Form) {
    return protocol.writeI32(static_cast<std::int32_t>(value));
}

template <class Record>
    requires std::is_class_v<Record>
std::uint32_t writeValue(TProtocol& protocol, const Record& record, Form) {
    return writeRecord(record, protocol);
}

template <class Element>
std::uint32_t writeValue(TProtocol& protocol, const std::vector<Element>& list, Form form) {
    std::uint32_t count = protocol.writeListBegin(wireType<Element>(), static_cast<std::uint32_t>(list.size()));
    for (const Element& element : list) {
        count += writeValue(protocol, element, form);
    }
    return count + protocol.writeListEnd();
}

/// Reads the field into the record if it is this one by id and wire type.
template <class Record, class FieldType>
bool readIfThis(TProtocol& protocol, Record& record, const FieldType& field, std::int16_t id, TType type,
                std::uint32_t& count) {
    if (field.id != id || type != wireType<typename FieldType::Value>()) {
        return false;
    }
    count += readValue(protocol, record.*field.member, field.form);
    field.markSet(record, true);
    return true;
}

template <class Record>
std::uint32_t readRecord(Record& record, TProtocol& protocol) {
    const InputDepth depth(protocol);
    std::string name;
    TType type = ::apache::thrift::protocol::T_STOP;
    std::int16_t id = 0;

    std::uint32_t count = protocol.readStructBegin(name);
    for (;;) {
        count += protocol.readFieldBegin(name, type, id);
        if (type == ::apache::thrift::protocol::T_STOP) {
            break;
        }
        const bool known = std::apply(
            [&](const auto&... field) { return (readIfThis(protocol, record, field, id, type, count) || ...); },
            FieldTable<Record>::fields);
        if (!known) {
            count += skipField(protocol, type);
        }
        count += protocol.readFieldEnd();
    }
    return count + protocol.readStructEnd();
}

template <class Record>
std::uint32_t writeRecord(const Record& record, TProtocol& protocol) {
    const OutputDepth depth(protocol);
    std::uint32_t count = protocol.writeStructBegin(FieldTable<Record>::recordName);
    forEachField<Record>([&](const auto& field) {
        using Value = typename std::remove_cvref_t<decltype(field)>::Value;
        if (field.form == Form::optional && !field.isSet(record)) {
            return;
        }
        count += protocol.writeFieldBegin(field.name, wireType<Value>(), field.id);
        count += writeValue(protocol, record.*field.member, field.form);
        count += protocol.writeFieldEnd();
    });
    count += protocol.writeFieldStop();
    return count + protocol.writeStructEnd();
}

} // namespace qel::api::records
