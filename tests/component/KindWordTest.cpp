// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cstdint>

#include "tests/component/support/Blobs.h"
#include "tests/component/support/Calls.h"

namespace qel::api::camera::test {

namespace {

// The kind words of a view's matrices, which only its blob shows.

/// The kind words of the view transform matrix, the view matrix and the rotation.
struct Kinds {
    std::uint32_t viewTransformMatrix;
    std::uint32_t viewMatrix;
    std::uint32_t rotation;

    friend bool operator==(const Kinds&, const Kinds&) = default;
};

ViewState withKinds(ViewState state, const Kinds& kinds) {
    putWord(state.mPrivate, at::viewTransformMatrix + kindOf4x4, kinds.viewTransformMatrix);
    putWord(state.mPrivate, at::viewMatrix + kindOf4x4, kinds.viewMatrix);
    putWord(state.mPrivate, at::rotation + kindOf3x3, kinds.rotation);
    return state;
}

Kinds kindsOf(const ViewState& state) {
    return {wordAt(state.mPrivate, at::viewTransformMatrix + kindOf4x4),
            wordAt(state.mPrivate, at::viewMatrix + kindOf4x4), wordAt(state.mPrivate, at::rotation + kindOf3x3)};
}

constexpr Kinds odd{7, 0xFFFFFFFF, 3};

class KindWords : public ServiceTest {
protected:
    [[nodiscard]] ViewState sample(const Kinds& kinds) const { return withKinds(mSamples.view, kinds); }

    ViewStateResult mResult;
};

TEST_F(KindWords, GainATranslationWithTheEye) {
    const Vector eye = vectorOf(1.0, 2.0, 3.0);
    mService->viewSetEye(mResult, sample({1, 4, 1}), eye);
    EXPECT_EQ(kindsOf(mResult.mValue), (Kinds{2, 16, 1}));
    mService->viewSetEye(mResult, sample({4, 1, 1}), eye);
    EXPECT_EQ(kindsOf(mResult.mValue), (Kinds{16, 2, 1}));
    mService->viewSetEye(mResult, sample(odd), eye);
    EXPECT_EQ(kindsOf(mResult.mValue), odd) << "no other value has a rule";
}

TEST_F(KindWords, OfAnOrientationAreThoseOfANewRotationAndOfATranslatedViewMatrix) {
    const Quaternion orientation = quaternionOf(0.0, 0.0, 0.0, 1.0);
    mService->viewSetOrientation(mResult, sample({1, 1, 1}), orientation);
    EXPECT_EQ(kindsOf(mResult.mValue), (Kinds{1, 2, 4})) << "the transform's word stays";
    mService->viewSetOrientation(mResult, sample({32, 4, 64}), orientation);
    EXPECT_EQ(kindsOf(mResult.mValue), (Kinds{32, 16, 4}));
}

TEST_F(KindWords, OfMatricesFromOutsideAreGeneral) {
    const Matrix matrix = matrixOf({{0, -1, 0, 2}, {1, 0, 0, 3}, {0, 0, 1, -4}, {0, 0, 0, 1}});
    mService->viewSetViewMatrix(mResult, sample(odd), matrix);
    EXPECT_EQ(kindsOf(mResult.mValue), (Kinds{64, 64, 4}));
    mService->viewSetViewTransformMatrix(mResult, sample(odd), matrix);
    EXPECT_EQ(kindsOf(mResult.mValue), (Kinds{64, 64, 4}));
}

} // namespace

} // namespace qel::api::camera::test
