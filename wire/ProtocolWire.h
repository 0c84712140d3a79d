// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include <thrift/TUuid.h>
#include <thrift/protocol/TProtocol.h>

#include "wire/ReadElements.h"
#include "wire/WireTypes.h"

namespace qel::api::wire {

/// Reads a record through the calls of any protocol. BinaryReader and CompactReader offer the same functions.
class ProtocolReader {
public:
    explicit ProtocolReader(TProtocol& protocol) : mProtocol(protocol) {}

    struct Struct {}; ///< what a reader has to remember while it is inside of a struct

    Struct beginStruct() {
        mCount += mProtocol.readStructBegin(mName);
        return {};
    }
    void endStruct(Struct) { mCount += mProtocol.readStructEnd(); }

    FieldHeader beginField() {
        FieldHeader header;
        mCount += mProtocol.readFieldBegin(mName, header.type, header.id);
        header.type = soundType(header.type);
        return header;
    }
    void endField() { mCount += mProtocol.readFieldEnd(); }

    /// Of a list or a set.
    Elements beginElements(TType container) {
        Elements elements;
        mCount += container == ::apache::thrift::protocol::T_SET
                      ? mProtocol.readSetBegin(elements.type, elements.size)
                      : mProtocol.readListBegin(elements.type, elements.size);
        elements.type = soundType(elements.type);
        return elements;
    }
    void endElements(TType container) {
        mCount += container == ::apache::thrift::protocol::T_SET ? mProtocol.readSetEnd() : mProtocol.readListEnd();
    }

    Pairs beginMap() {
        Pairs pairs;
        mCount += mProtocol.readMapBegin(pairs.keyType, pairs.valueType, pairs.size);
        pairs.keyType = soundType(pairs.keyType);
        pairs.valueType = soundType(pairs.valueType);
        return pairs;
    }
    void endMap() { mCount += mProtocol.readMapEnd(); }

    void read(bool& value) { mCount += mProtocol.readBool(value); }
    void read(std::int8_t& value) { mCount += mProtocol.readByte(value); }
    void read(std::int16_t& value) { mCount += mProtocol.readI16(value); }
    void read(std::int32_t& value) { mCount += mProtocol.readI32(value); }
    void read(std::int64_t& value) { mCount += mProtocol.readI64(value); }
    void read(double& value) { mCount += mProtocol.readDouble(value); }
    void read(::apache::thrift::TUuid& value) { mCount += mProtocol.readUUID(value); }
    void readText(std::string& value) { mCount += mProtocol.readString(value); }
    void readBytes(std::string& value) { mCount += mProtocol.readBinary(value); }

    void readNumbers(ReadElements<double>& elements, std::uint32_t size) {
        for (std::uint32_t i = 0; i < size; ++i) {
            double value = 0.0;
            read(value);
            elements.next() = value;
        }
    }

    /// How many lists may be made room for before they arrive.
    std::size_t listsAtHand() { return 0; }

    std::uint32_t count() const { return mCount; }
    TProtocol& protocol() { return mProtocol; }
    void finish() {}

private:
    TProtocol& mProtocol;
    std::string mName;
    std::uint32_t mCount = 0;
};

/// Writes a record through the calls of any protocol. BinaryWriter and CompactWriter offer the same functions.
class ProtocolWriter {
public:
    explicit ProtocolWriter(TProtocol& protocol) : mProtocol(protocol) {}

    struct Struct {};

    Struct beginStruct(const char* name) {
        mCount += mProtocol.writeStructBegin(name);
        return {};
    }
    void endStruct(Struct) {
        mCount += mProtocol.writeFieldStop();
        mCount += mProtocol.writeStructEnd();
    }

    void beginField(const char* name, TType type, std::int16_t id) {
        mCount += mProtocol.writeFieldBegin(name, type, id);
    }
    void endField() { mCount += mProtocol.writeFieldEnd(); }

    void beginList(TType type, std::uint32_t size) { mCount += mProtocol.writeListBegin(type, size); }
    void endList() { mCount += mProtocol.writeListEnd(); }

    void write(std::int32_t value) { mCount += mProtocol.writeI32(value); }
    void write(double value) { mCount += mProtocol.writeDouble(value); }
    void writeText(const std::string& value) { mCount += mProtocol.writeString(value); }
    void writeBytes(const std::string& value) { mCount += mProtocol.writeBinary(value); }

    std::uint32_t count() const { return mCount; }
    TProtocol& protocol() { return mProtocol; }
    void finish() {}

private:
    TProtocol& mProtocol;
    std::uint32_t mCount = 0;
};

} // namespace qel::api::wire
