// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "tests/records/RandomRecords.h"
#include "tests/wire/WireBytes.h"

namespace qel::api {

/// Calls visit(bytes, isCut) for messages that no writer writes: one that is cut at each byte, some with changed bytes,
/// and random bytes.
template <class Protocol, class Record, class Visit>
void forEachBrokenMessage(std::uint64_t seed, Visit visit) {
    RandomRecords random(seed);
    std::string whole;
    do {
        whole = written<Protocol>(random.make<Record>());
    } while (whole.size() > 2500);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        visit(whole.substr(0, size), true);
    }
    for (int i = 0; i < 400; ++i) {
        std::string bytes = written<Protocol>(random.make<Record>());
        for (std::size_t change = 1 + random.below(4); change > 0; --change) {
            // Mostly near the start, where the headers are.
            const std::size_t limit = random.below(2) == 0 ? bytes.size() : std::min<std::size_t>(bytes.size(), 30);
            bytes[random.below(limit)] = static_cast<char>(random.below(256));
        }
        visit(bytes, false);
    }
    for (int i = 0; i < 1000; ++i) {
        std::string bytes(random.below(100), '\0');
        for (char& c : bytes) {
            // Bytes that mean something in one of the protocols are small, or have one small half.
            c = static_cast<char>(random.below(2) == 0 ? random.below(17) : random.below(256));
        }
        visit(bytes, false);
    }
}

} // namespace qel::api
