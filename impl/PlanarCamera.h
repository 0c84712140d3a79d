// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "impl/Blob.h"
#include "impl/Camera.h"
#include "impl/Projection.h"
#include "impl/Surface.h"
#include "impl/View.h"
#include "math/Vectors.h"

namespace qel::api::camera::impl {

/// An axis-aligned box, world or view space as its user says. Only toViewSpace puts the corners in order.
struct Box {
    math::Vec3 first;
    math::Vec3 second;
};

/// A position on the surface: pixels, and the depth between the viewport's minimum and maximum.
struct ScreenPoint {
    std::int32_t x = 0;
    std::int32_t y = 0;
    double depth = 0.0;
};

/// A position on the surface in pixels from its lower left corner.
struct Pixel {
    std::uint32_t x = 0;
    std::uint32_t y = 0;
};

/// A camera with a plane for its picture: a view, a projection and a surface.
///
/// Degenerate arguments leave the camera as it is. A frustum that the projection rejects keeps the projection; the
/// other steps of the operation stay done.
class PlanarCamera final : public Camera {
public:
    /// Where the blobs of the parts stand in that of the camera.
    static constexpr std::size_t viewInBlob = blobSize<Camera>;
    static constexpr std::size_t projectionInBlob = viewInBlob + blobSize<View>;
    static constexpr std::size_t surfaceInBlob = projectionInBlob + blobSize<Projection>;

    PlanarCamera() = default;
    /// The camera that the bytes hold: its words, and its parts each with a blob of its own.
    explicit PlanarCamera(ConstBlobBytes<1080> blob) noexcept
        : PlanarCamera(blob.subspan<viewInBlob, blobSize<View>>(),
                       blob.subspan<projectionInBlob, blobSize<Projection>>(),
                       blob.subspan<surfaceInBlob, blobSize<Surface>>()) {
        BlobReader in(blob.data());
        mWords = in.next<Camera::Block>();
    }
    /// A new camera made of parts.
    PlanarCamera(ConstBlobBytes<384> view, ConstBlobBytes<336> projection, ConstBlobBytes<336> surface) noexcept
        : mView(view), mProjection(projection), mSurface(surface) {}
    void writeTo(BlobBytes<1080> blob) const noexcept {
        BlobWriter(blob.data()).put(mWords);
        mView.writeTo(blob.subspan<viewInBlob, blobSize<View>>());
        mProjection.writeTo(blob.subspan<projectionInBlob, blobSize<Projection>>());
        mSurface.writeTo(blob.subspan<surfaceInBlob, blobSize<Surface>>());
    }

    [[nodiscard]] View& view() noexcept { return mView; }
    [[nodiscard]] const View& view() const noexcept { return mView; }
    [[nodiscard]] const Projection& projection() const noexcept { return mProjection; }
    [[nodiscard]] const Surface& surface() const noexcept { return mSurface; }

    void setView(ConstBlobBytes<384> blob) noexcept { std::construct_at(&mView, blob); }
    void setProjection(ConstBlobBytes<336> blob) noexcept { std::construct_at(&mProjection, blob); }
    void setSurface(ConstBlobBytes<336> blob) noexcept { std::construct_at(&mSurface, blob); }

    /// Resizes surface and frustum together: the frustum's extent per pixel is kept, so that a larger window shows
    /// more of the scene.
    void updateWindowSize(std::uint32_t width, std::uint32_t height);

    /// Puts near 5 % before and far 5 % behind a sphere in world space, near at least minimumNearDist. A sphere wholly
    /// behind the eye is ignored.
    void updateClippingPlanes(const math::Vec3& centre, double radius, double minimumNearDist);

    /// Moves the eye sideways and back, and sizes the frustum, so that the box fills the picture at its front face
    /// (perspective) or anywhere (orthographic). The distance is that from which the box's diagonal across the view
    /// fills 45 degrees, whatever the field of view is.
    void fitWorldSpaceBoundingBox(const Box& box);
    void fitViewSpaceBoundingBox(const Box& box);

    /// Perspective to orthographic and back, keeping the visible height at the depth of the box's centre.
    void switchProjectionType(const Box& box);

    /// Magnifies the rectangle between two screen points so that it fills the picture as far as the aspect ratio
    /// allows. The eye moves only sideways.
    void zoomArea(ScreenPoint first, ScreenPoint second);

    /// Zooms the projection and moves the eye sideways so that what is seen at the anchor stays there.
    void zoomWithAnchor(const ScreenPoint& anchor, double factor);
    /// The same about the pixel nearest to a world point; ignored where that pixel is no 32-bit number.
    void zoomWithAnchor(const math::Vec3& anchor, double factor);

    /// Moves the eye sideways so that what is seen at the anchor moves by (dx, dy) pixels.
    void panWithAnchor(const ScreenPoint& anchor, std::int32_t dx, std::int32_t dy);

    /// Turns the view about a world point as if a ball in the window were dragged from one pixel to another. Throws
    /// std::domain_error for a surface of no height, which only a forged blob has.
    void arcballRotation(const math::Vec3& centre, const Pixel& from, const Pixel& to);

    /// Not yet implemented: each prints one line to standard output and changes nothing.
    void updateFromScreen() override;
    void updateFromWindow() override;
    [[nodiscard]] std::string typeName() const override;

private:
    [[nodiscard]] Box toViewSpace(const Box& worldBox) const noexcept;

    View mView;
    Projection mProjection;
    Surface mSurface;
};

template <>
inline constexpr std::size_t blobSize<PlanarCamera> = PlanarCamera::surfaceInBlob + blobSize<Surface>;

static_assert(sizeof(PlanarCamera) == 1080 && blobSize<PlanarCamera> == 1080);
static_assert(PlanarCamera::viewInBlob == 24 && PlanarCamera::projectionInBlob == 408 &&
              PlanarCamera::surfaceInBlob == 744);

} // namespace qel::api::camera::impl
