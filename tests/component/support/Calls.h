// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "tests/component/support/AnyOperation.h"
#include "tests/component/support/LoadedModule.h"
#include "tests/component/support/Samples.h"

namespace qel::api::camera::test {

/// A record that holds an error from before.
inline base::ServiceResult olderError() {
    base::ServiceResult result;
    result.__set_mError(3);
    result.__set_mMessage("an error from before, long enough to live on the heap");
    return result;
}

inline void expectSuccess(const base::ServiceResult& outcome) {
    EXPECT_EQ(outcome.mError, 0);
    EXPECT_EQ(outcome.mMessage, "");
    EXPECT_FALSE(outcome.__isset.mError);
    EXPECT_FALSE(outcome.__isset.mMessage);
}
inline void expectSuccess(const AnyResult& result) { expectSuccess(outcomeOf(result)); }

inline void expectFailure(const base::ServiceResult& outcome, const std::int32_t code, const std::string& message) {
    EXPECT_EQ(outcome.mError, code);
    EXPECT_EQ(outcome.mMessage, message);
    EXPECT_TRUE(outcome.__isset.mError);
    EXPECT_TRUE(outcome.__isset.mMessage);
}
inline void expectFailure(const AnyResult& result, const AnyOperation& operation) {
    expectFailure(outcomeOf(result), operation.failureCode(), operation.failureMessage());
}

/// The service of the module's file, and arguments for each of its operations.
class ServiceTest : public ::testing::Test {
protected:
    [[nodiscard]] AnyResult callSample(const AnyOperation& operation) const {
        return callAfresh(*mService, operation, mSamples.argumentsOf(operation));
    }

    LoadedService mService;
    Samples mSamples{*mService};
};

} // namespace qel::api::camera::test
