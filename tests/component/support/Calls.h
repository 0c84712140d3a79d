// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include <qel/api/camera/Operations.h>

#include "tests/component/support/RecordFields.h"

namespace qel::api::camera::test {

/// The result record of an operation.
template <class Result, class... Arguments>
Result resultOf(const Operation<Result, Arguments...>&);
template <class OperationType>
using ResultOf = decltype(resultOf(std::declval<OperationType>()));

/// Calls an operation with the arguments of a tuple.
template <class Result, class... Arguments, class Tuple>
void call(CameraAPIIf& service, const Operation<Result, Arguments...>& operation, Result& result,
          const Tuple& arguments) {
    std::apply([&](const auto&... argument) { (service.*(operation.member))(result, argument...); }, arguments);
}

/// Calls visit(argument) for each of a tuple's arguments.
template <class Tuple, class Visitor>
void forEachArgument(Tuple& arguments, [[maybe_unused]] const Visitor& visit) {
    std::apply([&](auto&... argument) { (visit(argument), ...); }, arguments);
}

template <class OperationType, class Tuple>
ResultOf<OperationType> callAfresh(CameraAPIIf& service, const OperationType& operation, const Tuple& arguments) {
    ResultOf<OperationType> result;
    call(service, operation, result, arguments);
    return result;
}

/// The getters of slots 24, 26 and 29 are the three camera operations that reset the outcome.
constexpr bool resetsOutcome(const std::size_t slot) { return slot == 24 || slot == 26 || slot == 29; }

/// The code that the operation of a slot reports when it fails: 4 for the three matrix utilities.
constexpr std::int32_t failureCode(const std::size_t slot) { return slot >= 66 && slot <= 68 ? 4 : -1; }

/// A record that holds an error from before.
inline base::ServiceResult olderError() {
    base::ServiceResult result;
    result.__set_mError(3);
    result.__set_mMessage("an error from before, long enough to live on the heap");
    return result;
}

template <class Result>
void expectSuccess(const Result& result) {
    EXPECT_EQ(result.mResult.mError, 0);
    EXPECT_EQ(result.mResult.mMessage, "");
    EXPECT_FALSE(result.mResult.__isset.mError);
    EXPECT_FALSE(result.mResult.__isset.mMessage);
}

template <class Result>
void expectFailure(const Result& result, const std::int32_t code, const std::string& message) {
    EXPECT_EQ(result.mResult.mError, code);
    EXPECT_EQ(result.mResult.mMessage, message);
    EXPECT_TRUE(result.mResult.__isset.mError);
    EXPECT_TRUE(result.mResult.__isset.mMessage);
}

// The shape that every written payload has.

inline bool isWellFormed(const double&) { return true; }
inline bool isWellFormed(const Vector& vector) { return vector.mData.size() == 3; }
inline bool isWellFormed(const Matrix& matrix) {
    if (matrix.mData.size() != 4) {
        return false;
    }
    for (const std::vector<double>& row : matrix.mData) {
        if (row.size() != 4) {
            return false;
        }
    }
    return true;
}
inline bool isWellFormed(const ViewState& state) {
    return isWellFormed(state.mViewTransformMatrix) && isWellFormed(state.mViewMatrix) && isWellFormed(state.mEye) &&
           isWellFormed(state.mDirection) && state.mOrientation.mData.size() == 4 && state.mPrivate.size() == 384;
}
inline bool isWellFormed(const ProjectionState& state) {
    return isWellFormed(state.mProjectionMatrix) && state.mPrivate.size() == 336 &&
           (state.mProjectionType == ProjectionType::PERSPECTIVE ||
            state.mProjectionType == ProjectionType::ORTHOGRAPHIC);
}
inline bool isWellFormed(const SurfaceState& state) { return state.mPrivate.size() == 336; }
inline bool isWellFormed(const PlanarCameraState& state) {
    return isWellFormed(state.mViewState) && isWellFormed(state.mProjectionState) &&
           isWellFormed(state.mSurfaceState) && state.mPrivate.size() == 1080;
}

} // namespace qel::api::camera::test
