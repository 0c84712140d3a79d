// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <utility>

#include <qel/api/camera/States.h>

#include "impl/PlanarCamera.h"

namespace camera::fuzz {

namespace api = qel::api::camera;
namespace impl = api::impl;

// Which object's blob stands in which state. Declared for their types alone.
impl::View objectFor(const api::ViewState&);
impl::Projection objectFor(const api::ProjectionState&);
impl::Surface objectFor(const api::SurfaceState&);
impl::PlanarCamera objectFor(const api::PlanarCameraState&);

template <class Type>
concept IsState = requires(const Type& state) {
    objectFor(state);
};

template <IsState State>
using ObjectOf = decltype(objectFor(std::declval<const State&>()));

template <IsState State>
inline constexpr std::size_t blobSize = impl::blobSize<ObjectOf<State>>;

/// The object of a state whose blob is long enough.
template <IsState State>
[[nodiscard]] ObjectOf<State> objectIn(const State& state) {
    return ObjectOf<State>(impl::ConstBlobBytes<blobSize<State>>(state.mPrivate.data(), blobSize<State>));
}

} // namespace camera::fuzz
