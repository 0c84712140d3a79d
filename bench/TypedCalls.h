// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/api/camera/Operations.h>

namespace qel::bench {

// Operations as types: what walks the table of operations can call each one directly, as a host does, and not
// through a pointer to member.

template <class Signature>
struct CallTraits;

template <class ResultType, class... ArgumentTypes>
struct CallTraits<api::camera::Operation<ResultType, ArgumentTypes...>> {
    using Result = ResultType;
    using Arguments = std::tuple<std::decay_t<ArgumentTypes>...>; ///< by value, after `_return`
};

/// The operation of a number in the table.
template <std::size_t Number>
struct Call {
    static constexpr const auto& operation = std::get<Number>(api::camera::operations);
    using Result = typename CallTraits<std::decay_t<decltype(operation)>>::Result;
    using Arguments = typename CallTraits<std::decay_t<decltype(operation)>>::Arguments;

    static void run(api::camera::CameraAPIIf& camera, Result& result, const Arguments& arguments) {
        std::apply([&](const auto&... argument) { (camera.*operation.member)(result, argument...); }, arguments);
    }

    /// Arguments from a source that has a value for each type and name.
    template <class Source>
    static Arguments arguments(Source& source) {
        Arguments made;
        std::size_t position = 0;
        std::apply(
            [&](auto&... argument) {
                ((source.give(argument, operation.name, operation.argumentNames[position++])), ...);
            },
            made);
        return made;
    }
};

/// Calls visit(Call<number>()) for each operation, in the table's order.
template <class Visitor>
void forEachCall(Visitor&& visit) {
    [&]<std::size_t... Number>(std::index_sequence<Number...>) { (visit(Call<Number>()), ...); }
    (std::make_index_sequence<api::camera::operationCount>());
}

} // namespace qel::bench
