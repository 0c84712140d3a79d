// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace qel::api::wire {

inline std::uint16_t swapBytes(std::uint16_t bits) { return __builtin_bswap16(bits); }
inline std::uint32_t swapBytes(std::uint32_t bits) { return __builtin_bswap32(bits); }
inline std::uint64_t swapBytes(std::uint64_t bits) { return __builtin_bswap64(bits); }

/// The unsigned number that has as many bytes as a number of 2, 4 or 8.
template <class Number>
using BitsOf = std::conditional_t<sizeof(Number) == 2, std::uint16_t,
                                  std::conditional_t<sizeof(Number) == 4, std::uint32_t, std::uint64_t>>;

/// The number that stands at `bytes` in the given order.
template <std::endian order, class Number>
Number load(const std::uint8_t* bytes) {
    BitsOf<Number> bits;
    std::memcpy(&bits, bytes, sizeof(bits));
    return std::bit_cast<Number>(order == std::endian::native ? bits : swapBytes(bits));
}

/// Puts the number to `bytes` in the given order.
template <std::endian order, class Number>
void store(std::uint8_t* bytes, Number number) {
    auto bits = std::bit_cast<BitsOf<Number>>(number);
    if (order != std::endian::native) {
        bits = swapBytes(bits);
    }
    std::memcpy(bytes, &bits, sizeof(bits));
}

} // namespace qel::api::wire
