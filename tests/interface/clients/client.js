// SPDX-License-Identifier: Apache-2.0
// A client in Node: reads the records that `exchange write` wrote, checks every value, changes some and writes all.
// usage: node client.js PROTOCOL INPUT OUTPUT, with the generated code and Thrift's library in NODE_PATH
"use strict";

const assert = require("assert");
const fs = require("fs");
const thrift = require("thrift");
const base = require("base_types");
const camera = require("camera_types");

const protocols = { binary: thrift.TBinaryProtocol, compact: thrift.TCompactProtocol };

function expected() {
  const { Matrix, Vector } = camera;
  const rows = [0, 1, 2, 3].map((row) => [0, 1, 2, 3].map((column) => 10 * row + column + 0.5));
  const state = new camera.PlanarCameraState({
    mViewState: new camera.ViewState({
      mViewTransformMatrix: new Matrix({ mData: rows }),
      mViewMatrix: new Matrix({ mData: [[1.5], [], [2.5, -0]] }),
      mEye: new Vector({ mData: [1, 2.5, -3] }),
      mDirection: new Vector({ mData: [0, 0, -1] }),
      mOrientation: new camera.Quaternion({ mData: [0, 0, 0, 1] }),
      mPrivate: Buffer.from(Array.from({ length: 256 }, (_, i) => i)),
    }),
    mProjectionState: new camera.ProjectionState({
      mProjectionMatrix: new Matrix({ mData: [[1e300, 5e-324, 0.1]] }),
      mProjectionType: camera.ProjectionType.ORTHOGRAPHIC,
      mFrustum: new camera.Frustum({ mLeft: -1, mRight: 1, mBottom: -0.75, mTop: 0.75, mNearDist: 0.1, mFarDist: 1000 }),
      mPrivate: Buffer.alloc(0),
    }),
    mSurfaceState: new camera.SurfaceState({
      mViewport: new camera.Viewport({ mX: 0, mY: 0.25, mWidth: 1, mHeight: 0.5, mDepthMin: 0, mDepthMax: 1 }),
      mResolutionX: 1920,
      mResolutionY: 1080,
      mPrivate: Buffer.from([0x00, 0xff]),
    }),
    mPrivate: Buffer.from(Array.from({ length: 1080 }, (_, i) => (i * 7) % 256)),
  });
  const emptyView = new camera.ViewState({
    mViewTransformMatrix: new Matrix({ mData: [] }),
    mViewMatrix: new Matrix({ mData: [] }),
    mEye: new Vector({ mData: [] }),
    mDirection: new Vector({ mData: [] }),
    mOrientation: new camera.Quaternion({ mData: [] }),
    mPrivate: Buffer.alloc(0),
  });
  const result = (mError, mMessage) => new base.ServiceResult({ mError, mMessage });
  return [
    new camera.PlanarCameraStateResult({ mValue: state, mResult: result(-1, "camera \"7\"\n\u00e4") }),
    new camera.VectorResult({ mValue: new Vector({ mData: [0.1, 1e20] }), mResult: result(4) }),
    new camera.MatrixResult({ mValue: new Matrix({ mData: [] }), mResult: result(0, "") }),
    new camera.DoubleResult({ mResult: result(0), mValue: 0.7853981633974483 }),
    new base.StringResult({ mResult: result(0), mValue: "CameraAPI" }),
    result(2147483647),
    new camera.ViewStateResult({ mValue: emptyView, mResult: result(0) }),
  ];
}

function change([planar, vector, matrix, number, text, result, view]) {
  planar.mValue.mViewState.mEye.mData = [4, 5.5, -6];
  planar.mValue.mViewState.mViewMatrix.mData.push([9]);
  planar.mValue.mProjectionState.mProjectionType = camera.ProjectionType.PERSPECTIVE;
  planar.mValue.mProjectionState.mFrustum.mFarDist = 2000.25;
  planar.mValue.mSurfaceState.mResolutionX = 640;
  planar.mValue.mPrivate = Buffer.from(planar.mValue.mPrivate).reverse();
  planar.mResult = new base.ServiceResult({ mError: 4, mMessage: "ge\u00e4ndert" });
  vector.mResult.mMessage = "now set";
  matrix.mResult.mMessage = null;
  number.mValue *= 2;
  text.mValue = "";
  result.mError = -2147483648;
  view.mValue.mPrivate = Buffer.from([0]);
}

const read = Symbol.for("read");
const write = Symbol.for("write");

const [protocolName, source, target] = process.argv.slice(2);
const Protocol = protocols[protocolName];
const input = new Protocol(new thrift.TFramedTransport(fs.readFileSync(source)));
const wanted = expected();
// In the order of the file; the generated objects do not know their own constructor.
const classes = [
  camera.PlanarCameraStateResult, camera.VectorResult, camera.MatrixResult, camera.DoubleResult, base.StringResult,
  base.ServiceResult, camera.ViewStateResult,
];
const records = classes.map((Record) => {
  const record = new Record();
  record[read](input);
  return record;
});
wanted.forEach((record, i) => assert.deepStrictEqual(records[i], record));
change(records);

const written = [];
const transport = new thrift.TBufferedTransport(undefined, (bytes) => written.push(bytes));
const output = new Protocol(transport);
records.forEach((record) => record[write](output));
output.flush();
fs.writeFileSync(target, Buffer.concat(written));
console.log(`${records.length} records in ${protocolName}`);
