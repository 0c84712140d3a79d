// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <set>
#include <string>
#include <tuple>
#include <type_traits>

#include "tests/component/support/Blobs.h"
#include "tests/component/support/Calls.h"
#include "tests/component/support/LoadedModule.h"
#include "tests/component/support/Samples.h"

namespace qel::api::camera::test {

namespace {

// What an operation reads of a state: every number in its image, and nothing else.

template <class Argument>
concept IsState = requires(Argument& argument) {
    argument.mPrivate;
};

/// Applies a change to every state among some arguments.
template <class Tuple, class Change>
void changeStates(Tuple& arguments, const Change& change) {
    forEachArgument(arguments, [&](auto& argument) {
        if constexpr (IsState<decltype(argument)>) {
            change(argument);
        }
    });
}

template <class Unuseds>
void spoilUnused(std::string& image, const std::size_t start, const Unuseds& unuseds) {
    for (const Unused& unused : unuseds) {
        for (std::size_t i = 0; i < unused.size; ++i) {
            image[start + unused.offset + i] = static_cast<char>(0xA5 + i);
        }
    }
}
void spoilUnused(ViewState& state) { spoilUnused(state.mPrivate, 0, unusedInView); }
void spoilUnused(ProjectionState& state) { spoilUnused(state.mPrivate, 0, unusedInProjection); }
void spoilUnused(SurfaceState& state) { spoilUnused(state.mPrivate, 0, unusedInSurface); }
void spoilUnused(PlanarCameraState& state) {
    spoilUnused(state.mPrivate, 0, std::array<Unused, 1>{{{0, 8}}});
    spoilUnused(state.mPrivate, at::planarView, unusedInView);
    spoilUnused(state.mPrivate, at::planarProjection, unusedInProjection);
    spoilUnused(state.mPrivate, at::planarSurface, unusedInSurface);
}

class ImageInput : public ::testing::Test {
protected:
    /// Expects that a change to the states of all operations' arguments makes no difference.
    template <class Change>
    void expectNoDifference(const Change& change) const {
        forEachOperation([&](std::size_t, const auto& operation) {
            SCOPED_TRACE(operation.name);
            const auto arguments = mSamples.argumentsOf(operation);
            auto changed = arguments;
            changeStates(changed, change);
            EXPECT_EQ(fingerprint(callAfresh(*mService, operation, changed)),
                      fingerprint(callAfresh(*mService, operation, arguments)));
        });
    }

