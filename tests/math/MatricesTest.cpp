// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>

#include "math/Matrices.h"
#include "tests/math/Near.h"

namespace qel::api::camera::test {
namespace {

using math::Mat3;
using math::Mat4;
using math::MatrixKind;
using math::transformPoint;
using math::transformVector;
using math::Vec3;
using math::Vec4;

const Mat3 digits3 = rows3({{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}}, MatrixKind{48});
const Mat4 digits4 = rows4({{{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}, {13, 14, 15, 16}}}, MatrixKind{48});

TEST(MatrixProduct, MultipliesRowsByTheVector) { EXPECT_EQ(digits3 * (Vec3{1, 10, 100}), (Vec3{321, 654, 987})); }

TEST(MatrixProduct, MultipliesAllFourRowsWithoutADivide) {
    EXPECT_EQ(digits4 * (Vec4{1, 10, 100, 1000}), (Vec4{4321, 8765, 13209, 17653}));
}

// The product of one large pair must be gone before the small term comes.
TEST(MatrixProduct, SumsFromTheLeft) {
    const Mat3 m = rows3({{{1e20, -1e20, 1}, {1, 1e20, -1e20}, {0, 0, 0}}});
    EXPECT_EQ(m * (Vec3{1, 1, 1}), (Vec3{1, 0, 0}));
    const Mat4 m4 = rows4({{{1e20, -1e20, 1, 1}, {1, 1e20, -1e20, 1}, {1, 1, 1e20, -1e20}, {0, 0, 0, 1}}});
    EXPECT_EQ(m4 * (Vec4{1, 1, 1, 1}), (Vec4{2, 1, 0, 1}));
}

TEST(Transpose, SwapsRowsAndColumnsAndKeepsTheKind) {
    EXPECT_EQ(transposed(digits3), rows3({{{1, 4, 7}, {2, 5, 8}, {3, 6, 9}}}, MatrixKind{48}));
}

TEST(MatrixParts, ReadColumnsRowsAndTranslation) {
    EXPECT_EQ(column(digits3, 0), (Vec3{1, 4, 7}));
    EXPECT_EQ(column(digits3, 2), (Vec3{3, 6, 9}));
    EXPECT_EQ(row(digits4, 0), (Vec3{1, 2, 3}));
    EXPECT_EQ(row(digits4, 2), (Vec3{9, 10, 11}));
    EXPECT_EQ(translation(digits4), (Vec3{4, 8, 12}));
}

TEST(MatrixParts, WritingATranslationKeepsKindAndTheRest) {
    Mat4 m = digits4;
    setTranslation(m, {-1, -2, -3});
    EXPECT_EQ(m, rows4({{{1, 2, 3, -1}, {5, 6, 7, -2}, {9, 10, 11, -3}, {13, 14, 15, 16}}}, MatrixKind{48}));
}

TEST(MatrixParts, WritingTheLinearPartKeepsKindAndTheRest) {
    Mat4 m = digits4;
    setLinearPart(m, rows3({{{-1, -2, -3}, {-4, -5, -6}, {-7, -8, -9}}}));
    EXPECT_EQ(m, rows4({{{-1, -2, -3, 4}, {-4, -5, -6, 8}, {-7, -8, -9, 12}, {13, 14, 15, 16}}}, MatrixKind{48}));
}

/// Doubles coordinates and moves them by (10, 20, 30); the last row gives w.
Mat4 withLastRow(double x, double y, double z, double w) {
    return rows4({{{2, 0, 0, 10}, {0, 2, 0, 20}, {0, 0, 2, 30}, {x, y, z, w}}});
}

TEST(TransformPoint, AddsTheTranslation) {
    EXPECT_EQ(transformPoint(withLastRow(0, 0, 0, 1), {1, 2, 3}), (Vec3{12, 24, 36}));
}

TEST(TransformPoint, DividesByW) {
    EXPECT_EQ(transformPoint(withLastRow(0, 0, 0, 0.5), {1, 2, 3}), (Vec3{24, 48, 72}));
    EXPECT_EQ(transformPoint(withLastRow(0, 0, 0, -4), {1, 2, 3}), (Vec3{-3, -6, -9}));
}

TEST(TransformPoint, DoesNotDivideByWUpToTheTolerance) {
    for (const double w : {1e-4, -1e-4, 0.0}) {
        EXPECT_EQ(transformPoint(withLastRow(0, 0, 0, w), {1, 2, 3}), (Vec3{12, 24, 36})) << w;
    }
}

TEST(TransformPoint, DividesByTheFirstNumberAboveTheTolerance) {
    const double w = justAbove(1e-4);
    EXPECT_TRUE(near(transformPoint(withLastRow(0, 0, 0, w), {1, 2, 3}), Vec3{12 / w, 24 / w, 36 / w}, 1e-9));
}

TEST(TransformPoint, DividesByNaN) { EXPECT_TRUE(isNaN(transformPoint(withLastRow(0, 0, 0, nan), {1, 2, 3}))); }

// 49 times the rounded reciprocal of 49 is famous for not being 1.
TEST(TransformPoint, MultipliesByTheReciprocal) {
    const Mat4 m = rows4({{{49, 0, 0, 0}, {0, 49, 0, 0}, {0, 0, 49, 0}, {0, 0, 0, 49}}});
    EXPECT_EQ(transformPoint(m, {1, 0, 0}).x, justBelow(1.0));
}

TEST(TransformVector, IgnoresTheTranslation) {
    EXPECT_EQ(transformVector(withLastRow(0, 0, 0, 1), {1, 2, 3}), (Vec3{2, 4, 6}));
}

TEST(TransformVector, DividesByWWhereTheLastRowMakesOne) {
    EXPECT_EQ(transformVector(withLastRow(0.5, 0, 0, 1), {1, 2, 3}), (Vec3{4, 8, 12}));
}

TEST(TransformVector, DoesNotDivideByATraceOfW) {
    EXPECT_EQ(transformVector(withLastRow(0.00005, 0, 0, 1), {1, 2, 3}), (Vec3{2, 4, 6}));
    EXPECT_EQ(transformVector(withLastRow(1e-4, 0, 0, 1), {1, 2, 3}), (Vec3{2, 4, 6}));
}

TEST(TransformVector, ShowsANonFiniteHomogeneousScale) {
    EXPECT_TRUE(isNaN(transformVector(withLastRow(0, 0, 0, infinity), {1, 2, 3})));
    EXPECT_TRUE(isNaN(transformVector(withLastRow(0, 0, 0, nan), {1, 2, 3})));
}

TEST(TransformVector, ShowsANonFiniteTranslationInItsRow) {
    Mat4 m = withLastRow(0, 0, 0, 1);
    m(1, 3) = infinity;
    const Vec3 v = transformVector(m, {1, 2, 3});
    EXPECT_EQ(v.x, 2.0);
    EXPECT_TRUE(std::isnan(v.y));
    EXPECT_EQ(v.z, 6.0);
}

} // namespace
} // namespace qel::api::camera::test
