// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <tuple>
#include <type_traits>

#include <qel/api/camera/CameraAPIIf.h>

#include "fuzz/StateObjects.h"

namespace camera::fuzz {

/// The result records that a sequence of operations carries along: two of each kind. The states in them are the
/// arguments of the operations that follow.
class States {
public:
    /// Default objects, as the service makes them.
    explicit States(api::CameraAPIIf& service) {
        for (std::size_t i = 0; i < 2; ++i) {
            service.viewCreateDefault(change<api::ViewStateResult>(i));
            service.projectionCreateDefault(change<api::ProjectionStateResult>(i));
            service.surfaceCreateDefault(change<api::SurfaceStateResult>(i));
            service.planarCameraCreateDefault(change<api::PlanarCameraStateResult>(i));
        }
    }

    /// Copies those that have changed: copying all of them would take longer than most sequences.
    void restore(const States& start) {
        const auto restorePair = [&]<class Pair>(Pair& pair) {
            for (std::size_t i = 0; i < 2; ++i) {
                if (pair[i].changed) {
                    pair[i] = std::get<Pair>(start.mPairs)[i];
                    pair[i].changed = false;
                }
            }
        };
        std::apply([&](auto&... pair) { (restorePair(pair), ...); }, mPairs);
    }

    /// A record that is about to change.
    template <class Result>
    [[nodiscard]] Result& change(std::size_t index) {
        Kept<Result>& kept = std::get<Two<Result>>(mPairs)[index];
        kept.changed = true;
        return kept.result;
    }

    template <IsState State>
    [[nodiscard]] const State& state(std::size_t index) const {
        return std::get<Two<decltype(resultWith(std::declval<State>()))>>(mPairs)[index].result.mValue;
    }

    /// The blob of one of the eight states, about to change.
    [[nodiscard]] std::string& changeBlob(std::size_t index) {
        const std::size_t which = index / 4 % 2;
        switch (index % 4) {
        case 0: return change<api::ViewStateResult>(which).mValue.mPrivate;
        case 1: return change<api::ProjectionStateResult>(which).mValue.mPrivate;
        case 2: return change<api::SurfaceStateResult>(which).mValue.mPrivate;
        default: return change<api::PlanarCameraStateResult>(which).mValue.mPrivate;
        }
    }

private:
    template <class Result>
    struct Kept {
        Result result;
        bool changed = true;
    };
    template <class Result>
    using Two = std::array<Kept<Result>, 2>;

    // Declared for their types alone.
    static api::ViewStateResult resultWith(const api::ViewState&);
    static api::ProjectionStateResult resultWith(const api::ProjectionState&);
    static api::SurfaceStateResult resultWith(const api::SurfaceState&);
    static api::PlanarCameraStateResult resultWith(const api::PlanarCameraState&);

    std::tuple<Two<api::ViewStateResult>, Two<api::ProjectionStateResult>, Two<api::SurfaceStateResult>,
               Two<api::PlanarCameraStateResult>, Two<api::VectorResult>, Two<api::MatrixResult>,
               Two<api::DoubleResult>>
        mPairs;
};

} // namespace camera::fuzz
