// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "tests/component/support/Calls.h"
#include "tests/component/support/LoadedModule.h"
#include "tests/component/support/Samples.h"
#include "tests/component/support/Slots.h"

namespace qel::api::camera::test {

namespace {

// Every operation with every argument that can be too short, too short in every way.

/// An argument that a call must reject, and what is wrong with it.
template <class Argument>
struct Rejected {
    const char* reason;
    Argument argument;
};

template <class State>
std::vector<Rejected<State>> rejectedStates(const State& valid) {
    State empty = valid;
    empty.mPrivate.clear();
    State oneByteShort = valid;
    oneByteShort.mPrivate.pop_back();
    State headerOnly = valid;
    headerOnly.mPrivate.resize(8);
    return {{"no image", empty}, {"image one byte short", oneByteShort}, {"image of a header alone", headerOnly}};
}

std::vector<Rejected<ViewState>> rejectedVariants(const ViewState& valid) { return rejectedStates(valid); }
std::vector<Rejected<ProjectionState>> rejectedVariants(const ProjectionState& valid) { return rejectedStates(valid); }
std::vector<Rejected<SurfaceState>> rejectedVariants(const SurfaceState& valid) { return rejectedStates(valid); }
std::vector<Rejected<PlanarCameraState>> rejectedVariants(const PlanarCameraState& valid) {
    std::vector<Rejected<PlanarCameraState>> variants = rejectedStates(valid);
    PlanarCameraState anotherKind = valid;
    anotherKind.mPrivate = valid.mViewState.mPrivate;
    variants.push_back({"image of a view", anotherKind});
    return variants;
}

template <class List>
std::vector<Rejected<List>> rejectedLists(const List& valid) {
    std::vector<Rejected<List>> variants;
    List list = valid;
    while (!list.mData.empty()) {
        list.mData.pop_back();
        variants.push_back({"too few values", list});
    }
    return variants;
}
std::vector<Rejected<Vector>> rejectedVariants(const Vector& valid) { return rejectedLists(valid); }
std::vector<Rejected<Quaternion>> rejectedVariants(const Quaternion& valid) { return rejectedLists(valid); }
std::vector<Rejected<Matrix>> rejectedVariants(const Matrix& valid) {
    std::vector<Rejected<Matrix>> variants = rejectedLists(valid);
    for (std::size_t row = 0; row < 4; ++row) {
        Matrix shortRow = valid;
        shortRow.mData[row].pop_back();
        variants.push_back({"a row of three", shortRow});
        Matrix emptyRow = valid;
        emptyRow.mData[row].clear();
        variants.push_back({"an empty row", emptyRow});
    }
    return variants;
}

/// The transposition takes any shape, so it rejects less than the operations on a 4x4 matrix.
std::vector<Rejected<Matrix>> rejectedByTransposition(const Matrix& valid) {
    Matrix noRows;
    Matrix shortRow = valid;
    shortRow.mData[1].pop_back();
    Matrix shortLastRow = valid;
    shortLastRow.mData.back().clear();
    return {
        {"no rows", noRows}, {"a row shorter than the first", shortRow}, {"a last row without values", shortLastRow}};
}

template <class Argument>
constexpr bool canBeShort = requires(const Argument& argument) {
    argument.mPrivate;
}
|| requires(const Argument& argument) { argument.mData; };

class ShortArgument : public ::testing::Test {
protected:
    /// Calls visit(arguments) with each spoilt copy of valid arguments; says how many there were.
    template <class Tuple, class Visitor>
    std::size_t forEachSpoilt(const std::size_t slot, const Tuple& valid, const Visitor& visit) const {
        return forEachSpoilt(slot, valid, visit, std::make_index_sequence<std::tuple_size_v<Tuple>>());
    }

    LoadedService mService;
    Samples mSamples{*mService};

private:
    template <class Tuple, class Visitor, std::size_t... Index>
    std::size_t forEachSpoilt([[maybe_unused]] const std::size_t slot, const Tuple& valid, const Visitor& visit,
                              std::index_sequence<Index...>) const {
        return (std::size_t(0) + ... + spoilOne<Index>(slot, valid, visit));
    }

