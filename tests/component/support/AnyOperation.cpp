// SPDX-License-Identifier: Apache-2.0
#include "tests/component/support/AnyOperation.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <type_traits>
#include <utility>

#include "tests/component/support/Blobs.h"
#include "tests/component/support/RecordFields.h"

namespace qel::api::camera::test {

namespace {

/// The arguments of one operation out of an array of their places.
template <std::size_t Number>
void invokeNumber(CameraAPIIf& service, void* result, const void* const* arguments) {
    constexpr const auto& operation = std::get<Number>(operations);
    [&]<class Result, class... Parameters>(const Operation<Result, Parameters...>&) {
        static_assert(sizeof...(Parameters) <= std::tuple_size_v<Pointers>);
        [&]<std::size_t... Index>(std::index_sequence<Index...>) {
            (service.*operation.member)(*static_cast<Result*>(result),
                                        *static_cast<const std::remove_cvref_t<Parameters>*>(arguments[Index])...);
        }
        (std::index_sequence_for<Parameters...>());
    }(operation);
}

template <std::size_t Number>
AnyOperation describe() {
    return []<class Result, class... Parameters>(const Operation<Result, Parameters...>& operation) {
        return AnyOperation{Number,
                            operation.name,
                            {operation.argumentNames.begin(), operation.argumentNames.end()},
                            {AnyArgument(std::in_place_type<std::remove_cvref_t<Parameters>>)...},
                            AnyResult(std::in_place_type<Result>),
                            &invokeNumber<Number>};
    }(std::get<Number>(operations));
}

const void* placeOf(const AnyArgument& argument) {
    return std::visit([](const auto& value) -> const void* { return &value; }, argument);
}

struct Part {
    AnyArgument copy;
    const void* place;
};

template <class Value>
void collectParts(const Value& value, std::vector<Part>& parts) {
    if constexpr (IsRecord<Value>) {
        parts.push_back({value, &value});
        forEachField(value, [&](const auto&, const auto& member) { collectParts(member, parts); });
    }
}

/// The flags of the records inside a payload, below its own.
template <class Payload>
void lowerNestedFlags(Payload& payload) {
    if constexpr (IsRecord<Payload>) {
        forEachField(payload, [](const auto&, auto& member) {
            if constexpr (IsRecord<std::remove_cvref_t<decltype(member)>>) {
                setAllFlags(member, false);
            }
        });
    }
}

bool isWellFormed(const double&) { return true; }
bool isWellFormed(const Vector& vector) { return vector.mData.size() == 3; }
bool isWellFormed(const Matrix& matrix) {
    return matrix.mData.size() == 4 &&
           std::ranges::all_of(matrix.mData, [](const std::vector<double>& row) { return row.size() == 4; });
}
bool isWellFormed(const ViewState& state) {
    return isWellFormed(state.mViewTransformMatrix) && isWellFormed(state.mViewMatrix) && isWellFormed(state.mEye) &&
           isWellFormed(state.mDirection) && state.mOrientation.mData.size() == 4 &&
           state.mPrivate.size() == at::viewSize;
}
bool isWellFormed(const ProjectionState& state) {
    return isWellFormed(state.mProjectionMatrix) && state.mPrivate.size() == at::projectionSize &&
           (state.mProjectionType == ProjectionType::PERSPECTIVE ||
            state.mProjectionType == ProjectionType::ORTHOGRAPHIC);
}
bool isWellFormed(const SurfaceState& state) { return state.mPrivate.size() == at::surfaceSize; }
bool isWellFormed(const PlanarCameraState& state) {
    return isWellFormed(state.mViewState) && isWellFormed(state.mProjectionState) &&
           isWellFormed(state.mSurfaceState) && state.mPrivate.size() == at::cameraSize;
}

bool holdsFiniteNumbers(const std::string& blob, const Stretches& stretches) {
    return std::ranges::all_of(stretches, [&](const Stretch& stretch) {
        bool finite = true;
        for (std::size_t i = 0; stretch.holds == Holds::doubles && i < stretch.size; i += 8) {
            finite = finite && std::isfinite(doubleAt(blob, stretch.offset + i));
        }
        return finite;
    });
}

template <class Value>
bool showsFiniteNumbers(const Value& value) {
    bool finite = true;
    if constexpr (std::is_same_v<Value, double>) {
        finite = std::isfinite(value);
    } else if constexpr (IsRecord<Value>) {
        forEachField(value, [&](const auto&, const auto& member) { finite = showsFiniteNumbers(member) && finite; });
        if constexpr (requires { value.mPrivate; }) {
            finite = finite && holdsFiniteNumbers(value.mPrivate, stretchesOf(value));
        }
    } else if constexpr (!std::is_same_v<Value, std::string> && !std::is_arithmetic_v<Value> &&
                         !std::is_enum_v<Value>) {
        for (const auto& element : value) {
            finite = showsFiniteNumbers(element) && finite;
        }
    }
    return finite;
}

} // namespace

bool AnyOperation::canFail() const {
    return std::ranges::any_of(blank, [](const AnyArgument& argument) {
        return std::visit(
            [](const auto& value) {
                return requires { value.mPrivate; }
                || requires { value.mData; };
            },
            argument);
    });
}

std::string AnyOperation::failureMessage() const {
    // Hosts rely on these texts.
    static constexpr std::array<std::pair<std::string_view, const char*>, 8> creations{{
        {"viewCreateDefault", "Unable to create View object."},
        {"viewCreate", "Unable to create View object."},
        {"projectionCreateDefault", "Unable to create Projection object."},
        {"projectionCreate", "Unable to create Projection object."},
        {"surfaceCreateDefault", "Unable to create Surface object."},
        {"surfaceCreate", "Unable to create Surface object."},
        {"planarCameraCreateDefault", "Unable to create default PlanarCamera object."},
        {"planarCameraCreate", "Unable to create PlanarCamera object from arguments."},
    }};
    for (const auto& [creation, message] : creations) {
        if (name == creation) {
            return message;
        }
    }
    return "Call to " + std::string(name) + "() failed.";
}

const std::vector<AnyOperation>& allOperations() {
    static const std::vector<AnyOperation> all = []<std::size_t... Number>(std::index_sequence<Number...>) {
        return std::vector<AnyOperation>{describe<Number>()...};
    }
    (std::make_index_sequence<operationCount>());
    return all;
}

void call(CameraAPIIf& service, const AnyOperation& operation, AnyResult& result, const Pointers& arguments) {
    operation.invoke(service, std::visit([](auto& held) -> void* { return &held; }, result), arguments.data());
}

void call(CameraAPIIf& service, const AnyOperation& operation, AnyResult& result, const Arguments& arguments) {
    Pointers pointers{};
    std::ranges::transform(arguments, pointers.begin(), placeOf);
    call(service, operation, result, pointers);
}

AnyResult callAfresh(CameraAPIIf& service, const AnyOperation& operation, const Arguments& arguments) {
    AnyResult result = operation.fresh;
    call(service, operation, result, arguments);
    return result;
}

base::ServiceResult& outcomeOf(AnyResult& result) {
    return std::visit([](auto& held) -> base::ServiceResult& { return held.mResult; }, result);
}
const base::ServiceResult& outcomeOf(const AnyResult& result) {
    return std::visit([](const auto& held) -> const base::ServiceResult& { return held.mResult; }, result);
}

AnyArgument payloadOf(const AnyResult& result) {
    return std::visit([](const auto& held) -> AnyArgument { return held.mValue; }, result);
}
void setPayload(AnyResult& result, const AnyArgument& payload) {
    std::visit([&](auto& held) { held.mValue = std::get<std::remove_cvref_t<decltype(held.mValue)>>(payload); },
               result);
}

const std::string* blobOf(const AnyArgument& argument) {
    return std::visit(
        [](const auto& value) -> const std::string* {
            if constexpr (requires { value.mPrivate; }) {
                return &value.mPrivate;
            } else {
                return nullptr;
            }
        },
        argument);
}
std::string* blobOf(AnyArgument& argument) { return const_cast<std::string*>(blobOf(std::as_const(argument))); }

std::string fingerprint(const AnyResult& result) {
    return std::visit([](const auto& held) { return fingerprint(held); }, result);
}
std::string fingerprint(const AnyArgument& argument) {
    return std::visit([](const auto& value) { return fingerprint(value); }, argument);
}
std::string payloadBits(const AnyResult& result) {
    return std::visit([](const auto& held) { return fingerprint(held.mValue); }, result);
}
std::vector<const void*> storageOf(const AnyResult& result) {
    return std::visit([](const auto& held) { return storageOf(held); }, result);
}
std::string flagsOf(const AnyResult& result) {
    return std::visit([](const auto& held) { return flagsOf(held); }, result);
}
void setAllFlags(AnyResult& result, const bool set) {
    std::visit([&](auto& held) { setAllFlags(held, set); }, result);
}
std::string flagsAfterSuccess(const AnyResult& before) {
    return std::visit(
        [](auto held) {
            lowerNestedFlags(held.mValue);
            return flagsOf(held);
        },
        before);
}
void makeOther(AnyResult& result) {
    std::visit([](auto& held) { makeOther(held.mValue); }, result);
}
void makeTooShort(AnyResult& result) {
    std::visit([](auto& held) { makeTooShort(held.mValue); }, result);
}
void makeTooLong(AnyResult& result) {
    std::visit([](auto& held) { makeTooLong(held.mValue); }, result);
}
void makeTooLong(AnyArgument& argument) {
    std::visit([](auto& value) { makeTooLong(value); }, argument);
}

bool isWellFormed(const AnyResult& result) {
    return std::visit([](const auto& held) { return isWellFormed(held.mValue); }, result);
}

bool isFinite(const AnyArgument& payload) {
    return std::visit([](const auto& value) { return showsFiniteNumbers(value); }, payload);
}

AliasedArguments aliasedArguments(AnyResult& result, const Arguments& outside, const std::size_t chosen,
                                  const std::size_t part) {
    std::vector<Part> parts;
    std::visit([&](const auto& held) { collectParts(held.mValue, parts); }, result);
    AliasedArguments aliased;
    aliased.copies = outside;
    for (std::size_t i = 0; i < outside.size(); ++i) {
        std::vector<const Part*> suitable;
        for (const Part& candidate : parts) {
            if (candidate.copy.index() == outside[i].index()) {
                suitable.push_back(&candidate);
            }
        }
        if (((chosen >> i) & 1U) != 0 && !suitable.empty()) {
            const Part& taken = *suitable[(i + part) % suitable.size()];
            aliased.pointers[i] = taken.place;
            aliased.copies[i] = taken.copy;
            ++aliased.parts;
        } else {
            aliased.pointers[i] = placeOf(outside[i]);
        }
    }
    return aliased;
}

} // namespace qel::api::camera::test
