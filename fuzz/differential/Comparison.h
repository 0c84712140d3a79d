// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <qel/api/camera/States.h>

#include "fuzz/oracle/FromBlob.h"

// What came beside what should have come.
namespace camera::fuzz::differential {

namespace api = qel::api::camera;
using oracle::Real;

/// Ends the process unless the two are as close as allowed. What should be no number or infinite must be just that.
void compare(const char* what, Real got, Real expected, Real allowed);

void compareExactly(const char* what, Real got, Real expected);

void compareVector(const char* what, const api::Vector& got, const oracle::Vector& expected, Real allowed);

template <class Matrix>
void compareMatrix(const char* what, const Matrix& got, const Matrix& expected, Real allowed, Real relative) {
    for (std::size_t r = 0; r < got.size(); ++r) {
        for (std::size_t k = 0; k < got.size(); ++k) {
            compare(what, got[r][k], expected[r][k], allowed + relative * std::abs(expected[r][k]));
        }
    }
}

// A record's fields say what its image says, whatever that is; returns what the image says.

oracle::View viewOf(const api::ViewState& record);
oracle::Projection projectionOf(const api::ProjectionState& record);
oracle::Surface surfaceOf(const api::SurfaceState& record);
/// Its parts too, each in both of its places.
oracle::Camera cameraOf(const api::PlanarCameraState& record);

/// How exact a step can be: what it lost by cancellation, and the largest of its arguments.
struct Exactness {
    Real condition = 1.0L;
    Real scale = 1.0L;
};

void compareViews(const oracle::View& got, const oracle::View& expected, const Exactness& exactness);
void compareProjections(const oracle::Projection& got, const oracle::Projection& p, const Exactness& exactness);
void compareSurfaces(const oracle::Surface& got, const oracle::Surface& expected);

} // namespace camera::fuzz::differential
