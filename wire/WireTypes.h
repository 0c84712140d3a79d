// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

#include <thrift/protocol/TProtocol.h>

namespace qel::api::wire {

using ::apache::thrift::protocol::TType;

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
    TType type = ::apache::thrift::protocol::T_STOP; ///< T_STOP after the last field of a struct
    std::int16_t id = 0;
};
struct Elements {
    TType type = ::apache::thrift::protocol::T_STOP;
    std::uint32_t size = 0;
};
struct Pairs {
    TType keyType = ::apache::thrift::protocol::T_STOP;
    TType valueType = ::apache::thrift::protocol::T_STOP;
    std::uint32_t size = 0;
};

template <class Value>
struct IsList : std::false_type {};
template <class Element>
struct IsList<std::vector<Element>> : std::true_type {};

/// The wire type of a record's member.
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

} // namespace qel::api::wire