    LoadedService mService;
    Samples mSamples{*mService};
};

TEST_F(ImageInput, IsAllThatIsReadOfAState) {
    expectNoDifference([](auto& state) {
        std::remove_cvref_t<decltype(state)> imageAlone;
        imageAlone.mPrivate = state.mPrivate;
        state = imageAlone;
    });
}

TEST_F(ImageInput, MakesNonsenseInPublicFieldsHarmless) {
    expectNoDifference([](auto& state) {
        using State = std::remove_cvref_t<decltype(state)>;
        const double nan = std::numeric_limits<double>::quiet_NaN();
        setAllFlags(state, true);
        const auto spoilView = [&](ViewState& view) {
            view.mEye.mData.assign(3, nan);
            view.mViewMatrix.mData.assign(1, {nan});
            view.mOrientation.mData.clear();
        };
        const auto spoilProjection = [&](ProjectionState& projection) {
            projection.mProjectionType = static_cast<ProjectionType::type>(17);
            projection.mFrustum = frustumOf(5.0, nan, 4.0, 3.0, 2.0, 1.0);
        };
        const auto spoilSurface = [&](SurfaceState& surface) {
            surface.mResolutionX = -1.5;
            surface.mViewport = viewportOf(nan, nan, nan, nan, nan, nan);
        };
        if constexpr (std::is_same_v<State, ViewState>) {
            spoilView(state);
        } else if constexpr (std::is_same_v<State, ProjectionState>) {
            spoilProjection(state);
        } else if constexpr (std::is_same_v<State, SurfaceState>) {
            spoilSurface(state);
        } else {
            spoilView(state.mViewState);
            state.mViewState.mPrivate.clear();
            spoilProjection(state.mProjectionState);
            state.mProjectionState.mPrivate.assign(336, 'x');
            spoilSurface(state.mSurfaceState);
            state.mSurfaceState.mPrivate.clear();
        }
    });
}

TEST_F(ImageInput, HeadersAndPaddingAreIgnoredAndWrittenAsZero) {
    // The results compare equal, so what was spoilt here is zero there.
    expectNoDifference([](auto& state) {
        const std::string before = state.mPrivate;
        spoilUnused(state);
        EXPECT_NE(state.mPrivate, before);
    });
}

TEST_F(ImageInput, UnusedBytesOfEveryResultAreZero) {
    const auto expectZero = [](const std::string& image, const std::size_t start, const auto& unuseds) {
        for (const Unused& unused : unuseds) {
            EXPECT_EQ(bitsAt(image, start + unused.offset, unused.size), 0U) << start + unused.offset;
        }
    };
    PlanarCameraState state = mSamples.planarCamera;
    spoilUnused(state);
    PlanarCameraStateResult result;
    mService->planarCameraYaw(result, state, 0.5);
    expectZero(result.mValue.mPrivate, 0, std::array<Unused, 1>{{{0, 8}}});
    expectZero(result.mValue.mPrivate, at::planarView, unusedInView);
    expectZero(result.mValue.mPrivate, at::planarProjection, unusedInProjection);
    expectZero(result.mValue.mPrivate, at::planarSurface, unusedInSurface);
    expectZero(result.mValue.mViewState.mPrivate, 0, unusedInView);
    expectZero(result.mValue.mProjectionState.mPrivate, 0, unusedInProjection);
    expectZero(result.mValue.mSurfaceState.mPrivate, 0, unusedInSurface);
}

TEST_F(ImageInput, EveryOtherByteIsCarriedByAnOperationThatChangesNothing) {
    // A different number in every place, consistent or not: nothing is recomputed or validated. Kind words, the type
    // flag, the resolutions and the words of the planar camera are among them.
    std::string image = mSamples.planarCamera.mPrivate;
    for (std::size_t i = 0; i < image.size(); ++i) {
        image[i] = static_cast<char>(1 + i * 7 % 250);
    }
    PlanarCameraState state;
    state.mPrivate = image;
    PlanarCameraStateResult result;
    mService->planarCameraYaw(result, state, 0.0);
    expectSuccess(result);

    PlanarCameraState unspoilt = state; // with zero where nothing is carried
    for (const auto& [start, unuseds] :
         {std::pair(at::planarView, std::vector<Unused>(unusedInView.begin(), unusedInView.end())),
          std::pair(at::planarProjection, std::vector<Unused>(unusedInProjection.begin(), unusedInProjection.end())),
          std::pair(at::planarSurface, std::vector<Unused>(unusedInSurface.begin(), unusedInSurface.end())),
          std::pair(std::size_t(0), std::vector<Unused>{{0, 8}})}) {
        for (const Unused& unused : unuseds) {
            putBits(unspoilt.mPrivate, start + unused.offset, 0, unused.size);
        }
    }
    EXPECT_EQ(result.mValue.mPrivate, unspoilt.mPrivate);
}

TEST_F(ImageInput, WordsOfAPlanarCameraAreCarriedByItsOperations) {
    constexpr std::uint64_t first = 0x0123456789ABCDEF;
    constexpr std::uint64_t second = 0xFEDCBA9876543210;
    std::size_t carried = 0;
    forEachOperation([&](std::size_t, const auto& operation) {
        if constexpr (std::is_same_v<ResultOf<decltype(operation)>, PlanarCameraStateResult>) {
            SCOPED_TRACE(operation.name);
            auto arguments = mSamples.argumentsOf(operation);
            bool takesACamera = false;
            changeStates(arguments, [&](auto& state) {
                if constexpr (std::is_same_v<std::remove_cvref_t<decltype(state)>, PlanarCameraState>) {
                    putBits(state.mPrivate, at::words, first, 8);
                    putBits(state.mPrivate, at::words + 8, second, 8);
                    takesACamera = true;
                }
            });
            const auto result = callAfresh(*mService, operation, arguments);
            EXPECT_EQ(bitsAt(result.mValue.mPrivate, at::words, 8), takesACamera ? first : 0U);
            EXPECT_EQ(bitsAt(result.mValue.mPrivate, at::words + 8, 8), takesACamera ? second : 0U);
            carried += takesACamera ? 1 : 0;
        }
    });
    EXPECT_EQ(carried, 22U) << "slots 44 to 65";
}

TEST_F(ImageInput, OtherTypeFlagIsPerspectiveAndCarriedUntilRewritten) {
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

TEST_F(ImageInput, OtherTypeFlagIsCarriedIntoAPlanarCamera) {
    ProjectionState state;
    state.mPrivate = mSamples.projection.mPrivate;
    putWord(state.mPrivate, at::projectionType, 9);
    PlanarCameraStateResult result;
    mService->planarCameraSetProjection(result, mSamples.planarCamera, state);
    EXPECT_EQ(wordAt(result.mValue.mPrivate, at::planarProjection + at::projectionType), 9U);
    EXPECT_EQ(wordAt(result.mValue.mProjectionState.mPrivate, at::projectionType), 9U);
}

TEST_F(ImageInput, SetEyeChangesTheEyeAndTheTranslationsThatDependOnIt) {
    ViewStateResult start;
    mService->viewCreateDefault(start);
    ViewStateResult result;
    mService->viewSetEye(result, start.mValue, vectorOf(1.0, 2.0, 4.0));

    // Doubles 12 to 14 of both 4x4 matrices, and the eye.
    std::set<std::size_t> expected;
    for (const std::size_t vector : {at::viewTransformMatrix + 96, at::viewMatrix + 96, at::eye}) {
        for (std::size_t i = 0; i < 3; ++i) {
            expected.insert(vector + 8 * i);
        }
    }
    std::set<std::size_t> changed;
    for (std::size_t i = 0; i < 384; i += 8) {
        if (bitsAt(result.mValue.mPrivate, i, 8) != bitsAt(start.mValue.mPrivate, i, 8)) {
            changed.insert(i);
        }
    }
    EXPECT_EQ(changed, expected);
    for (std::size_t i = 0; i < 3; ++i) {
        const double coordinate = std::ldexp(1.0, static_cast<int>(i)); // 1, 2, 4
        EXPECT_EQ(doubleAt(result.mValue.mPrivate, at::eye + 8 * i), coordinate);
        EXPECT_EQ(doubleAt(result.mValue.mPrivate, at::viewTransformMatrix + 96 + 8 * i), coordinate);
        EXPECT_EQ(doubleAt(result.mValue.mPrivate, at::viewMatrix + 96 + 8 * i), -coordinate);
    }
}

} // namespace

} // namespace qel::api::camera::test
