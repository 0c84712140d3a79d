// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>

#include "tests/component/support/Calls.h"

namespace qel::api::camera::test {

namespace {

// Arguments that are parts of the result, as in viewSetEye(result, result.mValue, result.mValue.mEye).

class Aliasing : public ServiceTest {
protected:
    Samples mOthers = otherSamples(*mService); ///< what the result holds
};

TEST_F(Aliasing, ArgumentsTakenFromTheResultGiveTheSameAsCopies) {
    for (const AnyOperation& operation : allOperations()) {
        SCOPED_TRACE(operation.name);
        const Arguments outside = mSamples.argumentsOf(operation);
        const AnyArgument payload = mOthers.payload(operation.fresh);
        const bool takesItsOwnKind = std::ranges::any_of(
            outside, [&](const AnyArgument& argument) { return argument.index() == payload.index(); });
        std::size_t parts = 0;
        const std::size_t arguments = std::min<std::size_t>(outside.size(), 4);
        for (std::size_t chosen = 1; chosen < std::size_t(1) << arguments; ++chosen) {
            for (const std::size_t part : {0U, 1U}) {
                for (const bool surplus : {false, true}) {
                    AnyResult aliased = operation.fresh;
                    setPayload(aliased, payload);
                    if (surplus && !operation.isTransposition()) { // which takes a matrix of any shape
                        makeTooLong(aliased);
                    }
                    AnyResult expected = aliased;
                    const AliasedArguments taken = aliasedArguments(aliased, outside, chosen, part);
                    call(*mService, operation, expected, taken.copies);
                    call(*mService, operation, aliased, taken.pointers);
                    EXPECT_EQ(fingerprint(aliased), fingerprint(expected));
                    expectSuccess(aliased);
                    parts += taken.parts;
                }
            }
        }
        EXPECT_TRUE(parts > 0 || !takesItsOwnKind || std::holds_alternative<double>(payload)) << "nothing was aliased";
    }
}

TEST_F(Aliasing, EyeOfTheResultMovesTheEyeOfItsOwnState) {
    ViewStateResult result;
    result.mValue = mSamples.view;
    result.mValue.mEye = vectorOf(7.0, 8.0, 9.0);
    mService->viewSetEye(result, result.mValue, result.mValue.mEye);
    EXPECT_EQ(result.mValue.mEye.mData, (std::vector<double>{7.0, 8.0, 9.0}));
}

TEST_F(Aliasing, MatrixIsTransposedIntoItself) {
    MatrixResult result;
    result.mValue = matrixOf({{1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}});
    mService->utilsConvertMatrixFromRowMajorToColumnMajor(result, result.mValue);
    EXPECT_EQ(result.mValue.mData, (std::vector<std::vector<double>>{{1.0, 4.0}, {2.0, 5.0}, {3.0, 6.0}}));
}

TEST_F(Aliasing, FailureLeavesTheArgumentInTheResultAlone) {
    MatrixResult result;
    result.mValue = matrixOf({{1.0, 2.0}, {3.0}});
    const Matrix before = result.mValue;
    mService->utilsConvertMatrixFromRowMajorToColumnMajor(result, result.mValue);
    EXPECT_EQ(result.mResult.mError, 4);
    EXPECT_EQ(fingerprint(result.mValue), fingerprint(before));
}

} // namespace

} // namespace qel::api::camera::test
