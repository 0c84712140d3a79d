// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

#include "tests/component/support/Blobs.h"
#include "tests/component/support/Calls.h"

namespace qel::api::camera::test {

namespace {

// What an operation reads of a state: every number in its blob, and nothing else.

/// Changes whatever no reader looks at.
template <class State>
void spoilUnused(State& state) {
    for (const Stretch& stretch : stretchesOf(state)) {
        if (stretch.holds == Holds::nothing) {
            putBits(state.mPrivate, stretch.offset, 0xACABAAA9A8A7A6A5, stretch.size);
        }
    }
}

class BlobInput : public ServiceTest {
protected:
    /// Expects that a change to the states of all operations' arguments makes no difference.
    template <class Change>
    void expectNoDifference(const Change& change) const {
        const auto changeState = [&](auto& value) {
            if constexpr (requires { value.mPrivate; }) {
                change(value);
            }
        };
        for (const AnyOperation& operation : allOperations()) {
            SCOPED_TRACE(operation.name);
            Arguments changed = mSamples.argumentsOf(operation);
            for (AnyArgument& argument : changed) {
                std::visit(changeState, argument);
            }
            EXPECT_EQ(fingerprint(callAfresh(*mService, operation, changed)), fingerprint(callSample(operation)));
        }
    }
};

TEST_F(BlobInput, IsAllThatIsReadOfAState) {
    expectNoDifference([](auto& state) {
        std::remove_cvref_t<decltype(state)> blobAlone;
        blobAlone.mPrivate = state.mPrivate;
        state = blobAlone;
    });
}

struct Nonsense {
    static constexpr double nan = std::numeric_limits<double>::quiet_NaN();

    void operator()(ViewState& view) const {
        view.mEye.mData.assign(3, nan);
        view.mViewMatrix.mData.assign(1, {nan});
        view.mOrientation.mData.clear();
    }
    void operator()(ProjectionState& projection) const {
        projection.mProjectionType = static_cast<ProjectionType::type>(17);
        projection.mFrustum = frustumOf(5.0, nan, 4.0, 3.0, 2.0, 1.0);
    }
    void operator()(SurfaceState& surface) const {
        surface.mResolutionX = -1.5;
        surface.mViewport = viewportOf(nan, nan, nan, nan, nan, nan);
    }
    void operator()(PlanarCameraState& camera) const {
        (*this)(camera.mViewState);
        camera.mViewState.mPrivate.clear();
        (*this)(camera.mProjectionState);
        camera.mProjectionState.mPrivate.assign(at::projectionSize, 'x');
        (*this)(camera.mSurfaceState);
        camera.mSurfaceState.mPrivate.clear();
    }
};

TEST_F(BlobInput, MakesNonsenseInPublicFieldsHarmless) { expectNoDifference(Nonsense()); }

TEST_F(BlobInput, HeadersAndPaddingAreIgnoredAndWrittenAsZero) {
    expectNoDifference([](auto& state) {
        for (const Stretch& stretch : stretchesOf(state)) { // what comes out equal to this is zero too
            if (stretch.holds == Holds::nothing) {
                EXPECT_EQ(bitsAt(state.mPrivate, stretch.offset, stretch.size), 0U) << stretch.offset;
            }
        }
        const std::string before = state.mPrivate;
        spoilUnused(state);
        EXPECT_NE(state.mPrivate, before);
    });
}

TEST_F(BlobInput, EveryOtherByteIsCarriedByAnOperationThatChangesNothing) {
    // A different number in every place, consistent or not: nothing is recomputed or validated. Kind words, the type
    // flag, the resolutions and the words of the planar camera are among them.
    PlanarCameraState state;
    for (std::size_t i = 0; i < at::cameraSize; ++i) {
        state.mPrivate += static_cast<char>(1 + i * 7 % 250);
    }
    PlanarCameraStateResult result;
    mService->planarCameraYaw(result, state, 0.0);
    expectSuccess(result);

    std::string expected = state.mPrivate; // with zero where nothing is carried
    for (const Stretch& stretch : stretchesOf(state)) {
        if (stretch.holds == Holds::nothing) {
            putBits(expected, stretch.offset, 0, stretch.size);
        }
    }
    EXPECT_EQ(result.mValue.mPrivate, expected);
}

TEST_F(BlobInput, WordsOfAPlanarCameraAreCarriedByItsOperations) {
    constexpr std::uint64_t first = 0x0123456789ABCDEF;
    constexpr std::uint64_t second = 0xFEDCBA9876543210;
    for (const AnyOperation& operation : allOperations()) {
        if (!std::holds_alternative<PlanarCameraStateResult>(operation.fresh)) {
            continue;
        }
        SCOPED_TRACE(operation.name);
        Arguments arguments = mSamples.argumentsOf(operation);
        bool takesACamera = false;
        for (AnyArgument& argument : arguments) {
            if (auto* const camera = std::get_if<PlanarCameraState>(&argument)) {
                putBits(camera->mPrivate, at::words, first, 8);
                putBits(camera->mPrivate, at::words + 8, second, 8);
                takesACamera = true;
            }
        }
        EXPECT_EQ(takesACamera, !operation.name.starts_with("planarCameraCreate"));
        const AnyArgument camera = payloadOf(callAfresh(*mService, operation, arguments));
        EXPECT_EQ(bitsAt(*blobOf(camera), at::words, 8), takesACamera ? first : 0U);
        EXPECT_EQ(bitsAt(*blobOf(camera), at::words + 8, 8), takesACamera ? second : 0U);
    }
}

TEST_F(BlobInput, OtherTypeFlagIsPerspectiveAndCarriedUntilRewritten) {
    for (const std::uint32_t flag : {2U, 5U, 0xFFFFFFFFU, 0x00000100U}) {
        SCOPED_TRACE(flag);
        ProjectionState state;
        state.mPrivate = mSamples.projection.mPrivate;
        putWord(state.mPrivate, at::projectionType, flag);

        ProjectionStateResult result;
        mService->projectionSetNear(result, state, -1.0); // rejected
        EXPECT_EQ(wordAt(result.mValue.mPrivate, at::projectionType), flag);
        EXPECT_EQ(result.mValue.mProjectionType, ProjectionType::PERSPECTIVE);

        DoubleResult angle;
        mService->projectionGetVFoV(angle, state);
        EXPECT_GT(angle.mValue, 0.1) << "0 would be orthographic";

        mService->projectionSetFar(result, state, 60.0); // accepted: the current type, written anew
        EXPECT_EQ(wordAt(result.mValue.mPrivate, at::projectionType), 0U);
        mService->projectionSetFrustum(result, state, mSamples.projection.mFrustum, ProjectionType::ORTHOGRAPHIC);
        EXPECT_EQ(wordAt(result.mValue.mPrivate, at::projectionType), 1U);
        EXPECT_EQ(result.mValue.mProjectionType, ProjectionType::ORTHOGRAPHIC);
    }
}

} // namespace

} // namespace qel::api::camera::test
