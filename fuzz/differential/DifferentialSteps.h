// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>
#include <string_view>
#include <tuple>
#include <type_traits>

#include <qel/api/camera/Operations.h>

#include "fuzz/Require.h"
#include "fuzz/differential/Comparison.h"
#include "fuzz/differential/StepArguments.h"

// One operation by the component and by the second implementation.
namespace camera::fuzz::differential {

/// The parts of a camera that an operation may write.
enum Part : unsigned { nothing = 0, view = 1, projection = 2, surface = 4, everything = 7 };

struct Step {
    api::CameraAPIIf& service;
    const api::PlanarCameraState& state; ///< what the operation starts from
    const api::PlanarCameraState& other; ///< an earlier one, where an operation takes two
    api::PlanarCameraStateResult& result;
    oracle::Camera camera; ///< the state, and after the step what should come of it
    Bytes& bytes;
    oracle::Judgement judge;
    Real scale = 1.0L;       ///< the largest of the arguments
    std::string_view called; ///< the operation that the component ran

    double taken(double value) {
        scale = std::max(scale, std::abs(Real(value)));
        return value;
    }
    api::Vector takenVector() {
        api::Vector record = vector(bytes);
        for (const double value : record.mData) {
            taken(value);
        }
        return record;
    }
    api::Matrix takenMatrix() {
        api::Matrix record = matrix(bytes);
        for (const auto& row : record.mData) {
            for (const double value : row) {
                taken(value);
            }
        }
        return record;
    }
    [[nodiscard]] Exactness exactness() const { return {judge.condition, scale}; }
};

/// An operation's name as a template argument.
template <std::size_t Size>
struct Name {
    std::array<char, Size> text{};
    consteval Name(const char (&literal)[Size]) { std::copy_n(literal, Size, text.begin()); } // NOLINT
    [[nodiscard]] constexpr std::string_view view() const { return {text.data(), Size - 1}; }
};

consteval std::size_t slotOf(std::string_view name) {
    std::size_t found = api::operationCount;
    api::forEachOperation([&](std::size_t slot, const auto& operation) {
        if (operation.name == name) {
            found = slot;
        }
    });
    return found; // one past the end, which no table has, if there is none
}

template <class Record>
const Record& stateOf(const Step& step) {
    if constexpr (std::is_same_v<Record, api::ViewState>) {
        return step.state.mViewState;
    } else if constexpr (std::is_same_v<Record, api::ProjectionState>) {
        return step.state.mProjectionState;
    } else if constexpr (std::is_same_v<Record, api::SurfaceState>) {
        return step.state.mSurfaceState;
    } else {
        return step.state;
    }
}

/// Runs an operation of the component, on the step's state where its first argument is one, and returns its result.
template <Name name, class Result, class... Declared, class... Arguments>
const Result& runOperation(Step& step, void (api::CameraAPIIf::*member)(Result&, Declared...),
                           const Arguments&... arguments) {
    static Result result; // what an operation fails to write is left from the one before
    if constexpr (sizeof...(Declared) == sizeof...(Arguments)) {
        (step.service.*member)(result, arguments...);
    } else {
        using State = std::remove_cvref_t<std::tuple_element_t<0, std::tuple<Declared...>>>;
        (step.service.*member)(result, stateOf<State>(step), arguments...);
    }
    require(result.mResult.mError == 0, "a call with arguments of the right shape succeeds");
    step.called = name.view();
    return result;
}

template <Name name, class... Arguments>
const auto& run(Step& step, const Arguments&... arguments) {
    return runOperation<name>(step, std::get<slotOf(name.view())>(api::operations).member, arguments...);
}

// The answer of an operation as the step's result: a part goes into the camera, which must then hold just it.

void adopt(Step& step, const api::ViewState& record);
void adopt(Step& step, const api::ProjectionState& record);
void adopt(Step& step, const api::SurfaceState& record);
void adopt(Step& step, const api::PlanarCameraState& record);

/// An operation that answers with a state.
template <Name name, class... Arguments>
void change(Step& step, const Arguments&... arguments) {
    adopt(step, run<name>(step, arguments...).mValue);
}

struct Entry {
    std::string_view name;
    void (*step)(Step&);
    Part writes; ///< nothing for an operation that answers with numbers, and compares them itself
};

[[nodiscard]] std::span<const Entry> viewSteps();
[[nodiscard]] std::span<const Entry> projectionSteps();
[[nodiscard]] std::span<const Entry> surfaceSteps();
[[nodiscard]] std::span<const Entry> cameraSteps();
[[nodiscard]] std::span<const Entry> questionSteps();

} // namespace camera::fuzz::differential
