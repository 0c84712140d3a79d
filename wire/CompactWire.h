// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

#include <thrift/TUuid.h>
#include <thrift/Thrift.h>
#include <thrift/protocol/TProtocol.h>
#include <thrift/protocol/TProtocolException.h>

#include "wire/ByteOrder.h"
#include "wire/ByteSink.h"
#include "wire/ByteSource.h"
#include "wire/ReadElements.h"
#include "wire/WireTypes.h"

namespace qel::api::wire {
namespace compact {

// The 4-bit types of the Compact protocol.
inline constexpr std::uint8_t stop = 0;
inline constexpr std::uint8_t boolTrue = 1;
inline constexpr std::uint8_t boolFalse = 2;

inline constexpr std::uint32_t longestVarint = 10;  ///< bytes of a 64-bit varint
inline constexpr std::uint32_t longestVarint32 = 5; ///< bytes of a 32-bit varint

[[noreturn]] inline void refuseType(std::uint8_t type) {
    throw ::apache::thrift::TException(std::string("don't know what type: ") + static_cast<char>(type));
}

inline TType toType(std::uint8_t type) {
    using namespace ::apache::thrift::protocol;
    static constexpr std::array types{T_STOP,   T_BOOL,   T_BOOL, T_BYTE, T_I16, T_I32,    T_I64,
                                      T_DOUBLE, T_STRING, T_LIST, T_SET,  T_MAP, T_STRUCT, T_UUID};
    if (type >= types.size()) {
        refuseType(type);
    }
    return types[type];
}

/// For the types that fields and elements of records have.
constexpr std::uint8_t fromType(TType type) {
    using namespace ::apache::thrift::protocol;
    switch (type) {
    case T_I32: return 5;
    case T_DOUBLE: return 7;
    case T_STRING: return 8;
    case T_LIST: return 9;
    default: return 12; // a record
    }
}

} // namespace compact

/// Reads a record from Thrift's Compact protocol: whole numbers as zigzag varints, doubles as 8 bytes, a field as one
/// byte of id step and type where the step is 1 to 15, a list as one byte of size and type where it has less than 15
/// elements.
class CompactReader {
public:
    CompactReader(TProtocol& protocol, TTransport& transport, WireLimits limits)
        : mProtocol(protocol), mSource(transport), mLimits(limits) {}

    struct Struct {
        std::int16_t outerId; ///< the last id in the struct around; ids on the wire are steps from the last one
    };

    Struct beginStruct() {
        const Struct outer{mLastId};
        mLastId = 0;
        return outer;
    }
    void endStruct(Struct outer) { mLastId = outer.outerId; }

    FieldHeader beginField() {
        FieldHeader header;
        const std::uint8_t byte = *mSource.take(1);
        const std::uint8_t type = byte & 0x0f;
        if (type == compact::stop) {
            return header;
        }
        if (const unsigned step = byte >> 4) {
            header.id = static_cast<std::int16_t>(static_cast<unsigned>(mLastId) + step);
        } else {
            read(header.id);
        }
        header.type = compact::toType(type);
        if (header.type == ::apache::thrift::protocol::T_BOOL) {
            mBoolField = type;
        }
        mLastId = header.id;
        return header;
    }
    void endField() {}

    /// A set is written as a list is.
    Elements beginElements(TType) {
        Elements elements;
        const std::uint8_t byte = *mSource.take(1);
        std::int32_t size = byte >> 4;
        if (size == 15) {
            size = static_cast<std::int32_t>(readVarint());
        }
        elements.size = checkedSize(size, mLimits.container);
        elements.type = compact::toType(byte & 0x0f);
        checkArrival(mProtocol, mSource.transport(), elements.size, elements.type);
        return elements;
    }
    void endElements(TType) {}

    Pairs beginMap() {
        Pairs pairs;
        const auto size = static_cast<std::int32_t>(readVarint());
        const std::uint8_t types = size != 0 ? *mSource.take(1) : 0;
        pairs.size = checkedSize(size, mLimits.container);
        pairs.keyType = compact::toType(types >> 4);
        pairs.valueType = compact::toType(types & 0x0f);
        checkArrival(mProtocol, mSource.transport(), pairs.size, pairs.keyType, pairs.valueType);
        return pairs;
    }
    void endMap() {}

    /// The value of a bool field stands in the field's type; only elements of lists, sets and maps have a byte.
    void read(bool& value) {
        const std::uint8_t byte = mBoolField != compact::stop ? mBoolField : *mSource.take(1);
        value = byte == compact::boolTrue;
        mBoolField = compact::stop;
    }
    void read(std::int8_t& value) { value = static_cast<std::int8_t>(*mSource.take(1)); }
    void read(std::int16_t& value) { value = static_cast<std::int16_t>(readZigzag32()); }
    void read(std::int32_t& value) { value = readZigzag32(); }
    void read(std::int64_t& value) {
        const std::uint64_t number = readVarint();
        value = static_cast<std::int64_t>((number >> 1) ^ (~(number & 1) + 1));
    }
    void read(double& value) { value = load<std::endian::little, double>(mSource.take(8)); }
    void read(::apache::thrift::TUuid& value) {
        const std::uint8_t* bytes = mSource.take(16);
        std::copy(bytes, bytes + 16, value.begin());
    }

