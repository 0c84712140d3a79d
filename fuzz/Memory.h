// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>

namespace camera::fuzz {

/// Measures the memory that this process holds beyond what it held at the start of the measurement. Works under a
/// sanitizer that tells of every allocation; elsewhere it finds nothing.
class Memory {
public:
    Memory();
    ~Memory();
    Memory(const Memory&) = delete;
    Memory& operator=(const Memory&) = delete;

    /// The most bytes that were held at once.
    [[nodiscard]] std::size_t most() const;
};

} // namespace camera::fuzz
