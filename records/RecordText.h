// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <charconv>
#include <cstdint>
#include <limits>
#include <ostream>
#include <string>
#include <type_traits>
#include <vector>

#include <qel/api/Field.h>

namespace qel::api::records {

/// 17 significant digits bring every double back exactly. std::to_chars knows no locale, and in this form it gives
/// the digits, the exponent and the nan and inf that a stream in the classic locale gives.
inline void appendText(std::string& text, double value) {
    std::array<char, 32> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general,
                                   std::numeric_limits<double>::max_digits10);
    text.append(buffer.data(), end.ptr);
}

inline void appendText(std::string& text, std::int32_t value) { text += std::to_string(value); }

/// The bytes as they are, also where they are no text (the blobs of the states).
inline void appendText(std::string& text, const std::string& value) { text += value; }

/// An enumerator's name, or the number where the value has none.
template <class Value>
requires std::is_enum_v<Value>
void appendText(std::string& text, Value value) {
    if (const char* name = nameOf(value)) {
        text += name;
    } else {
        appendText(text, static_cast<std::int32_t>(value));
    }
}

template <class Record>
requires std::is_class_v<Record>
void appendText(std::string& text, const Record& record);

template <class Element>
void appendText(std::string& text, const std::vector<Element>& list) {
    text += '[';
    const char* separator = "";
    for (const Element& element : list) {
        text += separator;
        appendText(text, element);
        separator = ", ";
    }
    text += ']';
}

template <class Record>
requires std::is_class_v<Record>
void appendText(std::string& text, const Record& record) {
    text += FieldTable<Record>::recordName;
    const char* separator = "(";
    forEachField<Record>([&](const auto& field) {
        text += separator;
        text += field.name;
        text += '=';
        if (field.form == Form::optional && !field.isSet(record)) {
            text += "<null>";
        } else {
            appendText(text, record.*field.member);
        }
        separator = ", ";
    });
    text += ')';
}

/// Builds the whole line first and writes it unformatted, so that the stream's locale, flags and fill do not matter.
/// The width is cleared as every inserter does, or the host's next output would be padded.
template <class Record>
void printRecord(const Record& record, std::ostream& out) {
    std::string text;
    appendText(text, record);
    out.width(0);
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

} // namespace qel::api::records
