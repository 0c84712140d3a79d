// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <tuple>
#include <type_traits>

#include <qel/api/camera/CameraAPIIf.h>

namespace qel::test {

/// Arguments for a long row of operations, the same on every machine: ordinary numbers, and states that earlier
/// operations of the row returned. Nothing here calls the C library's mathematics.
class RecordedArguments {
public:
    explicit RecordedArguments(api::camera::CameraAPIIf& service) {
        api::camera::ViewStateResult view;
        api::camera::ProjectionStateResult projection;
        api::camera::SurfaceStateResult surface;
        api::camera::PlanarCameraStateResult camera;
        service.viewCreateDefault(view);
        service.projectionCreateDefault(projection);
        service.surfaceCreateDefault(surface);
        service.planarCameraCreateDefault(camera);
        mViews.fill(view.mValue);
        mProjections.fill(projection.mValue);
        mSurfaces.fill(surface.mValue);
        mCameras.fill(camera.mValue);
        mDefaults = {view.mValue, projection.mValue, surface.mValue, camera.mValue};
    }

    /// splitmix64.
    std::size_t below(std::size_t bound) {
        mState += 0x9E3779B97F4A7C15U;
        std::uint64_t z = mState;
        z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
        z ^= z >> 31U;
        return static_cast<std::size_t>(z % bound);
    }

    void give(double& number) { number = below(3) == 0 ? between(-4.0, 4.0) : between(0.03125, 3.0); }
    void give(std::int32_t& number) { number = static_cast<std::int32_t>(below(1600)) - 100; }
    void give(api::camera::ProjectionType::type& type) {
        type = below(2) == 0 ? api::camera::ProjectionType::PERSPECTIVE : api::camera::ProjectionType::ORTHOGRAPHIC;
    }
    void give(api::camera::Vector& vector) {
        vector.mData = {between(-4.0, 4.0), between(-4.0, 4.0), between(-4.0, 4.0)};
    }
    void give(api::camera::Quaternion& quaternion) {
        quaternion.mData = {between(-1.0, 1.0), between(-1.0, 1.0), between(-1.0, 1.0), between(-1.0, 1.0)};
    }
    void give(api::camera::Matrix& matrix) {
        matrix = mViews[below(mViews.size())].mViewMatrix;
        if (below(4) == 0) {
            matrix.mData[below(3)][below(4)] = between(-2.0, 2.0);
        }
    }
    void give(api::camera::Frustum& frustum) {
        frustum.mLeft = between(-2.0, 0.0);
        frustum.mRight = between(0.0, 2.0);
        frustum.mBottom = between(-2.0, 0.0);
        frustum.mTop = between(0.0, 2.0);
        frustum.mNearDist = between(0.0625, 2.0);
        frustum.mFarDist = frustum.mNearDist + between(-0.0625, 100.0);
    }
    void give(api::camera::Viewport& viewport) {
        viewport.mX = between(0.0, 0.5);
        viewport.mY = between(0.0, 0.5);
        viewport.mWidth = between(0.125, 1.0);
        viewport.mHeight = between(0.125, 1.0);
        viewport.mDepthMin = between(0.0, 0.25);
        viewport.mDepthMax = between(0.75, 1.0);
    }
    void give(api::camera::ViewState& state) { state = chosen(mViews); }
    void give(api::camera::ProjectionState& state) { state = chosen(mProjections); }
    void give(api::camera::SurfaceState& state) { state = chosen(mSurfaces); }
    void give(api::camera::PlanarCameraState& state) { state = chosen(mCameras); }

    void keep(const api::camera::ViewState& state) { keep(mViews, state); }
    void keep(const api::camera::ProjectionState& state) { keep(mProjections, state); }
    void keep(const api::camera::SurfaceState& state) { keep(mSurfaces, state); }
    void keep(const api::camera::PlanarCameraState& state) { keep(mCameras, state); }
    template <class Value>
    void keep(const Value&) {}

private:
    template <class State>
    using Pool = std::array<State, 8>;

    double between(double low, double high) {
        return low + (high - low) * (static_cast<double>(below(std::size_t{1} << 30U)) * 0x1p-30);
    }

    /// Now and then a default state, so that the row does not end in one far corner.
    template <class State>
    const State& chosen(const Pool<State>& pool) {
        return below(8) == 0 ? std::get<State>(mDefaults) : pool[below(pool.size())];
    }

    template <class State>
    void keep(Pool<State>& pool, const State& state) {
        if (isOrdinary(state)) {
            pool[below(pool.size())] = state;
        }
    }

    static bool isOrdinary(double number) { return std::fabs(number) < 1e5; }
    static bool isOrdinary(const api::camera::ViewState& state) {
        return isOrdinary(state.mEye.mData[0]) && isOrdinary(state.mEye.mData[1]) && isOrdinary(state.mEye.mData[2]) &&
               isOrdinary(state.mOrientation.mData[3]);
    }
    static bool isOrdinary(const api::camera::ProjectionState& state) {
        const api::camera::Frustum& frustum = state.mFrustum;
        return isOrdinary(frustum.mLeft) && isOrdinary(frustum.mRight) && isOrdinary(frustum.mBottom) &&
               isOrdinary(frustum.mTop) && frustum.mNearDist > 0.0;
    }
    static bool isOrdinary(const api::camera::SurfaceState&) { return true; }
    static bool isOrdinary(const api::camera::PlanarCameraState& state) {
        return isOrdinary(state.mViewState) && isOrdinary(state.mProjectionState);
    }

    std::uint64_t mState = 20;
    Pool<api::camera::ViewState> mViews;
    Pool<api::camera::ProjectionState> mProjections;
    Pool<api::camera::SurfaceState> mSurfaces;
    Pool<api::camera::PlanarCameraState> mCameras;
    std::tuple<api::camera::ViewState, api::camera::ProjectionState, api::camera::SurfaceState,
               api::camera::PlanarCameraState>
        mDefaults;
};

} // namespace qel::test
