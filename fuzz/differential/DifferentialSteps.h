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
#include <vector>

#include <qel/api/camera/Operations.h>

#include "fuzz/Require.h"
#include "fuzz/StateObjects.h"
#include "fuzz/differential/Comparison.h"
#include "fuzz/differential/StepArguments.h"
#include "fuzz/oracle/FromObject.h"

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

    [[nodiscard]] oracle::Camera otherCamera() const { return oracle::fromObject(objectIn(other)); }

    void take(const std::vector<double>& values) {
        for (const double value : values) {
            scale = std::max(scale, std::abs(Real(value)));
        }
    }
    api::Vector takenVector() {
        api::Vector record = vector(bytes);
        take(record.mData);
        return record;
    }
    api::Matrix takenMatrix() {
        api::Matrix record = matrix(bytes);
        std::for_each(record.mData.begin(), record.mData.end(), [this](const auto& row) { take(row); });
        return record;
    }
};

/// An operation's name as a template argument.
template <std::size_t Size>
struct Name {
    std::array<char, Size> text{};
    consteval Name(const char (&literal)[Size]) { std::copy_n(literal, Size, text.begin()); } // NOLINT
    [[nodiscard]] constexpr std::string_view view() const { return {text.data(), Size - 1}; }
};

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

// The answer of an operation as the step's result: a part goes into the camera, which must then hold just it.
void adopt(Step& step, const api::ViewState& record);
void adopt(Step& step, const api::ProjectionState& record);
void adopt(Step& step, const api::SurfaceState& record);
void adopt(Step& step, const api::PlanarCameraState& record);

/// Runs an operation of the component, on the step's state where its first argument is one.
template <Name name>
class Run {
public:
    explicit Run(Step& step) : mStep(step) {}

    /// An operation that answers with numbers.
    template <class... Arguments>
    const auto& ask(const Arguments&... arguments) const {
        mStep.called = name.view();
        return call(std::get<api::slotOf(name.view())>(api::operations).member, arguments...);
    }

    /// An operation that answers with a state.
    template <class... Arguments>
    void operator()(const Arguments&... arguments) const {
        adopt(mStep, ask(arguments...).mValue);
    }

private:
    template <class Result, class... Declared, class... Arguments>
    const Result& call(void (api::CameraAPIIf::*member)(Result&, Declared...), const Arguments&... arguments) const {
        static Result result; // what an operation fails to write is left from the one before
        if constexpr (sizeof...(Declared) == sizeof...(Arguments)) {
            (mStep.service.*member)(result, arguments...);
        } else {
            using State = std::remove_cvref_t<std::tuple_element_t<0, std::tuple<Declared...>>>;
            (mStep.service.*member)(result, stateOf<State>(mStep), arguments...);
        }
        require(result.mResult.mError == 0, "a call with arguments of the right shape succeeds");
        return result;
    }

    Step& mStep;
};

struct Entry {
    std::string_view name;
    void (*step)(Step&);
    Part writes; ///< nothing for an operation that answers with numbers, and compares them itself
};

/// `work` draws the arguments, does the same by the second implementation, and runs the operation.
template <Name name, class Work>
constexpr Entry entry(Part writes, Work /*work*/) {
    return {name.view(), [](Step& step) { Work()(step, Run<name>(step)); }, writes};
}

[[nodiscard]] std::span<const Entry> viewSteps();
[[nodiscard]] std::span<const Entry> projectionSteps(); ///< of surfaces too
[[nodiscard]] std::span<const Entry> cameraSteps();
[[nodiscard]] std::span<const Entry> questionSteps();

} // namespace camera::fuzz::differential
