// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "tests/component/support/Calls.h"
#include "tests/component/support/ExpectValues.h"

namespace qel::api::camera::test {

namespace {

class UtilityOperations : public ValueTest {
protected:
    MatrixResult mResult;
};

TEST_F(UtilityOperations, ReadsTheSidesInTheirOrder) {
    // r - l = 4, r + l = 2, t - b = 8, t + b = 2, f - n = 4, f + n = 8
    mService->utilsMakePerspectiveMatrix(mResult, frustumOf(-1, 3, -3, 5, 2, 6));
    EXPECT_EQ(mResult.mValue.mData, (Rows{{1, 0, 0.5, 0}, {0, 0.5, 0.25, 0}, {0, 0, -2, -6}, {0, 0, -1, 0}}));
    mService->utilsMakeOrthographicMatrix(mResult, frustumOf(-1, 3, -3, 5, 2, 6));
    EXPECT_EQ(mResult.mValue.mData, (Rows{{0.5, 0, 0, -0.5}, {0, 0.25, 0, -0.25}, {0, 0, -0.5, -2}, {0, 0, 0, 1}}));
}

TEST_F(UtilityOperations, TransposesAnyShape) {
    const Rows rows{{1, 2, 3}, {4, 5, 6}};
    mService->utilsConvertMatrixFromRowMajorToColumnMajor(mResult, matrixOf(rows));
    EXPECT_EQ(mResult.mValue.mData, (Rows{{1, 4}, {2, 5}, {3, 6}}));
    MatrixResult again;
    mService->utilsConvertMatrixFromRowMajorToColumnMajor(again, mResult.mValue);
    EXPECT_EQ(again.mValue.mData, rows);
    mService->utilsConvertMatrixFromRowMajorToColumnMajor(mResult, matrixOf({{7}}));
    EXPECT_EQ(mResult.mValue.mData, (Rows{{7}}));
    mService->utilsConvertMatrixFromRowMajorToColumnMajor(mResult, matrixOf({{1, 2, 3, 4, 5}}));
    EXPECT_EQ(mResult.mValue.mData, (Rows{{1}, {2}, {3}, {4}, {5}}));
    expectSuccess(mResult);
}

TEST_F(UtilityOperations, TranspositionCountsColumnsInTheFirstRow) {
    mService->utilsConvertMatrixFromRowMajorToColumnMajor(mResult, matrixOf({{1, 2}, {3, 4, 99, 99}, {5, 6, 99}}));
    expectSuccess(mResult);
    EXPECT_EQ(mResult.mValue.mData, (Rows{{1, 3, 5}, {2, 4, 6}}));
}

TEST_F(UtilityOperations, EmptyFirstRowGivesAnEmptyList) {
    mResult.mValue = matrixOf({{1, 2}, {3, 4}});
    mService->utilsConvertMatrixFromRowMajorToColumnMajor(mResult, matrixOf({{}, {1, 2}}));
    expectSuccess(mResult);
    EXPECT_TRUE(mResult.mValue.mData.empty());
}

TEST_F(UtilityOperations, MissingValuesFailWithCode4) {
    mResult.mValue = matrixOf({{1, 2}, {3, 4}});
    mService->utilsConvertMatrixFromRowMajorToColumnMajor(mResult, matrixOf({{1, 2}, {3}}));
    expectFailure(mResult.mResult, 4, "Call to utilsConvertMatrixFromRowMajorToColumnMajor() failed.");
    EXPECT_EQ(mResult.mValue.mData, (Rows{{1, 2}, {3, 4}}));
    mService->utilsConvertMatrixFromRowMajorToColumnMajor(mResult, Matrix());
    EXPECT_EQ(mResult.mValue.mData, (Rows{{1, 2}, {3, 4}}));
}

} // namespace

} // namespace qel::api::camera::test
