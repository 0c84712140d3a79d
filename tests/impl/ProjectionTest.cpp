// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>
#include <type_traits>

#include "impl/Projection.h"
#include "math/Pipeline.h"
#include "tests/impl/CameraTesting.h"

namespace qel::api::camera::test {
namespace {

using impl::Projection;
using math::Frustum;
using math::Mat4;
using math::MatrixKind;

static_assert(std::has_virtual_destructor_v<Projection>);
static_assert(std::is_nothrow_move_constructible_v<Projection> && std::is_nothrow_move_assignable_v<Projection>);
static_assert(std::is_nothrow_copy_constructible_v<Projection> && std::is_nothrow_copy_assignable_v<Projection>);
static_assert(!std::is_convertible_v<Frustum, Projection> && !std::is_convertible_v<Mat4, Projection>);

const Frustum valid{-1, 3, -2, 6, 2, 10};

Projection perspective(const Frustum& frustum) { return projectionOf(frustum, false); }
Projection orthographic(const Frustum& frustum) { return projectionOf(frustum, true); }

TEST(Projection, SeesFortyFiveDegreesInFourToThreeAtFirst) {
    const Projection projection;
    const double top = 0.01 * std::tan(pi / 8.0);
    EXPECT_TRUE(near(projection.frustum(), Frustum{-top * 4 / 3, top * 4 / 3, -top, top, 0.01, 10000}, 1e-17));
    EXPECT_EQ(projection.type(), 0);
    EXPECT_FALSE(projection.isOrthographic());
    EXPECT_NEAR(projection.verticalFoV(), pi / 4.0, 8 * epsilon);
    EXPECT_NEAR(projection.horizontalFoV(), 2.0 * std::atan(4.0 / 3.0 * std::tan(pi / 8.0)), 8 * epsilon);
    EXPECT_NEAR(projection.aspectRatio(), 4.0 / 3.0, 4 * epsilon);
}

TEST(Projection, IsSymmetricAtFirst) {
    const Frustum frustum = Projection().frustum();
    EXPECT_EQ(frustum.left, -frustum.right);
    EXPECT_EQ(frustum.bottom, -frustum.top);
}

TEST(Projection, HasTheMatricesOfItsFrustumAtFirst) {
    const Projection projection;
    EXPECT_EQ(projection.matrix(), math::makeFrustum(projection.frustum()));
    EXPECT_EQ(projection.inverse(), math::makeFrustumInverse(projection.frustum()));
    EXPECT_EQ(projection.matrix().mKind, MatrixKind::general);
}

TEST(Projection, CopiesEveryPart) {
    Mat4 inverse;
    inverse(1, 2) = 7.0;
    const auto projection = forged<Projection>(math::makeOrtho(valid), inverse, Projection::Block::Type{7}, valid);
    const Projection copy = projection;
    EXPECT_TRUE(same(copy, projection));
    Projection assigned;
    assigned = projection;
    EXPECT_TRUE(same(assigned, projection));
}

TEST(Projection, TakesAnyTypeAsGivenAndOnlyOneIsOrthographic) {
    for (const std::int32_t type : {0, 1, 2, 7, -1}) {
        const Projection projection = forgedProjection(type, valid);
        EXPECT_EQ(projection.type(), type);
        EXPECT_EQ(projection.isOrthographic(), type == 1);
    }
}

TEST(Projection, PerspectiveComesFromTheVerticalFieldOfView) {
    // tan(pi / 4) is 1: half as high as near is far.
    Projection projection;
    projection.setPerspective(pi / 2.0, 2.0, 3.0, 30.0);
    EXPECT_TRUE(near(projection.frustum(), Frustum{-6, 6, -3, 3, 3, 30}, 8 * epsilon));
    EXPECT_EQ(projection.type(), 0);
    EXPECT_EQ(projection.matrix(), math::makeFrustum(projection.frustum()));
    EXPECT_EQ(projection.inverse(), math::makeFrustumInverse(projection.frustum()));
}

TEST(Projection, PerspectiveReplacesOrthographic) {
    Projection projection = orthographic(valid);
    projection.setPerspective(pi / 2.0, 2.0, 3.0, 30.0);
    EXPECT_FALSE(projection.isOrthographic());
}

struct PerspectiveArguments {
    double verticalFoV, aspectRatio, nearDist, farDist;
};

TEST(Projection, RejectsADegeneratePerspective) {
    for (const auto& [fov, aspect, n, f] :
         {PerspectiveArguments{0, 1, 1, 2}, PerspectiveArguments{-1, 1, 1, 2}, PerspectiveArguments{1e-7, 1, 1, 2},
          PerspectiveArguments{1, 0, 1, 2}, PerspectiveArguments{1, -1, 1, 2}, PerspectiveArguments{1, 1e-7, 1, 2},
          PerspectiveArguments{1, 1, 0, 2}, PerspectiveArguments{1, 1, -1, 2}, PerspectiveArguments{1, 1, 1e-7, 2},
          PerspectiveArguments{1, 1, 2, 2}, PerspectiveArguments{1, 1, 3, 2}}) {
        Projection projection = orthographic(valid);
        projection.setPerspective(fov, aspect, n, f);
        EXPECT_TRUE(same(projection, orthographic(valid))) << fov << ' ' << aspect << ' ' << n << ' ' << f;
    }
}

TEST(Projection, AcceptsAPerspectiveJustAboveTheTolerance) {
    const double least = justAbove(1e-7);
    Projection projection = orthographic(valid);
    projection.setPerspective(least, least, least, 1.0);
    EXPECT_FALSE(projection.isOrthographic());
    EXPECT_EQ(projection.frustum().nearDist, least);
    projection.setPerspective(1.0, 1.0, 1.0, justAbove(1.0));
    EXPECT_EQ(projection.frustum().farDist, justAbove(1.0));
}

TEST(Projection, PerspectiveTakesNaNForAnyArgument) {
    for (const auto& [fov, aspect, n, f] : {PerspectiveArguments{nan, 1, 1, 2}, PerspectiveArguments{1, nan, 1, 2},
                                            PerspectiveArguments{1, 1, nan, 2}, PerspectiveArguments{1, 1, 1, nan}}) {
        Projection projection = orthographic(valid);
        projection.setPerspective(fov, aspect, n, f);
        EXPECT_FALSE(projection.isOrthographic());
        const Frustum& frustum = projection.frustum();
        EXPECT_EQ(std::isnan(frustum.right), !std::isnan(f)) << "the sides hold all but far";
        EXPECT_EQ(std::isnan(frustum.nearDist), std::isnan(n));
        EXPECT_EQ(std::isnan(frustum.farDist), std::isnan(f));
    }
}

TEST(Projection, OrthographicComesFromWidthAndHeight) {
    Projection projection;
    projection.setOrthographic(6.0, 4.0, 3.0, 30.0);
    EXPECT_EQ(projection.frustum(), (Frustum{-3, 3, -2, 2, 3, 30}));
    EXPECT_EQ(projection.type(), 1);
    EXPECT_EQ(projection.matrix(), math::makeOrtho(projection.frustum()));
    EXPECT_EQ(projection.inverse(), math::makeOrthoInverse(projection.frustum()));
}

TEST(Projection, RejectsADegenerateOrthographic) {
    for (const auto& [w, h, n, f] :
         {PerspectiveArguments{0, 1, 1, 2}, PerspectiveArguments{-1, 1, 1, 2}, PerspectiveArguments{1e-7, 1, 1, 2},
          PerspectiveArguments{1, 0, 1, 2}, PerspectiveArguments{1, -1, 1, 2}, PerspectiveArguments{1, 1e-7, 1, 2},
          PerspectiveArguments{1, 1, 0, 2}, PerspectiveArguments{1, 1, -1, 2}, PerspectiveArguments{1, 1, 1e-7, 2},
          PerspectiveArguments{1, 1, 2, 2}, PerspectiveArguments{1, 1, 3, 2}}) {
        Projection projection = perspective(valid);
        projection.setOrthographic(w, h, n, f);
        EXPECT_TRUE(same(projection, perspective(valid))) << w << ' ' << h << ' ' << n << ' ' << f;
    }
}

TEST(Projection, AcceptsAnOrthographicJustAboveTheTolerance) {
    const double least = justAbove(1e-7);
    Projection projection;
    projection.setOrthographic(least, least, least, 1.0);
    EXPECT_EQ(projection.frustum(), (Frustum{-least / 2, least / 2, -least / 2, least / 2, least, 1}));
}

TEST(Projection, OrthographicTakesNaNForAnyArgument) {
    for (const auto& [w, h, n, f] : {PerspectiveArguments{nan, 1, 1, 2}, PerspectiveArguments{1, nan, 1, 2},
                                     PerspectiveArguments{1, 1, nan, 2}, PerspectiveArguments{1, 1, 1, nan}}) {
        Projection projection;
        projection.setOrthographic(w, h, n, f);
        EXPECT_TRUE(projection.isOrthographic());
        EXPECT_EQ(std::isnan(projection.frustum().right), std::isnan(w));
        EXPECT_EQ(std::isnan(projection.frustum().top), std::isnan(h));
        EXPECT_EQ(std::isnan(projection.frustum().nearDist), std::isnan(n));
        EXPECT_EQ(std::isnan(projection.frustum().farDist), std::isnan(f));
    }
}

TEST(Projection, SetFrustumTakesAnOffCentrePerspective) {
    const Projection projection = perspective(valid);
    EXPECT_EQ(projection.frustum(), valid);
    EXPECT_EQ(projection.type(), 0);
    EXPECT_EQ(projection.matrix(), math::makeFrustum(valid));
    EXPECT_EQ(projection.inverse(), math::makeFrustumInverse(valid));
}

TEST(Projection, SetFrustumTakesAnOffCentreOrthographic) {
    const Projection projection = orthographic(valid);
    EXPECT_EQ(projection.frustum(), valid);
    EXPECT_EQ(projection.type(), 1);
    EXPECT_EQ(projection.matrix(), math::makeOrtho(valid));
    EXPECT_EQ(projection.inverse(), math::makeOrthoInverse(valid));
}

TEST(Projection, SetFrustumRejectsAnEmptyOrReversedOne) {
    for (const Frustum& frustum :
         {Frustum{3, 3, -2, 6, 2, 10}, Frustum{4, 3, -2, 6, 2, 10}, Frustum{-1, 3, 6, 6, 2, 10},
          Frustum{-1, 3, 7, 6, 2, 10}, Frustum{-1, 3, -2, 6, 0, 10}, Frustum{-1, 3, -2, 6, -2, 10},
          Frustum{-1, 3, -2, 6, 1e-7, 10}, Frustum{-1, 3, -2, 6, 10, 10}, Frustum{-1, 3, -2, 6, 11, 10}}) {
        Projection projection = perspective(valid);
        projection.setFrustum(frustum, true);
        EXPECT_TRUE(same(projection, perspective(valid))) << ::testing::PrintToString(frustum);
    }
}

TEST(Projection, SetFrustumAcceptsTheNarrowestOne) {
    const Frustum narrowest{1, justAbove(1.0), 1, justAbove(1.0), justAbove(1e-7), 2e-7};
    EXPECT_EQ(perspective(narrowest).frustum(), narrowest);
}

TEST(Projection, SetFrustumTakesNaNForAnySide) {
    for (std::size_t side = 0; side < 6; ++side) {
        std::array<double, 6> sides = numbers(valid);
        sides[side] = nan;
        const Projection projection = orthographic({sides[0], sides[1], sides[2], sides[3], sides[4], sides[5]});
        EXPECT_TRUE(projection.isOrthographic()) << side;
        EXPECT_TRUE(std::isnan(numbers(projection.frustum())[side])) << side;
    }
}

TEST(Projection, SetFrustumSettlesAForgedType) {
    Projection projection = forgedProjection(7, valid);
    projection.setFrustum(valid, false);
    EXPECT_EQ(projection.type(), 0);
}

TEST(Projection, StaysAtItsDefaultWhereTheFrustumOfItsCreationIsRejected) {
    EXPECT_TRUE(same(perspective({1, 1, -1, 1, 1, 2}), Projection()));
}

} // namespace
} // namespace qel::api::camera::test
