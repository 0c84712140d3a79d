// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>

#include "impl/PlanarCamera.h"
#include "impl/SpaceTransforms.h"
#include "tests/impl/RandomCameras.h"

// No operation makes a non-finite camera of a finite one and finite arguments of ordinary size, those on special
// places (zero, one, the corners of a grid, the bounds of the depth) included. The exceptions, each with its smallest
// example, are in FiniteExceptions.cpp.

namespace qel::api::camera::test {
namespace {

using impl::Pixel;
using impl::PlanarCamera;
using impl::Projection;
using impl::ScreenPoint;
using impl::Surface;
using impl::View;
using math::Vec3;

/// Arguments of ordinary size for a world of a given size, every fourth of them on a special place.
class Arguments {
public:
    Arguments(Random& random, double scale) : mRandom(random), mScale(scale) {}

    [[nodiscard]] std::uint32_t below(std::uint32_t bound) { return mRandom.below(bound); }
    [[nodiscard]] bool flip() { return below(2) == 0; }
    [[nodiscard]] double number() { return special() ? below(5) - 2.0 : mRandom.between(-4.0, 4.0); }
    [[nodiscard]] double size() { return mScale * number(); }
    [[nodiscard]] Vec3 vector() {
        const auto grid = [this] { return mScale * (below(3) - 1.0); };
        const double x = grid();
        const double y = grid();
        return special() ? Vec3{x, y, grid()} : mRandom.vector(4.0 * mScale);
    }
    [[nodiscard]] ScreenPoint screenPoint() {
        const auto x = static_cast<std::int32_t>(below(3000)) - 500;
        const auto y = static_cast<std::int32_t>(below(3000)) - 500;
        return {x, y, special() ? static_cast<double>(below(2)) : mRandom.between(0.0, 1.0)};
    }
    [[nodiscard]] Pixel pixel() {
        const std::uint32_t x = below(3000);
        return {x, below(3000)};
    }
    [[nodiscard]] std::int32_t drag() { return static_cast<std::int32_t>(below(1000)) - 500; }

private:
    [[nodiscard]] bool special() { return below(4) == 0; }

