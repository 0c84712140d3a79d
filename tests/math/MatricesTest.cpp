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

} // namespace
} // namespace qel::api::camera::test
