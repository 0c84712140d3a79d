// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <qel/api/camera/States.h>

namespace qel::api::camera::test {

// The bytes of blobs, put together and taken apart without the component's own code. Little-endian by arithmetic.

inline void putBits(std::string& blob, const std::size_t offset, const std::uint64_t bits, const std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) {
        blob[offset + i] = static_cast<char>((bits >> (8 * i)) & 0xFFU);
    }
}

inline std::uint64_t bitsAt(const std::string& blob, const std::size_t offset, const std::size_t size) {
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < size; ++i) {
        bits |= std::uint64_t(static_cast<unsigned char>(blob[offset + i])) << (8 * i);
    }
    return bits;
}

inline void putWord(std::string& blob, const std::size_t offset, const std::uint32_t word) {
    putBits(blob, offset, word, 4);
}
inline std::uint32_t wordAt(const std::string& blob, const std::size_t offset) {
    return static_cast<std::uint32_t>(bitsAt(blob, offset, 4));
}
inline void putDouble(std::string& blob, const std::size_t offset, const double value) {
    putBits(blob, offset, std::bit_cast<std::uint64_t>(value), 8);
}
inline double doubleAt(const std::string& blob, const std::size_t offset) {
    return std::bit_cast<double>(bitsAt(blob, offset, 8));
}

/// Element (row, column) of the 4x4 matrix that starts at an offset.
inline double elementAt(const std::string& blob, const std::size_t matrix, const std::size_t row,
                        const std::size_t column) {
    return doubleAt(blob, matrix + 8 * (4 * column + row));
}

/// Where the parts of the blobs stand, and how long the blobs are.
namespace at {
inline constexpr std::size_t viewTransformMatrix = 8;
inline constexpr std::size_t viewMatrix = 144;
inline constexpr std::size_t rotation = 280;
inline constexpr std::size_t eye = 360;
inline constexpr std::size_t viewSize = 384;
inline constexpr std::size_t projectionMatrix = 8;
inline constexpr std::size_t projectionInverse = 144;
inline constexpr std::size_t projectionType = 280;
inline constexpr std::size_t frustum = 288;
inline constexpr std::size_t projectionSize = 336;
inline constexpr std::size_t viewport = 8;
inline constexpr std::size_t surfaceMatrix = 56;
inline constexpr std::size_t surfaceInverse = 192;
inline constexpr std::size_t resolutionX = 328;
inline constexpr std::size_t resolutionY = 332;
inline constexpr std::size_t surfaceSize = 336;
inline constexpr std::size_t words = 8;
inline constexpr std::size_t planarView = 24;
inline constexpr std::size_t planarProjection = 408;
inline constexpr std::size_t planarSurface = 744;
inline constexpr std::size_t cameraSize = 1080;
} // namespace at

/// The kind word of a 4x4 and of a 3x3 matrix follows its elements, and four bytes of padding follow the kind word.
inline constexpr std::size_t kindOf4x4 = 128;
inline constexpr std::size_t kindOf3x3 = 72;

/// A stretch of a blob's bytes: doubles, words of 4 or 8 bytes, or what no reader looks at and every writer leaves
/// zero.
enum class Holds : std::uint8_t { nothing, words, doubles };
struct Stretch {
    std::size_t offset;
    std::size_t size;
    Holds holds;
};
using Stretches = std::vector<Stretch>;

/// The elements of a matrix, its kind word and the padding.
inline void addMatrix(Stretches& stretches, const std::size_t offset, const std::size_t elements) {
    stretches.insert(stretches.end(), {{offset, elements, Holds::doubles},
                                       {offset + elements, 4, Holds::words},
                                       {offset + elements + 4, 4, Holds::nothing}});
}

inline Stretches stretchesOf(const ViewState& /*state*/) {
    Stretches stretches{{0, 8, Holds::nothing}};
    addMatrix(stretches, at::viewTransformMatrix, kindOf4x4);
    addMatrix(stretches, at::viewMatrix, kindOf4x4);
    addMatrix(stretches, at::rotation, kindOf3x3);
    stretches.push_back({at::eye, 24, Holds::doubles});
    return stretches;
}
inline Stretches stretchesOf(const ProjectionState& /*state*/) {
    Stretches stretches{{0, 8, Holds::nothing}};
    addMatrix(stretches, at::projectionMatrix, kindOf4x4);
    addMatrix(stretches, at::projectionInverse, kindOf4x4);
    stretches.insert(stretches.end(), {{at::projectionType, 4, Holds::words},
                                       {at::projectionType + 4, 4, Holds::nothing},
                                       {at::frustum, 48, Holds::doubles}});
    return stretches;
}
inline Stretches stretchesOf(const SurfaceState& /*state*/) {
    Stretches stretches{{0, 8, Holds::nothing}, {at::viewport, 48, Holds::doubles}};
    addMatrix(stretches, at::surfaceMatrix, kindOf4x4);
    addMatrix(stretches, at::surfaceInverse, kindOf4x4);
    stretches.push_back({at::resolutionX, 8, Holds::words});
    return stretches;
}
inline Stretches stretchesOf(const PlanarCameraState& /*state*/) {
    Stretches stretches{{0, 8, Holds::nothing}, {at::words, 16, Holds::words}};
    const auto addPart = [&](const std::size_t start, const Stretches& part) {
        for (const Stretch& stretch : part) {
            stretches.push_back({start + stretch.offset, stretch.size, stretch.holds});
        }
    };
    addPart(at::planarView, stretchesOf(ViewState()));
    addPart(at::planarProjection, stretchesOf(ProjectionState()));
    addPart(at::planarSurface, stretchesOf(SurfaceState()));
    return stretches;
}

} // namespace qel::api::camera::test
