// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>

#include <thrift/TBase.h>

namespace qel::api::base {

/// The outcome of one call of a service. A default ServiceResult reports success.
///
/// In C++ every record of the interface has the shape of this one: public members, one set-flag a field in `__isset`
/// (in field order), a setter `__set_<field>` that stores the value and raises the flag, and value semantics.
/// A record compares equal when its fields do; flags of fields that are always written do not count.
class ServiceResult : public virtual ::apache::thrift::TBase {
public:
    std::int32_t mError = 0; ///< 0 for success, else an error code of the service (CameraAPIError)
    std::string mMessage;    ///< what failed; absent, its set-flag down, when nothing did

    struct Isset {
        bool mError : 1 = false;
        bool mMessage : 1 = false;
    };
    Isset __isset;

    void __set_mError(std::int32_t value);
    void __set_mMessage(const std::string& value);

    bool operator==(const ServiceResult& other) const;

    /// Fills the record from a protocol; fields that the message lacks keep their values. Returns the bytes read.
    std::uint32_t read(::apache::thrift::protocol::TProtocol* protocol) override;
    /// Writes the record to a protocol. Returns the bytes written.
    std::uint32_t write(::apache::thrift::protocol::TProtocol* protocol) const override;
    /// Writes the record as one line of text, such as `ServiceResult(mError=0, mMessage=<null>)`.
    virtual void printTo(std::ostream& out) const;
};

/// A text and the outcome of the call that made it.
class StringResult : public virtual ::apache::thrift::TBase {
public:
    ServiceResult mResult;
    std::string mValue;

    struct Isset {
        bool mResult : 1 = false;
        bool mValue : 1 = false;
    };
    Isset __isset;

    void __set_mResult(const ServiceResult& value);
    void __set_mValue(const std::string& value);

    bool operator==(const StringResult& other) const;
    std::uint32_t read(::apache::thrift::protocol::TProtocol* protocol) override;
    std::uint32_t write(::apache::thrift::protocol::TProtocol* protocol) const override;
    virtual void printTo(std::ostream& out) const;
};

void swap(ServiceResult& a, ServiceResult& b) noexcept;
void swap(StringResult& a, StringResult& b) noexcept;

std::ostream& operator<<(std::ostream& out, const ServiceResult& record);
std::ostream& operator<<(std::ostream& out, const StringResult& record);

} // namespace qel::api::base
