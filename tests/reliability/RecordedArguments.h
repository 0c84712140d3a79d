// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include <qel/api/camera/Operations.h>

#include "tests/component/support/Blobs.h"
#include "tests/reliability/Contents.h"
#include "tests/reliability/RecordedNumbers.h"

namespace qel::test {

/// Why a call has to fail.
enum class Flaw : std::uint8_t { none, shortVector, shortQuaternion, shortMatrix, shortImage, noHeight };

/// Arguments for a long row of operations, the same on every machine: of 32 calls 26 make sense, 4 are hostile and 2
/// have to fail, and the states are those that earlier operations of the row returned. Nothing here calls the C
/// library's mathematics.
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

    std::size_t below(std::size_t bound) { return mDraw.below(bound); }

    template <class Result, class... Arguments>
    auto argumentsOf(const api::camera::Operation<Result, Arguments...>& operation) {
        const std::size_t kind = mDraw.below(32);
        mHostile = kind < 4;
        mFlaw = Flaw::none;
        mOperation = operation.name;
        mScene = {1.0, 640, 480};
        std::tuple<std::remove_cvref_t<Arguments>...> arguments;
        [&]<std::size_t... Index>(std::index_sequence<Index...>) {
            (give(operation.argumentNames[Index], std::get<Index>(arguments)), ...);
            if (kind == 4 || kind == 5) {
                // From a random one on, the first that can be spoiled.
                const std::size_t first = mDraw.below(sizeof...(Index) + 1);
                ((Index >= first ? spoil(std::get<Index>(arguments)) : void()), ...);
                (spoil(std::get<Index>(arguments)), ...);
            }
        }
        (std::index_sequence_for<Arguments...>());
        return arguments;
    }

    /// What is wrong with the arguments that were made last.
    [[nodiscard]] Flaw flaw() const { return mFlaw; }

    /// A state that the last call returned: to be an argument of others, unless it came of a hostile call.
    template <class State>
    void keep(const State& state) {
        if constexpr (HasImage<State>) {
            if (mFlaw == Flaw::none && !mHostile && isOrdinary(state)) {
                auto& pool = poolOf(state);
                pool[mDraw.below(pool.size())] = state;
            }
        }
    }

private:
    template <class State>
    using Pool = std::array<State, 8>;

    double number(std::string_view name) {
        const double ordinary = ordinaryNumber(mDraw, mScene, name, mOperation.starts_with("surface"));
        return mHostile && mDraw.oneIn(2) ? hostileNumber(mDraw) : ordinary;
    }
    double between(double low, double high) {
        const double ordinary = mDraw.between(low, high);
        return mHostile && mDraw.oneIn(4) ? hostileNumber(mDraw) : ordinary;
    }

    void give(std::string_view name, double& value) { value = number(name); }
    void give(std::string_view name, std::int32_t& value) {
        value = ordinaryInteger(mDraw, mScene, name);
        if (mHostile && mDraw.oneIn(2)) {
            value = hostileInteger(mDraw);
        }
    }
    void give(std::string_view, api::camera::ProjectionType::type& type) {
        type = mDraw.oneIn(3) ? api::camera::ProjectionType::ORTHOGRAPHIC : api::camera::ProjectionType::PERSPECTIVE;
    }
    void give(std::string_view name, api::camera::Vector& vector) {
        vector.mData = {between(-4.0, 4.0), between(-4.0, 4.0), between(-4.0, 4.0)};
        if (name == "centre") { // of a sphere that is seen: straight ahead, and a little beside
            const double ahead = mDraw.between(2.0, 8.0);
            for (std::size_t i = 0; i < 3; ++i) {
                vector.mData[i] = mSeen.mEye.mData[i] + ahead * mSeen.mDirection.mData[i] + 0.25 * vector.mData[i];
            }
        }
    }
    void give(std::string_view, api::camera::Quaternion& quaternion) {
        quaternion.mData = {between(-1.0, 1.0), between(-1.0, 1.0), between(-1.0, 1.0), between(-1.0, 1.0)};
    }
    void give(std::string_view, api::camera::Matrix& matrix) {
        matrix = mOperation.starts_with("projection") ? mProjections[below(mProjections.size())].mProjectionMatrix
                                                      : mViews[below(mViews.size())].mViewMatrix;
        if (mDraw.oneIn(4)) {
            matrix.mData[below(3)][below(4)] = between(-2.0, 2.0);
        }
    }
    void give(std::string_view, api::camera::Frustum& frustum) {
        frustum.mLeft = between(-2.0, 0.0);
        frustum.mRight = between(0.0, 2.0);
        frustum.mBottom = between(-2.0, 0.0);
        frustum.mTop = between(0.0, 2.0);
        frustum.mNearDist = number("nearDist");
        frustum.mFarDist = number("farDist");
    }
    void give(std::string_view, api::camera::Viewport& viewport) {
        viewport.mX = number("x");
        viewport.mY = number("y");
        viewport.mWidth = number("width");
        viewport.mHeight = number("height");
        viewport.mDepthMin = number("depthMin");
        viewport.mDepthMax = number("depthMax");
    }
    template <HasImage State>
    void give(std::string_view, State& state) {
        // Now and then a default state, so that the row does not end in one far corner.
        state = mDraw.oneIn(8) ? std::get<State>(mDefaults) : poolOf(state)[below(8)];
        look(state);
        if (mHostile && mDraw.oneIn(8)) {               // one of its numbers, or two of its words
            const double forged = hostileNumber(mDraw); // by itself: which argument is made first is up to the compiler
            api::camera::test::putDouble(state.mPrivate, 8 * below(state.mPrivate.size() / 8), forged);
        }
    }

