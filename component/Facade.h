// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <qel/api/camera/Results.h>

#include "component/Failure.h"
#include "component/StateConversion.h"

namespace qel::api::camera {

// The road of every operation: records in, a working object or a value, records out. Values are read before anything is
// written, and a part that is passed on is written to its own place alone, so arguments may be parts of the result.
// Whatever is thrown on the way becomes the failure's code and message; on success the outcome part of the result stays
// as the caller passed it.

/// Runs `work`, which fills in the result's value itself.
template <class Result, class Work>
void attempt(Result& _return, const Failure& failure, const Work& work) noexcept {
    try {
        work();
    } catch (...) {
        failure.report(_return.mResult);
    }
}

/// Writes what `compute` returns, a working object or a value, into the result's value.
template <class Result, class Compute>
void answer(Result& _return, const Failure& failure, const Compute& compute) noexcept {
    attempt(_return, failure, [&] { write(_return.mValue, compute()); });
}

/// Rebuilds the state's object, lets `change` work on it, and writes it into the result's value.
template <class Result, class State, class Change>
void change(Result& _return, const Failure& failure, const State& state, const Change& change) noexcept {
    answer(_return, failure, [&] {
        auto object = toObject(state);
        change(object);
        return object;
    });
}

/// The same for an operation that works on a camera's view alone.
template <class Change>
void changeView(PlanarCameraStateResult& _return, const Failure& failure, const PlanarCameraState& state,
                const Change& change) noexcept {
    attempt(_return, failure, [&] {
        const CameraBytes camera = bytesOf(state);
        impl::View view = readView(camera.view.image);
        change(view);
        write(_return.mValue, view, camera);
    });
}

/// The same for an operation on a camera that leaves its surface alone.
template <class Change>
void changeViewAndProjection(PlanarCameraStateResult& _return, const Failure& failure, const PlanarCameraState& state,
                             const Change& change) noexcept {
    attempt(_return, failure, [&] {
        impl::PlanarCamera camera = toObject(state);
        change(camera);
        write(_return.mValue, camera.view(), camera.projection(), bytesOf(state));
    });
}

} // namespace qel::api::camera
