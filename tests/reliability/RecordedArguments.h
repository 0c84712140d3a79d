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
#include <vector>

#include "tests/component/support/AnyOperation.h"
#include "tests/component/support/Blobs.h"
#include "tests/reliability/Contents.h"
#include "tests/reliability/RecordedNumbers.h"

namespace qel::api::camera::test {

/// Why a call has to fail.
enum class Flaw : std::uint8_t { none, shortVector, shortQuaternion, shortMatrix, shortBlob, noHeight };

/// Arguments for a long row of operations, the same on every machine: of 32 calls 26 make sense, 4 are hostile and 2
/// have to fail, and the states are those that earlier operations of the row returned. Nothing here calls the C
/// library's mathematics.
class RecordedArguments {
public:
    explicit RecordedArguments(CameraAPIIf& service) {
        ViewStateResult view;
        ProjectionStateResult projection;
        SurfaceStateResult surface;
        PlanarCameraStateResult camera;
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

    Arguments argumentsOf(const AnyOperation& operation) {
        const std::size_t kind = mDraw.below(32);
        mHostile = kind < 4;
        mFlaw = Flaw::none;
        mOperation = operation.name;
        mScene = {1.0, 640, 480};
        Arguments arguments = operation.blank;
        for (std::size_t i = 0; i < arguments.size(); ++i) {
            std::visit([&](auto& argument) { give(operation.argumentNames[i], argument); }, arguments[i]);
        }
        if (kind == 4 || kind == 5) {
            // From a random one on, the first that can be spoiled.
            const std::size_t first = mDraw.below(arguments.size() + 1);
            for (std::size_t i = 0; i < 2 * arguments.size(); ++i) {
                if (i >= first) {
                    std::visit([&](auto& argument) { spoil(argument); }, arguments[i % arguments.size()]);
                }
            }
        }
        return arguments;
    }

    /// What is wrong with the arguments that were made last.
    [[nodiscard]] Flaw flaw() const { return mFlaw; }

    /// What the last call gave. A state is to be an argument of others, unless it came of a hostile call.
    void keep(const AnyArgument& payload) {
        const auto keepState = [&](const auto& state) {
            if constexpr (HasBlob<std::remove_cvref_t<decltype(state)>>) {
                if (mFlaw == Flaw::none && !mHostile && isOrdinary(state)) {
                    auto& pool = poolOf(state);
                    pool[mDraw.below(pool.size())] = state;
                }
            }
        };
        std::visit(keepState, payload);
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
    void give(std::string_view, ProjectionType::type& type) {
        type = mDraw.oneIn(3) ? ProjectionType::ORTHOGRAPHIC : ProjectionType::PERSPECTIVE;
    }
    void give(std::string_view name, Vector& vector) {
        vector.mData = {between(-4.0, 4.0), between(-4.0, 4.0), between(-4.0, 4.0)};
        if (name == "centre") { // of a sphere that is seen: straight ahead, and a little beside
            const double ahead = mDraw.between(2.0, 8.0);
            for (std::size_t i = 0; i < 3; ++i) {
                vector.mData[i] = mSeen.mEye.mData[i] + ahead * mSeen.mDirection.mData[i] + 0.25 * vector.mData[i];
            }
        }
    }
    void give(std::string_view, Quaternion& quaternion) {
        quaternion.mData = {between(-1.0, 1.0), between(-1.0, 1.0), between(-1.0, 1.0), between(-1.0, 1.0)};
    }
    void give(std::string_view, Matrix& matrix) {
        matrix = mOperation.starts_with("projection") ? mProjections[below(mProjections.size())].mProjectionMatrix
                                                      : mViews[below(mViews.size())].mViewMatrix;
        if (mDraw.oneIn(4)) {
            matrix.mData[below(3)][below(4)] = between(-2.0, 2.0);
        }
    }
    void give(std::string_view, Frustum& frustum) {
        frustum.mLeft = between(-2.0, 0.0);
        frustum.mRight = between(0.0, 2.0);
        frustum.mBottom = between(-2.0, 0.0);
        frustum.mTop = between(0.0, 2.0);
        frustum.mNearDist = number("nearDist");
        frustum.mFarDist = number("farDist");
    }
    void give(std::string_view, Viewport& viewport) {
        viewport.mX = number("x");
        viewport.mY = number("y");
        viewport.mWidth = number("width");
        viewport.mHeight = number("height");
        viewport.mDepthMin = number("depthMin");
        viewport.mDepthMax = number("depthMax");
    }
    template <HasBlob State>
    void give(std::string_view, State& state) {
        // Now and then a default state, so that the row does not end in one far corner.
        state = mDraw.oneIn(8) ? std::get<State>(mDefaults) : poolOf(state)[below(8)];
        look(state);
        if (mHostile && mDraw.oneIn(8)) {               // one of its numbers, or two of its words
            const double forged = hostileNumber(mDraw); // by itself: which argument is made first is up to the compiler
            putDouble(state.mPrivate, 8 * below(state.mPrivate.size() / 8), forged);
        }
    }

    void look(const ViewState& state) { mSeen = state; }
    void look(const ProjectionState& state) { mScene.nearDist = state.mFrustum.mNearDist; }
    void look(const SurfaceState& state) {
        mScene.resolutionX = static_cast<std::uint32_t>(state.mResolutionX);
        mScene.resolutionY = static_cast<std::uint32_t>(state.mResolutionY);
    }
    void look(const PlanarCameraState& state) {
        look(state.mViewState);
        look(state.mProjectionState);
        look(state.mSurfaceState);
    }

    // Each makes one argument such that the call has to fail, unless another one is already.

    template <class Number>
    void spoil(Number&) {}
    void spoil(Vector& vector) { spoil(vector.mData, Flaw::shortVector); }
    void spoil(Quaternion& quaternion) { spoil(quaternion.mData, Flaw::shortQuaternion); }
    void spoil(Matrix& matrix) { spoil(matrix.mData[3], Flaw::shortMatrix); }
    void spoil(ViewState& state) { spoilBlob(state.mPrivate); }
    void spoil(ProjectionState& state) { spoilBlob(state.mPrivate); }
    void spoil(SurfaceState& state) { spoilBlob(state.mPrivate); }
    void spoil(PlanarCameraState& state) {
        if (mFlaw == Flaw::none && mOperation == "planarCameraArcballRotation" && mDraw.oneIn(2)) {
            mFlaw = Flaw::noHeight;
            putWord(state.mPrivate, at::planarSurface + at::resolutionY, 0);
        }
        spoilBlob(state.mPrivate);
    }
    void spoilBlob(std::string& blob) {
        if (mFlaw == Flaw::none) {
            mFlaw = Flaw::shortBlob;
            blob.resize(below(blob.size()));
        }
    }
    void spoil(std::vector<double>& numbers, Flaw flaw) {
        if (mFlaw == Flaw::none) {
            mFlaw = flaw;
            numbers.pop_back();
        }
    }

    Pool<ViewState>& poolOf(const ViewState&) { return mViews; }
    Pool<ProjectionState>& poolOf(const ProjectionState&) { return mProjections; }
    Pool<SurfaceState>& poolOf(const SurfaceState&) { return mSurfaces; }
    Pool<PlanarCameraState>& poolOf(const PlanarCameraState&) { return mCameras; }

    static bool isOrdinary(double number) { return std::fabs(number) < 1e5; }
    static bool isOrdinary(const ViewState& state) {
        return std::all_of(state.mEye.mData.begin(), state.mEye.mData.end(), [](double x) { return isOrdinary(x); }) &&
               isOrdinary(state.mOrientation.mData[3]);
    }
    static bool isOrdinary(const ProjectionState& state) {
        const Frustum& frustum = state.mFrustum;
        return isOrdinary(frustum.mLeft) && isOrdinary(frustum.mRight) && isOrdinary(frustum.mBottom) &&
               isOrdinary(frustum.mTop) && frustum.mNearDist > 0.0;
    }
    static bool isOrdinary(const SurfaceState&) { return true; }
    static bool isOrdinary(const PlanarCameraState& state) {
        return isOrdinary(state.mViewState) && isOrdinary(state.mProjectionState);
    }

    Draw mDraw;
    bool mHostile = false;
    Flaw mFlaw = Flaw::none;
    std::string_view mOperation;
    Scene mScene;
    ViewState mSeen; ///< the view of the state that was given last
    Pool<ViewState> mViews;
    Pool<ProjectionState> mProjections;
    Pool<SurfaceState> mSurfaces;
    Pool<PlanarCameraState> mCameras;
    std::tuple<ViewState, ProjectionState, SurfaceState, PlanarCameraState> mDefaults;
};

} // namespace qel::api::camera::test
