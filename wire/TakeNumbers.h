// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "wire/ByteOrder.h"
#include "wire/ByteSource.h"
#include "wire/ReadElements.h"

namespace qel::api::wire {

/// Reads doubles of 8 bytes each: those that are at hand in one go, the others one by one as they arrive. The list
/// grows by what is there, whatever size was announced.
template <std::endian order>
void takeNumbers(ByteSource& source, ReadElements<double>& elements, std::uint32_t size) {
    for (std::uint32_t done = 0; done < size;) {
        const auto atHand = static_cast<std::uint32_t>(std::min<std::size_t>(size - done, source.atHand(8) / 8));
        if (atHand == 0) {
            const double value = load<order, double>(source.take(8));
            elements.next() = value;
            ++done;
            continue;
        }
        double* numbers = elements.next(atHand);
        const std::uint8_t* bytes = source.takeAtHand(std::size_t{8} * atHand);
        for (std::uint32_t i = 0; i < atHand; ++i) {
            numbers[i] = load<order, double>(bytes + std::size_t{8} * i);
        }
        done += atHand;
    }
}

} // namespace qel::api::wire
