// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <sstream>
#include <string>

#include "tests/component/support/Blobs.h"
#include "tests/component/support/Calls.h"

namespace qel::api::camera::test {

namespace {

// Blobs byte by byte, worked by hand. Doubles are given by their bits, so that nothing here is computed.

constexpr std::uint64_t zero = 0x0000000000000000;
constexpr std::uint64_t minusZero = 0x8000000000000000;
constexpr std::uint64_t twoThirds = 0x3FE5555555555555;
constexpr std::uint64_t quarter = 0x3FD0000000000000;
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

std::string zeros(const std::size_t size) { return std::string(size, '\0'); }

void put(std::string& bytes, std::size_t offset, const std::initializer_list<std::uint64_t> doubles) {
    for (const std::uint64_t bits : doubles) {
        putBits(bytes, offset, bits, 8);
        offset += 8;
    }
}

/// A matrix column by column, and its kind word.
void putMatrix(std::string& bytes, const std::size_t offset, const std::initializer_list<std::uint64_t> elements,
               const std::uint32_t kind) {
    put(bytes, offset, elements);
    putWord(bytes, offset + 8 * elements.size(), kind);
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
std::string viewBlob() {
    std::string bytes = zeros(at::viewSize);
    putMatrix(bytes, at::viewTransformMatrix,
              {one, minusZero, zero, zero,      // side
               zero, one, zero, zero,           // up
               minusZero, minusZero, one, zero, // -f
               zero, zero, five, one},          // eye
              general);
    putMatrix(bytes, at::viewMatrix,
              {one, zero, minusZero, zero,      // x of side, up, -f
               minusZero, one, minusZero, zero, // y
               zero, zero, one, zero,           // z
               minusZero, minusZero, minusFive, one},
              general);
    putMatrix(bytes, at::rotation, {one, minusZero, zero, zero, one, zero, minusZero, minusZero, one}, general);
    put(bytes, at::eye, {zero, zero, five});
    return bytes;
}

/// Perspective, left -1, right 3, bottom -1, top 1, near 1, far 3. So r - l = 4, r + l = 2, t - b = 2, t + b = 0,
/// f - n = 2, f + n = 4 and 2fn = 6.
std::string projectionBlob() {
    std::string bytes = zeros(at::projectionSize);
    putMatrix(bytes, at::projectionMatrix,
              {half, zero, zero, zero,         // 2n/(r-l)
               zero, one, zero, zero,          // 2n/(t-b)
               half, zero, minusTwo, minusOne, // (r+l)/(r-l), (t+b)/(t-b), -(f+n)/(f-n), -1
               zero, zero, minusThree, zero},  // -2fn/(f-n)
              general);
    putMatrix(bytes, at::projectionInverse,
              {two, zero, zero, zero,           // (r-l)/2n
               zero, one, zero, zero,           // (t-b)/2n
               zero, zero, zero, minusThird,    // -(f-n)/2fn
               one, zero, minusOne, twoThirds}, // (r+l)/2n, (t+b)/2n, -1, (f+n)/2fn
              general);
    putWord(bytes, at::projectionType, 0);
    put(bytes, at::frustum, {minusOne, three, minusOne, one, one, three});
    return bytes;
}

/// Orthographic, the same frustum.
std::string orthographicBlob() {
    std::string bytes = zeros(at::projectionSize);
    putMatrix(bytes, at::projectionMatrix,
              {half, zero, zero, zero,                        // 2/(r-l)
               zero, one, zero, zero,                         // 2/(t-b)
               zero, zero, minusOne, zero,                    // -2/(f-n)
               0xBFE0000000000000, minusZero, minusTwo, one}, // -(r+l)/(r-l), -(t+b)/(t-b), -(f+n)/(f-n)
              general);
    putMatrix(bytes, at::projectionInverse,
              {two, zero, zero, zero,      // (r-l)/2
               zero, one, zero, zero,      // (t-b)/2
               zero, zero, minusOne, zero, // -(f-n)/2
               one, zero, minusTwo, one},  // (l+r)/2, (b+t)/2, -(n+f)/2
              general);
    putWord(bytes, at::projectionType, 1);
    put(bytes, at::frustum, {minusOne, three, minusOne, one, one, three});
    return bytes;
}

/// Viewport (0.25, 0.5, 0.5, 0.25), depths 0 to 1, on 1024 by 512 pixels.
std::string surfaceBlob() {
    std::string bytes = zeros(at::surfaceSize);
    put(bytes, at::viewport, {quarter, half, half, quarter, zero, one});
    putMatrix(bytes, at::surfaceMatrix,
              {0x4070000000000000, zero, zero, zero,               // 0.5*1024/2 = 256
               zero, 0x4050000000000000, zero, zero,               // 0.25*512/2 = 64
               zero, zero, half, zero,                             // (1-0)/2
               0x4080000000000000, 0x4074000000000000, half, one}, // 256+256 = 512, 256+64 = 320, 1/2
              general);
    putMatrix(bytes, at::surfaceInverse,
              {0x3F70000000000000, zero, zero, zero, // 2/512 = 2^-8
               zero, 0x3F90000000000000, zero, zero, // 2/128 = 2^-6
               zero, zero, two, zero,                // 2/(1-0)
               minusTwo, minusFive, minusOne, one},  // -(256/256+1), -(256/64+1), -(0+1)/1
              general);
    putWord(bytes, at::resolutionX, 1024);
    putWord(bytes, at::resolutionY, 512);
    return bytes;
}

class BlobLayout : public ServiceTest {
protected:
    BlobLayout() {
        mService->viewCreate(mView, vectorOf(0.0, 0.0, 5.0), vectorOf(0.0, 0.0, 0.0), vectorOf(0.0, 1.0, 0.0));
        mService->projectionCreate(mProjection, frustumOf(-1.0, 3.0, -1.0, 1.0, 1.0, 3.0), ProjectionType::PERSPECTIVE);
        mService->surfaceCreate(mSurface, 0.25, 0.5, 0.5, 0.25, 0.0, 1.0, 1024, 512);
    }

    ViewStateResult mView;
    ProjectionStateResult mProjection;
    SurfaceStateResult mSurface;
};

TEST_F(BlobLayout, OfAView) { EXPECT_EQ(difference(mView.mValue.mPrivate, viewBlob()), ""); }

TEST_F(BlobLayout, OfAPerspectiveProjection) {
    EXPECT_EQ(difference(mProjection.mValue.mPrivate, projectionBlob()), "");
}

TEST_F(BlobLayout, OfAnOrthographicProjection) {
    ProjectionStateResult result;
    mService->projectionCreate(result, frustumOf(-1.0, 3.0, -1.0, 1.0, 1.0, 3.0), ProjectionType::ORTHOGRAPHIC);
    EXPECT_EQ(difference(result.mValue.mPrivate, orthographicBlob()), "");
}

TEST_F(BlobLayout, OfASurface) { EXPECT_EQ(difference(mSurface.mValue.mPrivate, surfaceBlob()), ""); }

TEST_F(BlobLayout, OfAPlanarCamera) {
    PlanarCameraStateResult result;
    mService->planarCameraCreate(result, mView.mValue, mProjection.mValue, mSurface.mValue);
    // Header, two words, then the three parts with headers of their own.
    const std::string expected = zeros(at::planarView) + viewBlob() + projectionBlob() + surfaceBlob();
    EXPECT_EQ(difference(result.mValue.mPrivate, expected), "");
}

TEST_F(BlobLayout, OfABlankView) {
    ViewStateResult result; // up is parallel to the direction, so the look-at never takes place
    mService->viewCreate(result, vectorOf(1.0, 2.0, 3.0), vectorOf(1.0, 2.0, 8.0), vectorOf(0.0, 0.0, 1.0));
    std::string expected = zeros(at::viewSize);
    for (const std::size_t matrix : {at::viewTransformMatrix, at::viewMatrix}) {
        putMatrix(expected, matrix,
                  {one, zero, zero, zero, zero, one, zero, zero, zero, zero, one, zero, zero, zero, zero, one}, 1);
    }
    putMatrix(expected, at::rotation, {one, zero, zero, zero, one, zero, zero, zero, one}, 1);
    EXPECT_EQ(difference(result.mValue.mPrivate, expected), "");
}

TEST_F(BlobLayout, ReadsTheBytesThatItWrites) {
    // Written by hand, never by the component.
    PlanarCameraState state;
    state.mPrivate = zeros(at::planarView) + viewBlob() + orthographicBlob() + surfaceBlob();
    VectorResult result;
    mService->transformWorldPointToScreenPoint(result, state, vectorOf(2.0, 0.5, 3.0));
    // In view space (2, 0.5, -2); in device space (0.5*2-0.5, 0.5, 2-2) = (0.5, 0.5, 0); pixels 256*0.5+512 and
    // 64*0.5+320, depth 0.5*0+0.5.
    EXPECT_EQ(result.mValue.mData, (std::vector<double>{640.0, 352.0, 0.5}));
}

TEST_F(BlobLayout, NestedBlobsAreTheirPartsOfThePlanarCameras) {
    for (const AnyOperation& operation : allOperations()) {
        const AnyResult result = callSample(operation);
        if (const auto* const camera = std::get_if<PlanarCameraStateResult>(&result)) {
            SCOPED_TRACE(operation.name);
            const PlanarCameraState& state = camera->mValue;
            EXPECT_EQ(
                difference(state.mPrivate.substr(at::planarView),
                           state.mViewState.mPrivate + state.mProjectionState.mPrivate + state.mSurfaceState.mPrivate),
                "");
        }
    }
}

} // namespace

} // namespace qel::api::camera::test
