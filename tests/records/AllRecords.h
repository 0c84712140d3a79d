// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <qel/api/base/BaseFields.h>
#include <qel/api/camera/Fields.h>

namespace qel::api {

template <class... Records>
struct RecordList {
    using AsGtestTypes = ::testing::Types<Records...>;

    /// Calls visit.template operator()<Record>() for each.
    template <class Visitor>
    static void forEach(Visitor&& visit) {
        (visit.template operator()<Records>(), ...);
    }
};

using AllRecords =
    RecordList<base::ServiceResult, base::StringResult, camera::Vector, camera::Quaternion, camera::Matrix,
               camera::Frustum, camera::Viewport, camera::ViewState, camera::ProjectionState, camera::SurfaceState,
               camera::PlanarCameraState, camera::VectorResult, camera::MatrixResult, camera::ViewStateResult,
               camera::ProjectionStateResult, camera::SurfaceStateResult, camera::PlanarCameraStateResult,
               camera::DoubleResult>;

} // namespace qel::api
