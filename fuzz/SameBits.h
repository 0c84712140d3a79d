// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <tuple>
#include <vector>

#include <qel/api/base/BaseFields.h>
#include <qel/api/camera/Fields.h>

namespace camera::fuzz {

// Whether two values are equal bit for bit: NaN is itself, 0 is not -0, and of records the set-flags count too.

template <class Type>
concept IsRecord = requires {
    qel::api::FieldTable<Type>::fields;
};

inline bool sameBits(double a, double b) { return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b); }
inline bool sameBits(std::int32_t a, std::int32_t b) { return a == b; } // enumerators too
inline bool sameBits(const std::string& a, const std::string& b) { return a == b; }
inline bool sameBits(const std::vector<double>& a, const std::vector<double>& b) {
    return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), sizeof(double) * a.size()) == 0);
}
inline bool sameBits(const std::vector<std::vector<double>>& a, const std::vector<std::vector<double>>& b) {
    if (a.size() != b.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (!sameBits(a[i], b[i])) {
            return false;
        }
    }
    return true;
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
