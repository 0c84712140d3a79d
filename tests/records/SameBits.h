// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <string>
#include <tuple>
#include <type_traits>

#include <qel/api/base/BaseFields.h>
#include <qel/api/camera/Fields.h>

namespace qel::api {

template <class Type>
concept IsRecord = requires {
    FieldTable<Type>::fields;
};

/// Whether two values are equal bit for bit: NaN is itself, 0 is not -0, and of records the set-flags count too, and
/// what stands under the lowered ones. The records may be of two classes with the same fields.
template <class One, class Other>
bool sameBits(const One& a, const Other& b) {
    if constexpr (IsRecord<One>) {
        return std::apply(
            [&](const auto&... one) {
                return std::apply(
                    [&](const auto&... other) {
                        return ((one.isSet(a) == other.isSet(b) && sameBits(a.*one.member, b.*other.member)) && ...);
                    },
                    FieldTable<Other>::fields);
            },
            FieldTable<One>::fields);
    } else if constexpr (std::is_same_v<One, double>) {
        return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
    } else if constexpr (!std::is_class_v<One>) {
        return static_cast<std::int64_t>(a) == static_cast<std::int64_t>(b);
    } else if constexpr (std::is_same_v<One, std::string>) {
        return a == b;
    } else {
        return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                          [](const auto& one, const auto& other) { return sameBits(one, other); });
    }
}

} // namespace qel::api
