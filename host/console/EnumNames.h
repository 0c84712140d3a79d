// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <qel/api/camera/Values.h>

namespace qel::host {

// The enumerators of an interface's enumeration: they count from 0, and nameOf knows which there are.

/// The enumerator with this name, in upper or lower case.
template <class Enumeration>
std::optional<Enumeration> enumFromName(std::string_view name) {
    const auto sameLetter = [](unsigned char a, unsigned char b) { return std::toupper(a) == std::toupper(b); };
    for (std::int32_t number = 0; nameOf(static_cast<Enumeration>(number)) != nullptr; ++number) {
        if (std::ranges::equal(name, std::string_view(nameOf(static_cast<Enumeration>(number))), sameLetter)) {
            return static_cast<Enumeration>(number);
        }
    }
    return std::nullopt;
}

/// All names, as in "PERSPECTIVE, ORTHOGRAPHIC".
template <class Enumeration>
std::string enumNames() {
    std::string names;
    for (std::int32_t number = 0; nameOf(static_cast<Enumeration>(number)) != nullptr; ++number) {
        names += (names.empty() ? "" : ", ") + std::string(nameOf(static_cast<Enumeration>(number)));
    }
    return names;
}

} // namespace qel::host
