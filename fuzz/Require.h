// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace camera::fuzz {

/// Ends the process with a line that says what did not hold: a fuzzer keeps the input and reports it.
[[noreturn]] inline void broken(const std::string& what) {
    std::fprintf(stderr, "== broken: %s\n", what.c_str());
    std::abort();
}

inline void require(bool holds, const char* what) {
    if (!holds) {
        broken(what);
    }
}

} // namespace camera::fuzz

/// A fuzzer's entry: libFuzzer's main or the one of Replay.cpp calls it for every input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Whether all that a target is for was reached by the inputs so far; says on stderr what was missed. The one of
/// Replay.cpp, which asks at its end, is content with anything; a target may define its own in its place.
extern "C" bool fuzzReachedEverything();
