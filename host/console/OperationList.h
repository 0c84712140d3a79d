// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/console/Json.h"

namespace qel::host {

/// An operation of the table, in words.
struct OperationEntry {
    struct Argument {
        std::string_view name;
        std::string_view type;
    };

    std::size_t number;
    std::string_view name;
    std::string_view group;
    std::vector<Argument> arguments;
    std::string_view result;
};

/// The operations whose names contain the pattern, in the table's order: upper and lower case count alike, and *, ? and
/// [...] are those of the shell. All of them for the empty pattern.
std::vector<OperationEntry> operationsLike(const std::string& pattern);

/// The operation as a person reads it, such as "viewSetEye(state:ViewState, eye:Vector) -> ViewStateResult".
std::string signatureOf(std::string_view operationName);

/// The names nearest to one that is none; empty where nothing is near.
std::string namesLike(const std::string& name);

/// One line for each operation, under a heading for each group.
std::string operationLines(const std::vector<OperationEntry>& entries);

/// A list of objects with number, name, group, arguments (name and type each) and result.
Json operationJson(const std::vector<OperationEntry>& entries);

} // namespace qel::host
