// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>
#include <vector>

#include <qel/api/camera/Fields.h>

#include "fuzz/Bytes.h"

namespace camera::fuzz {

namespace api = qel::api::camera;

/// Where a comparison of the component turns, and where numbers end.
using Limits = std::numeric_limits<double>;
inline constexpr std::array<double, 39> specialNumbers = {0.0,
                                                          -0.0,
                                                          1.0,
                                                          -1.0,
                                                          0.5,
                                                          2.0,
                                                          1e-7,
                                                          -1e-7,
                                                          1.0000000000000001e-7,
                                                          1e-4,
                                                          1e-8,
                                                          0.7853981633974483,
                                                          1.5707963267948966,
                                                          3.141592653589793,
                                                          3.1415925535897933,
                                                          -3.141592653589793,
                                                          6.283185307179586,
                                                          640.0,
                                                          480.0,
                                                          1e10,
                                                          -1e10,
                                                          2147483647.0,
                                                          -2147483648.0,
                                                          4294967295.0,
                                                          1e100,
                                                          1e154,
                                                          -1e200,
                                                          3.4028234663852886e38,
                                                          Limits::max(),
                                                          Limits::lowest(),
                                                          Limits::min(),
                                                          Limits::denorm_min(),
                                                          -Limits::denorm_min(),
                                                          1e-310,
                                                          Limits::epsilon(),
                                                          Limits::infinity(),
                                                          -Limits::infinity(),
                                                          Limits::quiet_NaN(),
                                                          -Limits::quiet_NaN()};

inline constexpr std::array<std::int32_t, 12> specialIntegers = {0,   1,   -1,    2,         640,       480,
                                                                 320, 240, 65536, INT32_MAX, INT32_MIN, INT32_MIN + 1};

/// A number of any class: special, ordinary, spread over the orders of magnitude, or any eight bytes.
inline double number(Bytes& bytes) {
    const std::uint8_t kind = bytes.byte();
    if (kind < 0x40) {
        return specialNumbers[kind % specialNumbers.size()];
    }
    if (kind < 0xC0) {
        return (kind - 0x80) / 16.0;
    }
    if (kind < 0xE0) {
        return (bytes.byte() - 128) * std::ldexp(1.0, 4 * (kind - 0xD0));
    }
    return std::bit_cast<double>(bytes.word(8));
}

inline std::int32_t integer(Bytes& bytes) {
    const std::uint8_t kind = bytes.byte();
    if (kind < 0x40) {
        return specialIntegers[kind % specialIntegers.size()];
    }
    if (kind < 0xE0) {
        return static_cast<std::int32_t>(bytes.word(2));
    }
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(bytes.word(4)));
}

/// As many numbers as wanted, or now and then fewer or more.
inline void fill(std::vector<double>& list, std::size_t wanted, Bytes& bytes) {
    const std::uint8_t kind = bytes.byte();
    const std::size_t size = kind < 0xE0 ? wanted : kind % 8;
    list.resize(size);
    for (double& value : list) {
        value = number(bytes);
    }
}

// One make() for each type of argument that is no state.

inline void make(double& value, Bytes& bytes) { value = number(bytes); }
inline void make(std::int32_t& value, Bytes& bytes) { value = integer(bytes); }

inline void make(api::ProjectionType::type& value, Bytes& bytes) {
    const std::uint8_t kind = bytes.byte();
    value = static_cast<api::ProjectionType::type>(kind < 0xE0 ? kind % 2 : static_cast<int>(bytes.word(4)));
}

inline void make(api::Vector& vector, Bytes& bytes) { fill(vector.mData, 3, bytes); }
inline void make(api::Quaternion& quaternion, Bytes& bytes) { fill(quaternion.mData, 4, bytes); }

inline void make(api::Matrix& matrix, Bytes& bytes) {
    const std::uint8_t kind = bytes.byte();
    matrix.mData.resize(kind < 0xE0 ? 4 : kind % 8);
    for (std::vector<double>& row : matrix.mData) {
        fill(row, 4, bytes);
    }
}

/// Frustums and viewports: six numbers, in the order of the fields.
template <class Record>
requires std::is_same_v<Record, api::Frustum> || std::is_same_v<Record, api::Viewport>
void make(Record& record, Bytes& bytes) {
    qel::api::forEachField<Record>([&](const auto& field) { record.*field.member = number(bytes); });
}

} // namespace camera::fuzz
