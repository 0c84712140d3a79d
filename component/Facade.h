// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "component/Failure.h"
#include "component/ReadState.h"
#include "component/WriteState.h"

namespace qel::api::camera::component {

// What every operation has in common: records in, an object or a value, a record out. Arguments are read before
// anything is written, so they may be parts of the result. Whatever is thrown on the way becomes the failure's code and
// message; on success the outcome part of the result stays as the caller passed it.

/// Runs `work`, which fills in the result itself.
template <class Result, class Work>
[[gnu::always_inline]] inline void attempt(Result& _return, const Failure failure, const Work& work) noexcept {
    try {
        work();
    } catch (...) {
        failure.report(_return.mResult);
    }
}

/// Writes what `compute` returns, an object or a value, into the result's payload.
template <class Result, class Compute>
[[gnu::always_inline]] inline void answer(Result& _return, const Failure failure, const Compute& compute) noexcept {
    attempt(_return, failure, [&] { write(_return.mValue, compute()); });
}

/// Rebuilds the state's object, lets `change` work on it, and writes it into the result's payload.
template <class Result, class State, class Change>
[[gnu::always_inline]] inline void change(Result& _return, const Failure failure, const State& state,
                                          const Change& change) noexcept {
    attempt(_return, failure, [&] {
        auto object = toObject(state);
        change(object);
        write(_return.mValue, object);
    });
}

} // namespace qel::api::camera::component
