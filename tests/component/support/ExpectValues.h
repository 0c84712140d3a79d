// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include <qel/api/camera/States.h>
#include <qel/api/camera/Values.h>

#include "tests/component/support/Blobs.h"
#include "tests/component/support/LoadedModule.h"
#include "tests/component/support/Samples.h"

namespace qel::api::camera::test {

// Values worked by hand, and how they are compared.

using Rows = std::vector<std::vector<double>>;

/// A few roundings of numbers near 1 to 10.
inline constexpr double rounding = 1e-14;

inline void expectNear(const std::vector<double>& actual, const std::vector<double>& expected,
                       const double tolerance = rounding) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i) {
        EXPECT_NEAR(actual[i], expected[i], tolerance) << "at index " << i;
    }
}

inline void expectNear(const Vector& actual, const std::vector<double>& expected, const double tolerance = rounding) {
    expectNear(actual.mData, expected, tolerance);
}

inline void expectNear(const Matrix& actual, const Rows& expected, const double tolerance = rounding) {
    ASSERT_EQ(actual.mData.size(), expected.size());
    for (std::size_t r = 0; r < expected.size(); ++r) {
        SCOPED_TRACE("row " + std::to_string(r));
        expectNear(actual.mData[r], expected[r], tolerance);
    }
}

/// left, right, bottom, top, near, far
inline void expectFrustum(const ProjectionState& state, const std::vector<double>& expected,
                          const double tolerance = rounding) {
    const Frustum& f = state.mFrustum;
    expectNear({f.mLeft, f.mRight, f.mBottom, f.mTop, f.mNearDist, f.mFarDist}, expected, tolerance);
}

/// The matrix at an offset of a blob, as rows: the surface's matrices are nowhere else.
inline Matrix matrixAt(const std::string& blob, const std::size_t offset) {
    Matrix matrix;
    matrix.mData.assign(4, std::vector<double>(4));
    for (std::size_t r = 0; r < 4; ++r) {
        for (std::size_t c = 0; c < 4; ++c) {
            matrix.mData[r][c] = elementAt(blob, offset, r, c);
        }
    }
    return matrix;
}

/// States made as hosts make them, for tests of one value.
class ValueTest : public ::testing::Test {
protected:
    [[nodiscard]] ViewState defaultView() const {
        ViewStateResult result;
        mService->viewCreateDefault(result);
        return result.mValue;
    }

    [[nodiscard]] ViewState viewFrom(const Vector& eye, const Vector& lookat) const {
        ViewStateResult result;
        mService->viewCreate(result, eye, lookat, vectorOf(0.0, 1.0, 0.0));
        return result.mValue;
    }

    /// At (5, 0, 0), looking at the origin. Its axes in the world: x is (0, 0, -1), y is (0, 1, 0), z is (1, 0, 0).
    [[nodiscard]] ViewState viewFromX() const { return viewFrom(vectorOf(5.0, 0.0, 0.0), vectorOf(0.0, 0.0, 0.0)); }

    [[nodiscard]] ProjectionState projection(const Frustum& frustum, const ProjectionType::type type) const {
        ProjectionStateResult result;
        mService->projectionCreate(result, frustum, type);
        return result.mValue;
    }
    [[nodiscard]] ProjectionState perspective(const Frustum& frustum) const {
        return projection(frustum, ProjectionType::PERSPECTIVE);
    }
    [[nodiscard]] ProjectionState orthographic(const Frustum& frustum) const {
        return projection(frustum, ProjectionType::ORTHOGRAPHIC);
    }

    [[nodiscard]] SurfaceState surface(const std::int32_t resolutionX, const std::int32_t resolutionY) const {
        SurfaceStateResult result;
        mService->surfaceCreate(result, 0.0, 0.0, 1.0, 1.0, 0.0, 1.0, resolutionX, resolutionY);
        return result.mValue;
    }

    [[nodiscard]] PlanarCameraState camera(const ViewState& view, const ProjectionState& projection,
                                           const SurfaceState& surface) const {
        PlanarCameraStateResult result;
        mService->planarCameraCreate(result, view, projection, surface);
        return result.mValue;
    }

    LoadedService mService;
};

} // namespace qel::api::camera::test
