// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "tests/component/support/AnyOperation.h"

namespace qel::api::camera::test {

inline Vector vectorOf(const double x, const double y, const double z) {
    Vector vector;
    vector.mData = {x, y, z};
    return vector;
}

inline Frustum frustumOf(const double left, const double right, const double bottom, const double top,
                         const double nearDist, const double farDist) {
    Frustum frustum;
    frustum.mLeft = left;
    frustum.mRight = right;
    frustum.mBottom = bottom;
    frustum.mTop = top;
    frustum.mNearDist = nearDist;
    frustum.mFarDist = farDist;
    return frustum;
}

inline Viewport viewportOf(const double x, const double y, const double width, const double height,
                           const double depthMin, const double depthMax) {
    Viewport viewport;
    viewport.mX = x;
    viewport.mY = y;
    viewport.mWidth = width;
    viewport.mHeight = height;
    viewport.mDepthMin = depthMin;
    viewport.mDepthMax = depthMax;
    return viewport;
}

inline Matrix matrixOf(std::vector<std::vector<double>> rows) {
    Matrix matrix;
    matrix.mData = std::move(rows);
    return matrix;
}

inline Quaternion quaternionOf(const double x, const double y, const double z, const double w) {
    Quaternion quaternion;
    quaternion.mData = {x, y, z, w};
    return quaternion;
}

/// Valid arguments for every operation, found by type and name. The states are those of a camera off the origin, with
/// an off-centre frustum and a viewport that is a part of the surface; with these arguments no operation is a no-op.
struct Samples {
    ViewState view;
    ProjectionState projection;
    SurfaceState surface;
    PlanarCameraState planarCamera;

    Samples() = default;
    explicit Samples(CameraAPIIf& service);

    /// The argument of this name, of the same type as `blank`. An unknown name throws, so that no new argument goes
    /// untested.
    [[nodiscard]] AnyArgument argument(std::string_view name, const AnyArgument& blank) const;
    [[nodiscard]] Arguments argumentsOf(const AnyOperation& operation) const;
    /// A payload of the kind that a result holds.
    [[nodiscard]] AnyArgument payload(const AnyResult& result) const;
};

/// The same arguments but for the states, which differ in every part.
Samples otherSamples(CameraAPIIf& service);

} // namespace qel::api::camera::test
