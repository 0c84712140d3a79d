// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace camera::fuzz {

/// How often what a target is for was reached, so that inputs that no longer reach some of it are noticed.
class Reached {
public:
    /// Something that is to be reached, numbered from 0 in the order of the calls; nothing for what need not be.
    void expect(std::string what) { mCounts.emplace_back(std::move(what), 0); }
    void count(std::size_t number) { ++mCounts[number].second; }

    /// Whether each was reached so many times; says on stderr what was not.
    [[nodiscard]] bool everything(std::uint64_t least) const {
        bool all = true;
        for (const auto& [what, times] : mCounts) {
            if (times < least && !what.empty()) {
                std::fprintf(stderr, "== %s: %llu times, expected at least %llu\n", what.c_str(),
                             static_cast<unsigned long long>(times), static_cast<unsigned long long>(least));
                all = false;
            }
        }
        return all;
    }

private:
    std::vector<std::pair<std::string, std::uint64_t>> mCounts;
};

} // namespace camera::fuzz
