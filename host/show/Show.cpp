// SPDX-License-Identifier: Apache-2.0
#include "host/show/Show.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include <nlohmann/json.hpp>

#include <qel/api/camera/Fields.h>

#include "host/console/RecordJson.h"

namespace qel::host {

namespace {

namespace camera = api::camera;

void report(StateReport& report, const camera::ViewState& state) {
    checkBlobSize(report, "view", state.mPrivate.size(), viewBlobSize);
    reportView(report, state, state.mPrivate);
}

void report(StateReport& report, const camera::ProjectionState& state) {
    checkBlobSize(report, "projection", state.mPrivate.size(), projectionBlobSize);
    reportProjection(report, state, state.mPrivate);
}

void report(StateReport& report, const camera::SurfaceState& state) {
    checkBlobSize(report, "surface", state.mPrivate.size(), surfaceBlobSize);
    reportSurface(report, state, state.mPrivate);
}

void report(StateReport& report, const camera::PlanarCameraState& state) { reportPlanarCamera(report, state); }

/// How many of the record's own fields the object has: mPrivate is in every state.
template <class State>
std::size_t likeness(const Json& json) {
    std::size_t fields = 0;
    api::forEachField<State>([&](const auto& field) {
        fields += static_cast<std::size_t>(field.form != api::Form::binary && json.contains(field.name));
    });
    return fields;
}

/// The state that the object is most like; what it lacks is told by the reader.
template <class... States>
StateReport reportMostLike(const Json& json) {
    std::size_t most = 0;
    ((most = std::max(most, json.is_object() ? likeness<States>(json) : 0)), ...);
    if (most == 0) {
        throw JsonError("wants a state of a planar camera, a view, a projection or a surface, but " + describe(json) +
                        " came");
    }
    StateReport result;
    bool done = false;
    const auto tryState = [&]<class State>(const State* /*kind*/) {
        if (!done && likeness<State>(json) == most) {
            report(result, fromJson<State>(json));
            done = true;
        }
    };
    (tryState(static_cast<const States*>(nullptr)), ...);
    return result;
}

} // namespace

void reportPlanarCamera(StateReport& report, const camera::PlanarCameraState& state) {
    checkBlobSize(report, "camera", state.mPrivate.size(), planarCameraBlobSize);
    auto parts = partsOfBlob(state.mPrivate);
    if (parts.view.empty()) {
        parts = {state.mViewState.mPrivate, state.mProjectionState.mPrivate, state.mSurfaceState.mPrivate};
    }
    const auto compare = [&](const char* field, std::string_view nested, std::string_view own) {
        if (!sameBlob(nested, own)) {
            report.warn("camera", std::string(field) + ".mPrivate is not the part of the camera's own mPrivate, which "
                                                       "alone operations on the camera read");
        }
    };
    compare("mViewState", state.mViewState.mPrivate, parts.view);
    compare("mProjectionState", state.mProjectionState.mPrivate, parts.projection);
    compare("mSurfaceState", state.mSurfaceState.mPrivate, parts.surface);
    reportView(report, state.mViewState, parts.view);
    reportProjection(report, state.mProjectionState, parts.projection);
    reportSurface(report, state.mSurfaceState, parts.surface);
}

StateReport reportState(const Json& json) {
    const Json* state = &json;
    std::string failure;
    while (state->is_object() && state->contains("mValue") && state->contains("mResult")) {
        const auto outcome = fromJson<api::base::ServiceResult>((*state)["mResult"]);
        if (outcome.mError != camera::CameraAPIError::CAMERA_API_SUCCESS) {
            failure =
                "the call that made it failed with error " + std::to_string(outcome.mError) + ": " + outcome.mMessage;
        }
        state = &(*state)["mValue"];
    }
    StateReport result =
        reportMostLike<camera::PlanarCameraState, camera::ViewState, camera::ProjectionState, camera::SurfaceState>(
            *state);
    if (!failure.empty()) {
        result.warn("result", failure);
    }
    return result;
}

} // namespace qel::host
