// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "Contents.h"

namespace qel::test {

/// How many doubles lie between two. Any NaN is as good as any other: which one an operation makes of which operand is
/// up to machine and compiler.
inline std::uint64_t unitsApart(const double a, const double b) {
    if (std::isnan(a) || std::isnan(b)) {
        return std::isnan(a) && std::isnan(b) ? 0 : std::numeric_limits<std::uint64_t>::max();
    }
    const auto place = [](const double number) { // in the row of all doubles, both zeros at two places
        const auto bits = std::bit_cast<std::uint64_t>(number);
        constexpr std::uint64_t sign = std::uint64_t{1} << 63U;
        return (bits & sign) != 0 ? sign - 1 - (bits & ~sign) : sign + bits;
    };
    return place(a) > place(b) ? place(a) - place(b) : place(b) - place(a);
}

/// How far two results are apart.
struct Difference {
    std::uint64_t units = 0; ///< most units in the last place between two of their numbers
    double share = 0.0;      ///< largest difference, as a share of the largest finite number in them

    [[nodiscard]] bool none() const { return units == 0; }
};

/// Anything but a finite number that differs is as far apart as can be.
template <class Record>
Difference differenceOf(const Record& a, const Record& b) {
    constexpr Difference everything{std::numeric_limits<std::uint64_t>::max(), std::numeric_limits<double>::infinity()};
    std::vector<Item> left;
    std::vector<Item> right;
    collectItems(a, left);
    collectItems(b, right);
    if (left.size() != right.size()) {
        return everything;
    }
    Difference difference;
    double largest = 0.0;
    double furthest = 0.0;
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (!left[i].isNumber || !right[i].isNumber) {
            if (left[i].bits != right[i].bits || left[i].isNumber != right[i].isNumber) {
                return everything;
            }
            continue;
        }
        const double x = left[i].number();
        const double y = right[i].number();
        difference.units = std::max(difference.units, unitsApart(x, y));
        if (std::isfinite(x) && std::isfinite(y)) {
            largest = std::max({largest, std::fabs(x), std::fabs(y)});
            furthest = std::max(furthest, std::fabs(x - y));
        } else if (unitsApart(x, y) != 0) {
            return everything;
        }
    }
    difference.share = furthest == 0.0 ? 0.0 : furthest / largest;
    return difference;
}

} // namespace qel::test
