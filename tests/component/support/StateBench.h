// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <tuple>

#include "tests/component/support/Calls.h"

namespace qel::api::camera::test {

/// The default states, and operations applied to them one after another. A copy goes its own way.
class StateBench {
public:
    StateBench() {
        make(&CameraAPIIf::viewCreateDefault);
        make(&CameraAPIIf::projectionCreateDefault);
        make(&CameraAPIIf::surfaceCreateDefault);
        make(&CameraAPIIf::planarCameraCreateDefault);
    }

    /// Makes a new state of a kind.
    template <class Result, class... Parameters, class... Arguments>
    void make(void (CameraAPIIf::*operation)(Result&, Parameters...), const Arguments&... arguments) {
        Result result;
        ((**mService).*operation)(result, arguments...);
        EXPECT_EQ(result.mResult.mError, 0) << result.mResult.mMessage;
        std::get<decltype(result.mValue)>(mStates) = result.mValue;
    }

    /// Applies an operation to the state of its kind.
    template <class Result, class State, class... Parameters, class... Arguments>
    void on(void (CameraAPIIf::*operation)(Result&, const State&, Parameters...), const Arguments&... arguments) {
        make(operation, state<State>(), arguments...);
    }

    /// Puts view, projection and surface into the camera.
    void assemble() {
        make(&CameraAPIIf::planarCameraCreate, state<ViewState>(), state<ProjectionState>(), state<SurfaceState>());
    }

    template <class State>
    [[nodiscard]] State& state() {
        return std::get<State>(mStates);
    }

    [[nodiscard]] bool allFinite() const {
        return std::apply([](const auto&... state) { return (isFinite(state) && ...); }, mStates);
    }

private:
    std::shared_ptr<LoadedService> mService = std::make_shared<LoadedService>();
    std::tuple<ViewState, ProjectionState, SurfaceState, PlanarCameraState> mStates;
};

} // namespace qel::api::camera::test
