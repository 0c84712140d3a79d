// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "tests/component/support/Calls.h"
#include "tests/component/support/LoadedModule.h"
#include "tests/component/support/Samples.h"

namespace qel::api::camera::test {

namespace {

// What a successful call does to the outcome part of a result, and to the flags of its payload.

class Outcome : public ::testing::Test {
protected:
    LoadedService mService;
    Samples mSamples{*mService};
};

TEST_F(Outcome, OfADefaultResultIsSuccess) {
    forEachOperation([&](std::size_t, const auto& operation) {
        SCOPED_TRACE(operation.name);
        const auto result = callAfresh(*mService, operation, mSamples.argumentsOf(operation));
        expectSuccess(result);
        EXPECT_TRUE(isWellFormed(result.mValue));
    });
}

TEST_F(Outcome, OlderErrorStaysInPlaceExceptForTheGetters) {
    forEachOperation([&](const std::size_t slot, const auto& operation) {
        SCOPED_TRACE(operation.name);
        const auto arguments = mSamples.argumentsOf(operation);
        ResultOf<decltype(operation)> result;
        result.mResult = olderError();
        call(*mService, operation, result, arguments);

        base::ServiceResult expected = olderError();
        if (resetsOutcome(slot)) {
            expected.mError = 0;
            expected.mMessage.clear(); // the flags stay raised
        }
        EXPECT_EQ(fingerprint(result.mResult), fingerprint(expected));
        EXPECT_EQ(fingerprint(result.mValue), fingerprint(callAfresh(*mService, operation, arguments).mValue))
            << "the payload is written all the same";
    });
}

TEST_F(Outcome, GettersLeaveTheFlagsOfTheOutcomeAsTheyFoundThem) {
    std::size_t getters = 0;
    forEachOperation([&](const std::size_t slot, const auto& operation) {
        if (!resetsOutcome(slot)) {
            return;
        }
        SCOPED_TRACE(operation.name);
        ++getters;
        for (const bool errorFlag : {false, true}) {
            for (const bool messageFlag : {false, true}) {
                ResultOf<decltype(operation)> result;
                result.mResult.mError = -1;
                result.mResult.mMessage = "older";
                result.mResult.__isset.mError = errorFlag;
                result.mResult.__isset.mMessage = messageFlag;
                call(*mService, operation, result, mSamples.argumentsOf(operation));
                EXPECT_EQ(result.mResult.mError, 0);
                EXPECT_EQ(result.mResult.mMessage, "");
                EXPECT_EQ(result.mResult.__isset.mError, errorFlag);
                EXPECT_EQ(result.mResult.__isset.mMessage, messageFlag);
            }
        }
    });
    EXPECT_EQ(getters, 3U);
}

TEST_F(Outcome, FlagsOfThePayloadStayAsTheyAre) {
    forEachOperation([&](std::size_t, const auto& operation) {
        SCOPED_TRACE(operation.name);
        for (const bool raised : {false, true}) {
            ResultOf<decltype(operation)> result;
            setAllFlags(result, raised);
            const std::string before = flagsOf(result);
            call(*mService, operation, result, mSamples.argumentsOf(operation));
            EXPECT_EQ(flagsOf(result), before);
        }
    });
}

TEST_F(Outcome, DegenerateArgumentsAreNoFailure) {
    // Zero everywhere: directions without length, empty boxes and frusta, windows of no size.
    forEachOperation([&](std::size_t, const auto& operation) {
        SCOPED_TRACE(operation.name);
        auto arguments = mSamples.argumentsOf(operation);
        forEachArgument(arguments, [](auto& argument) {
            using Argument = std::remove_cvref_t<decltype(argument)>;
            if constexpr (std::is_arithmetic_v<Argument>) {
                argument = 0;
            } else if constexpr (std::is_same_v<Argument, Vector> || std::is_same_v<Argument, Quaternion>) {
                argument.mData.assign(argument.mData.size(), 0.0);
            } else if constexpr (std::is_same_v<Argument, Matrix>) {
                argument.mData.assign(4, {0.0, 0.0, 0.0, 0.0});
            } else if constexpr (std::is_same_v<Argument, Frustum> || std::is_same_v<Argument, Viewport>) {
                argument = Argument();
            }
        });
        const auto result = callAfresh(*mService, operation, arguments);
        expectSuccess(result);
        EXPECT_TRUE(isWellFormed(result.mValue));
    });
}

TEST_F(Outcome, ArgumentsAreNotTouched) {
    forEachOperation([&](std::size_t, const auto& operation) {
        SCOPED_TRACE(operation.name);
        const auto arguments = mSamples.argumentsOf(operation);
        std::string before;
        forEachArgument(arguments, [&](const auto& argument) { appendValue(before, argument); });
        callAfresh(*mService, operation, arguments);
        std::string after;
        forEachArgument(arguments, [&](const auto& argument) { appendValue(after, argument); });
        EXPECT_EQ(after, before);
    });
}

} // namespace

} // namespace qel::api::camera::test
