// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

#include <thrift/TUuid.h>
#include <thrift/protocol/TProtocol.h>
#include <thrift/protocol/TProtocolException.h>

#include "wire/ByteOrder.h"
#include "wire/ByteSink.h"
#include "wire/ByteSource.h"
#include "wire/ReadElements.h"
#include "wire/WireTypes.h"

namespace qel::api::wire {

/// Reads a record from Thrift's Binary protocol: numbers of fixed size, fields as type (1 byte) and id (2), lists as
/// element type (1) and size (4), texts as size (4) and bytes.
template <std::endian order>
class BinaryReader {
public:
    BinaryReader(TProtocol& protocol, TTransport& transport, WireLimits limits)
        : mProtocol(protocol), mSource(transport), mLimits(limits) {}

    struct Struct {};

    Struct beginStruct() { return {}; }
    void endStruct(Struct) {}

    FieldHeader beginField() {
        FieldHeader header;
        header.type = readType();
        if (header.type != T_STOP) {
            read(header.id);
        }
        return header;
    }
    void endField() {}

    /// A set is written as a list is.
    Elements beginElements(TType) {
        Elements elements;
        elements.type = readType();
        elements.size = readSize(mLimits.container);
        checkArrival(mProtocol, mSource.transport(), elements.size, elements.type);
        return elements;
    }
    void endElements(TType) {}

    Pairs beginMap() {
        Pairs pairs;
        pairs.keyType = readType();
        pairs.valueType = readType();
        pairs.size = readSize(mLimits.container);
        checkArrival(mProtocol, mSource.transport(), pairs.size, pairs.keyType, pairs.valueType);
        return pairs;
    }
    void endMap() {}

    void read(bool& value) { value = *mSource.take(1) != 0; }
    void read(std::int8_t& value) { value = static_cast<std::int8_t>(*mSource.take(1)); }
    void read(std::int16_t& value) { value = load<order, std::int16_t>(mSource.take(2)); }
    void read(std::int32_t& value) { value = load<order, std::int32_t>(mSource.take(4)); }
    void read(std::int64_t& value) { value = load<order, std::int64_t>(mSource.take(8)); }
    void read(double& value) { value = load<order, double>(mSource.take(8)); }
    void read(::apache::thrift::TUuid& value) {
        const std::uint8_t* bytes = mSource.take(16);
        std::copy(bytes, bytes + 16, value.begin());
    }

    void readText(std::string& value) {
        const std::uint32_t size = readSize(std::max(mLimits.text, 0));
        if (size == 0) {
            value.clear();
        } else if (const std::uint8_t* bytes = mSource.peek(size)) {
            value.assign(reinterpret_cast<const char*>(bytes), size);
            mSource.use(size);
        } else {
            mSource.transport().checkReadBytesAvailable(size);
            mSource.takeText(value, size);
        }
    }
    void readBytes(std::string& value) { readText(value); }

    void readNumbers(ReadElements<double>& elements, std::uint32_t size) { mSource.takeNumbers<order>(elements, size); }

    /// A list takes 5 bytes at least.
    std::size_t listsAtHand() { return mSource.atHand(1) / 5; }

    std::uint32_t count() const { return mSource.count(); }
    TProtocol& protocol() { return mProtocol; }
    void finish() { mSource.settle(); }

private:
    /// A byte may say anything, an enumeration without a fixed type only what fits its bits. What does not becomes a
    /// type that nobody knows, which is refused where the value would be read.
    TType readType() { return static_cast<TType>(std::min(*mSource.take(1), noType)); }

    std::uint32_t readSize(std::int32_t limit) {
        std::int32_t size = 0;
        read(size);
        return checkedSize(size, limit);
    }

    TProtocol& mProtocol;
    ByteSource mSource;
    WireLimits mLimits;
};

/// Writes a record as BinaryReader reads it.
template <std::endian order>
class BinaryWriter {
public:
    BinaryWriter(TProtocol& protocol, TTransport& transport) : mProtocol(protocol), mSink(transport) {}

    struct Struct {};

    Struct beginStruct(const char*) { return {}; }
    void endStruct(Struct) { *mSink.put(1) = T_STOP; }

    void beginField(const char*, TType type, std::int16_t id) {
        std::uint8_t* bytes = mSink.put(3);
        bytes[0] = static_cast<std::uint8_t>(type);
        store<order>(bytes + 1, id);
    }
    void endField() {}

    void beginList(TType type, std::uint32_t size) {
        std::uint8_t* bytes = mSink.put(5);
        bytes[0] = static_cast<std::uint8_t>(type);
        store<order>(bytes + 1, size);
    }
    void endList() {}

    void write(std::int32_t value) { store<order>(mSink.put(4), value); }
    void write(double value) { store<order>(mSink.put(8), value); }
    void writeText(const std::string& value) {
        if (value.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
            throw TProtocolException(TProtocolException::SIZE_LIMIT);
        }
        store<order>(mSink.put(4), static_cast<std::uint32_t>(value.size()));
        mSink.put(value);
    }
    void writeBytes(const std::string& value) { writeText(value); }

    std::uint32_t count() const { return mSink.count(); }
    TProtocol& protocol() { return mProtocol; }
    void finish() { mSink.flush(); }

private:
    TProtocol& mProtocol;
    ByteSink mSink;
};

} // namespace qel::api::wire
