// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace qel::api::camera {

// Numbers in images. On a little-endian machine each of these is a plain copy.

template <class Number>
using BitsOf = std::conditional_t<sizeof(Number) == 8, std::uint64_t, std::uint32_t>;

/// The bits of a number in the other byte order on a big-endian machine, as they are on a little-endian one.
template <class Bits>
constexpr Bits littleEndian(Bits bits) noexcept {
    static_assert(std::endian::native == std::endian::little || std::endian::native == std::endian::big);
    if constexpr (std::endian::native == std::endian::big) {
        Bits reversed = 0;
        for (std::size_t i = 0; i < sizeof(Bits); ++i) {
            reversed = static_cast<Bits>((reversed << 8U) | ((bits >> (8U * i)) & 0xFFU));
        }
        return reversed;
    }
    return bits;
}

template <class Number>
[[nodiscard]] Number readNumber(const char* from) noexcept {
    BitsOf<Number> bits = 0;
    std::memcpy(&bits, from, sizeof bits);
    return std::bit_cast<Number>(littleEndian(bits));
}

template <class Number>
void writeNumber(char* to, const Number number) noexcept {
    const auto bits = littleEndian(std::bit_cast<BitsOf<Number>>(number));
    std::memcpy(to, &bits, sizeof bits);
}

template <class Number, std::size_t Count>
[[nodiscard]] std::array<Number, Count> readNumbers(const char* from) noexcept {
    std::array<Number, Count> numbers;
    for (std::size_t i = 0; i < Count; ++i) {
        numbers[i] = readNumber<Number>(from + i * sizeof(Number));
    }
    return numbers;
}

template <class Number, std::size_t Count>
void writeNumbers(char* to, const std::array<Number, Count>& numbers) noexcept {
    for (std::size_t i = 0; i < Count; ++i) {
        writeNumber(to + i * sizeof(Number), numbers[i]);
    }
}

} // namespace qel::api::camera
