// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>

#include "impl/Projection.h"
#include "math/Pipeline.h"
#include "tests/impl/CameraTesting.h"

namespace qel::api::camera::test {
namespace {

using impl::Projection;
using math::Frustum;
using math::Mat4;

const Frustum offCentre{-1, 3, -2, 6, 2, 10};

constexpr bool bothTypes[] = {false, true};

const Projection perspective = projectionOf(offCentre, false);

TEST(SetAspectRatio, ScalesBottomAndTopAboutZeroNotAboutTheirCentre) {
    for (const bool orthographic : bothTypes) {
        Projection projection = projectionOf({-4, 4, -1, 3, 1, 9}, orthographic);
        projection.setAspectRatio(1.0);
        EXPECT_TRUE(same(projection, projectionOf({-4, 4, -2, 6, 1, 9}, orthographic)));
    }
}

TEST(SetAspectRatio, RejectsRatiosUpToTheTolerance) {
    for (const double ratio : {1e-7, 0.0, -2.0}) {
        EXPECT_TRUE(unchanged(perspective, [&](Projection& projection) { projection.setAspectRatio(ratio); }));
    }
}

TEST(SetAspectRatio, TakesTheSmallestRatioAboveTheTolerance) {
    Projection projection = projectionOf({-1, 1, -1, 1, 1, 2}, false);
    projection.setAspectRatio(justAbove(1e-7));
    EXPECT_NEAR(projection.frustum().top, 1e7, 1e-6);
}

TEST(SetAspectRatio, TakesNaN) {
    Projection projection = perspective;
    projection.setAspectRatio(nan);
    EXPECT_TRUE(std::isnan(projection.frustum().bottom));
    EXPECT_EQ(projection.frustum().left, -1.0);
}

TEST(SetNear, KeepsTheAnglesOfAPerspectiveAndTheSidesOfAnOrthographicProjection) {
    Projection projection = perspective;
    projection.setNear(4.0);
    EXPECT_TRUE(same(projection, projectionOf({-2, 6, -4, 12, 4, 10}, false)));
    projection = projectionOf(offCentre, true);
    projection.setNear(4.0);
    EXPECT_TRUE(same(projection, projectionOf({-1, 3, -2, 6, 4, 10}, true)));
}

TEST(SetNear, RejectsDistancesUpToTheToleranceAndFromFarOn) {
    for (const double distance : {1e-7, 0.0, -1.0, 10.0, 11.0, infinity}) {
        EXPECT_TRUE(unchanged(perspective, [&](Projection& projection) { projection.setNear(distance); })) << distance;
    }
}

TEST(SetNear, TakesTheBoundsNextNeighbours) {
    Projection projection = projectionOf(offCentre, true);
    projection.setNear(justAbove(1e-7));
    EXPECT_EQ(projection.frustum().nearDist, justAbove(1e-7));
    projection.setNear(justBelow(10.0));
    EXPECT_EQ(projection.frustum().nearDist, justBelow(10.0));
}

TEST(SetNear, TakesNaN) {
    Projection projection = perspective;
    projection.setNear(nan);
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_TRUE(std::isnan(numbers(projection.frustum())[i])) << i;
    }
    EXPECT_EQ(projection.frustum().farDist, 10.0);
    EXPECT_TRUE(std::isnan(projection.matrix()(2, 3)));
    EXPECT_TRUE(std::isnan(projection.inverse()(0, 0)));
}

// The ratio of the distances is formed first: 7/3 times 3 is not 7 for every side.
TEST(SetNear, FormsTheRatioFirst) {
    Projection projection = projectionOf({-0.1, 0.1, -0.1, 0.1, 3, 10}, false);
    projection.setNear(7.0);
    EXPECT_EQ(projection.frustum().right, 0.1 * (7.0 / 3.0));
}

TEST(SetFar, MovesTheFarPlaneAlone) {
    for (const bool orthographic : bothTypes) {
        Projection projection = projectionOf(offCentre, orthographic);
        projection.setFar(50.0);
        EXPECT_TRUE(same(projection, projectionOf({-1, 3, -2, 6, 2, 50}, orthographic)));
    }
}

TEST(SetFar, RejectsNearAndWhatIsBefore) {
    for (const double distance : {2.0, 1.0, -5.0}) {
        EXPECT_TRUE(unchanged(perspective, [&](Projection& projection) { projection.setFar(distance); })) << distance;
    }
}

TEST(SetFar, TakesTheFirstNumberBeyondNear) {
    Projection projection = perspective;
    projection.setFar(justAbove(2.0));
    EXPECT_EQ(projection.frustum().farDist, justAbove(2.0));
}

TEST(SetFar, TakesNaN) {
    Projection projection = perspective;
    projection.setFar(nan);
    EXPECT_TRUE(std::isnan(projection.frustum().farDist));
    EXPECT_EQ(projection.frustum().right, 3.0);
}

TEST(Zoom, ScalesTheExtentsAboutTheirCentre) {
    for (const bool orthographic : bothTypes) {
        Projection projection = projectionOf(offCentre, orthographic);
        projection.zoom(2.0);
        EXPECT_TRUE(same(projection, projectionOf({-3, 5, -6, 10, 2, 10}, orthographic)));
        projection.zoom(0.25);
        EXPECT_TRUE(same(projection, projectionOf({0, 2, 0, 4, 2, 10}, orthographic)));
    }
}

TEST(Zoom, ByANegativeFactorOrByZeroWhichWouldEmptyTheFrustumChangesNothing) {
    for (const double factor : {-1.0, -5e-324, -infinity, 0.0, -0.0}) {
        EXPECT_TRUE(unchanged(perspective, [&](Projection& projection) { projection.zoom(factor); })) << factor;
    }
}

// The matrices hold the ratio of the frustum's height to its near distance, which is about 1 at first, and doubles
// reach to 2^1024 both ways.
TEST(Zoom, ByTwoOrAHalfStaysFiniteAThousandTimes) {
    for (const double factor : {2.0, 0.5}) {
        Projection projection;
        int count = 0;
        for (; std::isfinite(projection.matrix()(1, 1)) && std::isfinite(projection.inverse()(1, 1)); ++count) {
            projection.zoom(factor);
            ASSERT_LT(count, 3000);
        }
        EXPECT_NEAR(count, 1024, 2) << factor;
    }
}

TEST(Zoom, TakesNaN) {
    Projection projection = perspective;
    projection.zoom(nan);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_TRUE(std::isnan(numbers(projection.frustum())[i])) << i;
    }
    EXPECT_EQ(projection.frustum().nearDist, 2.0);
}

