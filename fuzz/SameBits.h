// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include <qel/api/base/BaseFields.h>
#include <qel/api/camera/Fields.h>

namespace camera::fuzz {

// Whether two values are equal bit for bit: NaN is itself, 0 is not -0, and of records the set-flags count too, and
// what stands under the lowered ones.

template <class Type>
concept IsRecord = requires {
    qel::api::FieldTable<Type>::fields;
};

inline bool sameBits(double a, double b) { return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b); }
inline bool sameBits(std::int32_t a, std::int32_t b) { return a == b; } // enumerators too
inline bool sameBits(const std::string& a, const std::string& b) { return a == b; }
template <class Element>
bool sameBits(const std::vector<Element>& a, const std::vector<Element>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const Element& x, const Element& y) { return sameBits(x, y); });
}
template <IsRecord Record>
bool sameBits(const Record& a, const Record& b) {
    return std::apply(
        [&](const auto&... field) {
            return ((field.isSet(a) == field.isSet(b) && sameBits(a.*(field.member), b.*(field.member))) && ...);
        },
        qel::api::FieldTable<Record>::fields);
}

} // namespace camera::fuzz
