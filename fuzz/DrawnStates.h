// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <type_traits>
#include <variant>

#include "fuzz/Require.h"
#include "tests/component/support/AnyOperation.h"

namespace camera::fuzz {

using namespace qel::api::camera::test;

/// The result records that a sequence of operations carries along: two of each kind, in the order of AnyResult. The
/// states in them are the arguments of the operations that follow.
class States {
public:
    /// Default objects, as the service makes them.
    explicit States(qel::api::camera::CameraAPIIf& service) {
        for (const AnyOperation& operation : allOperations()) {
            for (Kept& kept : mKept[operation.fresh.index()]) {
                if (kept.result.index() != operation.fresh.index()) {
                    kept.result = operation.fresh;
                }
                if (operation.name.ends_with("CreateDefault")) {
                    call(service, operation, kept.result, Arguments());
                }
            }
        }
    }

    /// Copies those that have changed: copying all of them would take longer than most sequences.
    void restore(const States& start) {
        for (std::size_t kind = 0; kind < mKept.size(); ++kind) {
            for (std::size_t i = 0; i < 2; ++i) {
                if (mKept[kind][i].changed) {
                    mKept[kind][i] = start.mKept[kind][i];
                    mKept[kind][i].changed = false;
                }
            }
        }
    }

    /// A record that is about to change.
    [[nodiscard]] AnyResult& change(std::size_t kind, std::size_t index) {
        mKept[kind][index].changed = true;
        return mKept[kind][index].result;
    }

    /// The record that holds a state of an argument's kind: states come last among arguments and first among results.
    [[nodiscard]] const AnyResult& holding(const AnyArgument& state, std::size_t index) const {
        constexpr std::size_t firstState = 8;
        static_assert(std::is_same_v<std::variant_alternative_t<firstState, AnyArgument>, qel::api::camera::ViewState>);
        return mKept[state.index() - firstState][index].result;
    }

    /// The blob of one of the eight states, about to change.
    [[nodiscard]] std::string& changeBlob(std::size_t index) {
        return std::visit(
            [](auto& result) -> std::string& {
                if constexpr (requires { result.mValue.mPrivate; }) {
                    return result.mValue.mPrivate;
                } else {
                    broken("the first four kinds of results hold states");
                }
            },
            change(index % 4, index / 4 % 2));
    }

private:
    struct Kept {
        AnyResult result;
        bool changed = true;
    };
    std::array<std::array<Kept, 2>, std::variant_size_v<AnyResult>> mKept;
};

} // namespace camera::fuzz