TEST(SetProjectionMatrix, StoresTheMatrixAndKeepsTheInverse) {
    const Mat4 matrix = math::makeOrtho({-5, 5, -5, 5, 1, 2});
    Projection projection = perspective;
    projection.setProjectionMatrix(matrix, true);
    EXPECT_EQ(projection.matrix(), matrix);
    EXPECT_EQ(projection.inverse(), perspective.inverse());
    EXPECT_TRUE(projection.isOrthographic());
}

// Saved cameras depend on it: the frustum is that of the previous projection, with near and far of view space's sign.
TEST(SetProjectionMatrix, DerivesTheFrustumFromThePreviousProjectionEachTime) {
    for (const bool orthographic : bothTypes) {
        Projection projection = projectionOf(offCentre, orthographic);
        projection.setProjectionMatrix(Mat4{}, false);
        const Frustum first = projection.frustum();
        EXPECT_TRUE(near(first, Frustum{-1, 3, -2, 6, -2, -10}, 32 * epsilon));
        EXPECT_FALSE(projection.isOrthographic());
        projection.setProjectionMatrix(math::makeOrtho({-5, 5, -5, 5, 1, 2}), true);
        EXPECT_EQ(projection.frustum(), first);
        EXPECT_TRUE(projection.isOrthographic());
    }
}

TEST(SetProjectionMatrix, TakesEachSideFromItsOwnPointAndDoesNotDivideByATraceOfW) {
    for (const double w : {1.0, 1e-4}) {
        // Diagonal 2, 3, 5, moved by 10, 20, 30: x is 2x + 10, y is 3y + 20, z is 5z + 30.
        const Mat4 inverse = rows4({{{2, 0, 0, 10}, {0, 3, 0, 20}, {0, 0, 5, 30}, {0, 0, 0, w}}});
        auto projection = forged<Projection>(Mat4{}, inverse, Projection::Block::Type{}, offCentre);
        projection.setProjectionMatrix(Mat4{}, false);
        EXPECT_EQ(projection.frustum(), (Frustum{8, 12, 17, 23, 25, 35})) << w;
    }
}

// Far distances of 10^4 and more: w there is 1/far, at most the tolerance, and is not divided by.
TEST(SetProjectionMatrix, DerivesADistantFarPlaneUndivided) {
    Projection projection = projectionOf({-1, 1, -1, 1, 1, 1e6}, false);
    projection.setProjectionMatrix(Mat4{}, false);
    EXPECT_EQ(projection.frustum().farDist, -1.0);
}

TEST(SetProjectionMatrix, TakesNaN) {
    Mat4 matrix;
    matrix(0, 0) = nan;
    Projection projection = perspective;
    projection.setProjectionMatrix(matrix, false);
    EXPECT_TRUE(std::isnan(projection.matrix()(0, 0)));
    EXPECT_DOUBLE_EQ(projection.frustum().farDist, -10.0);
}

TEST(SetProjectionMatrix, LeavesNearNegativeSoThatSideChangesAreRejected) {
    Projection projection = perspective;
    projection.setProjectionMatrix(Mat4{}, false);
    const Projection before = projection;
    projection.zoom(2.0);
    projection.setAspectRatio(3.0);
    projection.setFoV(1.0, 1.0);
    projection.setNear(1.0); // not before far, which is negative
    projection.setFar(100.0);
    EXPECT_TRUE(same(projection, before));
}

} // namespace
} // namespace qel::api::camera::test
