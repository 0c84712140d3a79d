// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "tests/component/support/Calls.h"
#include "tests/component/support/ExpectValues.h"

namespace qel::api::camera::test {

namespace {

class SurfaceOperations : public ValueTest {
protected:
    SurfaceOperations() {
        SurfaceStateResult result;
        mService->surfaceCreateDefault(result);
        mDefault = result.mValue;
    }

    [[nodiscard]] Matrix matrix() const { return matrixAt(mResult.mValue.mPrivate, at::surfaceMatrix); }

    void expectDefault() const {
        expectSuccess(mResult);
        EXPECT_EQ(fingerprint(mResult.mValue), fingerprint(mDefault));
    }

    SurfaceState mDefault;
    SurfaceStateResult mResult;
};

TEST_F(SurfaceOperations, CreateDefaultIs640By480) {
    mService->surfaceCreateDefault(mResult);
    EXPECT_EQ(matrix().mData, (Rows{{320, 0, 0, 320}, {0, 240, 0, 240}, {0, 0, 0.5, 0.5}, {0, 0, 0, 1}}));
    expectNear(matrixAt(mDefault.mPrivate, at::surfaceInverse),
               {{1.0 / 320, 0, 0, -1}, {0, 1.0 / 240, 0, -1}, {0, 0, 2, -1}, {0, 0, 0, 1}});
    EXPECT_EQ(mDefault.mResolutionX, 640.0);
    EXPECT_EQ(mDefault.mResolutionY, 480.0);
    EXPECT_EQ(fingerprint(mDefault.mViewport), fingerprint(viewportOf(0, 0, 1, 1, 0, 1)));
}

TEST_F(SurfaceOperations, CreateOutOfRangeIsTheDefault) {
    mService->surfaceCreate(mResult, 1.5, 0, 1, 1, 0, 1, 800, 600);
    expectDefault();
    mService->surfaceCreate(mResult, 0, -0.5, 1, 1, 0, 1, 800, 600);
    expectDefault();
    mService->surfaceCreate(mResult, 0, 0, 1e-7, 1, 0, 1, 800, 600);
    expectDefault();
    mService->surfaceCreate(mResult, 0, 0, 1, 1, 0, 1, 0, 600);
    expectDefault();
    mService->surfaceCreate(mResult, 0, 0, 1, 1, 0, 1, 800, 0);
    expectDefault();
}

TEST_F(SurfaceOperations, SetViewportLeavesTheMatricesAlone) {
    mService->surfaceSetViewport(mResult, mDefault, viewportOf(0.5, 0, 0.5, 1, 0, 1));
    EXPECT_EQ(fingerprint(mResult.mValue.mViewport), fingerprint(viewportOf(0.5, 0, 0.5, 1, 0, 1)));
    EXPECT_EQ(mResult.mValue.mPrivate.substr(at::surfaceMatrix), mDefault.mPrivate.substr(at::surfaceMatrix));
    // They follow with the next change of the resolution: 0.5*640/2 = 160, 0.5*640 + 160.
    mService->surfaceSetResolutionY(mResult, mResult.mValue, 480);
    EXPECT_EQ(matrix().mData, (Rows{{160, 0, 0, 480}, {0, 240, 0, 240}, {0, 0, 0.5, 0.5}, {0, 0, 0, 1}}));
}

TEST_F(SurfaceOperations, SetResolutionRebuildsTheMatrices) {
    mService->surfaceSetResolutionX(mResult, mDefault, 1280);
    EXPECT_EQ(mResult.mValue.mResolutionX, 1280.0);
    EXPECT_EQ(matrix().mData, (Rows{{640, 0, 0, 640}, {0, 240, 0, 240}, {0, 0, 0.5, 0.5}, {0, 0, 0, 1}}));
    mService->surfaceSetResolutionY(mResult, mDefault, 960);
    EXPECT_EQ(mResult.mValue.mResolutionY, 960.0);
    EXPECT_EQ(matrix().mData, (Rows{{320, 0, 0, 320}, {0, 480, 0, 480}, {0, 0, 0.5, 0.5}, {0, 0, 0, 1}}));
}

TEST_F(SurfaceOperations, ResolutionsAreReadAsUnsigned) {
    mService->surfaceSetResolutionX(mResult, mDefault, -1);
    EXPECT_EQ(mResult.mValue.mResolutionX, 4294967295.0);
    EXPECT_EQ(matrix().mData[0][0], 4294967295.0 / 2);
    mService->surfaceSetResolutionY(mResult, mDefault, -2);
    EXPECT_EQ(mResult.mValue.mResolutionY, 4294967294.0);
    mService->surfaceCreate(mResult, 0, 0, 1, 1, 0, 1, -1, -1);
    EXPECT_EQ(mResult.mValue.mResolutionX, 4294967295.0);
    mService->surfaceUpdate(mResult, mDefault, 0, 0, 1, 1, 0, 1, 1920, std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(mResult.mValue.mResolutionX, 1920.0);
    EXPECT_EQ(mResult.mValue.mResolutionY, 2147483648.0);
}

TEST_F(SurfaceOperations, UpdateReplacesAllOrNothing) {
    mService->surfaceUpdate(mResult, mDefault, 0.5, 0.25, 0.5, 0.5, 0, 1, 200, 100);
    EXPECT_EQ(matrix().mData, (Rows{{50, 0, 0, 150}, {0, 25, 0, 50}, {0, 0, 0.5, 0.5}, {0, 0, 0, 1}}));
    mService->surfaceUpdate(mResult, mDefault, 0.5, 1.25, 0.5, 0.5, 0, 1, 200, 100);
    expectDefault();
}

} // namespace

} // namespace qel::api::camera::test
