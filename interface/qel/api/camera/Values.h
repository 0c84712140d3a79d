// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <iosfwd>
#include <vector>

#include <thrift/TBase.h>

namespace qel::api::camera {

/// Values of ServiceResult::mError. The component produces 0, 4 and -1; the others are declared for hosts that
/// manage camera objects by id.
struct CameraAPIError {
    enum type : std::int32_t {
        CAMERA_API_SUCCESS = 0,
        CAMERA_API_ERROR_INVALID_ID = 1,
        CAMERA_API_ERROR_CREATION_FAILED = 2,
        CAMERA_API_ERROR_DESTRUCTION_FAILED = 3,
        CAMERA_API_ERROR_CALL_FAILED = 4, ///< a utility failed
        CAMERA_API_ERROR_UNKNOWN = -1     ///< any other operation failed
    };
};

/// The two kinds of projection. Any other value that a message brings is kept as it is, and an operation treats
/// it as PERSPECTIVE.
struct ProjectionType {
    enum type : std::int32_t { PERSPECTIVE = 0, ORTHOGRAPHIC = 1 };
};

/// The enumerator's name, or nullptr for a value that has none.
const char* nameOf(ProjectionType::type value) noexcept;

/// Three coordinates x, y, z: a point or a vector, as the operation that takes it says. Operations read the
/// first three values of `mData` and fail when there are fewer; results hold exactly three.
class Vector : public virtual ::apache::thrift::TBase {
public:
    std::vector<double> mData;

    struct Isset {
        bool mData : 1 = false;
    };
    Isset __isset;

    void __set_mData(const std::vector<double>& value);

    bool operator==(const Vector& other) const;
    std::uint32_t read(::apache::thrift::protocol::TProtocol* protocol) override;
    std::uint32_t write(::apache::thrift::protocol::TProtocol* protocol) const override;
    virtual void printTo(std::ostream& out) const;
};

/// An orientation as a quaternion x, y, z, w (scalar last; the identity is 0, 0, 0, 1). Operations read the first
/// four values of `mData` and fail when there are fewer; results hold exactly four.
class Quaternion : public virtual ::apache::thrift::TBase {
public:
    std::vector<double> mData;

    struct Isset {
        bool mData : 1 = false;
    };
    Isset __isset;

    void __set_mData(const std::vector<double>& value);

    bool operator==(const Quaternion& other) const;
    std::uint32_t read(::apache::thrift::protocol::TProtocol* protocol) override;
    std::uint32_t write(::apache::thrift::protocol::TProtocol* protocol) const override;
    virtual void printTo(std::ostream& out) const;
};

/// A 4x4 matrix as a list of its rows: `mData[r][c]` is the element at row r, column c. Matrices act on column
/// vectors, so a translation stands in the last value of rows 0, 1 and 2. Operations read the first four values
/// of the first four rows and fail when there are fewer; results are exactly 4x4.
class Matrix : public virtual ::apache::thrift::TBase {
public:
    std::vector<std::vector<double>> mData;

    struct Isset {
        bool mData : 1 = false;
    };
    Isset __isset;

    void __set_mData(const std::vector<std::vector<double>>& value);

    bool operator==(const Matrix& other) const;
    std::uint32_t read(::apache::thrift::protocol::TProtocol* protocol) override;
    std::uint32_t write(::apache::thrift::protocol::TProtocol* protocol) const override;
    virtual void printTo(std::ostream& out) const;
};

/// The planes of a projection, in units of view space. The four sides are view-space coordinates; for a perspective
/// projection they lie on the near plane. The frustum that projectionSetProjectionMatrix leaves keeps none of the
/// ranges below.
class Frustum : public virtual ::apache::thrift::TBase {
public:
    double mLeft = 0.0;     ///< left plane, less than mRight
    double mRight = 0.0;    ///< right plane
    double mBottom = 0.0;   ///< bottom plane, less than mTop
    double mTop = 0.0;      ///< top plane
    double mNearDist = 0.0; ///< distance of the near plane from the eye, positive ahead
    double mFarDist = 0.0;  ///< distance of the far plane from the eye, positive ahead

    struct Isset {
        bool mLeft : 1 = false;
        bool mRight : 1 = false;
        bool mBottom : 1 = false;
        bool mTop : 1 = false;
        bool mNearDist : 1 = false;
        bool mFarDist : 1 = false;
    };
    Isset __isset;

    void __set_mLeft(double value);
    void __set_mRight(double value);
    void __set_mBottom(double value);
    void __set_mTop(double value);
    void __set_mNearDist(double value);
    void __set_mFarDist(double value);

    bool operator==(const Frustum& other) const;
    std::uint32_t read(::apache::thrift::protocol::TProtocol* protocol) override;
    std::uint32_t write(::apache::thrift::protocol::TProtocol* protocol) const override;
    virtual void printTo(std::ostream& out) const;
};

/// The part of a surface that the picture covers, in fractions of the surface's resolution, and the range of depths.
class Viewport : public virtual ::apache::thrift::TBase {
public:
    double mX = 0.0;        ///< left edge, 0 to 1
    double mY = 0.0;        ///< lower edge, 0 to 1; screen y grows upwards
    double mWidth = 0.0;    ///< width, greater than 0
    double mHeight = 0.0;   ///< height, greater than 0
    double mDepthMin = 0.0; ///< depth of the near plane, 0 by default
    double mDepthMax = 0.0; ///< depth of the far plane, 1 by default

    struct Isset {
        bool mX : 1 = false;
        bool mY : 1 = false;
        bool mWidth : 1 = false;
        bool mHeight : 1 = false;
        bool mDepthMin : 1 = false;
        bool mDepthMax : 1 = false;
    };
    Isset __isset;

    void __set_mX(double value);
    void __set_mY(double value);
    void __set_mWidth(double value);
    void __set_mHeight(double value);
    void __set_mDepthMin(double value);
    void __set_mDepthMax(double value);

    bool operator==(const Viewport& other) const;
    std::uint32_t read(::apache::thrift::protocol::TProtocol* protocol) override;
    std::uint32_t write(::apache::thrift::protocol::TProtocol* protocol) const override;
    virtual void printTo(std::ostream& out) const;
};

void swap(Vector& a, Vector& b) noexcept;
void swap(Quaternion& a, Quaternion& b) noexcept;
void swap(Matrix& a, Matrix& b) noexcept;
void swap(Frustum& a, Frustum& b) noexcept;
void swap(Viewport& a, Viewport& b) noexcept;

std::ostream& operator<<(std::ostream& out, const Vector& record);
std::ostream& operator<<(std::ostream& out, const Quaternion& record);
std::ostream& operator<<(std::ostream& out, const Matrix& record);
std::ostream& operator<<(std::ostream& out, const Frustum& record);
std::ostream& operator<<(std::ostream& out, const Viewport& record);

} // namespace qel::api::camera
