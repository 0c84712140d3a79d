// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <type_traits>

#include "tests/component/support/Calls.h"
#include "tests/component/support/Finite.h"
#include "tests/component/support/LoadedModule.h"
#include "tests/component/support/Samples.h"

namespace qel::api::camera::test {

/// The default states, and operations applied to them one after another.
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
        ((*mService).*operation)(result, arguments...);
        keep(result);
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
        if constexpr (std::is_same_v<State, ViewState>) {
            return mStates.view;
        } else if constexpr (std::is_same_v<State, ProjectionState>) {
            return mStates.projection;
        } else if constexpr (std::is_same_v<State, SurfaceState>) {
            return mStates.surface;
        } else {
            static_assert(std::is_same_v<State, PlanarCameraState>);
            return mStates.planarCamera;
        }
    }

    [[nodiscard]] bool allFinite() const {
        return isFinite(mStates.view) && isFinite(mStates.projection) && isFinite(mStates.surface) &&
               isFinite(mStates.planarCamera);
    }

private:
    template <class Result>
    void keep(const Result& result) {
        EXPECT_EQ(result.mResult.mError, 0) << result.mResult.mMessage;
        state<std::remove_cvref_t<decltype(result.mValue)>>() = result.mValue;
    }

    LoadedService mService;
    Samples mStates;
};

} // namespace qel::api::camera::test
