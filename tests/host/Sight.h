// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <optional>

#include <qel/api/camera/States.h>

#include "host/render/CameraView.h"
#include "host/scene/Geometry.h"
#include "host/scene/Mesh.h"

namespace qel::host::test {

/// What a camera's state says is seen where, from its frustum and its axes: neither by the component nor by OpenGL.
class Sight {
public:
    explicit Sight(const api::camera::PlanarCameraState& state) : mState(state) {}

    /// The point that is `distance` ahead of the eye, measured along the direction of view.
    [[nodiscard]] Vec3 pointAhead(Vec2 pixel, double distance) const {
        const auto& frustum = mState.mProjectionState.mFrustum;
        const double u = pixel.x / mState.mSurfaceState.mResolutionX;
        const double v = pixel.y / mState.mSurfaceState.mResolutionY;
        const double spread = isOrthographic() ? 1.0 : distance / frustum.mNearDist;
        const double x = (frustum.mLeft + u * (frustum.mRight - frustum.mLeft)) * spread;
        const double y = (frustum.mBottom + v * (frustum.mTop - frustum.mBottom)) * spread;
        return eye() + column(0) * x + column(1) * y - column(2) * distance;
    }

    /// The point that has this depth, from 0 at the near plane to 1 at the far plane.
    [[nodiscard]] Vec3 pointAtDepth(Vec2 pixel, double depth) const {
        const double near = mState.mProjectionState.mFrustum.mNearDist;
        const double far = mState.mProjectionState.mFrustum.mFarDist;
        return pointAhead(pixel,
                          isOrthographic() ? near + depth * (far - near) : near * far / (far - depth * (far - near)));
    }

    /// The point of the model that is seen at a pixel: the first of its triangles that the line of sight meets.
    [[nodiscard]] std::optional<Vec3> pointOf(const Mesh& mesh, Vec2 pixel) const {
        const Vec3 start = pointAhead(pixel, mState.mProjectionState.mFrustum.mNearDist);
        const Vec3 direction = pointAhead(pixel, mState.mProjectionState.mFrustum.mFarDist) - start;
        double first = 2.0;
        for (std::size_t i = 0; i + 2 < mesh.triangles.size(); i += 3) {
            const Vec3& a = mesh.positions[mesh.triangles[i]];
            first = std::min(first, meeting(start, direction, a, mesh.positions[mesh.triangles[i + 1]] - a,
                                            mesh.positions[mesh.triangles[i + 2]] - a));
        }
        return first <= 1.0 ? std::optional(start + direction * first) : std::nullopt;
    }

    /// How far a point is ahead of the eye, measured along the direction of view.
    [[nodiscard]] double distanceAhead(const Vec3& point) const { return dot(point - eye(), direction()); }

    /// Where a point is seen, in pixels and fractions of them.
    [[nodiscard]] Vec2 pixelOf(const Vec3& point) const {
        return CameraView(mState).toWindow(point).value(); // which throws for a point that is not before the eye
    }

    [[nodiscard]] bool isOrthographic() const {
        return mState.mProjectionState.mProjectionType == api::camera::ProjectionType::ORTHOGRAPHIC;
    }
    [[nodiscard]] Vec3 eye() const { return column(3); }
    [[nodiscard]] Vec3 direction() const { return column(2) * -1.0; }
    [[nodiscard]] Vec3 up() const { return column(1); }
    /// The width and the height of what a pixel shows, on the near plane.
    [[nodiscard]] Vec2 extentOfPixel() const {
        const auto& frustum = mState.mProjectionState.mFrustum;
        return {(frustum.mRight - frustum.mLeft) / mState.mSurfaceState.mResolutionX,
                (frustum.mTop - frustum.mBottom) / mState.mSurfaceState.mResolutionY};
    }

private:
    [[nodiscard]] Vec3 column(std::size_t index) const {
        const auto& rows = mState.mViewState.mViewTransformMatrix.mData;
        return {rows[0][index], rows[1][index], rows[2][index]};
    }

    static Vec3 cross(const Vec3& a, const Vec3& b) {
        return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
    }
    static double dot(const Vec3& a, const Vec3& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

    /// How far along its direction a line meets a triangle with the sides u and v at a, by Möller and Trumbore; 2 where
    /// it does not.
    static double meeting(const Vec3& start, const Vec3& direction, const Vec3& a, const Vec3& u, const Vec3& v) {
        const Vec3 p = cross(direction, v);
        const double determinant = dot(u, p);
        if (determinant == 0.0) {
            return 2.0;
        }
        const Vec3 s = start - a;
        const Vec3 q = cross(s, u);
        const double alongU = dot(s, p) / determinant;
        const double alongV = dot(direction, q) / determinant;
        const double along = dot(v, q) / determinant;
        const bool inside = alongU >= 0.0 && alongV >= 0.0 && alongU + alongV <= 1.0 && along >= 0.0;
        return inside ? along : 2.0;
    }

    const api::camera::PlanarCameraState& mState;
};

} // namespace qel::host::test
