// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <type_traits>

#include <gtest/gtest.h>
#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/protocol/TCompactProtocol.h>
#include <thrift/protocol/TJSONProtocol.h>

#include "tests/records/RandomRecords.h"
#include "tests/wire/WireBytes.h"

namespace qel::api {

using ::apache::thrift::protocol::TBinaryProtocol;
using ::apache::thrift::protocol::TCompactProtocol;
using ::apache::thrift::protocol::TJSONProtocol;

/// Every way in which a record can be read and written.
using WireProtocols = ::testing::Types<TBinaryProtocol, ::apache::thrift::protocol::TLEBinaryProtocol, TCompactProtocol,
                                       TJSONProtocol, Unknown<TBinaryProtocol>, Unknown<TCompactProtocol>>;

/// Records that a protocol brings back as they were.
template <class Protocol>
RandomRecords randomRecordsFor(std::uint64_t seed) {
    RandomRecords random(seed);
    if constexpr (std::is_same_v<Protocol, TJSONProtocol>) {
        random.noZeroBytesInTexts();
    }
    return random;
}

/// Writes a struct whose fields the call writes.
template <class Protocol, class Fields>
void writeStruct(Protocol& protocol, Fields fields) {
    protocol.writeStructBegin("");
    fields();
    protocol.writeFieldStop();
    protocol.writeStructEnd();
}

/// Writes a field whose value the call writes.
template <class Protocol, class Value>
void writeField(Protocol& protocol, ::apache::thrift::protocol::TType type, std::int16_t id, Value value) {
    protocol.writeFieldBegin("", type, id);
    value();
    protocol.writeFieldEnd();
}

template <class Protocol>
void writeNumberField(Protocol& protocol, std::int16_t id, double value) {
    writeField(protocol, ::apache::thrift::protocol::T_DOUBLE, id, [&] { protocol.writeDouble(value); });
}

} // namespace qel::api
