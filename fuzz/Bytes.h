// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace camera::fuzz {

/// A fuzzer's input, read from its start. Past its end everything reads as zero.
class Bytes {
public:
    Bytes(const std::uint8_t* data, std::size_t size) : mRest(data, size) {}

    [[nodiscard]] bool empty() const { return mRest.empty(); }
    [[nodiscard]] std::span<const std::uint8_t> rest() const { return mRest; }

    std::uint8_t byte() {
        if (mRest.empty()) {
            return 0;
        }
        const std::uint8_t value = mRest.front();
        mRest = mRest.subspan(1);
        return value;
    }

    /// `count` bytes as one number, the first the least significant.
    std::uint64_t word(std::size_t count) {
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < count; ++i) {
            value |= std::uint64_t{byte()} << (8U * i);
        }
        return value;
    }

private:
    std::span<const std::uint8_t> mRest;
};

} // namespace camera::fuzz
