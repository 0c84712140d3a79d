// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <array>
#include <stdexcept>
#include <string>
#include <type_traits>

#include "component/CameraLibraryHandler.h"
#include "component/ReadArguments.h"
#include "component/ReadState.h"
#include "component/WriteState.h"

namespace qel::api::camera::component {

namespace {

// What the module keeps inside: the texts of its exceptions, and the helpers of the conversion.

template <class Work>
std::string messageOf(const Work& work) {
    try {
        work();
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "nothing was thrown";
}

TEST(Arguments, ErrorsNameTheArgumentWhatWasExpectedAndWhatCame) {
    Vector vector;
    vector.mData = {1.0, 2.0};
    EXPECT_EQ(messageOf([&] { (void)toVec3(vector, "eye"); }), "argument eye: expected 3 values, got 2");
    Quaternion quaternion;
    quaternion.mData = {1.0, 2.0, 3.0};
    EXPECT_EQ(messageOf([&] { (void)toQuat(quaternion, "orientation"); }),
              "argument orientation: expected 4 values, got 3");
    Matrix matrix;
    matrix.mData.assign(3, {1.0, 2.0, 3.0, 4.0});
    EXPECT_EQ(messageOf([&] { (void)toMat4(matrix, "matrix"); }), "argument matrix: expected 4 rows, got 3");
    matrix.mData.push_back({1.0});
    EXPECT_EQ(messageOf([&] { (void)toMat4(matrix, "matrix"); }), "argument matrix: expected 4 values in a row, got 1");
}

TEST(Arguments, ErrorsNameTheStateAndTheSizeOfItsBlob) {
    ViewState view;
    view.mPrivate.assign(383, '\0');
    EXPECT_EQ(messageOf([&] { (void)toObject(view); }), "argument ViewState::mPrivate: expected 384 bytes, got 383");
    EXPECT_EQ(messageOf([] { (void)toObject(ProjectionState()); }),
              "argument ProjectionState::mPrivate: expected 336 bytes, got 0");
    EXPECT_EQ(messageOf([] { (void)toObject(SurfaceState()); }),
              "argument SurfaceState::mPrivate: expected 336 bytes, got 0");
    EXPECT_EQ(messageOf([] { (void)toObject(PlanarCameraState()); }),
              "argument PlanarCameraState::mPrivate: expected 1080 bytes, got 0");
}

TEST(Arguments, MatricesAreGeneralAndReadByRows) {
    Matrix matrix;
    matrix.mData = {{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}, {13, 14, 15, 16}};
    const math::Mat4 m = toMat4(matrix, "matrix");
    EXPECT_EQ(m.mElements, (std::array<double, 16>{1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15, 4, 8, 12, 16}));
    EXPECT_EQ(m.mKind, math::MatrixKind::general);
    Matrix back;
    write(back, m);
    EXPECT_EQ(back.mData, matrix.mData);
}

TEST(Handler, HoldsTwoPointersBesideItsTables) {
    static_assert(std::is_base_of_v<CameraAPIIf, CameraLibraryHandler>);
    static_assert(std::is_nothrow_default_constructible_v<CameraLibraryHandler>);
    static_assert(sizeof(CameraLibraryHandler) == sizeof(CameraAPIIf) + 2 * sizeof(void*));
    static_assert(std::has_virtual_destructor_v<CameraLibraryHandler>);
}

} // namespace

} // namespace qel::api::camera::component
