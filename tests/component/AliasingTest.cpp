// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "tests/component/support/Calls.h"
#include "tests/component/support/LoadedModule.h"
#include "tests/component/support/Samples.h"

namespace qel::api::camera::test {

namespace {

// Arguments that are parts of the result, as in viewSetEye(result, result.mValue, result.mValue.mEye).

/// A payload to start from, so that every part of it can be an argument.
template <class Payload>
Payload payload(const Samples& samples) {
    if constexpr (std::is_same_v<Payload, Vector>) {
        return vectorOf(0.5, -0.25, -2.0);
    } else if constexpr (std::is_same_v<Payload, double>) {
        return 0.0;
    } else {
        return samples.argument<Payload>("");
    }
}

/// Either a part of the result, or an argument from outside.
template <class Argument>
class Source {
public:
    template <class Payload>
    Source(Payload& from, Argument outside, const bool fromThere, const std::size_t choice)
        : mOutside(std::move(outside)) {
        if constexpr (!std::is_arithmetic_v<Argument> && !std::is_enum_v<Argument>) {
            if (!fromThere) {
                return;
            }
            std::vector<Argument*> parts;
            collectParts(from, parts);
            if (!parts.empty()) {
                mPart = parts[choice % parts.size()];
            }
        }
    }

    [[nodiscard]] bool isPart() const { return mPart != nullptr; }
    [[nodiscard]] const Argument& get() const { return mPart != nullptr ? *mPart : mOutside; }

private:
    Argument mOutside;
    const Argument* mPart = nullptr;
};

class Aliasing : public ::testing::Test {
protected:
    /// Which arguments come from the result, and what the result is like.
    struct Choice {
        std::size_t arguments; ///< a bit each
        std::size_t part;      ///< which part, where there are several of the type
        bool surplus;          ///< whether the images in the result are longer than they need be
    };

    /// Runs the operation with arguments taken from the result where they can be, and with copies of the same. Returns
    /// how many arguments were parts.
    template <class Result, class... Arguments>
    std::size_t compare(const Operation<Result, Arguments...>& operation, const Choice& choice) const {
        return compare(operation, choice, std::index_sequence_for<Arguments...>());
    }

    LoadedService mService;
    Samples mSamples{*mService};
    Samples mOthers = otherSamples(*mService); ///< what the result holds

private:
    template <class Result, class... Arguments, std::size_t... Index>
    std::size_t compare(const Operation<Result, Arguments...>& operation, [[maybe_unused]] const Choice& choice,
                        std::index_sequence<Index...>) const {
        Result aliased;
        aliased.mValue = payload<decltype(aliased.mValue)>(mOthers);
        if (choice.surplus) {
            std::vector<std::string*> images;
            collectParts(aliased.mValue, images);
            for (std::string* image : images) {
                image->append(1000, 'x');
            }
        }
        [[maybe_unused]] const std::tuple<Source<std::remove_cvref_t<Arguments>>...> sources(
            Source<std::remove_cvref_t<Arguments>>(
                aliased.mValue, mSamples.argument<std::remove_cvref_t<Arguments>>(operation.argumentNames[Index]),
                ((choice.arguments >> Index) & 1U) != 0, Index + choice.part)...);

        Result expected;
        expected.mValue = aliased.mValue;
        const std::tuple<std::remove_cvref_t<Arguments>...> copies(std::get<Index>(sources).get()...);
        call(*mService, operation, expected, copies);

        ((*mService).*(operation.member))(aliased, std::get<Index>(sources).get()...);
        EXPECT_EQ(fingerprint(aliased), fingerprint(expected));
        expectSuccess(aliased);
        return (std::size_t(0) + ... + std::size_t(std::get<Index>(sources).isPart()));
    }
};

TEST_F(Aliasing, ArgumentsTakenFromTheResultGiveTheSameAsCopies) {
    std::size_t operationsWithParts = 0;
    forEachOperation([&](std::size_t, const auto& operation) {
        SCOPED_TRACE(operation.name);
        std::size_t parts = 0;
        const std::size_t arguments = std::min<std::size_t>(operation.argumentNames.size(), 4);
        for (std::size_t chosen = 1; chosen < std::size_t(1) << arguments; ++chosen) {
            for (std::size_t part = 0; part < 2; ++part) {
                for (const bool surplus : {false, true}) {
                    parts += compare(operation, {chosen, part, surplus});
                }
            }
        }
        operationsWithParts += parts > 0 ? 1 : 0;
    });
    // Without any: slots 0, 20, 36 and 42 have no argument; 37 has numbers alone; the three getters give a number; the
    // frustum of 66 and 67 is no part of a matrix; 69, 70, 77 and 78 give a vector and take none.
    EXPECT_EQ(operationsWithParts, 79U - 4U - 1U - 3U - 2U - 4U);
}

TEST_F(Aliasing, EyeOfTheResultMovesTheEyeOfItsOwnState) {
    ViewStateResult result;
    result.mValue = mSamples.view;
    result.mValue.mEye = vectorOf(7.0, 8.0, 9.0);
    mService->viewSetEye(result, result.mValue, result.mValue.mEye);
    EXPECT_EQ(result.mValue.mEye.mData, (std::vector<double>{7.0, 8.0, 9.0}));
}

TEST_F(Aliasing, NestedStatesOfAnotherResultMayBeArguments) {
    PlanarCameraStateResult result;
    mService->planarCameraCreate(result, mSamples.view, mSamples.projection, mSamples.surface);
    PlanarCameraStateResult again = result;
    mService->planarCameraCreate(again, again.mValue.mViewState, again.mValue.mProjectionState,
                                 again.mValue.mSurfaceState);
    EXPECT_EQ(fingerprint(again), fingerprint(result));
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
