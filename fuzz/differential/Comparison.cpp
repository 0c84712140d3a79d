// SPDX-License-Identifier: Apache-2.0
#include "fuzz/differential/Comparison.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>

#include "fuzz/Require.h"

namespace camera::fuzz::differential {

using oracle::rounding;

namespace {

[[noreturn]] void differs(const char* what, Real got, Real expected, Real allowed) {
    std::array<char, 200> line{};
    std::snprintf(line.data(), line.size(), "%s: got %.21Lg, expected %.21Lg, differ by %.3Lg, allowed is %.3Lg", what,
                  got, expected, std::abs(got - expected), allowed);
    broken(line.data());
}

void compareViews(const oracle::View& got, const oracle::View& expected, const Exactness& exactness) {
    // Above 1 for a host's own matrix only.
    Real size = 1.0L;
    for (std::size_t r = 0; r < 3; ++r) {
        for (std::size_t k = 0; k < 3; ++k) {
            size = std::max({size, std::abs(expected.rotation[r][k]), std::abs(expected.toView[r][k])});
        }
    }
    const Real e = rounding * exactness.condition;
    const Real place = e * size * (exactness.scale + length(expected.eye));
    compareMatrix("rotation", got.rotation, expected.rotation, e * size, 0.0L);
    compareMatrix("view transform matrix", got.toWorld, expected.toWorld, place, e);
    compareMatrix("view matrix", got.toView, expected.toView, place, e);
    compare("eye x", got.eye.x, expected.eye.x, place);
    compare("eye y", got.eye.y, expected.eye.y, place);
    compare("eye z", got.eye.z, expected.eye.z, place);
    require(got.toWorldKind == expected.toWorldKind, "the kind of the view transform matrix");
    require(got.toViewKind == expected.toViewKind, "the kind of the view matrix");
}

void compareProjections(const oracle::Projection& got, const oracle::Projection& p, const Exactness& exactness) {
    const Real e = rounding * exactness.condition;
    require(got.orthographic == p.orthographic, "the type of the projection");
    const Real sides = e * std::max({std::abs(p.l), std::abs(p.r), std::abs(p.b), std::abs(p.t)});
    compare("left", got.l, p.l, sides);
    compare("right", got.r, p.r, sides);
    compare("bottom", got.b, p.b, sides);
    compare("top", got.t, p.t, sides);
    compare("near", got.n, p.n, e * std::abs(p.n));
    compare("far", got.f, p.f, e * std::abs(p.f));
    compareMatrix("projection matrix", got.matrix, p.matrix, e, e);
    compareMatrix("inverse projection matrix", got.inverse, p.inverse, sides / std::min(std::abs(p.n), 1.0L), e);
}

void compareSurfaces(const oracle::Surface& got, const oracle::Surface& expected) {
    require(got.resolutionX == expected.resolutionX && got.resolutionY == expected.resolutionY, "the resolution");
    for (std::size_t i = 0; i < got.viewport.size(); ++i) {
        compareExactly("viewport", got.viewport[i], expected.viewport[i]);
    }
    compareMatrix("viewport matrix", got.matrix, expected.matrix, rounding, rounding);
    compareMatrix("inverse viewport matrix", got.inverse, expected.inverse, rounding, rounding);
}

} // namespace

void compare(const char* what, Real got, Real expected, Real allowed) {
    if (got == expected || (std::isnan(got) && std::isnan(expected))) {
        return;
    }
    if (!std::isfinite(expected) || !(std::abs(got - expected) <= allowed)) {
        differs(what, got, expected, allowed);
    }
}

void compareExactly(const char* what, Real got, Real expected) { compare(what, got, expected, 0.0L); }

void compareCameras(const oracle::Camera& got, const oracle::Camera& expected, const Exactness& exactness) {
    compareViews(got.view, expected.view, exactness);
    compareProjections(got.projection, expected.projection, exactness);
    compareSurfaces(got.surface, expected.surface);
}

} // namespace camera::fuzz::differential
