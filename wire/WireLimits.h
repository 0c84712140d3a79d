// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include <thrift/protocol/TProtocol.h>
#include <thrift/protocol/TProtocolException.h>
#include <thrift/transport/TTransport.h>

#include "wire/WireTypes.h"

namespace qel::api::wire {

/// The limits that a host may have set on a protocol, 0 for none.
struct WireLimits {
    std::int32_t text = 0;      ///< bytes of one text
    std::int32_t container = 0; ///< elements of one list, set or map
};

/// The size that a message announces, if it is not negative and within the limit.
inline std::uint32_t checkedSize(std::int32_t size, std::int32_t limit) {
    using ::apache::thrift::protocol::TProtocolException;
    if (size < 0) {
        throw TProtocolException(TProtocolException::NEGATIVE_SIZE);
    }
    if (limit != 0 && size > limit) {
        throw TProtocolException(TProtocolException::SIZE_LIMIT);
    }
    return static_cast<std::uint32_t>(size);
}

/// Throws when `size` groups of elements cannot fit into what the transport allows for a message.
template <class... Types>
void checkArrival(::apache::thrift::protocol::TProtocol& protocol, ::apache::thrift::transport::TTransport& transport,
                  std::uint32_t size, Types... types) {
    const int each = (protocol.getMinSerializedSize(types) + ...);
    transport.checkReadBytesAvailable(static_cast<std::int64_t>(size) * each);
}

} // namespace qel::api::wire
