// SPDX-License-Identifier: Apache-2.0
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/api/camera/Fields.h>

#include "tests/records/AllRecords.h"
#include "tests/wire/EventProtocol.h"

namespace qel::api {
namespace {

using ::testing::ElementsAre;

TEST(RecordCalls, WritesEachListWithItsOwnSizeAndBlobsAsBinary) {
    EventProtocol protocol;
    camera::ViewState v;
    v.mViewTransformMatrix.mData = {{}, {1}};
    v.mPrivate = "blob";
    EXPECT_EQ(v.write(&protocol), protocol.returned);
    protocol.events.resize(14);
    EXPECT_THAT(protocol.events,
                ElementsAre("struct ViewState", "field mViewTransformMatrix 12 1", "struct Matrix", "field mData 15 1",
                            "list 15 2", "list 4 0", "end list", "list 4 1", "double 1.000000", "end list", "end list",
                            "end field", "stop", "end struct"));
    v.write(&protocol);
    EXPECT_THAT(protocol.events, ::testing::Contains("binary blob"));
}

/// The name, wire type and id of each field, written down a second time.
TEST(RecordCalls, EveryFieldOfEveryRecord) {
    std::string all;
    AllRecords::forEach([&]<class Record>() {
        EventProtocol protocol;
        Record record;
        forEachField<Record>([&](const auto& field) { field.markSet(record, true); });
        EXPECT_EQ(record.write(&protocol), protocol.returned);
        int depth = 0;
        for (const std::string& event : protocol.events) {
            depth -= event == "end struct" ? 1 : 0;
            if (event.starts_with("struct ") && depth == 0) {
                all += event.substr(7) + ":";
            } else if (event.starts_with("field ") && depth == 1) {
                all += event.substr(5);
                all += ",";
            }
            depth += event.starts_with("struct ") ? 1 : 0;
        }
        all += "\n";
    });
    EXPECT_EQ(all, "ServiceResult: mError 8 1, mMessage 11 2,\n"
                   "StringResult: mResult 12 1, mValue 11 2,\n"
                   "Vector: mData 15 1,\n"
                   "Quaternion: mData 15 1,\n"
                   "Matrix: mData 15 1,\n"
                   "Frustum: mLeft 4 1, mRight 4 2, mBottom 4 3, mTop 4 4, mNearDist 4 5, mFarDist 4 6,\n"
                   "Viewport: mX 4 1, mY 4 2, mWidth 4 3, mHeight 4 4, mDepthMin 4 5, mDepthMax 4 6,\n"
                   "ViewState: mViewTransformMatrix 12 1, mViewMatrix 12 2, mEye 12 3, mDirection 12 4, "
                   "mOrientation 12 5, mPrivate 11 6,\n"
                   "ProjectionState: mProjectionMatrix 12 1, mProjectionType 8 2, mFrustum 12 3, mPrivate 11 4,\n"
                   "SurfaceState: mViewport 12 1, mResolutionX 4 2, mResolutionY 4 3, mPrivate 11 4,\n"
                   "PlanarCameraState: mViewState 12 1, mProjectionState 12 2, mSurfaceState 12 3, mPrivate 11 4,\n"
                   "VectorResult: mValue 12 1, mResult 12 2,\n"
                   "MatrixResult: mValue 12 1, mResult 12 2,\n"
                   "ViewStateResult: mValue 12 1, mResult 12 2,\n"
                   "ProjectionStateResult: mValue 12 1, mResult 12 2,\n"
                   "SurfaceStateResult: mValue 12 1, mResult 12 2,\n"
                   "PlanarCameraStateResult: mValue 12 1, mResult 12 2,\n"
                   "DoubleResult: mResult 12 1, mValue 4 2,\n");
}

} // namespace
} // namespace qel::api
