// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <type_traits>

#include <qel/api/camera/Operations.h>

#include "fuzz/DrawnStates.h"

namespace camera::fuzz {

/// How often each operation was called, so that a target whose inputs no longer reach some of them is noticed.
class Reached {
public:
    /// One of the operations, or of the three of BaseAPIIf, which follow them.
    void count(std::size_t operation, bool failed) { ++(failed ? mFailed : mSucceeded)[operation]; }
    void countInput() { ++mInputs; }

    /// Each operation once in so many inputs with success, and each that can fail as often with failure; at least
    /// once. Says on stderr what is missing.
    [[nodiscard]] bool everything() const {
        const std::uint64_t wanted = 1 + mInputs / inputsForEach;
        bool all = true;
        const auto check = [&](std::uint64_t times, const std::string& name, const char* how) {
            if (times < wanted) {
                std::fprintf(stderr, "== %s %s %llu times in %llu inputs, expected at least %llu\n", name.c_str(), how,
                             static_cast<unsigned long long>(times), static_cast<unsigned long long>(mInputs),
                             static_cast<unsigned long long>(wanted));
                all = false;
            }
        };
        api::forEachOperation([&]<class Result, class... Arguments>(
                                  std::size_t slot, const api::Operation<Result, Arguments...>& operation) {
            check(mSucceeded[slot], std::string(operation.name), "succeeded");
            if constexpr ((canBeShort<Arguments> || ...)) {
                check(mFailed[slot], std::string(operation.name), "failed");
            }
        });
        for (std::size_t i = api::operationCount; i < mSucceeded.size(); ++i) {
            check(mSucceeded[i], "identity operation " + std::to_string(i - api::operationCount), "succeeded");
        }
        return all;
    }

private:
    static constexpr std::uint64_t inputsForEach = 1000;

    template <class Argument, class Type = std::remove_cvref_t<Argument>>
    static constexpr bool canBeShort = isState<Type> || std::is_same_v<Type, api::Vector> ||
                                       std::is_same_v<Type, api::Quaternion> || std::is_same_v<Type, api::Matrix>;

    using Counts = std::array<std::uint64_t, api::operationCount + 3>;
    Counts mSucceeded{};
    Counts mFailed{};
    std::uint64_t mInputs = 0;
};

} // namespace camera::fuzz
