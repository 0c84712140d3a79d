// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>

#include <qel/api/camera/States.h>

#include "component/ReadArguments.h"
#include "impl/Blob.h"
#include "impl/PlanarCamera.h"
#include "impl/Projection.h"
#include "impl/Surface.h"
#include "impl/View.h"

namespace qel::api::camera::component {

// State records to blobs, and to the objects that the blobs hold: from the state's mPrivate alone, every number as it
// stands there, nothing recomputed or validated. Throws std::invalid_argument where mPrivate is shorter than the
// object's blob; bytes after it are ignored.

template <class Object>
[[nodiscard]] impl::ConstBlobBytes<impl::blobSize<Object>> checkedBlob(const std::string& bytes, const char* state) {
    constexpr std::size_t size = impl::blobSize<Object>;
    expectAtLeast(bytes, size, state, "bytes");
    return impl::ConstBlobBytes<size>(bytes.data(), size);
}

[[nodiscard]] inline auto blobOf(const ViewState& state) {
    return checkedBlob<impl::View>(state.mPrivate, "ViewState::mPrivate");
}
[[nodiscard]] inline auto blobOf(const ProjectionState& state) {
    return checkedBlob<impl::Projection>(state.mPrivate, "ProjectionState::mPrivate");
}
[[nodiscard]] inline auto blobOf(const SurfaceState& state) {
    return checkedBlob<impl::Surface>(state.mPrivate, "SurfaceState::mPrivate");
}
[[nodiscard]] inline auto blobOf(const PlanarCameraState& state) {
    return checkedBlob<impl::PlanarCamera>(state.mPrivate, "PlanarCameraState::mPrivate");
}

[[nodiscard]] inline impl::View toObject(const ViewState& state) { return impl::View(blobOf(state)); }
[[nodiscard]] inline impl::Projection toObject(const ProjectionState& state) { return impl::Projection(blobOf(state)); }
[[nodiscard]] inline impl::Surface toObject(const SurfaceState& state) { return impl::Surface(blobOf(state)); }
[[nodiscard]] inline impl::PlanarCamera toObject(const PlanarCameraState& state) {
    return impl::PlanarCamera(blobOf(state));
}

} // namespace qel::api::camera::component
