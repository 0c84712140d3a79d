// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <qel/api/Field.h>
#include <qel/api/base/BaseFields.h>
#include <qel/api/camera/Results.h>
#include <qel/api/camera/States.h>
#include <qel/api/camera/Values.h>

namespace qel::api {

// A table keeps one field a line.
// clang-format off

QEL_API_FIELD_TABLE(camera, Vector,
    QEL_API_FIELD(1, mData, plain));

QEL_API_FIELD_TABLE(camera, Quaternion,
    QEL_API_FIELD(1, mData, plain));

QEL_API_FIELD_TABLE(camera, Matrix,
    QEL_API_FIELD(1, mData, plain));

QEL_API_FIELD_TABLE(camera, Frustum,
    QEL_API_FIELD(1, mLeft, plain),
    QEL_API_FIELD(2, mRight, plain),
    QEL_API_FIELD(3, mBottom, plain),
    QEL_API_FIELD(4, mTop, plain),
    QEL_API_FIELD(5, mNearDist, plain),
    QEL_API_FIELD(6, mFarDist, plain));

QEL_API_FIELD_TABLE(camera, Viewport,
    QEL_API_FIELD(1, mX, plain),
    QEL_API_FIELD(2, mY, plain),
    QEL_API_FIELD(3, mWidth, plain),
    QEL_API_FIELD(4, mHeight, plain),
    QEL_API_FIELD(5, mDepthMin, plain),
    QEL_API_FIELD(6, mDepthMax, plain));

QEL_API_FIELD_TABLE(camera, ViewState,
    QEL_API_FIELD(1, mViewTransformMatrix, plain),
    QEL_API_FIELD(2, mViewMatrix, plain),
    QEL_API_FIELD(3, mEye, plain),
    QEL_API_FIELD(4, mDirection, plain),
    QEL_API_FIELD(5, mOrientation, plain),
    QEL_API_FIELD(6, mPrivate, binary));

QEL_API_FIELD_TABLE(camera, ProjectionState,
    QEL_API_FIELD(1, mProjectionMatrix, plain),
    QEL_API_FIELD(2, mProjectionType, plain),
    QEL_API_FIELD(3, mFrustum, plain),
    QEL_API_FIELD(4, mPrivate, binary));

QEL_API_FIELD_TABLE(camera, SurfaceState,
    QEL_API_FIELD(1, mViewport, plain),
    QEL_API_FIELD(2, mResolutionX, plain),
    QEL_API_FIELD(3, mResolutionY, plain),
    QEL_API_FIELD(4, mPrivate, binary));

QEL_API_FIELD_TABLE(camera, PlanarCameraState,
    QEL_API_FIELD(1, mViewState, plain),
    QEL_API_FIELD(2, mProjectionState, plain),
    QEL_API_FIELD(3, mSurfaceState, plain),
    QEL_API_FIELD(4, mPrivate, binary));

QEL_API_FIELD_TABLE(camera, VectorResult,
    QEL_API_FIELD(1, mValue, plain),
    QEL_API_FIELD(2, mResult, plain));

QEL_API_FIELD_TABLE(camera, MatrixResult,
    QEL_API_FIELD(1, mValue, plain),
    QEL_API_FIELD(2, mResult, plain));

QEL_API_FIELD_TABLE(camera, ViewStateResult,
    QEL_API_FIELD(1, mValue, plain),
    QEL_API_FIELD(2, mResult, plain));

QEL_API_FIELD_TABLE(camera, ProjectionStateResult,
    QEL_API_FIELD(1, mValue, plain),
    QEL_API_FIELD(2, mResult, plain));

QEL_API_FIELD_TABLE(camera, SurfaceStateResult,
    QEL_API_FIELD(1, mValue, plain),
    QEL_API_FIELD(2, mResult, plain));

QEL_API_FIELD_TABLE(camera, PlanarCameraStateResult,
    QEL_API_FIELD(1, mValue, plain),
    QEL_API_FIELD(2, mResult, plain));

QEL_API_FIELD_TABLE(camera, DoubleResult,
    QEL_API_FIELD(1, mResult, plain),
    QEL_API_FIELD(2, mValue, plain));

// clang-format on

} // namespace qel::api
