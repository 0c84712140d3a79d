// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

#include <thrift/TUuid.h>
#include <thrift/protocol/TProtocol.h>
#include <thrift/protocol/TProtocolException.h>

#include "DepthGuard.h"

namespace qel::api::records {

/// Reads one value of the given type and drops it. Every value counts as one level of nesting, as in Thrift's own
/// skip, which is not used because it leaves the depth counter raised when it refuses a message (see DepthGuard).
inline std::uint32_t skipField(::apache::thrift::protocol::TProtocol& protocol,
                               ::apache::thrift::protocol::TType type) {
    using namespace ::apache::thrift::protocol;
    const InputDepth depth(protocol);
    std::uint32_t count = 0;
    std::uint32_t size = 0;
    TType first = T_STOP;
    TType second = T_STOP;

    switch (type) {
    case T_BOOL: {
        bool value = false;
        return protocol.readBool(value);
    }
    case T_BYTE: {
        std::int8_t value = 0;
        return protocol.readByte(value);
    }
    case T_I16: {
        std::int16_t value = 0;
        return protocol.readI16(value);
    }
    case T_I32: {
        std::int32_t value = 0;
        return protocol.readI32(value);
    }
    case T_I64: {
        std::int64_t value = 0;
        return protocol.readI64(value);
    }
    case T_DOUBLE: {
        double value = 0;
        return protocol.readDouble(value);
    }
    case T_STRING: {
        std::string value;
        return protocol.readBinary(value);
    }
    case T_UUID: {
        ::apache::thrift::TUuid value;
        return protocol.readUUID(value);
    }
    case T_STRUCT: {
        std::string name;
        std::int16_t id = 0;
        count += protocol.readStructBegin(name);
        for (;;) {
            count += protocol.readFieldBegin(name, first, id);
            if (first == T_STOP) {
                break;
            }
            count += skipField(protocol, first);
            count += protocol.readFieldEnd();
        }
        return count + protocol.readStructEnd();
    }
    case T_MAP:
        count += protocol.readMapBegin(first, second, size);
        for (std::uint32_t i = 0; i < size; ++i) {
            count += skipField(protocol, first);
            count += skipField(protocol, second);
        }
        return count + protocol.readMapEnd();
    case T_SET:
        count += protocol.readSetBegin(first, size);
        for (std::uint32_t i = 0; i < size; ++i) {
            count += skipField(protocol, first);
        }
        return count + protocol.readSetEnd();
    case T_LIST:
        count += protocol.readListBegin(first, size);
        for (std::uint32_t i = 0; i < size; ++i) {
            count += skipField(protocol, first);
        }
        return count + protocol.readListEnd();
    default: break;
    }
    throw TProtocolException(TProtocolException::INVALID_DATA, "invalid TType");
}

} // namespace qel::api::records
