// SPDX-License-Identifier: Apache-2.0
#include "fuzz/Written.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <string_view>

#include "fuzz/Require.h"
#include "fuzz/oracle/FromObject.h"
#include "tests/records/SameBits.h"

namespace camera::fuzz {
namespace {

using qel::api::sameBits;

/// An object holds all that its blob does, apart from the header and the padding, which it writes as zeros.
template <class State>
ObjectOf<State> takeBlob(const State& state) {
    require(state.mPrivate.size() == blobSize<State>, "a blob has its object's size");
    ObjectOf<State> object = objectIn(state);
    std::array<char, blobSize<State>> written{};
    object.writeTo(written);
    require(std::string_view(written.data(), written.size()) == state.mPrivate, "a blob is what its object writes");
    return object;
}

void requireNumber(double field, double number) {
    require(sameBits(field, number), "a field holds what the blob holds");
}

template <std::size_t Count>
void requireNumbers(const std::array<double, Count>& fields, const std::array<double, Count>& numbers) {
    for (std::size_t i = 0; i < Count; ++i) {
        requireNumber(fields[i], numbers[i]);
    }
}

void requireMatrix(const api::Matrix& field, const qel::api::camera::math::Mat4& matrix) {
    requireWritten(field);
    for (std::size_t r = 0; r < 4; ++r) {
        for (std::size_t k = 0; k < 4; ++k) {
            requireNumber(field.mData[r][k], matrix(r, k));
        }
    }
}

/// The quaternion of the rotation, or what the same formula makes of numbers that are none.
void requireOrientation(const std::vector<double>& got, const oracle::Matrix3& rotation) {
    require(got.size() == 4, "an orientation has four values");
    for (const auto& row : rotation) {
        for (const oracle::Real value : row) {
            if (!(std::abs(value) <= 100.0L)) { // nor where NaN is among them
                return;
            }
        }
    }
    oracle::Judgement judge;
    const oracle::Quaternion expected = quaternionOf(judge, rotation);
    if (!judge.certain && !oracle::isRotation(rotation, oracle::rounding)) {
        return; // which row of the products is taken decides more than the sign
    }
    // Where rounding decides which component is positive, the opposite quaternion is the same orientation.
    oracle::Real product = 0.0L, largest = 1.0L;
    for (std::size_t i = 0; i < 4; ++i) {
        product += got[i] * expected[i];
        largest = std::max(largest, std::abs(expected[i]));
    }
    const oracle::Real sign = !judge.certain && product < 0.0L ? -1.0L : 1.0L;
    for (std::size_t i = 0; i < 4; ++i) {
        require(std::abs(got[i] - sign * expected[i]) <= oracle::rounding * judge.condition * largest,
                "an orientation is the quaternion of the rotation");
    }
}

bool standsIn(const std::string& whole, std::size_t start, const std::string& part) {
    return whole.compare(start, part.size(), part) == 0;
}

} // namespace

void requireWritten(const api::Vector& vector) { require(vector.mData.size() == 3, "a vector has three values"); }

void requireWritten(const api::Matrix& matrix) {
    require(matrix.mData.size() == 4, "a matrix has four rows");
    for (const std::vector<double>& row : matrix.mData) {
        require(row.size() == 4, "a row has four values");
    }
}

void requireWritten(const api::ViewState& state) {
    const impl::View view = takeBlob(state);
    requireMatrix(state.mViewTransformMatrix, view.viewTransformMatrix());
    requireMatrix(state.mViewMatrix, view.viewMatrix());
    requireWritten(state.mEye);
    requireWritten(state.mDirection);
    const std::array eye{view.eye().x, view.eye().y, view.eye().z};
    for (std::size_t i = 0; i < 3; ++i) {
        requireNumber(state.mEye.mData[i], eye[i]);
        const double direction = state.mDirection.mData[i], backwards = view.rotation()(i, 2);
        require(std::isnan(backwards) ? std::isnan(direction) // whose sign and payload are the machine's
                                      : sameBits(direction, -backwards),
                "a view looks along its negative z axis");
    }
    requireOrientation(state.mOrientation.mData, oracle::fromObject(view).rotation);
}

void requireWritten(const api::ProjectionState& state) {
    const impl::Projection projection = takeBlob(state);
    requireMatrix(state.mProjectionMatrix, projection.matrix());
    require(state.mProjectionType ==
                (projection.isOrthographic() ? api::ProjectionType::ORTHOGRAPHIC : api::ProjectionType::PERSPECTIVE),
            "a projection is of its blob's type");
    const api::Frustum& f = state.mFrustum;
    const auto& [left, right, bottom, top, nearDist, farDist] = projection.frustum();
    requireNumbers<6>({f.mLeft, f.mRight, f.mBottom, f.mTop, f.mNearDist, f.mFarDist},
                      {left, right, bottom, top, nearDist, farDist});
}

void requireWritten(const api::SurfaceState& state) {
    const impl::Surface surface = takeBlob(state);
    const api::Viewport& v = state.mViewport;
    const auto& [x, y, width, height, depthMin, depthMax] = surface.viewport();
    requireNumbers<6>({v.mX, v.mY, v.mWidth, v.mHeight, v.mDepthMin, v.mDepthMax},
                      {x, y, width, height, depthMin, depthMax});
    require(state.mResolutionX == surface.resolutionX() && state.mResolutionY == surface.resolutionY(),
            "a surface is as large as its blob says");
}

void requireWritten(const api::PlanarCameraState& state) {
    takeBlob(state);
    requireWritten(state.mViewState);
    requireWritten(state.mProjectionState);
    requireWritten(state.mSurfaceState);
    require(standsIn(state.mPrivate, impl::PlanarCamera::viewInBlob, state.mViewState.mPrivate) &&
                standsIn(state.mPrivate, impl::PlanarCamera::projectionInBlob, state.mProjectionState.mPrivate) &&
                standsIn(state.mPrivate, impl::PlanarCamera::surfaceInBlob, state.mSurfaceState.mPrivate),
            "a camera's blob holds those of its parts");
}

} // namespace camera::fuzz
