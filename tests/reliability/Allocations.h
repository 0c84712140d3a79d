// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>

namespace qel::test {

/// Makes allocations of this thread fail, in this program and in the modules that it loads, while it lives: the one
/// numbered `first` (from 1), or that one and all after it. Counts what is allocated, and what is not given back.
///
/// With CAMERA_REPLACE_MALLOC malloc and its like are replaced, so that the memory for a thrown exception runs out with
/// the rest and what C code allocates is counted. Else, as where a sanitizer has replaced them, operator new alone.
class Allocations {
public:
    enum class Fail { none, one, allFrom };

    explicit Allocations(Fail fail = Fail::none, std::size_t first = 0);
    ~Allocations();
    Allocations(const Allocations&) = delete;
    Allocations& operator=(const Allocations&) = delete;

    /// Stops failing and counting; the destructor does so too.
    void stop();

    [[nodiscard]] std::size_t asked() const;  ///< how often memory was asked for, with or without success
    [[nodiscard]] std::size_t failed() const; ///< how often in vain
};

/// The blocks that this process holds, from operator new and, where it is replaced, from malloc.
[[nodiscard]] std::ptrdiff_t heldBlocks();

// Bytes, from operator new and only where malloc is not replaced.

[[nodiscard]] std::size_t heldBytes();
[[nodiscard]] std::size_t peakBytes(); ///< the most since the last call of forgetPeak()
void forgetPeak();

/// The most bytes that the call held at once, beyond what was held before it.
template <class Call>
std::size_t peakOf(Call call) {
    const std::size_t before = heldBytes();
    forgetPeak();
    call();
    return peakBytes() - before;
}

} // namespace qel::test
