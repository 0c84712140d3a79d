// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <qel/api/camera/States.h>

#include "fuzz/oracle/OracleCamera.h"

// What came beside what should have come.
namespace camera::fuzz::differential {

namespace api = qel::api::camera;
using oracle::Real;

/// Ends the process unless the two are as close as allowed. What should be no number or infinite must be just that.
void compare(const char* what, Real got, Real expected, Real allowed);

void compareExactly(const char* what, Real got, Real expected);

template <class Matrix>
void compareMatrix(const char* what, const Matrix& got, const Matrix& expected, Real allowed, Real relative) {
    for (std::size_t r = 0; r < got.size(); ++r) {
        for (std::size_t k = 0; k < got.size(); ++k) {
            compare(what, got[r][k], expected[r][k], allowed + relative * std::abs(expected[r][k]));
        }
    }
}

/// How exact a step can be: what it lost by cancellation, and the largest of its arguments.
struct Exactness {
    Real condition = 1.0L;
    Real scale = 1.0L;
};

/// Every number of the blobs; that the records' fields say the same is judged elsewhere.
void compareCameras(const oracle::Camera& got, const oracle::Camera& expected, const Exactness& exactness);

} // namespace camera::fuzz::differential