    void readText(std::string& value) {
        const std::uint32_t size = checkedSize(static_cast<std::int32_t>(readVarint()), std::max(mLimits.text, 0));
        if (size > 0) {
            mSource.transport().checkReadBytesAvailable(size);
        }
        mSource.takeText(value, size);
    }
    void readBytes(std::string& value) { readText(value); }

    void readNumbers(ReadElements<double>& elements, std::uint32_t size) {
        mSource.takeNumbers<std::endian::little>(elements, size);
    }

    /// A list takes 1 byte at least.
    std::size_t listsAtHand() { return mSource.atHand(1); }

    std::uint32_t count() const { return mSource.count(); }
    TProtocol& protocol() { return mProtocol; }
    void finish() { mSource.settle(); }

private:
    /// 7 bits a byte, the lowest first; the top bit says that more follow.
    std::uint64_t readVarint() {
        if (const std::uint8_t* bytes = mSource.peek(compact::longestVarint)) {
            std::uint32_t size = 0;
            const std::uint64_t number = joinVarint([&] { return bytes[size++]; });
            mSource.use(size);
            return number;
        }
        return joinVarint([&] { return *mSource.take(1); });
    }

    template <class NextByte>
    static std::uint64_t joinVarint(NextByte nextByte) {
        std::uint64_t number = 0;
        for (unsigned i = 0; i < compact::longestVarint; ++i) {
            const std::uint8_t byte = nextByte();
            number |= static_cast<std::uint64_t>(byte & 0x7f) << (7 * i);
            if ((byte & 0x80) == 0) {
                return number;
            }
        }
        throw TProtocolException(TProtocolException::INVALID_DATA, "Variable-length int over 10 bytes.");
    }

    std::int32_t readZigzag32() {
        const auto number = static_cast<std::uint32_t>(readVarint());
        return static_cast<std::int32_t>((number >> 1) ^ (~(number & 1) + 1));
    }

    TProtocol& mProtocol;
    ByteSource mSource;
    WireLimits mLimits;
    std::int16_t mLastId = 0;
    std::uint8_t mBoolField = compact::stop; ///< the type of a bool field whose value has not been asked for
};

/// Writes a record as CompactReader reads it.
class CompactWriter {
public:
    CompactWriter(TProtocol& protocol, TTransport& transport) : mProtocol(protocol), mSink(transport) {}

    using Struct = CompactReader::Struct;

    Struct beginStruct(const char*) {
        const Struct outer{mLastId};
        mLastId = 0;
        return outer;
    }
    void endStruct(Struct outer) {
        *mSink.put(1) = compact::stop;
        mLastId = outer.outerId;
    }

    /// The ids of a record ascend from 1 in steps of less than 16 (the field tables are checked), so every field of
    /// ours has the short form.
    void beginField(const char*, TType type, std::int16_t id) {
        const auto step = static_cast<unsigned>(id - mLastId);
        *mSink.put(1) = static_cast<std::uint8_t>(step << 4 | compact::fromType(type));
        mLastId = id;
    }
    void endField() {}

    void beginList(TType type, std::uint32_t size) {
        const std::uint8_t elementType = compact::fromType(type);
        if (size < 15) {
            *mSink.put(1) = static_cast<std::uint8_t>(size << 4 | elementType);
        } else {
            *mSink.put(1) = static_cast<std::uint8_t>(0xf0 | elementType);
            writeVarint(size);
        }
    }
    void endList() {}

    void write(std::int32_t value) {
        const auto number = static_cast<std::uint32_t>(value);
        writeVarint((number << 1) ^ (~(number >> 31) + 1));
    }
    void write(double value) { store<std::endian::little>(mSink.put(8), value); }
    void writeText(const std::string& value) {
        if (value.size() > std::numeric_limits<std::uint32_t>::max() - compact::longestVarint32) {
            throw TProtocolException(TProtocolException::SIZE_LIMIT);
        }
        writeVarint(static_cast<std::uint32_t>(value.size()));
        mSink.put(value);
    }
    void writeBytes(const std::string& value) { writeText(value); }

    std::uint32_t count() const { return mSink.count(); }
    TProtocol& protocol() { return mProtocol; }
    void finish() { mSink.flush(); }

private:
    void writeVarint(std::uint32_t number) {
        while (number > 0x7f) {
            *mSink.put(1) = static_cast<std::uint8_t>(number | 0x80);
            number >>= 7;
        }
        *mSink.put(1) = static_cast<std::uint8_t>(number);
    }

    TProtocol& mProtocol;
    ByteSink mSink;
    std::int16_t mLastId = 0;
};

} // namespace qel::api::wire
