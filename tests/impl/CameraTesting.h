// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

#include "impl/Blob.h"
#include "impl/PlanarCamera.h"
#include "impl/Projection.h"
#include "impl/Surface.h"
#include "impl/View.h"
#include "math/Matrices.h"
#include "math/Pipeline.h"
#include "math/Vectors.h"
#include "tests/math/Near.h"

namespace qel::api::camera::test {

/// Aligned as the storage of a string is, since the numbers are read where they stand.
template <class Object>
struct alignas(8) Blob : std::array<char, impl::blobSize<Object>> {};

template <class Object>
[[nodiscard]] Blob<Object> blobOf(const Object& object) {
    Blob<Object> blob;
    object.writeTo(blob);
    return blob;
}

/// The object whose block holds just these members, consistent or not: what a forged blob makes.
template <class Object, class... Members>
[[nodiscard]] Object forged(const Members&... members) {
    static_assert((sizeof(Members) + ...) == sizeof(typename Object::Block));
    Blob<Object> blob;
    impl::BlobWriter out(blob.data());
    (out.put(members), ...);
    return Object(blob);
}

[[nodiscard]] inline impl::Projection forgedProjection(std::int32_t type, const math::Frustum& frustum) {
    return forged<impl::Projection>(math::Mat4{}, math::Mat4{}, impl::Projection::Block::Type{type}, frustum);
}

[[nodiscard]] inline impl::Surface forgedSurface(std::uint32_t resolutionX, std::uint32_t resolutionY) {
    return forged<impl::Surface>(math::Viewport{}, math::Mat4{}, math::Mat4{}, resolutionX, resolutionY);
}

[[nodiscard]] inline impl::PlanarCamera cameraOf(const impl::View& view, const impl::Projection& projection,
                                                 const impl::Surface& surface) {
    return {blobOf(view), blobOf(projection), blobOf(surface)};
}

/// Whether the objects are the same to the last bit, kind words and the sign of a zero included: what "unchanged"
/// means.
template <class Object>
[[nodiscard]] ::testing::AssertionResult same(const Object& a, const Object& b) {
    const Blob<Object> first = blobOf(a);
    const Blob<Object> second = blobOf(b);
    const auto difference = std::mismatch(first.begin(), first.end(), second.begin()).first - first.begin();
    if (difference == std::ssize(first)) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure() << "the blobs differ from byte " << difference << " on";
}

/// An object after an operation on a copy of it.
template <class Object, class Operation>
[[nodiscard]] Object after(Object object, Operation operation) {
    operation(object);
    return object;
}

/// Whether an operation leaves every bit of an object as it is.
template <class Object, class Operation>
[[nodiscard]] ::testing::AssertionResult unchanged(const Object& before, Operation operation) {
    return same(after(before, operation), before);
}

[[nodiscard]] inline std::array<double, 6> numbers(const math::Frustum& frustum) {
    const auto& [l, r, b, t, n, f] = frustum;
    return {l, r, b, t, n, f};
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

/// The kind words of view transform matrix, view matrix and rotation.
using Kinds = std::array<std::uint32_t, 3>;

[[nodiscard]] inline Kinds kinds(const impl::View& view) {
    return {static_cast<std::uint32_t>(view.viewTransformMatrix().mKind),
            static_cast<std::uint32_t>(view.viewMatrix().mKind), static_cast<std::uint32_t>(view.rotation().mKind)};
}

/// The view with other kind words, as a forged or an old blob may hold them.
[[nodiscard]] inline impl::View withKinds(const impl::View& view, const Kinds& words) {
    math::Mat4 viewTransformMatrix = view.viewTransformMatrix();
    math::Mat4 viewMatrix = view.viewMatrix();
    math::Mat3 rotation = view.rotation();
    viewTransformMatrix.mKind = math::MatrixKind{words[0]};
    viewMatrix.mKind = math::MatrixKind{words[1]};
    rotation.mKind = math::MatrixKind{words[2]};
    return forged<impl::View>(viewTransformMatrix, viewMatrix, rotation, view.eye());
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
    return cameraOf(impl::View(), projectionOf({0, 512, 0, 512, 1, 3}, true), surfaceOf({}, 512, 512));
}

/// Perspective, a right angle wide and high, 512 by 512 pixels, five ahead of the origin and looking at it.
[[nodiscard]] inline impl::PlanarCamera squareCamera() {
    return cameraOf({{0, 0, 5}, {0, 0, 0}, {0, 1, 0}}, projectionOf({-1, 1, -1, 1, 1, 9}, false),
                    surfaceOf({}, 512, 512));
}

/// Nothing about it is round, centred or aligned.
[[nodiscard]] inline impl::PlanarCamera someCamera(bool orthographic) {
    return cameraOf(someView(), projectionOf({-0.3, 0.5, -0.25, 0.4, 0.7, 90}, orthographic),
                    surfaceOf({0.1, 0.2, 0.7, 0.6, 0, 1}, 800, 600));
}

} // namespace qel::api::camera::test
