// SPDX-License-Identifier: Apache-2.0
#include "host/console/Json.h"

#include <algorithm>
#include <cstddef>

#include <nlohmann/json.hpp>

#include "host/console/NumberText.h"

namespace qel::host {

namespace {

constexpr std::size_t lineLength = 100;
constexpr std::size_t indentation = 2;

/// A text or a name in quotes. A message in a foreign encoding must not stop the output.
std::string inQuotes(const Json& text) { return text.dump(-1, ' ', false, Json::error_handler_t::replace); }

bool isListOfContainers(const Json& json) {
    return json.is_array() && std::ranges::any_of(json, [](const Json& element) { return element.is_structured(); });
}

bool needsLines(const Json& json) {
    return isListOfContainers(json) ||
           (json.is_object() && std::ranges::any_of(json, [](const Json& member) { return needsLines(member); }));
}

std::string scalar(const Json& json) {
    return json.is_number_float() ? numberText(json.get<double>()) : inQuotes(json);
}

std::string onOneLine(const Json& json) {
    if (!json.is_structured()) {
        return scalar(json);
    }
    std::string text(1, json.is_object() ? '{' : '[');
    const char* separator = "";
    for (const auto& [key, value] : json.items()) {
        text += separator + (json.is_object() ? inQuotes(key) + ": " : std::string()) + onOneLine(value);
        separator = ", ";
    }
    return text + (json.is_object() ? '}' : ']');
}

/// `column` is where the value begins, behind its name.
std::string layOut(const Json& json, std::size_t depth, std::size_t column) {
    if (!needsLines(json)) {
        std::string line = onOneLine(json);
        if (column + line.size() <= lineLength || !json.is_object()) {
            return line;
        }
    }
    const std::string indent((depth + 1) * indentation, ' ');
    std::string text(1, json.is_object() ? '{' : '[');
    const char* separator = "\n";
    for (const auto& [key, value] : json.items()) {
        const std::string name = json.is_object() ? inQuotes(key) + ": " : std::string();
        text.append(separator).append(indent).append(name);
        text += layOut(value, depth + 1, indent.size() + name.size());
        separator = ",\n";
    }
    return text + "\n" + std::string(depth * indentation, ' ') + (json.is_object() ? '}' : ']');
}

} // namespace

Json parseJson(std::string_view text) {
    try {
        return Json::parse(text);
    } catch (const Json::exception& error) {
        // The library's own number of the error, in brackets, helps nobody here.
        const std::string_view message = error.what();
        const std::size_t bracket = message.find("] ");
        throw JsonError(std::string(bracket == std::string_view::npos ? message : message.substr(bracket + 2)));
    }
}

std::string layOut(const Json& json) { return layOut(json, 0, 0); }

std::string describe(const Json& json) {
    constexpr std::size_t longest = 40;
    if (json.is_object()) {
        std::string names;
        for (const auto& [key, value] : json.items()) {
            names += (names.empty() ? "" : ", ") + key;
        }
        return names.empty() ? "an empty object" : "an object of " + names;
    }
    if (json.is_array()) {
        return "a list of " + std::to_string(json.size());
    }
    const std::string text = scalar(json);
    return text.size() <= longest ? text : text.substr(0, longest) + "...";
}

} // namespace qel::host