    template <std::size_t Index, class Tuple, class Visitor>
    std::size_t spoilOne([[maybe_unused]] const std::size_t slot, const Tuple& valid, const Visitor& visit) const {
        using Argument = std::tuple_element_t<Index, Tuple>;
        if constexpr (canBeShort<Argument>) {
            std::vector<Rejected<Argument>> variants;
            if constexpr (std::is_same_v<Argument, Matrix>) {
                variants = slot == 68 ? rejectedByTransposition(std::get<Index>(valid))
                                      : rejectedVariants(std::get<Index>(valid));
            } else {
                variants = rejectedVariants(std::get<Index>(valid));
            }
            for (const Rejected<Argument>& variant : variants) {
                SCOPED_TRACE(std::string("argument ") + std::to_string(Index + 1) + ": " + variant.reason);
                Tuple spoilt = valid;
                std::get<Index>(spoilt) = variant.argument;
                visit(spoilt);
            }
            return variants.size();
        }
        return 0;
    }
};

TEST_F(ShortArgument, FailsTheCallWithItsCodeAndMessageAndLeavesThePayloadAlone) {
    std::set<std::size_t> neverFail;
    forEachOperation([&](const std::size_t slot, const auto& operation) {
        SCOPED_TRACE(operation.name);
        const auto valid = mSamples.argumentsOf(operation);
        const auto earlier = callAfresh(*mService, operation, valid);
        const std::size_t spoilt = forEachSpoilt(slot, valid, [&](const auto& arguments) {
            const auto fresh = callAfresh(*mService, operation, arguments);
            expectFailure(fresh, failureCode(slot), slots[slot].failureMessage);
            EXPECT_EQ(fingerprint(fresh.mValue), fingerprint(decltype(fresh.mValue)()));

            auto reused = earlier;
            reused.mResult = olderError();
            call(*mService, operation, reused, arguments);
            expectFailure(reused, failureCode(slot), slots[slot].failureMessage);
            EXPECT_EQ(fingerprint(reused.mValue), fingerprint(earlier.mValue));
        });
        if (spoilt == 0) {
            neverFail.insert(slot);
        }
    });
    EXPECT_EQ(neverFail, (std::set<std::size_t>{0, 20, 21, 36, 37, 42, 66, 67})) << "those without such an argument";
}

TEST_F(ShortArgument, FailureIsReportedOverSuccessAndTheNextSuccessDoesNotHideIt) {
    ViewStateResult result;
    mService->viewYaw(result, ViewState(), 0.5);
    expectFailure(result, -1, "Call to viewYaw() failed.");
    mService->viewYaw(result, mSamples.view, 0.5);
    expectFailure(result, -1, "Call to viewYaw() failed.");
    EXPECT_TRUE(isWellFormed(result.mValue));
}

TEST_F(ShortArgument, CodesOfUtilitiesAndOthersDiffer) {
    MatrixResult utility;
    mService->utilsConvertMatrixFromRowMajorToColumnMajor(utility, Matrix());
    expectFailure(utility, CameraAPIError::CAMERA_API_ERROR_CALL_FAILED,
                  "Call to utilsConvertMatrixFromRowMajorToColumnMajor() failed.");
    ViewStateResult view;
    mService->viewSetEye(view, ViewState(), vectorOf(0.0, 0.0, 0.0));
    expectFailure(view, CameraAPIError::CAMERA_API_ERROR_UNKNOWN, "Call to viewSetEye() failed.");
}

// The counterpart: what is more than enough is cut off.

template <class Argument>
void lengthen(Argument& argument) {
    if constexpr (requires { argument.mPrivate; }) {
        argument.mPrivate.append(100, '\xAB');
    } else if constexpr (std::is_same_v<Argument, Matrix>) {
        for (std::vector<double>& row : argument.mData) {
            row.push_back(99.0);
        }
        argument.mData.emplace_back();
    } else if constexpr (requires { argument.mData; }) {
        argument.mData.push_back(99.0);
    }
}

TEST_F(ShortArgument, SurplusValuesRowsAndBytesAreIgnored) {
    forEachOperation([&](const std::size_t slot, const auto& operation) {
        if (slot == 68) { // any shape is right for the transposition
            return;
        }
        SCOPED_TRACE(operation.name);
        const auto valid = mSamples.argumentsOf(operation);
        auto lengthened = valid;
        forEachArgument(lengthened, [](auto& argument) { lengthen(argument); });
        const auto result = callAfresh(*mService, operation, lengthened);
        expectSuccess(result);
        EXPECT_EQ(fingerprint(result), fingerprint(callAfresh(*mService, operation, valid)));
    });
}

} // namespace

} // namespace qel::api::camera::test
