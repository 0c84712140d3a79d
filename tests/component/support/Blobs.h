// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>

namespace qel::api::camera::test {

// The bytes of images, put together and taken apart without the component's own code. Little-endian by arithmetic.

inline void putBits(std::string& image, const std::size_t offset, const std::uint64_t bits, const std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) {
        image[offset + i] = static_cast<char>((bits >> (8 * i)) & 0xFFU);
    }
}

inline std::uint64_t bitsAt(const std::string& image, const std::size_t offset, const std::size_t size) {
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < size; ++i) {
        bits |= std::uint64_t(static_cast<unsigned char>(image[offset + i])) << (8 * i);
    }
    return bits;
}

inline void putWord(std::string& image, const std::size_t offset, const std::uint32_t word) {
    putBits(image, offset, word, 4);
}
inline std::uint32_t wordAt(const std::string& image, const std::size_t offset) {
    return static_cast<std::uint32_t>(bitsAt(image, offset, 4));
}
inline void putDouble(std::string& image, const std::size_t offset, const double value) {
    putBits(image, offset, std::bit_cast<std::uint64_t>(value), 8);
}
inline double doubleAt(const std::string& image, const std::size_t offset) {
    return std::bit_cast<double>(bitsAt(image, offset, 8));
}

/// Element (row, column) of the 4x4 matrix that starts at an offset.
inline double elementAt(const std::string& image, const std::size_t matrix, const std::size_t row,
                        const std::size_t column) {
    return doubleAt(image, matrix + 8 * (4 * column + row));
}

/// Where the parts of the images stand.
namespace at {
inline constexpr std::size_t viewTransformMatrix = 8;
inline constexpr std::size_t viewMatrix = 144;
inline constexpr std::size_t rotation = 280;
inline constexpr std::size_t eye = 360;
inline constexpr std::size_t projectionMatrix = 8;
inline constexpr std::size_t projectionInverse = 144;
inline constexpr std::size_t projectionType = 280;
inline constexpr std::size_t frustum = 288;
inline constexpr std::size_t viewport = 8;
inline constexpr std::size_t surfaceMatrix = 56;
inline constexpr std::size_t surfaceInverse = 192;
inline constexpr std::size_t resolutionX = 328;
inline constexpr std::size_t resolutionY = 332;
inline constexpr std::size_t words = 8;
inline constexpr std::size_t planarView = 24;
inline constexpr std::size_t planarProjection = 408;
inline constexpr std::size_t planarSurface = 744;
} // namespace at

/// The kind word of a 4x4 and of a 3x3 matrix follows its elements.
inline constexpr std::size_t kindOf4x4 = 128;
inline constexpr std::size_t kindOf3x3 = 72;

/// A run of bytes that no reader looks at and every writer leaves zero.
struct Unused {
    std::size_t offset;
    std::size_t size;
};
inline constexpr std::array<Unused, 4> unusedInView{{{0, 8}, {140, 4}, {276, 4}, {356, 4}}};
inline constexpr std::array<Unused, 4> unusedInProjection{{{0, 8}, {140, 4}, {276, 4}, {284, 4}}};
inline constexpr std::array<Unused, 3> unusedInSurface{{{0, 8}, {188, 4}, {324, 4}}};

} // namespace qel::api::camera::test
