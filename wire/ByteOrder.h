// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace qel::api::wire {

inline std::uint16_t swapBytes(std::uint16_t bits) { return __builtin_bswap16(bits); }
inline std::uint32_t swapBytes(std::uint32_t bits) { return __builtin_bswap32(bits); }
inline std::uint64_t swapBytes(std::uint64_t bits) { return __builtin_bswap64(bits); }

template <std::size_t size>
struct BitsOf;
template <>
struct BitsOf<2> {
    using Type = std::uint16_t;
};
template <>
struct BitsOf<4> {
    using Type = std::uint32_t;
};
template <>
struct BitsOf<8> {
    using Type = std::uint64_t;
};

/// The number that stands at `bytes` in the given order.
template <std::endian order, class Number>
Number load(const std::uint8_t* bytes) {
    typename BitsOf<sizeof(Number)>::Type bits;
    std::memcpy(&bits, bytes, sizeof(bits));
    return std::bit_cast<Number>(order == std::endian::native ? bits : swapBytes(bits));
}

/// Puts the number to `bytes` in the given order.
template <std::endian order, class Number>
void store(std::uint8_t* bytes, Number number) {
    auto bits = std::bit_cast<typename BitsOf<sizeof(Number)>::Type>(number);
    if (order != std::endian::native) {
        bits = swapBytes(bits);
    }
    std::memcpy(bytes, &bits, sizeof(bits));
}

} // namespace qel::api::wire