    void look(const api::camera::ViewState& state) { mSeen = state; }
    void look(const api::camera::ProjectionState& state) { mScene.nearDist = state.mFrustum.mNearDist; }
    void look(const api::camera::SurfaceState& state) {
        mScene.resolutionX = static_cast<std::uint32_t>(state.mResolutionX);
        mScene.resolutionY = static_cast<std::uint32_t>(state.mResolutionY);
    }
    void look(const api::camera::PlanarCameraState& state) {
        look(state.mViewState);
        look(state.mProjectionState);
        look(state.mSurfaceState);
    }

    // Each makes one argument such that the call has to fail, unless another one is already.

    template <class Number>
    void spoil(Number&) {}
    void spoil(api::camera::Vector& vector) { spoil(vector.mData, Flaw::shortVector); }
    void spoil(api::camera::Quaternion& quaternion) { spoil(quaternion.mData, Flaw::shortQuaternion); }
    void spoil(api::camera::Matrix& matrix) { spoil(matrix.mData[3], Flaw::shortMatrix); }
    void spoil(api::camera::ViewState& state) { spoilImage(state.mPrivate); }
    void spoil(api::camera::ProjectionState& state) { spoilImage(state.mPrivate); }
    void spoil(api::camera::SurfaceState& state) { spoilImage(state.mPrivate); }
    void spoil(api::camera::PlanarCameraState& state) {
        if (mFlaw == Flaw::none && mOperation == "planarCameraArcballRotation" && mDraw.oneIn(2)) {
            mFlaw = Flaw::noHeight;
            namespace at = api::camera::test::at;
            api::camera::test::putWord(state.mPrivate, at::planarSurface + at::resolutionY, 0);
        }
        spoilImage(state.mPrivate);
    }
    void spoilImage(std::string& image) {
        if (mFlaw == Flaw::none) {
            mFlaw = Flaw::shortImage;
            image.resize(below(image.size()));
        }
    }
    void spoil(std::vector<double>& numbers, Flaw flaw) {
        if (mFlaw == Flaw::none) {
            mFlaw = flaw;
            numbers.pop_back();
        }
    }

    auto& poolOf(const api::camera::ViewState&) { return mViews; }
    auto& poolOf(const api::camera::ProjectionState&) { return mProjections; }
    auto& poolOf(const api::camera::SurfaceState&) { return mSurfaces; }
    auto& poolOf(const api::camera::PlanarCameraState&) { return mCameras; }

    static bool isOrdinary(double number) { return std::fabs(number) < 1e5; }
    static bool isOrdinary(const api::camera::ViewState& state) {
        return std::all_of(state.mEye.mData.begin(), state.mEye.mData.end(), [](double x) { return isOrdinary(x); }) &&
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

    Draw mDraw;
    bool mHostile = false;
    Flaw mFlaw = Flaw::none;
    std::string_view mOperation;
    Scene mScene;
    api::camera::ViewState mSeen; ///< the view of the state that was given last
    Pool<api::camera::ViewState> mViews;
    Pool<api::camera::ProjectionState> mProjections;
    Pool<api::camera::SurfaceState> mSurfaces;
    Pool<api::camera::PlanarCameraState> mCameras;
    std::tuple<api::camera::ViewState, api::camera::ProjectionState, api::camera::SurfaceState,
               api::camera::PlanarCameraState>
        mDefaults;
};

} // namespace qel::test
