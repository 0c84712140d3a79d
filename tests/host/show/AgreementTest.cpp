// SPDX-License-Identifier: Apache-2.0
#include <array>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/show/Agreement.h"
#include "host/show/StateBlob.h"

namespace qel::host::test {
namespace {

using ::testing::DoubleNear;
using ::testing::Pointwise;

constexpr double infinity = std::numeric_limits<double>::infinity();
const double nan = std::numeric_limits<double>::quiet_NaN();

BlobMatrix identity() {
    BlobMatrix matrix;
    for (std::size_t i = 0; i < 4; ++i) {
        matrix(i, i) = 1;
    }
    return matrix;
}

TEST(Agreement, IsAMillionthOfTheNumber) {
    EXPECT_TRUE(agree(1, 1 + 0.9e-6));
    EXPECT_FALSE(agree(1, 1 + 1.2e-6));
    EXPECT_TRUE(agree(-1e9, -1e9 - 900));
    EXPECT_FALSE(agree(-1e9, -1e9 - 1200));
    EXPECT_FALSE(agree(1, -1));
    EXPECT_FALSE(agree(0, 1e-300));
    EXPECT_TRUE(agree(0, -0.0));
}

TEST(Agreement, OfNumbersThatAreNotFiniteIsWithEachOther) {
    EXPECT_TRUE(agree(nan, nan));
    EXPECT_TRUE(agree(infinity, infinity));
    EXPECT_FALSE(agree(nan, 1));
    EXPECT_FALSE(agree(1, infinity));
}

TEST(Agreement, OfListsForgivesRoundingBesideLargeNumbers) {
    EXPECT_TRUE(agree(std::vector<double>{1e3, 0}, std::vector<double>{1e3, 1e-10}));
    EXPECT_FALSE(agree(std::vector<double>{1, 0}, std::vector<double>{1, 1e-10}));
    EXPECT_FALSE(agree(std::vector<double>{1, 2}, std::vector<double>{1}));
}

TEST(Agreement, OfAxesIsInUnitsOfTheirLength) {
    BlobMatrix other = identity();
    other(3, 3) = 5; // as all of its row and column, not an axis
    other(0, 3) = 7;
    other(0, 1) = 0.9e-6;
    EXPECT_TRUE(sameAxes(identity(), other));
    other(0, 1) = 1.1e-6;
    EXPECT_FALSE(sameAxes(identity(), other));
}

TEST(ScreenMatrix, BringsItsViewportBack) {
    const std::array<double, 6> viewport{0.25, 0.5, 0.5, 0.25, 0.1, 0.9};
    EXPECT_THAT(viewportOf(screenMatrix(viewport, 800, 400), 800, 400), Pointwise(DoubleNear(1e-12), viewport));
}

TEST(StateBlob, NeedsAllItsBytes) {
    const auto zeros = [](std::size_t size) { return std::string(size, '\0'); };
    EXPECT_TRUE(readViewBlob(zeros(viewBlobSize)));
    EXPECT_FALSE(readViewBlob(zeros(viewBlobSize - 1)));
    EXPECT_TRUE(readProjectionBlob(zeros(projectionBlobSize)));
    EXPECT_FALSE(readProjectionBlob(zeros(projectionBlobSize - 1)));
    EXPECT_TRUE(readSurfaceBlob(zeros(surfaceBlobSize)));
    EXPECT_FALSE(readSurfaceBlob(zeros(surfaceBlobSize - 1)));
    const std::string whole = zeros(planarCameraBlobSize);
    EXPECT_TRUE(partsOfBlob(std::string_view(whole).substr(1)).view.empty());
    EXPECT_EQ(partsOfBlob(whole).surface.size(), surfaceBlobSize);
}

TEST(StateBlob, IsTheSameWhateverItBeginsWith) {
    EXPECT_TRUE(sameBlob("12345678image", "abcdefghimage"));
    EXPECT_FALSE(sameBlob("12345678image", "12345678imago"));
    EXPECT_FALSE(sameBlob("12345678image", "12345678images"));
    EXPECT_FALSE(sameBlob("", ""));
}

} // namespace
} // namespace qel::host::test
