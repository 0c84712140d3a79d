// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include <thrift/Thrift.h>
#include <thrift/protocol/TProtocol.h>

#include "wire/WireTypes.h"

namespace qel::api::wire::compact {

// The 4-bit types of the Compact protocol.
inline constexpr std::uint8_t stop = 0;
inline constexpr std::uint8_t boolTrue = 1;
inline constexpr std::uint8_t boolFalse = 2;

inline constexpr std::uint32_t longestVarint = 10;  ///< bytes of a 64-bit varint
inline constexpr std::uint32_t longestVarint32 = 5; ///< bytes of a 32-bit varint

inline constexpr std::array<TType, 14> types{
    ::apache::thrift::protocol::T_STOP,   ::apache::thrift::protocol::T_BOOL,   ::apache::thrift::protocol::T_BOOL,
    ::apache::thrift::protocol::T_BYTE,   ::apache::thrift::protocol::T_I16,    ::apache::thrift::protocol::T_I32,
    ::apache::thrift::protocol::T_I64,    ::apache::thrift::protocol::T_DOUBLE, ::apache::thrift::protocol::T_STRING,
    ::apache::thrift::protocol::T_LIST,   ::apache::thrift::protocol::T_SET,    ::apache::thrift::protocol::T_MAP,
    ::apache::thrift::protocol::T_STRUCT, ::apache::thrift::protocol::T_UUID};

[[noreturn]] inline void refuseType(std::uint8_t type) {
    throw ::apache::thrift::TException(std::string("don't know what type: ") + static_cast<char>(type));
}

inline TType toType(std::uint8_t type) {
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

} // namespace qel::api::wire::compact
