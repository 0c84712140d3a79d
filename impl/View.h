// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>

#include "impl/Blob.h"
#include "math/Matrices.h"
#include "math/Quaternions.h"
#include "math/Vectors.h"

namespace qel::api::camera::impl {

/// Where the eye is and how it is turned. The view looks along its negative z axis, x to its right, y up.
///
/// Three descriptions of one placement are kept in step: the view transform matrix (view to world, columns x, y, z
/// axis and eye), the view matrix (world to view, its inverse) and the rotation (columns x, y, z axis in world
/// space). Degenerate arguments leave the view as it is. Angles are radians.
class View {
public:
    /// All that a view holds, as it stands in a blob.
    struct Block {
        math::Mat4 viewTransformMatrix;
        math::Mat4 viewMatrix;
        math::Mat3 rotation;
        math::Vec3 eye;
    };

    /// At the origin, looking along -z with y up.
    View();

    /// Looks from the eye at a point. Where that is degenerate the view stays blank: identity matrices, eye 0.
    View(const math::Vec3& eye, const math::Vec3& lookat, const math::Vec3& up);

    /// The view that the bytes hold, every number as it stands there, consistent or not.
    explicit View(ConstBlobBytes<384> blob) noexcept : View(BlobReader(blob.data())) {}

    View(const View&) = default;
    View& operator=(const View&) = default;
    virtual ~View() = default;

    void writeTo(BlobBytes<384> blob) const noexcept {
        BlobWriter out(blob.data());
        out.put(mBlock.viewTransformMatrix);
        out.put(mBlock.viewMatrix);
        out.put(mBlock.rotation);
        out.put(mBlock.eye);
    }

    [[nodiscard]] const math::Mat4& viewTransformMatrix() const noexcept { return mBlock.viewTransformMatrix; }
    [[nodiscard]] const math::Mat4& viewMatrix() const noexcept { return mBlock.viewMatrix; }
    [[nodiscard]] const math::Mat3& rotation() const noexcept { return mBlock.rotation; }
    [[nodiscard]] const math::Vec3& eye() const noexcept { return mBlock.eye; }

    /// Where the view looks: the negated z axis.
    [[nodiscard]] math::Vec3 direction() const noexcept { return -column(mBlock.rotation, 2); }

    /// The view's axes in world space, as the rows of the view matrix hold them.
    [[nodiscard]] math::Vec3 xAxis() const noexcept { return row(mBlock.viewMatrix, 0); }
    [[nodiscard]] math::Vec3 yAxis() const noexcept { return row(mBlock.viewMatrix, 1); }
    [[nodiscard]] math::Vec3 zAxis() const noexcept { return row(mBlock.viewMatrix, 2); }

    /// Ignored where lookat is at the eye, up is zero, or up is parallel to the direction.
    void lookAt(const math::Vec3& eye, const math::Vec3& lookat, math::Vec3 up);

    void setEye(const math::Vec3& eye) {
        mBlock.eye = eye;
        updateViewMatrixTranslation();
        math::setTranslation(mBlock.viewTransformMatrix, eye);
        mBlock.viewMatrix.mKind = withTranslation(mBlock.viewMatrix.mKind);
        mBlock.viewTransformMatrix.mKind = withTranslation(mBlock.viewTransformMatrix.mKind);
    }

    /// A quaternion too short to have a direction is used as it is, without an error.
    void setOrientation(math::Quat orientation);

    /// Turns about the view's y, x or z axis by twice the angle, which hosts are tuned to; yawPitchRoll turns by the
    /// angle itself.
    void yaw(double angle);
    void pitch(double angle);
    void roll(double angle);

    /// Turns about the three axes as they are before the call: pitch first, then yaw, then roll, each by its angle.
    void yawPitchRoll(double yaw, double pitch, double roll);

    /// Moves the eye by an offset along the view's axes, or along the world's.
    void translateInViewSpace(const math::Vec3& offset) {
        if (!isNegligible(offset)) {
            setEye(mBlock.eye + mBlock.rotation * offset);
        }
    }
    void translateInWorldSpace(const math::Vec3& offset) {
        if (!isNegligible(offset)) {
            setEye(mBlock.eye + offset);
        }
    }

    /// Looks along the axis at the target from the distance that the eye has from it; an eye on the target stays
    /// there and looks along the axis.
    void setViewAlongWorldAxis(const math::Vec3& target, math::Vec3 axis, const math::Vec3& up);

    /// Takes a world-to-view matrix as given, without orthonormalising it, and derives the rest.
    void setViewMatrix(const math::Mat4& matrix);

    /// Takes a view-to-world matrix as given. The rotation is derived from the view matrix as it was before the call,
    /// so that direction and orientation are out of step until a later operation rebuilds them. Saved cameras depend
    /// on it.
    void setViewTransformMatrix(const math::Mat4& matrix);

    /// Whether the tilt of a rotation about an axis stops before it carries the eye onto the axis.
    enum class PoleLimit { off, on };

    /// Turns eye and view about an axis through the pivot by `angle`, after tilting them towards or away from the
    /// axis by `tilt`. The tilt is left out where the eye is on the pivot or on the axis.
    void rotateAboutAxis(const math::Vec3& pivot, math::Vec3 axis, double angle, double tilt, PoleLimit poleLimit);
    void rotateAboutWorldAxis(const math::Vec3& pivot, const math::Vec3& axis, double angle, double tilt);
    /// About the view's own y axis, with no limit to the tilt.
    void rotateAboutViewAxes(const math::Vec3& pivot, double angle, double tilt);

    [[nodiscard]] math::Vec3 worldToViewVector(const math::Vec3& vector) const noexcept {
        return math::transformVector(mBlock.viewMatrix, vector);
    }
    [[nodiscard]] math::Vec3 worldToViewPoint(const math::Vec3& point) const noexcept {
        return math::transformPlacementPoint(mBlock.viewMatrix, point);
    }
    [[nodiscard]] math::Vec3 viewToWorldVector(const math::Vec3& vector) const noexcept {
        return math::transformVector(mBlock.viewTransformMatrix, vector);
    }
    [[nodiscard]] math::Vec3 viewToWorldPoint(const math::Vec3& point) const noexcept {
        return math::transformPlacementPoint(mBlock.viewTransformMatrix, point);
    }

private:
    /// Braces take the members in order.
    explicit View(BlobReader in) noexcept
        : mBlock{in.next<math::Mat4>(), in.next<math::Mat4>(), in.next<math::Mat3>(), in.next<math::Vec3>()} {}

    void turnByTwice(double angle, const math::Vec3& axis);
    /// The world origin seen from the view: -(transposed rotation times eye).
    void updateViewMatrixTranslation() {
        math::setTranslation(mBlock.viewMatrix, -math::Vec3{dot(column(mBlock.rotation, 0), mBlock.eye),
                                                            dot(column(mBlock.rotation, 1), mBlock.eye),
                                                            dot(column(mBlock.rotation, 2), mBlock.eye)});
    }

    Block mBlock;
};

static_assert(sizeof(View) == 384 && sizeof(View::Block) == 376);
static_assert(offsetof(View::Block, viewTransformMatrix) == 0 && offsetof(View::Block, viewMatrix) == 136);
static_assert(offsetof(View::Block, rotation) == 272 && offsetof(View::Block, eye) == 352);

} // namespace qel::api::camera::impl
