// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "tests/reliability/Contents.h"

namespace qel::api::camera::test {

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
    double roundings = 0.0;  ///< largest difference, in 2^-52 of the largest number of the vector, matrix or frustum

    [[nodiscard]] bool none() const { return units == 0; }
};

/// A word, a length or a flag that differs, and a number that is finite on one side alone, is as far apart as can be.
template <class Record>
Difference differenceOf(const Record& a, const Record& b) {
    constexpr Difference everything{std::numeric_limits<std::uint64_t>::max(), std::numeric_limits<double>::infinity()};
    const Contents left(a);
    const Contents right(b);
    if (left.items().size() != right.items().size()) {
        return everything;
    }
    std::vector<double> largest(left.items().size() + 1); // by part
    std::vector<double> furthest(largest.size());
    Difference difference;
    for (std::size_t i = 0; i < left.items().size(); ++i) {
        const Item& l = left.items()[i];
        const Item& r = right.items()[i];
        if (!l.isNumber || !r.isNumber) {
            if (l.isNumber || r.isNumber || l.bits != r.bits) {
                return everything;
            }
            continue;
        }
        const std::uint64_t units = unitsApart(l.number(), r.number());
        difference.units = std::max(difference.units, units);
        if (std::isfinite(l.number()) && std::isfinite(r.number())) {
            largest[l.part] = std::max({largest[l.part], std::fabs(l.number()), std::fabs(r.number())});
            furthest[l.part] = std::max(furthest[l.part], std::fabs(l.number() - r.number()));
        } else if (units != 0) {
            return everything;
        }
    }
    for (std::size_t part = 0; part < largest.size(); ++part) {
        if (furthest[part] != 0.0) {
            difference.roundings = std::max(difference.roundings, furthest[part] / largest[part] * 0x1p52);
        }
    }
    return difference;
}

} // namespace qel::api::camera::test