    Random& mRandom;
    double mScale;
};

/// Of axes a few units long at most, in no order and not at right angles, with a translation of the world's size.
math::Mat4 anyMatrix(Arguments& a) {
    math::Mat4 matrix;
    for (std::size_t i = 0; i < 16; ++i) {
        matrix.mElements[i] = a.number();
    }
    setTranslation(matrix, a.vector());
    return matrix;
}

void turnView(View& view, Arguments& a) {
    const double x = a.number(), y = a.number(), z = a.number(), w = a.number();
    const Vec3 u = a.vector(), v = a.vector(), up = a.vector();
    switch (a.below(16)) {
    case 0: view.lookAt(u, v, up); break;
    case 1: view.setEye(u); break;
    case 2: view.setOrientation({x, y, z, w}); break;
    case 3: view.yaw(x); break;
    case 4: view.pitch(x); break;
    case 5: view.roll(x); break;
    case 6: view.yawPitchRoll(x, y, z); break;
    case 7: view.translateInViewSpace(u); break;
    case 8: view.translateInWorldSpace(u); break;
    case 9: view.setViewAlongWorldAxis(u, v, up); break;
    case 10: view.rotateAboutWorldAxis(u, v, x, y); break;
    case 11: view.rotateAboutViewAxes(u, x, y); break;
    case 12: view.setViewMatrix(View(u, v, up).viewMatrix()); break;
    case 13: view.setViewTransformMatrix(View(u, v, up).viewTransformMatrix()); break;
    case 14: view.setViewMatrix(anyMatrix(a)); break;
    default: view.setViewTransformMatrix(anyMatrix(a));
    }
}

void changeProjection(Projection& projection, Arguments& a) {
    const double x = a.number(), y = a.number();
    const double n = a.size(), f = a.size();
    switch (a.below(11)) {
    case 0: projection.setFrustum({a.size(), a.size(), a.size(), a.size(), n, f}, a.flip()); break;
    case 1: projection.setPerspective(x, y, n, f); break;
    case 2: projection.setOrthographic(a.size(), a.size(), n, f); break;
    case 3: projection.setHorizontalFoV(x); break;
    case 4: projection.setVerticalFoV(x); break;
    case 5: projection.setFoV(x, y); break;
    case 6: projection.setAspectRatio(x); break;
    case 7: projection.setNear(n); break;
    case 8: projection.setFar(f); break;
    case 9: projection.zoom(x); break;
    default: {
        Projection other;
        other.setPerspective(1.0, std::abs(x) + 0.1, std::abs(n) + 1e-6, std::abs(n) + std::abs(f) + 1e-5);
        projection.setProjectionMatrix(other.matrix(), a.flip());
    }
    }
}

void changeSurface(Surface& surface, Arguments& a) {
    switch (a.below(3)) {
    case 0:
        surface.update({a.number() / 4.0, a.number() / 4.0, a.number(), a.number(), 0.0, 1.0}, a.below(2000),
                       a.below(2000));
        break;
    case 1: surface.setResolutionX(a.below(2000)); break;
    default: surface.setResolutionY(a.below(2000));
    }
}

void navigate(PlanarCamera& camera, Arguments& a) {
    switch (a.below(10)) {
    case 0: camera.updateWindowSize(a.below(2000), a.below(2000)); break;
    case 1: camera.updateClippingPlanes(a.vector(), a.size(), a.size()); break;
    case 2: camera.fitWorldSpaceBoundingBox({a.vector(), a.vector()}); break;
    case 3: camera.fitViewSpaceBoundingBox({a.vector(), a.vector()}); break;
    case 4: camera.switchProjectionType({a.vector(), a.vector()}); break;
    case 5: camera.zoomArea(a.screenPoint(), a.screenPoint()); break;
    case 6: camera.zoomWithAnchor(a.screenPoint(), a.number()); break;
    case 7: camera.zoomWithAnchor(a.vector(), a.number()); break;
    case 8: camera.panWithAnchor(a.screenPoint(), a.drag(), a.drag()); break;
    default: camera.arcballRotation(a.vector(), a.pixel(), a.pixel());
    }
}

void operate(PlanarCamera& camera, Arguments& a) {
    switch (a.below(6)) {
    case 0: turnView(camera.view(), a); break;
    case 1: {
        Projection projection = camera.projection();
        changeProjection(projection, a);
        camera.setProjection(projection);
        break;
    }
    case 2: {
        Surface surface = camera.surface();
        changeSurface(surface, a);
        camera.setSurface(surface);
        break;
    }
    default: navigate(camera, a);
    }
}

TEST(FiniteProperties, AnyOperationOnACameraOfAnyClassLeavesItFinite) {
    forRandomCameras(71000, [](const RandomCamera& random, Random& numbers) {
        Arguments arguments(numbers, random.scale);
        ASSERT_TRUE(isFinite(random.camera));
        for (int n = 0; n < 200; ++n) {
            PlanarCamera camera = random.camera;
            operate(camera, arguments);
            ASSERT_TRUE(isFinite(camera)) << n;
        }
    });
}

// Whatever the operations before have left: frusta with a negative near, views that are no rotation.
TEST(FiniteProperties, AnyTwentyOperationsInARowLeaveACameraFinite) {
    forRandomCameras(72000, [](const RandomCamera& random, Random& numbers) {
        Arguments arguments(numbers, random.scale);
        for (int n = 0; n < 20; ++n) {
            PlanarCamera camera = random.camera;
            for (int step = 0; step < 20; ++step) {
                operate(camera, arguments);
                ASSERT_TRUE(isFinite(camera)) << n << ", " << step;
            }
        }
    });
}

TEST(FiniteProperties, TransformsOfACameraOfAnyClassAreFinite) {
    forRandomCameras(73000, [](const RandomCamera& random, Random& numbers) {
        for (int n = 0; n < 50; ++n) {
            const ScreenPoint place = randomScreenPoint(numbers, random.camera);
            ASSERT_TRUE(std::isfinite(length(screenToView(random.camera, place))));
            ASSERT_TRUE(std::isfinite(length(screenToWorld(random.camera, place))));
            ASSERT_TRUE(std::isfinite(length(worldToScreen(random.camera, numbers.vector(10.0 * random.scale)))));
        }
    });
}

} // namespace
} // namespace qel::api::camera::test
