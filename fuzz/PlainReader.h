// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

#include <thrift/protocol/TProtocol.h>

#include <qel/api/Field.h>

namespace camera::fuzz {

/// Reads a well-formed message through a protocol's calls, one after the other as Thrift prescribes them, with nothing
/// of the records' own reading: what the records read is held against it. The message has been read before, so its
/// sizes are true, and nothing here looks at them.
class PlainReader {
public:
    explicit PlainReader(apache::thrift::protocol::TProtocol& protocol) : mProtocol(protocol) {}

    template <class Value>
    void read(Value& value, qel::api::Form form = qel::api::Form::plain) {
        if constexpr (std::is_same_v<Value, double>) {
            mProtocol.readDouble(value);
        } else if constexpr (std::is_same_v<Value, std::string>) {
            form == qel::api::Form::binary ? mProtocol.readBinary(value) : mProtocol.readString(value);
        } else if constexpr (std::is_class_v<Value>) {
            readRecord(value);
        } else {
            std::int32_t number = 0;
            mProtocol.readI32(number);
            value = static_cast<Value>(number);
        }
    }

private:
    using TType = apache::thrift::protocol::TType;

    template <class Element>
    void read(std::vector<Element>& list, qel::api::Form form) {
        TType type = apache::thrift::protocol::T_STOP;
        std::uint32_t size = 0;
        mProtocol.readListBegin(type, size);
        list.clear();
        for (std::uint32_t i = 0; i < size; ++i) {
            Element element{};
            read(element, form);
            list.push_back(element);
        }
        mProtocol.readListEnd();
    }

    template <class Record>
    void readRecord(Record& record) {
        std::string name;
        TType type = apache::thrift::protocol::T_STOP;
        std::int16_t id = 0;
        mProtocol.readStructBegin(name);
        for (;;) {
            mProtocol.readFieldBegin(name, type, id);
            if (type == apache::thrift::protocol::T_STOP) {
                break;
            }
            bool known = false;
            qel::api::forEachField<Record>([&](const auto& field) {
                auto& member = record.*field.member;
                if (id == field.id && type == typeOf<std::remove_cvref_t<decltype(member)>>()) {
                    known = true;
                    read(member, field.form);
                    field.markSet(record, true);
                }
            });
            if (!known) {
                mProtocol.skip(type);
            }
            mProtocol.readFieldEnd();
        }
        mProtocol.readStructEnd();
    }

    template <class Value>
    static constexpr TType typeOf() {
        using namespace apache::thrift::protocol;
        if (std::is_same_v<Value, double>) {
            return T_DOUBLE;
        }
        if (std::is_same_v<Value, std::string>) {
            return T_STRING;
        }
        if (std::is_same_v<Value, std::vector<double>> || std::is_same_v<Value, std::vector<std::vector<double>>>) {
            return T_LIST;
        }
        return std::is_class_v<Value> ? T_STRUCT : T_I32;
    }

    apache::thrift::protocol::TProtocol& mProtocol;
};

} // namespace camera::fuzz
