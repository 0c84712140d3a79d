// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "impl/PlanarCamera.h"
#include "impl/Projection.h"
#include "impl/Surface.h"
#include "impl/View.h"
#include "math/Matrices.h"
#include "math/Pipeline.h"
#include "math/Vectors.h"
#include "tests/math/Near.h"

namespace qel::api::camera::test {

/// Whether the numbers are the same to the last bit, the sign of a zero and the payload of a NaN included.
template <std::size_t Count>
[[nodiscard]] bool sameBits(const std::array<double, Count>& a, const std::array<double, Count>& b) {
    for (std::size_t i = 0; i < Count; ++i) {
        if (std::bit_cast<std::uint64_t>(a[i]) != std::bit_cast<std::uint64_t>(b[i])) {
            return false;
        }
    }
    return true;
}

[[nodiscard]] inline std::array<double, 3> numbers(const math::Vec3& v) { return {v.x, v.y, v.z}; }
[[nodiscard]] inline std::array<double, 6> numbers(const math::Frustum& frustum) {
    const auto& [l, r, b, t, n, f] = frustum;
    return {l, r, b, t, n, f};
}
[[nodiscard]] inline std::array<double, 6> numbers(const math::Viewport& viewport) {
    const auto& [x, y, w, h, depthMin, depthMax] = viewport;
    return {x, y, w, h, depthMin, depthMax};
}

template <std::size_t Size>
[[nodiscard]] bool sameMatrix(const math::BasicMatrix<double, Size, Size>& a,
                              const math::BasicMatrix<double, Size, Size>& b) {
    return sameBits(a.mElements, b.mElements) && a.mKind == b.mKind;
}

/// Nothing when all parts agree, otherwise the names of those that do not.
class Differences {
public:
    void note(bool same, const char* part) {
        if (!same) {
            mParts += std::string(mParts.empty() ? "" : ", ") + part;
        }
    }
    [[nodiscard]] ::testing::AssertionResult result() const {
        if (mParts.empty()) {
            return ::testing::AssertionSuccess();
        }
        return ::testing::AssertionFailure() << "these parts differ: " << mParts;
    }

private:
    std::string mParts;
};

// Whether every part is the same to the last bit, kind words included: what "unchanged" means.

[[nodiscard]] inline ::testing::AssertionResult same(const impl::View& a, const impl::View& b) {
    Differences differences;
    differences.note(sameMatrix(a.viewTransformMatrix(), b.viewTransformMatrix()), "view transform matrix");
    differences.note(sameMatrix(a.viewMatrix(), b.viewMatrix()), "view matrix");
    differences.note(sameMatrix(a.rotation(), b.rotation()), "rotation");
    differences.note(sameBits(numbers(a.eye()), numbers(b.eye())), "eye");
    return differences.result();
}

[[nodiscard]] inline ::testing::AssertionResult same(const impl::Projection& a, const impl::Projection& b) {
    Differences differences;
    differences.note(sameMatrix(a.matrix(), b.matrix()), "projection matrix");
    differences.note(sameMatrix(a.inverse(), b.inverse()), "inverse projection matrix");
    differences.note(a.type() == b.type(), "projection type");
    differences.note(sameBits(numbers(a.frustum()), numbers(b.frustum())), "frustum");
    return differences.result();
}

[[nodiscard]] inline ::testing::AssertionResult same(const impl::Surface& a, const impl::Surface& b) {
    Differences differences;
    differences.note(sameBits(numbers(a.viewport()), numbers(b.viewport())), "viewport");
    differences.note(sameMatrix(a.matrix(), b.matrix()), "viewport matrix");
    differences.note(sameMatrix(a.inverse(), b.inverse()), "inverse viewport matrix");
    differences.note(a.resolutionX() == b.resolutionX(), "resolution x");
    differences.note(a.resolutionY() == b.resolutionY(), "resolution y");
    return differences.result();
}

[[nodiscard]] inline ::testing::AssertionResult same(const impl::PlanarCamera& a, const impl::PlanarCamera& b) {
    if (auto result = same(a.view(), b.view()); !result) {
        return result;
    }
    if (auto result = same(a.projection(), b.projection()); !result) {
        return result;
    }
    return same(a.surface(), b.surface());
}

/// Every step rounds a few times; numbers of the size of the eye's coordinates go in.
inline constexpr double steps = 64.0;

/// Whether the three matrices and the eye describe one rigid placement: the axes at right angles and of length 1,
/// right-handed, the view matrix the inverse of the view transform matrix.
[[nodiscard]] inline ::testing::AssertionResult consistent(const impl::View& view) {
    const math::Mat3& rotation = view.rotation();
    const double size = 1.0 + length(view.eye());
    if (auto result = near(product(rotation, transposed(rotation)), math::Mat3{}, 8 * epsilon); !result) {
        return result << "\nthe rotation is not orthonormal";
    }
    if (dot(cross(column(rotation, 0), column(rotation, 1)), column(rotation, 2)) < 0.0) {
        return ::testing::AssertionFailure() << "the rotation is left-handed";
    }
    math::Mat4 expected;
    setLinearPart(expected, rotation);
    setTranslation(expected, view.eye());
    if (auto result = near(view.viewTransformMatrix(), expected, 0.0); !result) {
        return result << "\nthe view transform matrix is not made of rotation and eye";
    }
    return near(view.viewMatrix(), generalInverse(expected), steps * epsilon * size)
           << "\nthe view matrix is not the inverse of the view transform matrix";
}

template <std::size_t Count>
[[nodiscard]] bool isFinite(const std::array<double, Count>& values) {
    return std::all_of(values.begin(), values.end(), [](double value) { return std::isfinite(value); });
}
[[nodiscard]] inline bool isFinite(const impl::View& view) {
    return isFinite(view.viewTransformMatrix().mElements) && isFinite(view.viewMatrix().mElements) &&
           isFinite(view.rotation().mElements) && isFinite(numbers(view.eye()));
}
[[nodiscard]] inline bool isFinite(const impl::Projection& projection) {
    return isFinite(projection.matrix().mElements) && isFinite(projection.inverse().mElements) &&
           isFinite(numbers(projection.frustum()));
}
[[nodiscard]] inline bool isFinite(const impl::Surface& surface) {
    return isFinite(surface.matrix().mElements) && isFinite(surface.inverse().mElements) &&
           isFinite(numbers(surface.viewport()));
}
[[nodiscard]] inline bool isFinite(const impl::PlanarCamera& camera) {
    return isFinite(camera.view()) && isFinite(camera.projection()) && isFinite(camera.surface());
}

/// The kind words of view transform matrix, view matrix and rotation.
using Kinds = std::array<std::uint32_t, 3>;

[[nodiscard]] inline Kinds kinds(const impl::View& view) {
    return {static_cast<std::uint32_t>(view.viewTransformMatrix().mKind),
            static_cast<std::uint32_t>(view.viewMatrix().mKind), static_cast<std::uint32_t>(view.rotation().mKind)};
}

/// The view with other kind words, as a forged or an old image may hold them.
[[nodiscard]] inline impl::View withKinds(const impl::View& view, const Kinds& words) {
    math::Mat4 viewTransformMatrix = view.viewTransformMatrix();
    math::Mat4 viewMatrix = view.viewMatrix();
    math::Mat3 rotation = view.rotation();
    viewTransformMatrix.mKind = math::MatrixKind{words[0]};
    viewMatrix.mKind = math::MatrixKind{words[1]};
    rotation.mKind = math::MatrixKind{words[2]};
    return {viewTransformMatrix, viewMatrix, rotation, view.eye()};
}

/// A view that stands anywhere and is turned in no special way.
[[nodiscard]] inline impl::View someView() { return {{1, 2, 3}, {4, -6, 5}, {0.5, 1, 0.25}}; }

[[nodiscard]] inline impl::View randomView(Random& random, double size) {
    const math::Vec3 eye = random.vector(size);
    const math::Vec3 direction = random.direction();
    return {eye, eye + direction * size, cross(direction, random.direction())};
}

[[nodiscard]] inline impl::Projection projectionOf(const math::Frustum& frustum, bool orthographic) {
    impl::Projection projection;
    projection.setFrustum(frustum, orthographic);
    return projection;
}

[[nodiscard]] inline impl::Surface surfaceOf(const math::Viewport& viewport, std::uint32_t resolutionX,
                                             std::uint32_t resolutionY) {
    impl::Surface surface;
    surface.update(viewport, resolutionX, resolutionY);
    return surface;
}

/// Orthographic, one unit of view space to a pixel of 512 by 512, all steps exact: view (x, y) is at pixel (x, y).
[[nodiscard]] inline impl::PlanarCamera pixelCamera() {
    return {impl::View{}, projectionOf({0, 512, 0, 512, 1, 3}, true), surfaceOf({}, 512, 512)};
}

/// Perspective, a right angle wide and high, 512 by 512 pixels, five ahead of the origin and looking at it.
[[nodiscard]] inline impl::PlanarCamera squareCamera() {
    return {{{0, 0, 5}, {0, 0, 0}, {0, 1, 0}}, projectionOf({-1, 1, -1, 1, 1, 9}, false), surfaceOf({}, 512, 512)};
}

/// Nothing about it is round, centred or aligned.
[[nodiscard]] inline impl::PlanarCamera someCamera(bool orthographic) {
    return {someView(), projectionOf({-0.3, 0.5, -0.25, 0.4, 0.7, 90}, orthographic),
            surfaceOf({0.1, 0.2, 0.7, 0.6, 0, 1}, 800, 600)};
}

} // namespace qel::api::camera::test
