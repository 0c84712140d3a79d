// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>

namespace qel::api {

/// Bytes that operator new has handed out and not taken back, in the program that HeldBytes.cpp is linked to.
std::size_t allocatedBytes();

/// The most that allocatedBytes() has been since the last call of forgetPeak().
std::size_t peakBytes();
void forgetPeak();

/// The most bytes that the call held at once, beyond what was held before it.
template <class Call>
std::size_t peakOf(Call call) {
    const std::size_t before = allocatedBytes();
    forgetPeak();
    call();
    return peakBytes() - before;
}

} // namespace qel::api
