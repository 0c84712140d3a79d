// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <type_traits>

#include <thrift/protocol/TProtocol.h>
#include <thrift/protocol/TProtocolException.h>
#include <thrift/transport/TTransport.h>

namespace qel::api::wire {

using ::apache::thrift::protocol::T_STOP;
using ::apache::thrift::protocol::TProtocol;
using ::apache::thrift::protocol::TProtocolException;
using ::apache::thrift::protocol::TType;
using ::apache::thrift::transport::TTransport;

/// The largest number that a TType can hold, since its enumerators end at 16. It stands for no type, and is refused
/// where it is used.
inline constexpr std::uint8_t noType = 31;

/// Thrift's protocols make a TType of any byte that arrives. To look at one that holds more than it can is undefined;
/// this makes it noType.
inline TType soundType(const TType& announced) {
    std::underlying_type_t<TType> number;
    static_assert(std::is_unsigned_v<decltype(number)>);
    std::memcpy(&number, &announced, sizeof(number));
    return static_cast<TType>(number < noType ? number : noType);
}

/// What a protocol announces before the values themselves.
struct FieldHeader {
    TType type = T_STOP; ///< T_STOP after the last field of a struct
    std::int16_t id = 0;
};
struct Elements {
    TType type = T_STOP;
    std::uint32_t size = 0;
};
struct Pairs {
    TType keyType = T_STOP;
    TType valueType = T_STOP;
    std::uint32_t size = 0;
};

/// The limits that a host may have set on a protocol, 0 for none.
struct WireLimits {
    std::int32_t text = 0;      ///< bytes of one text
    std::int32_t container = 0; ///< elements of one list, set or map
};

/// The size that a message announces, if it is not negative and within the limit.
inline std::uint32_t checkedSize(std::int32_t size, std::int32_t limit) {
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
void checkArrival(TProtocol& protocol, TTransport& transport, std::uint32_t size, Types... types) {
    const int each = (protocol.getMinSerializedSize(types) + ...);
    transport.checkReadBytesAvailable(static_cast<std::int64_t>(size) * each);
}

/// One level of nesting in a protocol's depth counter. Thrift's own trackers are not used: their constructor
/// increments, throws DEPTH_LIMIT and never decrements, so each refused message would lower the limit for the next.
template <void (TProtocol::*enter)(), void (TProtocol::*leave)()>
class DepthGuard {
public:
    explicit DepthGuard(TProtocol& protocol) : mProtocol(protocol) {
        try {
            (mProtocol.*enter)();
        } catch (...) {
            (mProtocol.*leave)();
            throw;
        }
    }
    ~DepthGuard() { (mProtocol.*leave)(); }

    DepthGuard(const DepthGuard&) = delete;
    DepthGuard& operator=(const DepthGuard&) = delete;

private:
    TProtocol& mProtocol;
};

using InputDepth = DepthGuard<&TProtocol::incrementInputRecursionDepth, &TProtocol::decrementInputRecursionDepth>;
using OutputDepth = DepthGuard<&TProtocol::incrementOutputRecursionDepth, &TProtocol::decrementOutputRecursionDepth>;

/// The wire type of a record's member.
template <class Value>
constexpr TType wireType() {
    if constexpr (std::is_same_v<Value, double>) {
        return ::apache::thrift::protocol::T_DOUBLE;
    } else if constexpr (std::is_same_v<Value, std::int32_t> || std::is_enum_v<Value>) {
        return ::apache::thrift::protocol::T_I32;
    } else if constexpr (std::is_same_v<Value, std::string>) {
        return ::apache::thrift::protocol::T_STRING;
    } else if constexpr (requires { typename Value::value_type; }) {
        return ::apache::thrift::protocol::T_LIST;
    } else {
        return ::apache::thrift::protocol::T_STRUCT;
    }
}

} // namespace qel::api::wire
