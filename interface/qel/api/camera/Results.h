// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <iosfwd>

#include <thrift/TBase.h>

#include <qel/api/base/Records.h>
#include <qel/api/camera/States.h>
#include <qel/api/camera/Values.h>

namespace qel::api::camera {

/// A point or a vector, and the outcome of the call that made it.
class VectorResult : public virtual ::apache::thrift::TBase {
public:
    Vector mValue;
    base::ServiceResult mResult;

    struct Isset {
        bool mValue : 1 = false;
        bool mResult : 1 = false;
    };
    Isset __isset;

    void __set_mValue(const Vector& value);
    void __set_mResult(const base::ServiceResult& value);

    bool operator==(const VectorResult& other) const;
    std::uint32_t read(::apache::thrift::protocol::TProtocol* protocol) override;
    std::uint32_t write(::apache::thrift::protocol::TProtocol* protocol) const override;
    virtual void printTo(std::ostream& out) const;
};

/// A matrix and the outcome of the call that made it.
class MatrixResult : public virtual ::apache::thrift::TBase {
public:
    Matrix mValue;
    base::ServiceResult mResult;

    struct Isset {
        bool mValue : 1 = false;
        bool mResult : 1 = false;
    };
    Isset __isset;

    void __set_mValue(const Matrix& value);
    void __set_mResult(const base::ServiceResult& value);

    bool operator==(const MatrixResult& other) const;
    std::uint32_t read(::apache::thrift::protocol::TProtocol* protocol) override;
    std::uint32_t write(::apache::thrift::protocol::TProtocol* protocol) const override;
    virtual void printTo(std::ostream& out) const;
};

/// A view and the outcome of the call that made it.
class ViewStateResult : public virtual ::apache::thrift::TBase {
public:
    ViewState mValue;
    base::ServiceResult mResult;

    struct Isset {
        bool mValue : 1 = false;
        bool mResult : 1 = false;
    };
    Isset __isset;

    void __set_mValue(const ViewState& value);
    void __set_mResult(const base::ServiceResult& value);

    bool operator==(const ViewStateResult& other) const;
    std::uint32_t read(::apache::thrift::protocol::TProtocol* protocol) override;
    std::uint32_t write(::apache::thrift::protocol::TProtocol* protocol) const override;
    virtual void printTo(std::ostream& out) const;
};

/// A projection and the outcome of the call that made it.
class ProjectionStateResult : public virtual ::apache::thrift::TBase {
public:
    ProjectionState mValue;
    base::ServiceResult mResult;

    struct Isset {
        bool mValue : 1 = false;
        bool mResult : 1 = false;
    };
    Isset __isset;

    void __set_mValue(const ProjectionState& value);
    void __set_mResult(const base::ServiceResult& value);

    bool operator==(const ProjectionStateResult& other) const;
    std::uint32_t read(::apache::thrift::protocol::TProtocol* protocol) override;
    std::uint32_t write(::apache::thrift::protocol::TProtocol* protocol) const override;
    virtual void printTo(std::ostream& out) const;
};

/// A surface and the outcome of the call that made it.
class SurfaceStateResult : public virtual ::apache::thrift::TBase {
public:
    SurfaceState mValue;
    base::ServiceResult mResult;

    struct Isset {
        bool mValue : 1 = false;
        bool mResult : 1 = false;
    };
    Isset __isset;

    void __set_mValue(const SurfaceState& value);
    void __set_mResult(const base::ServiceResult& value);

    bool operator==(const SurfaceStateResult& other) const;
    std::uint32_t read(::apache::thrift::protocol::TProtocol* protocol) override;
    std::uint32_t write(::apache::thrift::protocol::TProtocol* protocol) const override;
    virtual void printTo(std::ostream& out) const;
};

/// A planar camera and the outcome of the call that made it.
class PlanarCameraStateResult : public virtual ::apache::thrift::TBase {
public:
    PlanarCameraState mValue;
    base::ServiceResult mResult;

    struct Isset {
        bool mValue : 1 = false;
        bool mResult : 1 = false;
    };
    Isset __isset;

    void __set_mValue(const PlanarCameraState& value);
    void __set_mResult(const base::ServiceResult& value);

    bool operator==(const PlanarCameraStateResult& other) const;
    std::uint32_t read(::apache::thrift::protocol::TProtocol* protocol) override;
    std::uint32_t write(::apache::thrift::protocol::TProtocol* protocol) const override;
    virtual void printTo(std::ostream& out) const;
};

/// A number and the outcome of the call that made it; the outcome comes first, as in StringResult.
class DoubleResult : public virtual ::apache::thrift::TBase {
public:
    base::ServiceResult mResult;
    double mValue = 0.0;

    struct Isset {
        bool mResult : 1 = false;
        bool mValue : 1 = false;
    };
    Isset __isset;

    void __set_mResult(const base::ServiceResult& value);
    void __set_mValue(double value);

    bool operator==(const DoubleResult& other) const;
    std::uint32_t read(::apache::thrift::protocol::TProtocol* protocol) override;
    std::uint32_t write(::apache::thrift::protocol::TProtocol* protocol) const override;
    virtual void printTo(std::ostream& out) const;
};

void swap(VectorResult& a, VectorResult& b) noexcept;
void swap(MatrixResult& a, MatrixResult& b) noexcept;
void swap(ViewStateResult& a, ViewStateResult& b) noexcept;
void swap(ProjectionStateResult& a, ProjectionStateResult& b) noexcept;
void swap(SurfaceStateResult& a, SurfaceStateResult& b) noexcept;
void swap(PlanarCameraStateResult& a, PlanarCameraStateResult& b) noexcept;
void swap(DoubleResult& a, DoubleResult& b) noexcept;

std::ostream& operator<<(std::ostream& out, const VectorResult& record);
std::ostream& operator<<(std::ostream& out, const MatrixResult& record);
std::ostream& operator<<(std::ostream& out, const ViewStateResult& record);
std::ostream& operator<<(std::ostream& out, const ProjectionStateResult& record);
std::ostream& operator<<(std::ostream& out, const SurfaceStateResult& record);
std::ostream& operator<<(std::ostream& out, const PlanarCameraStateResult& record);
std::ostream& operator<<(std::ostream& out, const DoubleResult& record);

} // namespace qel::api::camera
