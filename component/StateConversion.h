// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <qel/api/camera/States.h>
#include <qel/api/camera/Values.h>

#include "component/ReadImage.h"
#include "impl/PlanarCamera.h"
#include "impl/Projection.h"
#include "impl/Surface.h"
#include "impl/View.h"
#include "math/Matrices.h"
#include "math/Vectors.h"

namespace qel::api::camera {

// State records to working objects: from the state's mPrivate alone, every number as it stands there, nothing
// recomputed or validated. Throws std::invalid_argument when mPrivate is shorter than the image; bytes after the
// image are ignored.
[[nodiscard]] impl::View toObject(const ViewState& state);
[[nodiscard]] impl::Projection toObject(const ProjectionState& state);
[[nodiscard]] impl::Surface toObject(const SurfaceState& state);
[[nodiscard]] impl::PlanarCamera toObject(const PlanarCameraState& state);

// Working objects and values to records. Every field is assigned, in a fixed order, and the storage that the record
// already holds is used again; set-flags stay as they are. Can fail only by running out of memory, and what was
// assigned before stays assigned.
void write(ViewState& state, const impl::View& view);
void write(ProjectionState& state, const impl::Projection& projection);
void write(SurfaceState& state, const impl::Surface& surface);
void write(PlanarCameraState& state, const impl::PlanarCamera& camera);
/// From bytes alone, or with parts that an operation has changed; the other parts pass from image to image and are
/// neither rebuilt nor written number by number.
void write(PlanarCameraState& state, const CameraBytes& camera);
void write(PlanarCameraState& state, const impl::View& view, const CameraBytes& others);
void write(PlanarCameraState& state, const impl::View& view, const impl::Projection& projection,
           const CameraBytes& others);
void write(Vector& vector, const math::Vec3& v);
void write(Matrix& matrix, const math::Mat4& m);

} // namespace qel::api::camera
