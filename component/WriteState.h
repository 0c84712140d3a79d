// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <qel/api/camera/States.h>
#include <qel/api/camera/Values.h>

#include "impl/PlanarCamera.h"
#include "impl/Projection.h"
#include "impl/Surface.h"
#include "impl/View.h"
#include "math/Matrices.h"
#include "math/Vectors.h"

namespace qel::api::camera::component {

// Objects and values into the payload of a result. All storage comes first, and only then the numbers: a payload for
// which there is no memory is left exactly as it was. One that has held a result has its storage already and needs
// none. The payload's own set-flags stay as they are; those of the records inside it end lowered, as in fresh ones.
void write(ViewState& state, const impl::View& view);
void write(ProjectionState& state, const impl::Projection& projection);
void write(SurfaceState& state, const impl::Surface& surface);
void write(PlanarCameraState& state, const impl::PlanarCamera& camera);
/// Out of the way of the numbers: a vector that has held a result needs it no more.
void makeRoom(Vector& vector);
inline void write(Vector& vector, const math::Vec3& v) {
    if (vector.mData.size() != 3) [[unlikely]] {
        makeRoom(vector);
    }
    double* data = vector.mData.data();
    data[0] = v.x;
    data[1] = v.y;
    data[2] = v.z;
}
void write(Matrix& matrix, const math::Mat4& m);

} // namespace qel::api::camera::component
