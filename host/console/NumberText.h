// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qel::host {

/// A double in the fewest digits that read back to the same bits. Minus zero is -0.0, so that no reader takes it for a
/// whole number. What is no number is Infinity, -Infinity, NaN or -NaN; a NaN with other bits than the usual one shows
/// its fraction too, as in NaN(0x8000000000001).
std::string numberText(double value);

/// Reads what numberText writes, and any other decimal spelling, as well as inf and nan in upper or lower case.
/// Nothing where the whole text is no such number, or one beyond a double's range.
std::optional<double> parseNumber(std::string_view text);

/// Numbers that are separated by commas, or the first piece that is none.
struct NumberList {
    std::vector<double> numbers;
    std::optional<std::string> wrongPiece;
};
NumberList parseNumberList(std::string_view text);

} // namespace qel::host
