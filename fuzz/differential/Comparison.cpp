// SPDX-License-Identifier: Apache-2.0
#include "fuzz/differential/Comparison.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <string>

#include "fuzz/Require.h"

namespace camera::fuzz::differential {

using oracle::Image;
using oracle::Judgement;
using oracle::rounding;

namespace {

[[noreturn]] void differs(const char* what, Real got, Real expected, Real allowed) {
    std::array<char, 200> line{};
    std::snprintf(line.data(), line.size(), "%s: got %.21Lg, expected %.21Lg, differ by %.3Lg, allowed is %.3Lg", what,
                  got, expected, std::abs(got - expected), allowed);
    broken(line.data());
}

void compareFields(const char* what, const api::Matrix& got, const oracle::Matrix4& expected) {
    require(got.mData.size() == 4, "a matrix has four rows");
    for (std::size_t r = 0; r < 4; ++r) {
        require(got.mData[r].size() == 4, "a row has four values");
        for (std::size_t k = 0; k < 4; ++k) {
            compareExactly(what, got.mData[r][k], expected[r][k]);
        }
    }
}

/// Of the record's own rotation, which is judged elsewhere.
void compareOrientation(const api::Quaternion& got, const oracle::Matrix3& rotation) {
    require(got.mData.size() == 4, "an orientation has four values");
    Judgement judge;
    const oracle::Quaternion expected = quaternionOf(judge, rotation);
    if (!judge.certain && !oracle::isRotation(rotation, rounding)) {
        return; // which row of the products is taken decides more than the sign
    }
    // Where rounding decides which component is positive, the opposite quaternion is the same orientation.
    Real product = 0.0L, largest = 1.0L;
    for (std::size_t i = 0; i < 4; ++i) {
        product += got.mData[i] * expected[i];
        largest = std::max(largest, std::abs(expected[i]));
    }
    const Real sign = !judge.certain && product < 0.0L ? -1.0L : 1.0L;
    for (std::size_t i = 0; i < 4; ++i) {
        compare("orientation", got.mData[i], sign * expected[i], rounding * judge.condition * largest);
    }
}

bool isPart(const std::string& whole, std::size_t start, const std::string& part, std::size_t size) {
    return part.size() == size && whole.compare(start, size, part) == 0;
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

void compareVector(const char* what, const api::Vector& got, const oracle::Vector& expected, Real allowed) {
    require(got.mData.size() == 3, "a vector has three values");
    compare(what, got.mData[0], expected.x, allowed);
    compare(what, got.mData[1], expected.y, allowed);
    compare(what, got.mData[2], expected.z, allowed);
}

oracle::View viewOf(const api::ViewState& record) {
    require(record.mPrivate.size() == Image::viewSize, "a view's image has its size");
    const oracle::View view = Image(record.mPrivate).view();
    compareFields("the record's view matrix", record.mViewMatrix, view.toView);
    compareFields("the record's view transform matrix", record.mViewTransformMatrix, view.toWorld);
    compareVector("the record's eye", record.mEye, view.eye, 0.0L);
    compareVector("the record's direction", record.mDirection, -1.0L * oracle::column(view.rotation, 2), 0.0L);
    compareOrientation(record.mOrientation, view.rotation);
    return view;
}

oracle::Projection projectionOf(const api::ProjectionState& record) {
    require(record.mPrivate.size() == Image::projectionSize, "a projection's image has its size");
    const oracle::Projection p = Image(record.mPrivate).projection();
    compareFields("the record's projection matrix", record.mProjectionMatrix, p.matrix);
    require(record.mProjectionType ==
                (p.orthographic ? api::ProjectionType::ORTHOGRAPHIC : api::ProjectionType::PERSPECTIVE),
            "the record's type of the projection");
    compareExactly("the record's left", record.mFrustum.mLeft, p.l);
    compareExactly("the record's right", record.mFrustum.mRight, p.r);
    compareExactly("the record's bottom", record.mFrustum.mBottom, p.b);
    compareExactly("the record's top", record.mFrustum.mTop, p.t);
    compareExactly("the record's near", record.mFrustum.mNearDist, p.n);
    compareExactly("the record's far", record.mFrustum.mFarDist, p.f);
    return p;
}

oracle::Surface surfaceOf(const api::SurfaceState& record) {
    require(record.mPrivate.size() == Image::surfaceSize, "a surface's image has its size");
    const oracle::Surface s = Image(record.mPrivate).surface();
    const api::Viewport& v = record.mViewport;
    const std::array fields{v.mX, v.mY, v.mWidth, v.mHeight, v.mDepthMin, v.mDepthMax};
    for (std::size_t i = 0; i < fields.size(); ++i) {
        compareExactly("the record's viewport", fields[i], s.viewport[i]);
    }
    compareExactly("the record's resolution x", record.mResolutionX, s.resolutionX);
    compareExactly("the record's resolution y", record.mResolutionY, s.resolutionY);
    return s;
}

oracle::Camera cameraOf(const api::PlanarCameraState& record) {
    const std::string& image = record.mPrivate;
    require(image.size() == Image::cameraSize, "a camera's image has its size");
    require(isPart(image, Image::viewInCamera, record.mViewState.mPrivate, Image::viewSize) &&
                isPart(image, Image::projectionInCamera, record.mProjectionState.mPrivate, Image::projectionSize) &&
                isPart(image, Image::surfaceInCamera, record.mSurfaceState.mPrivate, Image::surfaceSize),
            "a camera's image holds those of its parts");
    require(image.find_first_not_of('\0') >= Image::viewInCamera, "a camera's own two words are 0");
    return {viewOf(record.mViewState), projectionOf(record.mProjectionState), surfaceOf(record.mSurfaceState)};
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

} // namespace camera::fuzz::differential
