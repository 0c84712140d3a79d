// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>

#include <qel/api/camera/Fields.h>
#include <qel/api/camera/Operations.h>

namespace qel::api::camera {

// What the table of operations is called by in text: the groups that its operations fall into, and the types of its
// arguments and results. For whatever lists or documents the operations.

/// Some operations that belong together, by what their names begin with.
struct OperationGroup {
    std::string_view name;
    std::string_view prefix;
};

/// The groups, in the order in which the table comes to them.
inline constexpr std::array operationGroups{
    OperationGroup{"View", "view"},       OperationGroup{"Projection", "projection"},
    OperationGroup{"Surface", "surface"}, OperationGroup{"PlanarCamera", "planarCamera"},
    OperationGroup{"Utilities", "utils"}, OperationGroup{"Transforms", "transform"},
};

/// The group of an operation, by its name; empty for a name that begins like no operation.
constexpr std::string_view groupOf(std::string_view operationName) {
    for (const OperationGroup& group : operationGroups) {
        if (operationName.substr(0, group.prefix.size()) == group.prefix) {
            return group.name;
        }
    }
    return {};
}

namespace detail {
constexpr bool everyOperationHasAGroup() {
    bool all = true;
    forEachOperation([&](std::size_t, const auto& operation) { all = all && !groupOf(operation.name).empty(); });
    return all;
}
static_assert(everyOperationHasAGroup());
} // namespace detail

/// The name of the type of an argument or a result, of which references and constness do not count: a record's own,
/// "ProjectionType", "double" or "int32".
template <class Type>
constexpr std::string_view typeName() {
    using Value = std::remove_cvref_t<Type>;
    if constexpr (std::is_same_v<Value, double>) {
        return "double";
    } else if constexpr (std::is_same_v<Value, std::int32_t>) {
        return "int32";
    } else if constexpr (std::is_same_v<Value, ProjectionType::type>) {
        return "ProjectionType";
    } else {
        return FieldTable<Value>::recordName;
    }
}

/// The names of the types of an operation's arguments after `_return`, beside its argumentNames.
template <class Result, class... Arguments>
constexpr std::array<std::string_view, sizeof...(Arguments)> argumentTypes(const Operation<Result, Arguments...>&) {
    return {typeName<Arguments>()...};
}

/// The name of the record into which an operation writes.
template <class Result, class... Arguments>
constexpr std::string_view resultType(const Operation<Result, Arguments...>&) {
    return typeName<Result>();
}

} // namespace qel::api::camera
