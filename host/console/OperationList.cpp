// SPDX-License-Identifier: Apache-2.0
#include "host/console/OperationList.h"

#include <algorithm>
#include <cctype>
#include <numeric>
#include <string>

#include <fnmatch.h>

#include <nlohmann/json.hpp>

#include <qel/api/camera/Operations.h>

namespace qel::host {

namespace {

namespace camera = api::camera;

std::vector<OperationEntry> allOperations() {
    std::vector<OperationEntry> entries;
    camera::forEachOperation([&](std::size_t number, const auto& operation) {
        OperationEntry entry{
            number, operation.name, camera::groupOf(operation.name), {}, camera::resultType(operation)};
        const auto types = camera::argumentTypes(operation);
        for (std::size_t index = 0; index < types.size(); ++index) {
            entry.arguments.push_back({operation.argumentNames[index], types[index]});
        }
        entries.push_back(std::move(entry));
    });
    return entries;
}

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](unsigned char letter) { return std::tolower(letter); });
    return lower;
}

/// How many letters must be put in, taken out or changed to turn one text into the other (Levenshtein).
std::size_t distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t change = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, change});
        }
    }
    return row.back();
}

std::string signature(const OperationEntry& entry) {
    std::string text(entry.name);
    const char* separator = "(";
    for (const auto& [name, type] : entry.arguments) {
        text.append(separator).append(name).append(":").append(type);
        separator = ", ";
    }
    text += entry.arguments.empty() ? "()" : ")";
    return text.append(" -> ").append(entry.result);
}

} // namespace

std::vector<OperationEntry> operationsLike(const std::string& pattern) {
    const std::string anywhere = std::string("*").append(lowerCase(pattern)).append("*");
    auto entries = allOperations();
    std::erase_if(entries, [&](const OperationEntry& entry) {
        return fnmatch(anywhere.c_str(), lowerCase(entry.name).c_str(), 0) != 0;
    });
    return entries;
}

std::string signatureOf(std::string_view operationName) {
    for (const OperationEntry& entry : allOperations()) {
        if (entry.name == operationName) {
            return signature(entry);
        }
    }
    return std::string(operationName);
}

std::string namesLike(const std::string& name) {
    constexpr std::size_t farthest = 4;
    std::size_t nearest = std::min(farthest, name.size() / 2);
    std::string names;
    for (const OperationEntry& entry : allOperations()) {
        const std::size_t apart = distance(lowerCase(name), lowerCase(entry.name));
        if (apart < nearest || (apart == nearest && !names.empty())) {
            if (apart < nearest) {
                names.clear();
            }
            names.append(names.empty() ? "" : " or ").append(entry.name);
            nearest = apart;
        }
    }
    return names;
}

std::string operationLines(const std::vector<OperationEntry>& entries) {
    std::string text;
    std::string_view group;
    for (const OperationEntry& entry : entries) {
        if (entry.group != group) {
            text.append(group.empty() ? "" : "\n").append(entry.group).append("\n");
            group = entry.group;
        }
        text += "  " + signature(entry) + "\n";
    }
    return text;
}

Json operationJson(const std::vector<OperationEntry>& entries) {
    Json list = Json::array();
    for (const OperationEntry& entry : entries) {
        Json arguments = Json::array();
        for (const auto& [name, type] : entry.arguments) {
            arguments.push_back({{"name", name}, {"type", type}});
        }
        list.push_back({{"number", entry.number},
                        {"name", entry.name},
                        {"group", entry.group},
                        {"arguments", std::move(arguments)},
                        {"result", entry.result}});
    }
    return list;
}

} // namespace qel::host
