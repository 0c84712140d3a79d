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

ImageMatrix diagonal(double x, double y, double z, double w) {
    ImageMatrix matrix;
    matrix(0, 0) = x;
    matrix(1, 1) = y;
    matrix(2, 2) = z;
    matrix(3, 3) = w;
    return matrix;
}

/// Where a matrix takes a point, after the division.
std::array<double, 3> transformed(const ImageMatrix& matrix, double x, double y, double z) {
    std::array<double, 4> sums{};
    for (std::size_t row = 0; row < 4; ++row) {
        sums[row] = matrix(row, 0) * x + matrix(row, 1) * y + matrix(row, 2) * z + matrix(row, 3);
    }
    return {sums[0] / sums[3], sums[1] / sums[3], sums[2] / sums[3]};
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

TEST(Agreement, OfInversesIsTheProduct) {
    EXPECT_TRUE(areInverse(diagonal(2, 4, 8, 1), diagonal(0.5, 0.25, 0.125, 1)));
    EXPECT_FALSE(areInverse(diagonal(2, 4, 8, 1), diagonal(0.5, 0.25, 0.1251, 1)));
    ImageMatrix moved = diagonal(1, 1, 1, 1);
    ImageMatrix back = moved;
    moved(0, 3) = 1e6;
    back(0, 3) = -1e6 - 1e-3;
    EXPECT_TRUE(areInverse(moved, back)); // a billionth of the way
    back(0, 3) = -1e6 - 10;
    EXPECT_FALSE(areInverse(moved, back));
}

TEST(Agreement, OfAxesIsInUnitsOfTheirLength) {
    ImageMatrix other = diagonal(1, 1, 1, 5);
    other(0, 3) = 7; // not an axis
    other(0, 1) = 0.9e-6;
    EXPECT_TRUE(sameAxes(diagonal(1, 1, 1, 1), other));
    other(0, 1) = 1.1e-6;
    EXPECT_FALSE(sameAxes(diagonal(1, 1, 1, 1), other));
}

TEST(Agreement, KnowsARotation) {
    EXPECT_TRUE(isRotation(rotationOf({0.5, -0.5, 0.5, 0.5})));
    EXPECT_FALSE(isRotation(diagonal(1, 1, 1.1, 1)));
    ImageMatrix skewed = diagonal(1, 1, 1, 1);
    skewed(0, 1) = 0.01;
    EXPECT_FALSE(isRotation(skewed));
    EXPECT_FALSE(isRotation(diagonal(nan, 1, 1, 1)));
}

// A third of a turn about the diagonal of the axes takes x to y, y to z and z to x.
TEST(RotationOf, TakesAQuaternionWithItsScalarLast) {
    const ImageMatrix turn = rotationOf({0.5, 0.5, 0.5, 0.5});
    EXPECT_EQ(turn(1, 0), 1);
    EXPECT_EQ(turn(2, 1), 1);
    EXPECT_EQ(turn(0, 2), 1);
    EXPECT_EQ(turn(0, 0), 0);
}

// The corners of the frustum are the corners of normalised device space.
TEST(ProjectionMatrix, TakesTheCornersOfAPerspectiveFrustumToThoseOfTheCube) {
    const ImageMatrix matrix = projectionMatrix({-1, 3, -2, 4, 2, 10}, false);
    EXPECT_THAT(transformed(matrix, -1, -2, -2), Pointwise(DoubleNear(1e-12), {-1.0, -1.0, -1.0}));
    EXPECT_THAT(transformed(matrix, 3, 4, -2), Pointwise(DoubleNear(1e-12), {1.0, 1.0, -1.0}));
    EXPECT_THAT(transformed(matrix, 15, 20, -10), Pointwise(DoubleNear(1e-12), {1.0, 1.0, 1.0}));
}

TEST(ProjectionMatrix, TakesTheCornersOfAnOrthographicFrustumToThoseOfTheCube) {
    const ImageMatrix matrix = projectionMatrix({-1, 3, -2, 4, 2, 10}, true);
    EXPECT_THAT(transformed(matrix, -1, -2, -2), Pointwise(DoubleNear(1e-12), {-1.0, -1.0, -1.0}));
    EXPECT_THAT(transformed(matrix, 3, 4, -10), Pointwise(DoubleNear(1e-12), {1.0, 1.0, 1.0}));
}

TEST(ScreenMatrix, TakesTheCubeToTheViewportInPixels) {
    const ImageMatrix matrix = screenMatrix({0.25, 0.5, 0.5, 0.25, 0.1, 0.9}, 800, 400);
    EXPECT_THAT(transformed(matrix, -1, -1, -1), Pointwise(DoubleNear(1e-12), {200.0, 200.0, 0.1}));
    EXPECT_THAT(transformed(matrix, 1, 1, 1), Pointwise(DoubleNear(1e-12), {600.0, 300.0, 0.9}));
}

TEST(ScreenMatrix, BringsItsViewportBack) {
    const std::array<double, 6> viewport{0.25, 0.5, 0.5, 0.25, 0.1, 0.9};
    EXPECT_THAT(viewportOf(screenMatrix(viewport, 800, 400), 800, 400), Pointwise(DoubleNear(1e-12), viewport));
}

TEST(StateImage, NeedsAllItsBytes) {
    EXPECT_TRUE(readViewImage(std::string(384, '\0')));
    EXPECT_FALSE(readViewImage(std::string(383, '\0')));
    EXPECT_TRUE(readProjectionImage(std::string(336, '\0')));
    EXPECT_FALSE(readProjectionImage(std::string(335, '\0')));
    EXPECT_TRUE(readSurfaceImage(std::string(336, '\0')));
    EXPECT_FALSE(readSurfaceImage(std::string(335, '\0')));
    EXPECT_TRUE(partsOfImage(std::string(1079, '\0')).view.empty());
    const std::string whole(1080, '\0');
    EXPECT_EQ(partsOfImage(whole).surface.size(), 336U);
}

TEST(StateImage, IsTheSameWhateverItBeginsWith) {
    EXPECT_TRUE(sameImage("12345678image", "abcdefghimage"));
    EXPECT_FALSE(sameImage("12345678image", "12345678imago"));
    EXPECT_FALSE(sameImage("12345678image", "12345678images"));
    EXPECT_FALSE(sameImage("", ""));
}

} // namespace
} // namespace qel::host::test
