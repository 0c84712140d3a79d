// SPDX-License-Identifier: Apache-2.0
#include "host/console/NumberText.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <system_error>

namespace qel::host {

namespace {

// The parts of an IEEE 754 double, whose NaN are all values with the exponent full and the fraction not 0.
constexpr std::uint64_t signBit = 1ULL << 63U;
constexpr std::uint64_t fullExponent = 0x7ffULL << 52U;
constexpr std::uint64_t fractionBits = (1ULL << 52U) - 1;
constexpr std::uint64_t usualFraction = 1ULL << 51U;

std::string nanText(double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    std::string text = (bits & signBit) != 0 ? "-NaN" : "NaN";
    const std::uint64_t fraction = bits & fractionBits;
    if (fraction != usualFraction) {
        std::array<char, 16> digits{};
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), fraction, 16);
        text.append("(0x").append(digits.data(), end.ptr).append(")");
    }
    return text;
}

bool sameLetters(std::string_view text, std::string_view lowerCase) {
    return std::ranges::equal(text, lowerCase, [](char a, char b) {
        return std::tolower(static_cast<unsigned char>(a)) == static_cast<unsigned char>(b);
    });
}

/// The NaN after its sign.
std::optional<double> parseNan(std::string_view text) {
    constexpr std::string_view opening = "nan(0x";
    std::uint64_t fraction = usualFraction;
    if (!sameLetters(text, "nan")) {
        if (text.size() <= opening.size() || !sameLetters(text.substr(0, opening.size()), opening) ||
            text.back() != ')') {
            return std::nullopt;
        }
        const char* end = text.data() + text.size() - 1;
        const auto parsed = std::from_chars(text.data() + opening.size(), end, fraction, 16);
        if (parsed.ec != std::errc{} || parsed.ptr != end || fraction == 0 || fraction > fractionBits) {
            return std::nullopt;
        }
    }
    return std::bit_cast<double>(fullExponent | fraction);
}

std::optional<double> parseMagnitude(std::string_view text) {
    if (sameLetters(text, "infinity") || sameLetters(text, "inf")) {
        return std::numeric_limits<double>::infinity();
    }
    // std::from_chars would take a sign, too.
    if (text.empty() || (text.front() != '.' && std::isdigit(static_cast<unsigned char>(text.front())) == 0)) {
        return parseNan(text);
    }
    double value = 0;
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), value);
    if (parsed.ec != std::errc{} || parsed.ptr != text.data() + text.size()) {
        return std::nullopt;
    }
    return value;
}

} // namespace

std::string numberText(double value) {
    if (std::isnan(value)) {
        return nanText(value);
    }
    if (std::isinf(value)) {
        return value < 0 ? "-Infinity" : "Infinity";
    }
    if (value == 0) {
        return std::signbit(value) ? "-0.0" : "0";
    }
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value);
    return {text.data(), end.ptr};
}

std::optional<double> parseNumber(std::string_view text) {
    const bool negative = !text.empty() && text.front() == '-';
    if (negative || (!text.empty() && text.front() == '+')) {
        text.remove_prefix(1);
    }
    auto value = parseMagnitude(text);
    if (value && negative) {
        // Not by a minus, which says nothing of a NaN's sign.
        value = std::bit_cast<double>(std::bit_cast<std::uint64_t>(*value) ^ signBit);
    }
    return value;
}

NumberList parseNumberList(std::string_view text) {
    NumberList list;
    while (true) {
        const std::size_t comma = text.find(',');
        std::string_view piece = text.substr(0, comma);
        while (!piece.empty() && piece.front() == ' ') {
            piece.remove_prefix(1);
        }
        while (!piece.empty() && piece.back() == ' ') {
            piece.remove_suffix(1);
        }
        const auto number = parseNumber(piece);
        if (!number) {
            list.wrongPiece = std::string(piece);
            return list;
        }
        list.numbers.push_back(*number);
        if (comma == std::string_view::npos) {
            return list;
        }
        text.remove_prefix(comma + 1);
    }
}

} // namespace qel::host
