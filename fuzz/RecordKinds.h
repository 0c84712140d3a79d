// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <tuple>

#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/protocol/TCompactProtocol.h>
#include <thrift/protocol/TJSONProtocol.h>
#include <thrift/transport/TBufferTransports.h>

#include "tests/records/AllRecords.h"
#include "tests/wire/WireBytes.h"

// What an input of the target `records` names by its first two bytes: the kind of record, and the protocols, that of
// the message and another one, the first counting as one and the second as protocolCount. The bytes behind them are the
// message.

namespace camera::fuzz {

using RecordKinds = qel::api::AllRecords::As<std::tuple>;
constexpr std::size_t kindCount = std::tuple_size_v<RecordKinds>;

constexpr std::array protocolNames{"binary", "compact", "json", "binary-little-endian", "compact-any-transport"};
constexpr std::size_t protocolCount = protocolNames.size();
constexpr std::size_t json = 2;

/// Whose code reads and writes: the records themselves know Thrift's own Binary and Compact classes and do what those
/// would; with any other class, one derived from them among others, they make the protocol's calls.
enum class Code { own, calls };

inline std::shared_ptr<apache::thrift::protocol::TProtocol> makeProtocol(
    std::size_t which, const std::shared_ptr<apache::thrift::transport::TMemoryBuffer>& buffer, Code code = Code::own) {
    using namespace apache::thrift::protocol;
    using apache::thrift::transport::TMemoryBuffer;
    using apache::thrift::transport::TTransport;
    const auto make = [&]<class Protocol>(const Protocol*) -> std::shared_ptr<TProtocol> {
        if (code == Code::own) {
            return std::make_shared<Protocol>(buffer);
        }
        return std::make_shared<qel::api::Unknown<Protocol>>(buffer);
    };
    switch (which) {
    case 0: return make(static_cast<TBinaryProtocolT<TMemoryBuffer>*>(nullptr));
    case 1: return make(static_cast<TCompactProtocolT<TMemoryBuffer>*>(nullptr));
    case json: return make(static_cast<TJSONProtocol*>(nullptr));
    case 3: return make(static_cast<TBinaryProtocolT<TTransport, TNetworkLittleEndian>*>(nullptr));
    default: return make(static_cast<TCompactProtocolT<TTransport>*>(nullptr));
    }
}

} // namespace camera::fuzz
