// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <type_traits>

#include "tests/component/support/Calls.h"

namespace qel::api::camera::test {

namespace {

// What a successful call does to the outcome part of a result, and to the flags of its payload.

class Outcome : public ServiceTest {};

TEST_F(Outcome, OfADefaultResultIsSuccess) {
    for (const AnyOperation& operation : allOperations()) {
        SCOPED_TRACE(operation.name);
        const AnyResult result = callSample(operation);
        expectSuccess(result);
        EXPECT_TRUE(isWellFormed(result));
    }
}

TEST_F(Outcome, OlderErrorStaysInPlaceExceptForTheGettersWhichLeaveItsFlags) {
    for (const AnyOperation& operation : allOperations()) {
        SCOPED_TRACE(operation.name);
        for (const bool flags : {false, true}) {
            AnyResult result = operation.fresh;
            base::ServiceResult expected = olderError();
            expected.__isset.mError = flags;
            outcomeOf(result) = expected;
            call(*mService, operation, result, mSamples.argumentsOf(operation));

            if (operation.resetsOutcome()) {
                expected.mError = 0;
                expected.mMessage.clear();
            }
            const base::ServiceResult& actual = outcomeOf(result);
            EXPECT_EQ(actual.mError, expected.mError);
            EXPECT_EQ(actual.mMessage, expected.mMessage);
            EXPECT_EQ(actual.__isset.mError, flags);
            EXPECT_TRUE(actual.__isset.mMessage);
            EXPECT_EQ(payloadBits(result), payloadBits(callSample(operation))) << "written all the same";
        }
    }
}

TEST_F(Outcome, FlagsOfThePayloadStayAndThoseOfTheRecordsInsideItEndLowered) {
    for (const AnyOperation& operation : allOperations()) {
        SCOPED_TRACE(operation.name);
        for (const bool raised : {false, true}) {
            AnyResult result = raised ? callSample(operation) : operation.fresh;
            setAllFlags(result, raised);
            const std::string expected = flagsAfterSuccess(result);
            call(*mService, operation, result, mSamples.argumentsOf(operation));
            EXPECT_EQ(flagsOf(result), expected);
        }
    }
    // The same, spelled out for one record that is fresh.
    AnyResult raised = PlanarCameraStateResult();
    setAllFlags(raised, true);
    auto camera = std::get<PlanarCameraStateResult>(raised);
    mService->planarCameraYaw(camera, mSamples.planarCamera, 0.5);
    EXPECT_TRUE(camera.__isset.mValue && camera.mValue.__isset.mSurfaceState && camera.mValue.__isset.mPrivate);
    EXPECT_FALSE(camera.mValue.mSurfaceState.__isset.mPrivate || camera.mValue.mViewState.mEye.__isset.mData);
}

TEST_F(Outcome, DegenerateArgumentsAreNoFailure) {
    // Zero everywhere: directions without length, empty boxes and frusta, windows of no size.
    const auto makeZero = [](auto& value) {
        using Value = std::remove_cvref_t<decltype(value)>;
        if constexpr (std::is_same_v<Value, Vector> || std::is_same_v<Value, Quaternion>) {
            value.mData.assign(value.mData.size(), 0.0);
        } else if constexpr (std::is_same_v<Value, Matrix>) {
            value.mData.assign(4, {0.0, 0.0, 0.0, 0.0});
        } else if constexpr (!requires { value.mPrivate; }) {
            value = Value();
        }
    };
    for (const AnyOperation& operation : allOperations()) {
        SCOPED_TRACE(operation.name);
        Arguments arguments = mSamples.argumentsOf(operation);
        for (AnyArgument& argument : arguments) {
            std::visit(makeZero, argument);
        }
        const AnyResult result = callAfresh(*mService, operation, arguments);
        expectSuccess(result);
        EXPECT_TRUE(isWellFormed(result));
    }
}

TEST_F(Outcome, ArgumentsAreNotTouched) {
    for (const AnyOperation& operation : allOperations()) {
        SCOPED_TRACE(operation.name);
        const Arguments arguments = mSamples.argumentsOf(operation);
        const Arguments before = arguments;
        callAfresh(*mService, operation, arguments);
        for (std::size_t i = 0; i < arguments.size(); ++i) {
            EXPECT_EQ(fingerprint(arguments[i]), fingerprint(before[i])) << operation.argumentNames[i];
        }
    }
}

} // namespace

} // namespace qel::api::camera::test
