// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <qel/api/base/BaseFields.h>
#include <qel/api/camera/Fields.h>

namespace qel::api {

template <class... Records>
struct RecordList {
    template <template <class...> class List>
    using As = List<Records...>;

    /// Calls visit.template operator()<Record>() for each.
    template <class Visitor>
    static void forEach(Visitor&& visit) {
        (visit.template operator()<Records>(), ...);
    }
};

/// In the order that the committed inputs of the fuzz target `records` rely on.
using AllRecords =
    RecordList<base::ServiceResult, base::StringResult, camera::Vector, camera::Quaternion, camera::Matrix,
               camera::Frustum, camera::Viewport, camera::ViewState, camera::ProjectionState, camera::SurfaceState,
               camera::PlanarCameraState, camera::VectorResult, camera::MatrixResult, camera::ViewStateResult,
               camera::ProjectionStateResult, camera::SurfaceStateResult, camera::PlanarCameraStateResult,
               camera::DoubleResult>;

} // namespace qel::api
