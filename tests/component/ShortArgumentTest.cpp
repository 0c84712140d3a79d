// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "tests/component/support/Blobs.h"
#include "tests/component/support/Calls.h"

namespace qel::api::camera::test {

namespace {

// Every operation with every argument that can be too short, too short in every way.

/// What a call must reject, and what is wrong with it.
using Rejected = std::vector<std::pair<std::string, AnyArgument>>;

template <class State>
requires requires(State state) { state.mPrivate; }
Rejected rejected(const State& valid) {
    Rejected variants;
    for (const std::size_t size : {std::size_t(0), std::size_t(8), valid.mPrivate.size() - 1}) {
        State state = valid;
        state.mPrivate.resize(size);
        variants.emplace_back("a blob of " + std::to_string(size) + " bytes", state);
    }
    if constexpr (std::is_same_v<State, PlanarCameraState>) {
        State anotherKind = valid;
        anotherKind.mPrivate = valid.mViewState.mPrivate;
        variants.emplace_back("the blob of a view", anotherKind);
    }
    return variants;
}

template <class List>
requires requires(List list) { list.mData; }
Rejected rejected(const List& valid) {
    Rejected variants;
    for (List list = valid; !list.mData.empty();) {
        list.mData.pop_back();
        variants.emplace_back(std::to_string(list.mData.size()) + " values", list);
    }
    if constexpr (std::is_same_v<List, Matrix>) {
        for (std::size_t row = 0; row < valid.mData.size(); ++row) {
            Matrix shortRow = valid;
            shortRow.mData[row].pop_back();
            variants.emplace_back("a row of three", shortRow);
            shortRow.mData[row].clear();
            variants.emplace_back("an empty row", shortRow);
        }
    }
    return variants;
}

Rejected rejected(const auto& /*number*/) { return {}; }

/// The transposition takes any shape, so it rejects less than the operations on a 4x4 matrix.
Rejected rejectedByTransposition(const Matrix& valid) {
    Matrix shortRow = valid;
    shortRow.mData[1].pop_back();
    Matrix shortLastRow = valid;
    shortLastRow.mData.back().clear();
    return {{"no rows", Matrix()}, {"a row shorter than the first", shortRow}, {"an empty last row", shortLastRow}};
}

class ShortArgument : public ServiceTest {};

TEST_F(ShortArgument, FailsTheCallWithItsCodeAndMessageAndLeavesThePayloadAlone) {
    for (const AnyOperation& operation : allOperations()) {
        SCOPED_TRACE(operation.name);
        const Arguments valid = mSamples.argumentsOf(operation);
        const AnyResult earlier = callAfresh(*mService, operation, valid);
        std::size_t calls = 0;
        for (std::size_t i = 0; i < valid.size(); ++i) {
            const Rejected variants = operation.isTransposition()
                                          ? rejectedByTransposition(std::get<Matrix>(valid[i]))
                                          : std::visit([](const auto& value) { return rejected(value); }, valid[i]);
            for (const auto& [reason, argument] : variants) {
                SCOPED_TRACE(std::string(operation.argumentNames[i]) + ": " + reason);
                Arguments spoilt = valid;
                spoilt[i] = argument;
                const AnyResult fresh = callAfresh(*mService, operation, spoilt);
                expectFailure(fresh, operation);
                EXPECT_EQ(payloadBits(fresh), payloadBits(operation.fresh));

                AnyResult reused = earlier;
                setAllFlags(reused, true);
                const std::string before = payloadBits(reused);
                outcomeOf(reused) = olderError();
                call(*mService, operation, reused, spoilt);
                expectFailure(reused, operation);
                EXPECT_EQ(payloadBits(reused), before);
                ++calls;
            }
        }
        EXPECT_EQ(calls > 0, operation.canFail());
    }
}

TEST_F(ShortArgument, SurplusValuesRowsAndBytesAreIgnored) {
    for (const AnyOperation& operation : allOperations()) {
        if (operation.isTransposition()) { // any shape is right
            continue;
        }
        SCOPED_TRACE(operation.name);
        Arguments lengthened = mSamples.argumentsOf(operation);
        for (AnyArgument& argument : lengthened) {
            makeTooLong(argument);
        }
        const AnyResult result = callAfresh(*mService, operation, lengthened);
        expectSuccess(result);
        EXPECT_EQ(fingerprint(result), fingerprint(callSample(operation)));
    }
}

} // namespace

} // namespace qel::api::camera::test
