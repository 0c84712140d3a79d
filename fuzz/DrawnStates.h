// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>

#include <qel/api/camera/CameraAPIIf.h>

namespace camera::fuzz {

namespace api = qel::api::camera;

/// The result records that a sequence of operations carries along: two of each kind. The states in them are the
/// arguments of the operations that follow.
struct States {
    std::array<api::ViewStateResult, 2> views;
    std::array<api::ProjectionStateResult, 2> projections;
    std::array<api::SurfaceStateResult, 2> surfaces;
    std::array<api::PlanarCameraStateResult, 2> cameras;
    std::array<api::VectorResult, 2> vectors;
    std::array<api::MatrixResult, 2> matrices;
    std::array<api::DoubleResult, 2> doubles;

    /// Which of the records may differ from those of the start, a bit each: restoring all of them would take longer
    /// than most sequences.
    std::uint32_t changed = ~0U;

    void restore(const States& start) {
        for (std::size_t i = 0; i < 2; ++i) {
            restore(views[i], start.views[i], i);
            restore(projections[i], start.projections[i], 2 + i);
            restore(surfaces[i], start.surfaces[i], 4 + i);
            restore(cameras[i], start.cameras[i], 6 + i);
            restore(vectors[i], start.vectors[i], 8 + i);
            restore(matrices[i], start.matrices[i], 10 + i);
            restore(doubles[i], start.doubles[i], 12 + i);
        }
        changed = 0;
    }

    /// A record that is about to change.
    template <class Result>
    [[nodiscard]] Result& change(std::size_t index) {
        if constexpr (std::is_same_v<Result, api::ViewStateResult>) {
            return mark(views[index], index);
        } else if constexpr (std::is_same_v<Result, api::ProjectionStateResult>) {
            return mark(projections[index], 2 + index);
        } else if constexpr (std::is_same_v<Result, api::SurfaceStateResult>) {
            return mark(surfaces[index], 4 + index);
        } else if constexpr (std::is_same_v<Result, api::PlanarCameraStateResult>) {
            return mark(cameras[index], 6 + index);
        } else if constexpr (std::is_same_v<Result, api::VectorResult>) {
            return mark(vectors[index], 8 + index);
        } else if constexpr (std::is_same_v<Result, api::MatrixResult>) {
            return mark(matrices[index], 10 + index);
        } else {
            return mark(doubles[index], 12 + index);
        }
    }

    [[nodiscard]] const api::ViewState& state(const api::ViewState*, std::size_t index) const {
        return views[index].mValue;
    }
    [[nodiscard]] const api::ProjectionState& state(const api::ProjectionState*, std::size_t index) const {
        return projections[index].mValue;
    }
    [[nodiscard]] const api::SurfaceState& state(const api::SurfaceState*, std::size_t index) const {
        return surfaces[index].mValue;
    }
    [[nodiscard]] const api::PlanarCameraState& state(const api::PlanarCameraState*, std::size_t index) const {
        return cameras[index].mValue;
    }

    /// The image of one of the eight states, about to change.
    [[nodiscard]] std::string& changeImage(std::size_t index) {
        const std::size_t which = index / 4 % 2;
        switch (index % 4) {
        case 0: return change<api::ViewStateResult>(which).mValue.mPrivate;
        case 1: return change<api::ProjectionStateResult>(which).mValue.mPrivate;
        case 2: return change<api::SurfaceStateResult>(which).mValue.mPrivate;
        default: return change<api::PlanarCameraStateResult>(which).mValue.mPrivate;
        }
    }

    [[nodiscard]] const std::string& image(std::size_t index) const {
        const std::size_t which = index / 4 % 2;
        switch (index % 4) {
        case 0: return views[which].mValue.mPrivate;
        case 1: return projections[which].mValue.mPrivate;
        case 2: return surfaces[which].mValue.mPrivate;
        default: return cameras[which].mValue.mPrivate;
        }
    }

private:
    template <class Result>
    void restore(Result& result, const Result& start, std::size_t bit) {
        if ((changed >> bit & 1U) != 0) {
            result = start;
        }
    }

    template <class Result>
    Result& mark(Result& result, std::size_t bit) {
        changed |= 1U << bit;
        return result;
    }
};

/// Two of each default object, as the service makes them.
[[nodiscard]] inline States defaultStates(api::CameraAPIIf& service) {
    States states;
    for (std::size_t i = 0; i < 2; ++i) {
        service.viewCreateDefault(states.views[i]);
        service.projectionCreateDefault(states.projections[i]);
        service.surfaceCreateDefault(states.surfaces[i]);
        service.planarCameraCreateDefault(states.cameras[i]);
    }
    return states;
}

template <class Type>
inline constexpr bool isState = std::is_same_v<Type, api::ViewState> || std::is_same_v<Type, api::ProjectionState> ||
                                std::is_same_v<Type, api::SurfaceState> || std::is_same_v<Type, api::PlanarCameraState>;

} // namespace camera::fuzz
