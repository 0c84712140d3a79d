// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <qel/api/camera/Operations.h>

namespace qel::api::camera::test {

// The operations without their types: what treats every operation alike is a loop over allOperations(), and compiled
// once, not once for each operation.

using AnyArgument = std::variant<double, std::int32_t, ProjectionType::type, Vector, Quaternion, Matrix, Frustum,
                                 Viewport, ViewState, ProjectionState, SurfaceState, PlanarCameraState>;
using Arguments = std::vector<AnyArgument>;
using AnyResult = std::variant<ViewStateResult, ProjectionStateResult, SurfaceStateResult, PlanarCameraStateResult,
                               VectorResult, MatrixResult, DoubleResult>;
/// Where the arguments of a call lie. In an array, so that a call needs no memory of its own.
using Pointers = std::array<const void*, 9>;

struct AnyOperation {
    std::size_t number;
    std::string_view name;
    std::vector<std::string_view> argumentNames;
    Arguments blank; ///< arguments as their types make them
    AnyResult fresh; ///< a result as its type makes it
    void (*invoke)(CameraAPIIf& service, void* result, const void* const* arguments);

    /// Whether some argument is a record that can hold too little: the operation can fail.
    [[nodiscard]] bool canFail() const;
    [[nodiscard]] bool isTransposition() const { return name == "utilsConvertMatrixFromRowMajorToColumnMajor"; }
    /// The getters, which give a number, are the camera operations that reset the outcome.
    [[nodiscard]] bool resetsOutcome() const { return std::holds_alternative<DoubleResult>(fresh); }
    [[nodiscard]] std::int32_t failureCode() const { return name.starts_with("utils") ? 4 : -1; }
    [[nodiscard]] std::string failureMessage() const;
};

const std::vector<AnyOperation>& allOperations();

void call(CameraAPIIf& service, const AnyOperation& operation, AnyResult& result, const Pointers& arguments);
void call(CameraAPIIf& service, const AnyOperation& operation, AnyResult& result, const Arguments& arguments);
AnyResult callAfresh(CameraAPIIf& service, const AnyOperation& operation, const Arguments& arguments);

[[nodiscard]] base::ServiceResult& outcomeOf(AnyResult& result);
[[nodiscard]] const base::ServiceResult& outcomeOf(const AnyResult& result);

/// The payload as an argument, and the other way round.
[[nodiscard]] AnyArgument payloadOf(const AnyResult& result);
void setPayload(AnyResult& result, const AnyArgument& payload);

/// The blob of a state, nullptr for anything else.
[[nodiscard]] std::string* blobOf(AnyArgument& argument);
[[nodiscard]] const std::string* blobOf(const AnyArgument& argument);

// What RecordFields.h says of each kind.

[[nodiscard]] std::string fingerprint(const AnyResult& result);
[[nodiscard]] std::string fingerprint(const AnyArgument& argument);
[[nodiscard]] std::string payloadBits(const AnyResult& result);
[[nodiscard]] std::vector<const void*> storageOf(const AnyResult& result);
[[nodiscard]] std::string flagsOf(const AnyResult& result);
void setAllFlags(AnyResult& result, bool set);
/// The flags that a successful call has to leave: those of the records inside the payload lowered, all others as they
/// were.
[[nodiscard]] std::string flagsAfterSuccess(const AnyResult& before);
void makeOther(AnyResult& result);    ///< every number and byte of the payload
void makeTooShort(AnyResult& result); ///< every list and text of the payload
void makeTooLong(AnyResult& result);  ///< the same, with what was there in front
void makeTooLong(AnyArgument& argument);

/// Whether a payload has the shape that every written one has.
[[nodiscard]] bool isWellFormed(const AnyResult& result);

/// Whether all numbers of a payload are finite: those that it shows, and in a state those of its blob.
[[nodiscard]] bool isFinite(const AnyArgument& payload);

/// Arguments of which some are parts of a result, as in viewSetEye(result, result.mValue, result.mValue.mEye).
struct AliasedArguments {
    Pointers pointers{};
    Arguments copies;      ///< the same values elsewhere
    std::size_t parts = 0; ///< how many lie in the result
};
/// Takes those arguments from the result whose bit is set in `chosen` and whose type is there, the others from
/// `outside`; `part` says which part where there are several. The result and `outside` must outlive the pointers.
AliasedArguments aliasedArguments(AnyResult& result, const Arguments& outside, std::size_t chosen, std::size_t part);

} // namespace qel::api::camera::test
