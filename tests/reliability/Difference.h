// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

#include "support/RecordFields.h"

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

/// All that a record holds, as numbers: images 8 bytes at a time.
template <class Value>
void collectNumbers(const Value& value, std::vector<double>& numbers) {
    using camera_value = std::remove_cvref_t<Value>;
    if constexpr (api::camera::test::IsRecord<camera_value>) {
        api::camera::test::forEachField(value, [&](const auto& field, const auto& member) {
            numbers.push_back(field.isSet(value) ? 1.0 : 0.0);
            collectNumbers(member, numbers);
        });
    } else if constexpr (std::is_arithmetic_v<camera_value> || std::is_enum_v<camera_value>) {
        numbers.push_back(static_cast<double>(value));
    } else if constexpr (std::is_same_v<camera_value, std::string>) {
        for (std::size_t i = 0; i < value.size(); i += 8) {
            std::uint64_t bits = 0;
            for (std::size_t k = i; k < std::min(i + 8, value.size()); ++k) {
                bits |= std::uint64_t{static_cast<std::uint8_t>(value[k])} << (8U * (k - i));
            }
            numbers.push_back(std::bit_cast<double>(bits));
        }
    } else {
        numbers.push_back(static_cast<double>(value.size()));
        for (const auto& element : value) {
            collectNumbers(element, numbers);
        }
    }
}

/// How far two results are apart.
struct Difference {
    std::uint64_t units = 0; ///< most units in the last place between two of their numbers
    double share = 0.0;      ///< largest difference, as a share of the largest finite number in them

    [[nodiscard]] bool none() const { return units == 0; }
};

template <class Record>
Difference differenceOf(const Record& a, const Record& b) {
    std::vector<double> left;
    std::vector<double> right;
    collectNumbers(a, left);
    collectNumbers(b, right);
    Difference difference;
    if (left.size() != right.size()) {
        difference.units = std::numeric_limits<std::uint64_t>::max();
        difference.share = std::numeric_limits<double>::infinity();
        return difference;
    }
    double largest = 0.0;
    double furthest = 0.0;
    for (std::size_t i = 0; i < left.size(); ++i) {
        difference.units = std::max(difference.units, unitsApart(left[i], right[i]));
        if (std::isfinite(left[i]) && std::isfinite(right[i])) {
            const double size = std::max(std::fabs(left[i]), std::fabs(right[i]));
            largest = std::max(largest, size);
            // What an image holds in whole numbers reads as denormal ones; no rounding changes those.
            const bool whole = size < 1e-300 && left[i] != right[i];
            furthest =
                std::max(furthest, whole ? std::numeric_limits<double>::infinity() : std::fabs(left[i] - right[i]));
        } else if (unitsApart(left[i], right[i]) != 0) {
            furthest = std::numeric_limits<double>::infinity();
        }
    }
    difference.share = furthest == 0.0 ? 0.0 : furthest / largest;
    return difference;
}

} // namespace qel::test
