// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include <qel/api/camera/Values.h>

#include "fuzz/Bytes.h"
#include "fuzz/oracle/OracleCamera.h"

// Arguments that numbers of a double's precision describe well, among them, now and then, ones that an operation is
// to refuse or to take for nothing.
namespace camera::fuzz::differential {

namespace api = qel::api::camera;
using oracle::Real;

/// -8 to 8.
inline double coordinate(Bytes& bytes) { return (bytes.byte() - 128) / 16.0; }

/// -3.2 to 3.2, and a few that are nothing or just more than that.
inline double angle(Bytes& bytes) {
    constexpr std::array few{0.0, 0.0, 5e-8, -5e-8, 9e-8, 1.1e-7, 2e-7, -2e-7};
    const std::uint8_t byte = bytes.byte();
    return byte < few.size() ? few[byte] : (byte - 132) / 39.0;
}

/// 0.01 to 5, evenly over the magnitudes, and a few that most operations refuse.
inline double factor(Bytes& bytes) {
    constexpr std::array few{0.0, -1.0, 5e-8, -5e-8};
    const std::uint8_t byte = bytes.byte();
    const std::uint8_t magnitude = bytes.byte();
    return magnitude >= 252 ? few[magnitude - 252U] : std::ldexp(1.0 + (byte % 32) / 32.0, magnitude % 9 - 6);
}

/// 0 to 1.
inline double depth(Bytes& bytes) { return bytes.byte() / 255.0; }

/// -512 to 1535.
inline std::int32_t pixel(Bytes& bytes) { return static_cast<std::int32_t>(bytes.word(2) % 2048) - 512; }

/// 0 to 4095, and a few negative ones, which count as unsigned.
inline std::int32_t resolution(Bytes& bytes) {
    const auto word = static_cast<std::int32_t>(bytes.word(2));
    return word >= 0xFC00 ? 0xFC00 - 1 - word : word % 4096;
}

/// As the component takes a resolution or a pixel of an arcball.
inline std::uint32_t asUnsigned(std::int32_t value) { return static_cast<std::uint32_t>(value); }

inline api::Vector vector(Bytes& bytes) {
    api::Vector record;
    record.mData = {coordinate(bytes), coordinate(bytes), coordinate(bytes)};
    return record;
}

/// With room inside mostly.
inline api::Frustum frustum(Bytes& bytes) {
    const bool ordered = bytes.byte() % 8 != 7;
    const auto beyond = [&](double low) { return ordered ? low + (1 + bytes.byte()) / 16.0 : coordinate(bytes); };
    api::Frustum record;
    record.mLeft = coordinate(bytes), record.mRight = beyond(record.mLeft);
    record.mBottom = coordinate(bytes), record.mTop = beyond(record.mBottom);
    record.mNearDist = factor(bytes), record.mFarDist = record.mNearDist + 16.0 * factor(bytes);
    return record;
}

/// Depths from 0 to 1 mostly.
inline api::Viewport viewport(Bytes& bytes) {
    api::Viewport record;
    record.mX = depth(bytes), record.mY = depth(bytes);
    record.mWidth = factor(bytes), record.mHeight = factor(bytes);
    const std::uint8_t depths = bytes.byte();
    record.mDepthMin = depths % 4 == 0 ? depth(bytes) : 0.0;
    record.mDepthMax = depths % 4 == 0 ? depth(bytes) : 1.0;
    return record;
}

/// A placement, made in long double and rounded, or sixteen numbers without order.
inline api::Matrix matrix(Bytes& bytes) {
    oracle::Matrix4 m{};
    if (bytes.byte() % 4 == 0) {
        for (auto& row : m) {
            row = {coordinate(bytes), coordinate(bytes), coordinate(bytes), coordinate(bytes)};
        }
    } else {
        const oracle::Vector axis{coordinate(bytes), coordinate(bytes), coordinate(bytes)};
        const Real turn = angle(bytes);
        const auto along = [&](oracle::Vector v) {
            return length(axis) == 0.0L ? v : oracle::turned(v, unit(axis), turn);
        };
        oracle::View view;
        view.place(oracle::fromColumns(along({1.0L, 0.0L, 0.0L}), along({0.0L, 1.0L, 0.0L}), along({0.0L, 0.0L, 1.0L})),
                   {coordinate(bytes), coordinate(bytes), coordinate(bytes)});
        m = view.toWorld;
    }
    api::Matrix record;
    for (const auto& row : m) {
        record.mData.push_back({static_cast<double>(row[0]), static_cast<double>(row[1]), static_cast<double>(row[2]),
                                static_cast<double>(row[3])});
    }
    return record;
}

// The same for the second implementation.

inline oracle::Vector real(const api::Vector& record) { return {record.mData[0], record.mData[1], record.mData[2]}; }

inline std::array<Real, 6> real(const api::Frustum& f) {
    return {f.mLeft, f.mRight, f.mBottom, f.mTop, f.mNearDist, f.mFarDist};
}

inline std::array<Real, 6> real(const api::Viewport& v) {
    return {v.mX, v.mY, v.mWidth, v.mHeight, v.mDepthMin, v.mDepthMax};
}

inline oracle::Matrix4 real(const api::Matrix& record) {
    oracle::Matrix4 m{};
    for (std::size_t r = 0; r < 4; ++r) {
        for (std::size_t k = 0; k < 4; ++k) {
            m[r][k] = record.mData[r][k];
        }
    }
    return m;
}

} // namespace camera::fuzz::differential
