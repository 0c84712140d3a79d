// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iomanip>
#include <sstream>
#include <string>
#include <utility>

#include "tests/component/support/Blobs.h"
#include "tests/component/support/Calls.h"
#include "tests/component/support/LoadedModule.h"
#include "tests/component/support/Samples.h"

namespace qel::api::camera::test {

namespace {

// Images byte by byte, worked by hand. Doubles are given by their bits, so that nothing here is computed.

constexpr std::uint64_t zero = 0x0000000000000000;
constexpr std::uint64_t minusZero = 0x8000000000000000;
constexpr std::uint64_t twoThirds = 0x3FE5555555555555;
constexpr std::uint64_t half = 0x3FE0000000000000;
constexpr std::uint64_t one = 0x3FF0000000000000;
constexpr std::uint64_t two = 0x4000000000000000;
constexpr std::uint64_t three = 0x4008000000000000;
constexpr std::uint64_t five = 0x4014000000000000;
constexpr std::uint64_t minusThird = 0xBFD5555555555555;
constexpr std::uint64_t minusOne = 0xBFF0000000000000;
constexpr std::uint64_t minusTwo = 0xC000000000000000;
constexpr std::uint64_t minusThree = 0xC008000000000000;
constexpr std::uint64_t minusFive = 0xC014000000000000;
constexpr std::uint32_t general = 64;

std::string image(const std::size_t size) { return std::string(size, '\0'); }

void put(std::string& bytes, std::size_t offset, const std::initializer_list<std::uint64_t> doubles) {
    for (const std::uint64_t bits : doubles) {
        putBits(bytes, offset, bits, 8);
        offset += 8;
    }
}

/// The first byte that differs, for a message that helps.
std::string difference(const std::string& actual, const std::string& expected) {
    if (actual.size() != expected.size()) {
        return std::to_string(actual.size()) + " bytes instead of " + std::to_string(expected.size());
    }
    for (std::size_t i = 0; i < actual.size(); ++i) {
        if (actual[i] != expected[i]) {
            std::ostringstream text;
            text << "at the 8 bytes from " << i / 8 * 8 << ": " << std::hex << bitsAt(actual, i / 8 * 8, 8)
                 << " instead of " << bitsAt(expected, i / 8 * 8, 8);
            return text.str();
        }
    }
    return "";
}

/// Eye (0, 0, 5), looking at the origin, y up. The direction f is (0, 0, -1). The side f x up is
/// (0*0 - -1*1, -1*0 - 0*0, 0*1 - 0*0) = (1, -0, 0), the new up side x f = (0, 1, 0), and -f = (-0, -0, 1). Of the
/// view matrix's translation, -(side . eye) and -(up . eye) are -0, and f . eye is -5.
std::string viewImage() {
    std::string bytes = image(384);
    put(bytes, 8, {one, minusZero, zero, zero});       // side
    put(bytes, 40, {zero, one, zero, zero});           // up
    put(bytes, 72, {minusZero, minusZero, one, zero}); // -f
    put(bytes, 104, {zero, zero, five, one});          // eye
    putWord(bytes, 136, general);
    put(bytes, 144, {one, zero, minusZero, zero});      // x of side, up, -f
    put(bytes, 176, {minusZero, one, minusZero, zero}); // y
    put(bytes, 208, {zero, zero, one, zero});           // z
    put(bytes, 240, {minusZero, minusZero, minusFive, one});
    putWord(bytes, 272, general);
    put(bytes, 280, {one, minusZero, zero, zero, one, zero, minusZero, minusZero, one});
    putWord(bytes, 352, general);
    put(bytes, 360, {zero, zero, five});
    return bytes;
}

/// Perspective, left -1, right 3, bottom -1, top 1, near 1, far 3. So r - l = 4, r + l = 2, t - b = 2, t + b = 0,
/// f - n = 2, f + n = 4 and 2fn = 6.
std::string projectionImage() {
    std::string bytes = image(336);
    put(bytes, 8, {half, zero, zero, zero});          // 2n/(r-l)
    put(bytes, 40, {zero, one, zero, zero});          // 2n/(t-b)
    put(bytes, 72, {half, zero, minusTwo, minusOne}); // (r+l)/(r-l), (t+b)/(t-b), -(f+n)/(f-n), -1
    put(bytes, 104, {zero, zero, minusThree, zero});  // -2fn/(f-n)
    putWord(bytes, 136, general);
    put(bytes, 144, {two, zero, zero, zero});          // (r-l)/2n
    put(bytes, 176, {zero, one, zero, zero});          // (t-b)/2n
    put(bytes, 208, {zero, zero, zero, minusThird});   // -(f-n)/2fn
    put(bytes, 240, {one, zero, minusOne, twoThirds}); // (r+l)/2n, (t+b)/2n, -1, (f+n)/2fn
    putWord(bytes, 272, general);
    putWord(bytes, 280, 0);
    put(bytes, 288, {minusOne, three, minusOne, one, one, three});
    return bytes;
}

/// Orthographic, the same frustum.
std::string orthographicImage() {
    std::string bytes = image(336);
    put(bytes, 8, {half, zero, zero, zero});                         // 2/(r-l)
    put(bytes, 40, {zero, one, zero, zero});                         // 2/(t-b)
    put(bytes, 72, {zero, zero, minusOne, zero});                    // -2/(f-n)
    put(bytes, 104, {0xBFE0000000000000, minusZero, minusTwo, one}); // -(r+l)/(r-l), -(t+b)/(t-b), -(f+n)/(f-n)
    putWord(bytes, 136, general);
    put(bytes, 144, {two, zero, zero, zero});      // (r-l)/2
    put(bytes, 176, {zero, one, zero, zero});      // (t-b)/2
    put(bytes, 208, {zero, zero, minusOne, zero}); // -(f-n)/2
    put(bytes, 240, {one, zero, minusTwo, one});   // (l+r)/2, (b+t)/2, -(n+f)/2
    putWord(bytes, 272, general);
    putWord(bytes, 280, 1);
    put(bytes, 288, {minusOne, three, minusOne, one, one, three});
    return bytes;
}

/// Viewport (0.25, 0.5, 0.5, 0.25), depths 0 to 1, on 1024 by 512 pixels.
std::string surfaceImage() {
    std::string bytes = image(336);
    put(bytes, 8, {0x3FD0000000000000, half, half, 0x3FD0000000000000, zero, one});
    put(bytes, 56, {0x4070000000000000, zero, zero, zero});               // 0.5*1024/2 = 256
    put(bytes, 88, {zero, 0x4050000000000000, zero, zero});               // 0.25*512/2 = 64
    put(bytes, 120, {zero, zero, half, zero});                            // (1-0)/2
    put(bytes, 152, {0x4080000000000000, 0x4074000000000000, half, one}); // 256+256 = 512, 256+64 = 320, 1/2
    putWord(bytes, 184, general);
    put(bytes, 192, {0x3F70000000000000, zero, zero, zero}); // 2/512 = 2^-8
    put(bytes, 224, {zero, 0x3F90000000000000, zero, zero}); // 2/128 = 2^-6
    put(bytes, 256, {zero, zero, two, zero});                // 2/(1-0)
    put(bytes, 288, {minusTwo, minusFive, minusOne, one});   // -(256/256+1), -(256/64+1), -(0+1)/1
    putWord(bytes, 320, general);
    putWord(bytes, 328, 0x00000400);
    putWord(bytes, 332, 0x00000200);
    return bytes;
}

class ImageLayout : public ::testing::Test {
protected:
    ImageLayout() {
        mService->viewCreate(mView, vectorOf(0.0, 0.0, 5.0), vectorOf(0.0, 0.0, 0.0), vectorOf(0.0, 1.0, 0.0));
        mService->projectionCreate(mProjection, frustumOf(-1.0, 3.0, -1.0, 1.0, 1.0, 3.0), ProjectionType::PERSPECTIVE);
        mService->surfaceCreate(mSurface, 0.25, 0.5, 0.5, 0.25, 0.0, 1.0, 1024, 512);
    }

