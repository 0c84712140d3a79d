// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <type_traits>

#include "impl/Projection.h"
#include "math/Pipeline.h"
#include "tests/impl/CameraTesting.h"

namespace qel::api::camera::test {
namespace {

using impl::Projection;
using math::Frustum;
using math::Mat4;

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
    EXPECT_TRUE(same(projection, perspective(projection.frustum())));
    EXPECT_EQ(projection.frustum().left, -projection.frustum().right);
    EXPECT_EQ(projection.frustum().bottom, -projection.frustum().top);
    EXPECT_NEAR(projection.verticalFoV(), pi / 4.0, 8 * epsilon);
    EXPECT_NEAR(projection.aspectRatio(), 4.0 / 3.0, 4 * epsilon);
}

TEST(Projection, IsOrthographicForTypeOneAloneAndTheNextFrustumSettlesAnyOther) {
    for (const std::int32_t type : {0, 1, 2, 7, -1}) {
        Projection projection = forgedProjection(type, valid);
        EXPECT_EQ(projection.isOrthographic(), type == 1);
        projection.setFrustum(valid, false);
        EXPECT_TRUE(same(projection, perspective(valid)));
    }
}

/// What two sizes, near and far make of a projection of the other type.
struct Shape {
    double first, second, nearDist, farDist;
};

Projection perspectiveOf(const Shape& shape) {
    Projection projection = orthographic(valid);
    projection.setPerspective(shape.first, shape.second, shape.nearDist, shape.farDist);
    return projection;
}

Projection orthographicOf(const Shape& shape) {
    Projection projection = perspective(valid);
    projection.setOrthographic(shape.first, shape.second, shape.nearDist, shape.farDist);
    return projection;
}

TEST(Projection, PerspectiveComesFromTheVerticalFieldOfView) {
    // tan(pi / 4) is 1: half as high as near is far.
    const Projection projection = perspectiveOf({pi / 2.0, 2.0, 3.0, 30.0});
    EXPECT_TRUE(near(projection.frustum(), Frustum{-6, 6, -3, 3, 3, 30}, 8 * epsilon));
    EXPECT_TRUE(same(projection, perspective(projection.frustum())));
}

TEST(Projection, OrthographicComesFromWidthAndHeight) {
    EXPECT_TRUE(same(orthographicOf({6.0, 4.0, 3.0, 30.0}), orthographic({-3, 3, -2, 2, 3, 30})));
}

TEST(Projection, RejectsADegenerateShapeOfEitherType) {
    for (const Shape& shape : {Shape{0, 1, 1, 2}, Shape{-1, 1, 1, 2}, Shape{1e-7, 1, 1, 2}, Shape{1, 0, 1, 2},
                               Shape{1, -1, 1, 2}, Shape{1, 1e-7, 1, 2}, Shape{1, 1, 0, 2}, Shape{1, 1, -1, 2},
                               Shape{1, 1, 1e-7, 2}, Shape{1, 1, 2, 2}, Shape{1, 1, 3, 2}}) {
        SCOPED_TRACE(::testing::PrintToString(std::array{shape.first, shape.second, shape.nearDist, shape.farDist}));
        EXPECT_TRUE(same(perspectiveOf(shape), orthographic(valid)));
        EXPECT_TRUE(same(orthographicOf(shape), perspective(valid)));
    }
}

TEST(Projection, AcceptsAShapeJustAboveTheTolerance) {
    const double least = justAbove(1e-7);
    EXPECT_EQ(perspectiveOf({least, least, least, 1.0}).frustum().nearDist, least);
    EXPECT_EQ(perspectiveOf({1.0, 1.0, 1.0, justAbove(1.0)}).frustum().farDist, justAbove(1.0));
    EXPECT_EQ(orthographicOf({least, least, least, 1.0}).frustum(),
              (Frustum{-least / 2, least / 2, -least / 2, least / 2, least, 1}));
}

TEST(Projection, TakesNaNForAnyPartOfAShape) {
    for (const Shape& shape : {Shape{nan, 1, 1, 2}, Shape{1, nan, 1, 2}, Shape{1, 1, nan, 2}, Shape{1, 1, 1, nan}}) {
        const Projection central = perspectiveOf(shape);
        EXPECT_FALSE(central.isOrthographic());
        EXPECT_EQ(std::isnan(central.frustum().right), !std::isnan(shape.farDist)) << "the sides hold all but far";
        const Projection parallel = orthographicOf(shape);
        EXPECT_TRUE(parallel.isOrthographic());
        EXPECT_EQ(std::isnan(parallel.frustum().right), std::isnan(shape.first));
        EXPECT_EQ(std::isnan(parallel.frustum().top), std::isnan(shape.second));
        for (const Projection& projection : {central, parallel}) {
            EXPECT_EQ(std::isnan(projection.frustum().nearDist), std::isnan(shape.nearDist));
            EXPECT_EQ(std::isnan(projection.frustum().farDist), std::isnan(shape.farDist));
        }
    }
}

TEST(Projection, SetFrustumTakesItAndMakesTheMatricesOfItsType) {
    EXPECT_TRUE(same(perspective(valid), forged<Projection>(math::makeFrustum(valid), math::makeFrustumInverse(valid),
                                                            Projection::Block::Type{0}, valid)));
    EXPECT_TRUE(same(orthographic(valid), forged<Projection>(math::makeOrtho(valid), math::makeOrthoInverse(valid),
                                                             Projection::Block::Type{1}, valid)));
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

// The difference of the sides overflows, or its reciprocal does; a frustum not quite so wide or so narrow is finite.
TEST(Projection, HoldsInfinitiesWhereItsSidesAreTooFarApartOrTooClose) {
    EXPECT_EQ(orthographic({-1e308, 1e308, -1, 1, 1, 3}).inverse()(0, 0), infinity);
    EXPECT_EQ(orthographic({-0.8e308, 0.8e308, -1, 1, 1, 3}).inverse()(0, 0), 0.8e308);
    EXPECT_EQ(perspective({0, 1e-308, -1, 1, 1, 3}).matrix()(0, 0), infinity);
    EXPECT_TRUE(std::isfinite(perspective({0, 1e-307, -1, 1, 1, 3}).matrix()(0, 0)));
}

} // namespace
} // namespace qel::api::camera::test
