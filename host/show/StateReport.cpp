// SPDX-License-Identifier: Apache-2.0
#include "host/show/StateReport.h"

#include <charconv>
#include <cmath>

#include "host/console/NumberText.h"
#include "host/show/Agreement.h"

namespace qel::host {

void StateReport::line(std::string_view label, std::string_view text) {
    constexpr std::size_t labelWidth = 16;
    mText.append("  ").append(label).append(label.size() < labelWidth ? labelWidth - label.size() : 1, ' ');
    mText.append(text).append("\n");
}

void StateReport::warn(std::string_view part, std::string_view text) {
    mWarnings.push_back(std::string(part).append(": ").append(text));
}

std::string StateReport::text() const {
    std::string text = mText;
    text += mWarnings.empty() ? "" : "\n";
    for (const std::string& warning : mWarnings) {
        text.append("warning: ").append(warning).append("\n");
    }
    return text;
}

std::string shown(double number) {
    if (!std::isfinite(number)) {
        // A NaN's sign and the rest of its bits tell a person nothing.
        return std::isnan(number) ? "NaN" : numberText(number);
    }
    constexpr double negligible = 1e-12;
    if (std::abs(number) < negligible) {
        return "0";
    }
    constexpr int digits = 6;
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::general, digits);
    return {text.data(), end.ptr};
}

std::string shown(std::span<const double> numbers) {
    std::string text = "(";
    for (const double number : numbers) {
        text.append(text.size() > 1 ? ", " : "").append(shown(number));
    }
    return text + ")";
}

std::string kindText(std::uint32_t kind) {
    struct Kind {
        std::uint32_t word;
        std::string_view name;
    };
    constexpr std::array kinds{Kind{1, "identity"}, Kind{2, "translation"},
                               Kind{4, "rotation"}, Kind{16, "rotation and translation"},
                               Kind{32, "scaling"}, Kind{64, "general"}};
    for (const auto& [word, name] : kinds) {
        if (word == kind) {
            return std::string(name).append(" (").append(std::to_string(kind)).append(")");
        }
    }
    return std::to_string(kind);
}

std::vector<double> numbersOf(const api::camera::Matrix& matrix) {
    std::vector<double> numbers;
    for (const auto& row : matrix.mData) {
        numbers.insert(numbers.end(), row.begin(), row.end());
    }
    return numbers;
}

std::vector<double> numbersOf(const BlobMatrix& matrix) {
    std::vector<double> numbers;
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t column = 0; column < 4; ++column) {
            numbers.push_back(matrix(row, column));
        }
    }
    return numbers;
}

void compareField(StateReport& report, std::string_view part, std::string_view field, std::span<const double> inField,
                  std::span<const double> inBlob) {
    if (agree(inField, inBlob)) {
        return;
    }
    constexpr std::size_t fewNumbers = 6;
    std::string text(field);
    if (inField.size() <= fewNumbers && inBlob.size() <= fewNumbers) {
        text.append(" is ").append(shown(inField)).append(", but mPrivate has ").append(shown(inBlob));
    } else {
        text.append(" is not the matrix that mPrivate has");
    }
    report.warn(part, text.append("; operations read mPrivate alone"));
}

void checkBlobSize(StateReport& report, std::string_view part, std::size_t size, std::size_t wanted) {
    const std::string has =
        "mPrivate has " + std::to_string(size) + " bytes instead of " + std::to_string(wanted) + ": ";
    if (size < wanted) {
        report.warn(part, has + "operations on this state fail, and what is shown are its other fields");
    } else if (size > wanted) {
        report.warn(part, has + "operations leave out what comes after");
    }
}

} // namespace qel::host