    LoadedService mService;
    ViewStateResult mView;
    ProjectionStateResult mProjection;
    SurfaceStateResult mSurface;
};

TEST_F(ImageLayout, OfAView) { EXPECT_EQ(difference(mView.mValue.mPrivate, viewImage()), ""); }

TEST_F(ImageLayout, OfAPerspectiveProjection) {
    EXPECT_EQ(difference(mProjection.mValue.mPrivate, projectionImage()), "");
}

TEST_F(ImageLayout, OfAnOrthographicProjection) {
    ProjectionStateResult result;
    mService->projectionCreate(result, frustumOf(-1.0, 3.0, -1.0, 1.0, 1.0, 3.0), ProjectionType::ORTHOGRAPHIC);
    EXPECT_EQ(difference(result.mValue.mPrivate, orthographicImage()), "");
}

TEST_F(ImageLayout, OfASurface) { EXPECT_EQ(difference(mSurface.mValue.mPrivate, surfaceImage()), ""); }

TEST_F(ImageLayout, OfAPlanarCamera) {
    PlanarCameraStateResult result;
    mService->planarCameraCreate(result, mView.mValue, mProjection.mValue, mSurface.mValue);
    // Header, two words, then the three parts with headers of their own.
    const std::string expected = image(8 + 16) + viewImage() + projectionImage() + surfaceImage();
    EXPECT_EQ(difference(result.mValue.mPrivate, expected), "");
}

TEST_F(ImageLayout, OfABlankView) {
    ViewStateResult result; // up is parallel to the direction, so the look-at never takes place
    mService->viewCreate(result, vectorOf(1.0, 2.0, 3.0), vectorOf(1.0, 2.0, 8.0), vectorOf(0.0, 0.0, 1.0));
    std::string expected = image(384);
    for (const std::size_t matrix : {8U, 144U}) {
        for (const std::size_t diagonal : {0U, 40U, 80U, 120U}) {
            put(expected, matrix + diagonal, {one});
        }
        putWord(expected, matrix + 128, 1);
    }
    for (const std::size_t diagonal : {0U, 32U, 64U}) {
        put(expected, 280 + diagonal, {one});
    }
    putWord(expected, 352, 1);
    EXPECT_EQ(difference(result.mValue.mPrivate, expected), "");
}

TEST_F(ImageLayout, ReadsTheBytesThatItWrites) {
    // Written by hand, never by the component.
    PlanarCameraState state;
    state.mPrivate = image(8 + 16) + viewImage() + orthographicImage() + surfaceImage();
    VectorResult result;
    mService->transformWorldPointToScreenPoint(result, state, vectorOf(2.0, 0.5, 3.0));
    // In view space (2, 0.5, -2); in device space (0.5*2-0.5, 0.5, 2-2) = (0.5, 0.5, 0); pixels 256*0.5+512 and
    // 64*0.5+320, depth 0.5*0+0.5.
    EXPECT_EQ(result.mValue.mData, (std::vector<double>{640.0, 352.0, 0.5}));
}

TEST_F(ImageLayout, NestedImagesAreTheirPartsOfThePlanarCameras) {
    const Samples samples(*mService);
    forEachOperation([&](std::size_t, const auto& operation) {
        if constexpr (std::is_same_v<ResultOf<decltype(operation)>, PlanarCameraStateResult>) {
            SCOPED_TRACE(operation.name);
            const PlanarCameraState state = callAfresh(*mService, operation, samples.argumentsOf(operation)).mValue;
            EXPECT_EQ(difference(state.mViewState.mPrivate, state.mPrivate.substr(24, 384)), "");
            EXPECT_EQ(difference(state.mProjectionState.mPrivate, state.mPrivate.substr(408, 336)), "");
            EXPECT_EQ(difference(state.mSurfaceState.mPrivate, state.mPrivate.substr(744, 336)), "");
        }
    });
}

TEST_F(ImageLayout, PublicFieldsSayWhatTheImageHolds) {
    const Samples samples(*mService);
    const ViewState& view = samples.view;
    for (std::size_t r = 0; r < 4; ++r) {
        for (std::size_t c = 0; c < 4; ++c) {
            EXPECT_EQ(view.mViewMatrix.mData[r][c], elementAt(view.mPrivate, at::viewMatrix, r, c));
            EXPECT_EQ(view.mViewTransformMatrix.mData[r][c], elementAt(view.mPrivate, at::viewTransformMatrix, r, c));
            EXPECT_EQ(samples.projection.mProjectionMatrix.mData[r][c],
                      elementAt(samples.projection.mPrivate, at::projectionMatrix, r, c));
        }
    }
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(view.mEye.mData[i], doubleAt(view.mPrivate, at::eye + 8 * i));
        EXPECT_EQ(view.mDirection.mData[i], -doubleAt(view.mPrivate, at::rotation + 8 * (6 + i)));
    }
    const Frustum& frustum = samples.projection.mFrustum;
    const double sides[] = {frustum.mLeft, frustum.mRight,    frustum.mBottom,
                            frustum.mTop,  frustum.mNearDist, frustum.mFarDist};
    const Viewport& viewport = samples.surface.mViewport;
    const double extents[] = {viewport.mX,      viewport.mY,        viewport.mWidth,
                              viewport.mHeight, viewport.mDepthMin, viewport.mDepthMax};
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(sides[i], doubleAt(samples.projection.mPrivate, at::frustum + 8 * i));
        EXPECT_EQ(extents[i], doubleAt(samples.surface.mPrivate, at::viewport + 8 * i));
    }
}

} // namespace

} // namespace qel::api::camera::test
