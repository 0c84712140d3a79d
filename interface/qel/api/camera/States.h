// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>

#include <thrift/TBase.h>

#include <qel/api/camera/Values.h>

namespace qel::api::camera {

/// Where the eye is and how it is turned. A digest for the host: operations rebuild the view from `mPrivate` alone,
/// so changing another field changes nothing.
class ViewState : public virtual ::apache::thrift::TBase {
public:
    Matrix mViewTransformMatrix; ///< view to world: the view's x, y and z axes and the eye as columns
    Matrix mViewMatrix;          ///< world to view
    Vector mEye;                 ///< eye position, world space
    Vector mDirection;           ///< unit vector along which the view looks, world space
    Quaternion mOrientation;     ///< the rotation from the world's axes to the view's
    std::string mPrivate;        ///< the view's blob, 384 bytes, opaque

    struct Isset {
        bool mViewTransformMatrix : 1 = false;
        bool mViewMatrix : 1 = false;
        bool mEye : 1 = false;
        bool mDirection : 1 = false;
        bool mOrientation : 1 = false;
        bool mPrivate : 1 = false;
    };
    Isset __isset;

    void __set_mViewTransformMatrix(const Matrix& value);
    void __set_mViewMatrix(const Matrix& value);
    void __set_mEye(const Vector& value);
    void __set_mDirection(const Vector& value);
    void __set_mOrientation(const Quaternion& value);
    void __set_mPrivate(const std::string& value);

    bool operator==(const ViewState& other) const;
    std::uint32_t read(::apache::thrift::protocol::TProtocol* protocol) override;
    std::uint32_t write(::apache::thrift::protocol::TProtocol* protocol) const override;
    virtual void printTo(std::ostream& out) const;
};

/// How the scene is projected. A digest for the host, as ViewState is.
class ProjectionState : public virtual ::apache::thrift::TBase {
public:
    Matrix mProjectionMatrix; ///< view space to clip space, OpenGL conventions
    ProjectionType::type mProjectionType = ProjectionType::PERSPECTIVE;
    Frustum mFrustum;
    std::string mPrivate; ///< the projection's blob, 336 bytes, opaque

    struct Isset {
        bool mProjectionMatrix : 1 = false;
        bool mProjectionType : 1 = false;
        bool mFrustum : 1 = false;
        bool mPrivate : 1 = false;
    };
    Isset __isset;

    void __set_mProjectionMatrix(const Matrix& value);
    void __set_mProjectionType(ProjectionType::type value);
    void __set_mFrustum(const Frustum& value);
    void __set_mPrivate(const std::string& value);

    bool operator==(const ProjectionState& other) const;
    std::uint32_t read(::apache::thrift::protocol::TProtocol* protocol) override;
    std::uint32_t write(::apache::thrift::protocol::TProtocol* protocol) const override;
    virtual void printTo(std::ostream& out) const;
};

/// Which pixels the picture lands on. A digest for the host, as ViewState is.
class SurfaceState : public virtual ::apache::thrift::TBase {
public:
    Viewport mViewport;
    double mResolutionX = 0.0; ///< width of the whole surface in pixels, a whole number
    double mResolutionY = 0.0; ///< height of the whole surface in pixels, a whole number
    std::string mPrivate;      ///< the surface's blob, 336 bytes, opaque

    struct Isset {
        bool mViewport : 1 = false;
        bool mResolutionX : 1 = false;
        bool mResolutionY : 1 = false;
        bool mPrivate : 1 = false;
    };
    Isset __isset;

    void __set_mViewport(const Viewport& value);
    void __set_mResolutionX(double value);
    void __set_mResolutionY(double value);
    void __set_mPrivate(const std::string& value);

    bool operator==(const SurfaceState& other) const;
    std::uint32_t read(::apache::thrift::protocol::TProtocol* protocol) override;
    std::uint32_t write(::apache::thrift::protocol::TProtocol* protocol) const override;
    virtual void printTo(std::ostream& out) const;
};

/// A planar camera: a view, a projection and a surface. Operations read the camera from this record's own `mPrivate`
/// alone, not from the nested states, which are there for the host and for the operations on their kind.
class PlanarCameraState : public virtual ::apache::thrift::TBase {
public:
    ViewState mViewState;
    ProjectionState mProjectionState;
    SurfaceState mSurfaceState;
    std::string mPrivate; ///< the camera's blob, 1080 bytes, opaque

    struct Isset {
        bool mViewState : 1 = false;
        bool mProjectionState : 1 = false;
        bool mSurfaceState : 1 = false;
        bool mPrivate : 1 = false;
    };
    Isset __isset;

    void __set_mViewState(const ViewState& value);
    void __set_mProjectionState(const ProjectionState& value);
    void __set_mSurfaceState(const SurfaceState& value);
    void __set_mPrivate(const std::string& value);

    bool operator==(const PlanarCameraState& other) const;
    std::uint32_t read(::apache::thrift::protocol::TProtocol* protocol) override;
    std::uint32_t write(::apache::thrift::protocol::TProtocol* protocol) const override;
    virtual void printTo(std::ostream& out) const;
};

void swap(ViewState& a, ViewState& b) noexcept;
void swap(ProjectionState& a, ProjectionState& b) noexcept;
void swap(SurfaceState& a, SurfaceState& b) noexcept;
void swap(PlanarCameraState& a, PlanarCameraState& b) noexcept;

std::ostream& operator<<(std::ostream& out, const ViewState& record);
std::ostream& operator<<(std::ostream& out, const ProjectionState& record);
std::ostream& operator<<(std::ostream& out, const SurfaceState& record);
std::ostream& operator<<(std::ostream& out, const PlanarCameraState& record);

} // namespace qel::api::camera
