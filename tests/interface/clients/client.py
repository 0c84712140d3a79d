#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""A client in Python: reads the records that `exchange write` wrote, checks every value, changes some and writes all.

usage: client.py PROTOCOL INPUT OUTPUT, with the generated code and Thrift's library in PYTHONPATH
"""

import sys

from thrift.protocol.TBinaryProtocol import TBinaryProtocol
from thrift.protocol.TCompactProtocol import TCompactProtocol
from thrift.protocol.TJSONProtocol import TJSONProtocol
from thrift.transport.TTransport import TMemoryBuffer

from qel.api.base.ttypes import ServiceResult, StringResult
from qel.api.camera.ttypes import (
    CameraAPIError, DoubleResult, Frustum, Matrix, MatrixResult, PlanarCameraState, PlanarCameraStateResult,
    ProjectionState, ProjectionType, Quaternion, SurfaceState, Vector, VectorResult, Viewport, ViewState,
    ViewStateResult)

PROTOCOLS = {"binary": TBinaryProtocol, "compact": TCompactProtocol, "json": TJSONProtocol}


def expected():
    camera = PlanarCameraState(
        mViewState=ViewState(
            mViewTransformMatrix=Matrix([[10.0 * row + column + 0.5 for column in range(4)] for row in range(4)]),
            mViewMatrix=Matrix([[1.5], [], [2.5, -0.0]]),
            mEye=Vector([1.0, 2.5, -3.0]),
            mDirection=Vector([0.0, 0.0, -1.0]),
            mOrientation=Quaternion([0.0, 0.0, 0.0, 1.0]),
            mPrivate=bytes(range(256))),
        mProjectionState=ProjectionState(
            mProjectionMatrix=Matrix([[1e300, 5e-324, 0.1]]),
            mProjectionType=ProjectionType.ORTHOGRAPHIC,
            mFrustum=Frustum(-1.0, 1.0, -0.75, 0.75, 0.1, 1000.0),
            mPrivate=b""),
        mSurfaceState=SurfaceState(
            mViewport=Viewport(0.0, 0.25, 1.0, 0.5, 0.0, 1.0),
            mResolutionX=1920.0,
            mResolutionY=1080.0,
            mPrivate=b"\x00\xff"),
        mPrivate=bytes(i * 7 % 256 for i in range(1080)))
    empty_view = ViewState(Matrix([]), Matrix([]), Vector([]), Vector([]), Quaternion([]), b"")
    return [
        PlanarCameraStateResult(
            camera, ServiceResult(CameraAPIError.CAMERA_API_ERROR_UNKNOWN, "camera \"7\"\n\u00e4")),
        VectorResult(Vector([0.1, 1e20]), ServiceResult(CameraAPIError.CAMERA_API_ERROR_CALL_FAILED)),
        MatrixResult(Matrix([]), ServiceResult(CameraAPIError.CAMERA_API_SUCCESS, "")),
        DoubleResult(ServiceResult(0), 0.7853981633974483),
        StringResult(ServiceResult(0), "CameraAPI"),
        ServiceResult(2147483647),
        ViewStateResult(empty_view, ServiceResult(0)),
    ]


def change(records):
    camera, vector, matrix, number, text, result, view = records
    camera.mValue.mViewState.mEye.mData = [4.0, 5.5, -6.0]
    camera.mValue.mViewState.mViewMatrix.mData.append([9.0])
    camera.mValue.mProjectionState.mProjectionType = ProjectionType.PERSPECTIVE
    camera.mValue.mProjectionState.mFrustum.mFarDist = 2000.25
    camera.mValue.mSurfaceState.mResolutionX = 640.0
    camera.mValue.mPrivate = camera.mValue.mPrivate[::-1]
    camera.mResult = ServiceResult(4, "ge\u00e4ndert")
    vector.mResult.mMessage = "now set"
    matrix.mResult.mMessage = None
    number.mValue *= 2
    text.mValue = ""
    result.mError = -2147483648
    view.mValue.mPrivate = b"\x00"


def main():
    protocol_name, source, target = sys.argv[1:]
    protocol_class = PROTOCOLS[protocol_name]
    with open(source, "rb") as file:
        protocol = protocol_class(TMemoryBuffer(file.read()))
    wanted = expected()
    records = []
    for record in wanted:
        read = type(record)()
        read.read(protocol)
        records.append(read)
    for record, read in zip(wanted, records):
        if record != read:
            sys.exit(f"wanted {record}\ncame   {read}")
    change(records)
    out = TMemoryBuffer()
    protocol = protocol_class(out)
    for record in records:
        record.write(protocol)
    with open(target, "wb") as file:
        file.write(out.getvalue())
    print(f"{len(records)} records in {protocol_name}")


if __name__ == "__main__":
    main()
