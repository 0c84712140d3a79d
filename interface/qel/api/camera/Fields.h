// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <tuple>

#include <qel/api/Field.h>
#include <qel/api/base/BaseFields.h>
#include <qel/api/camera/Results.h>
#include <qel/api/camera/States.h>
#include <qel/api/camera/Values.h>

namespace qel::api {

// A table keeps one field a line.
// clang-format off

template <>
struct FieldTable<camera::Vector> {
    static constexpr const char* recordName = "Vector";
    static constexpr std::tuple fields{
        QEL_API_FIELD(1, camera::Vector, mData, plain),
    };
};

template <>
struct FieldTable<camera::Quaternion> {
    static constexpr const char* recordName = "Quaternion";
    static constexpr std::tuple fields{
        QEL_API_FIELD(1, camera::Quaternion, mData, plain),
    };
};

template <>
struct FieldTable<camera::Matrix> {
    static constexpr const char* recordName = "Matrix";
    static constexpr std::tuple fields{
        QEL_API_FIELD(1, camera::Matrix, mData, plain),
    };
};

template <>
struct FieldTable<camera::Frustum> {
    static constexpr const char* recordName = "Frustum";
    static constexpr std::tuple fields{
        QEL_API_FIELD(1, camera::Frustum, mLeft, plain),
        QEL_API_FIELD(2, camera::Frustum, mRight, plain),
        QEL_API_FIELD(3, camera::Frustum, mBottom, plain),
        QEL_API_FIELD(4, camera::Frustum, mTop, plain),
        QEL_API_FIELD(5, camera::Frustum, mNearDist, plain),
        QEL_API_FIELD(6, camera::Frustum, mFarDist, plain),
    };
};

template <>
struct FieldTable<camera::Viewport> {
    static constexpr const char* recordName = "Viewport";
    static constexpr std::tuple fields{
        QEL_API_FIELD(1, camera::Viewport, mX, plain),
        QEL_API_FIELD(2, camera::Viewport, mY, plain),
        QEL_API_FIELD(3, camera::Viewport, mWidth, plain),
        QEL_API_FIELD(4, camera::Viewport, mHeight, plain),
        QEL_API_FIELD(5, camera::Viewport, mDepthMin, plain),
        QEL_API_FIELD(6, camera::Viewport, mDepthMax, plain),
    };
};

template <>
struct FieldTable<camera::ViewState> {
    static constexpr const char* recordName = "ViewState";
    static constexpr std::tuple fields{
        QEL_API_FIELD(1, camera::ViewState, mViewTransformMatrix, plain),
        QEL_API_FIELD(2, camera::ViewState, mViewMatrix, plain),
        QEL_API_FIELD(3, camera::ViewState, mEye, plain),
        QEL_API_FIELD(4, camera::ViewState, mDirection, plain),
        QEL_API_FIELD(5, camera::ViewState, mOrientation, plain),
        QEL_API_FIELD(6, camera::ViewState, mPrivate, binary),
    };
};

template <>
struct FieldTable<camera::ProjectionState> {
    static constexpr const char* recordName = "ProjectionState";
    static constexpr std::tuple fields{
        QEL_API_FIELD(1, camera::ProjectionState, mProjectionMatrix, plain),
        QEL_API_FIELD(2, camera::ProjectionState, mProjectionType, plain),
        QEL_API_FIELD(3, camera::ProjectionState, mFrustum, plain),
        QEL_API_FIELD(4, camera::ProjectionState, mPrivate, binary),
    };
};

template <>
struct FieldTable<camera::SurfaceState> {
    static constexpr const char* recordName = "SurfaceState";
    static constexpr std::tuple fields{
        QEL_API_FIELD(1, camera::SurfaceState, mViewport, plain),
        QEL_API_FIELD(2, camera::SurfaceState, mResolutionX, plain),
        QEL_API_FIELD(3, camera::SurfaceState, mResolutionY, plain),
        QEL_API_FIELD(4, camera::SurfaceState, mPrivate, binary),
    };
};

template <>
struct FieldTable<camera::PlanarCameraState> {
    static constexpr const char* recordName = "PlanarCameraState";
    static constexpr std::tuple fields{
        QEL_API_FIELD(1, camera::PlanarCameraState, mViewState, plain),
        QEL_API_FIELD(2, camera::PlanarCameraState, mProjectionState, plain),
        QEL_API_FIELD(3, camera::PlanarCameraState, mSurfaceState, plain),
        QEL_API_FIELD(4, camera::PlanarCameraState, mPrivate, binary),
    };
};

template <>
struct FieldTable<camera::VectorResult> {
    static constexpr const char* recordName = "VectorResult";
    static constexpr std::tuple fields{
        QEL_API_FIELD(1, camera::VectorResult, mValue, plain),
        QEL_API_FIELD(2, camera::VectorResult, mResult, plain),
    };
};

template <>
struct FieldTable<camera::MatrixResult> {
    static constexpr const char* recordName = "MatrixResult";
    static constexpr std::tuple fields{
        QEL_API_FIELD(1, camera::MatrixResult, mValue, plain),
        QEL_API_FIELD(2, camera::MatrixResult, mResult, plain),
    };
};

template <>
struct FieldTable<camera::ViewStateResult> {
    static constexpr const char* recordName = "ViewStateResult";
    static constexpr std::tuple fields{
        QEL_API_FIELD(1, camera::ViewStateResult, mValue, plain),
        QEL_API_FIELD(2, camera::ViewStateResult, mResult, plain),
    };
};

template <>
struct FieldTable<camera::ProjectionStateResult> {
    static constexpr const char* recordName = "ProjectionStateResult";
    static constexpr std::tuple fields{
        QEL_API_FIELD(1, camera::ProjectionStateResult, mValue, plain),
        QEL_API_FIELD(2, camera::ProjectionStateResult, mResult, plain),
    };
};

template <>
struct FieldTable<camera::SurfaceStateResult> {
    static constexpr const char* recordName = "SurfaceStateResult";
    static constexpr std::tuple fields{
        QEL_API_FIELD(1, camera::SurfaceStateResult, mValue, plain),
        QEL_API_FIELD(2, camera::SurfaceStateResult, mResult, plain),
    };
};

template <>
struct FieldTable<camera::PlanarCameraStateResult> {
    static constexpr const char* recordName = "PlanarCameraStateResult";
    static constexpr std::tuple fields{
        QEL_API_FIELD(1, camera::PlanarCameraStateResult, mValue, plain),
        QEL_API_FIELD(2, camera::PlanarCameraStateResult, mResult, plain),
    };
};

template <>
struct FieldTable<camera::DoubleResult> {
    static constexpr const char* recordName = "DoubleResult";
    static constexpr std::tuple fields{
        QEL_API_FIELD(1, camera::DoubleResult, mResult, plain),
        QEL_API_FIELD(2, camera::DoubleResult, mValue, plain),
    };
};

// clang-format on

} // namespace qel::api
