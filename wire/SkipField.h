// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

#include <thrift/TUuid.h>
#include <thrift/protocol/TProtocol.h>
#include <thrift/protocol/TProtocolException.h>

#include "wire/WireTypes.h"

namespace qel::api::wire {

template <class Value, class Reader>
void skipValue(Reader& reader) {
    Value value{};
    reader.read(value);
}

/// Reads one value of the given type and drops it. Every value counts as one level of nesting, as in Thrift's own
/// skip, which is not used because it leaves the depth counter raised when it refuses a message (see DepthGuard) and
/// makes room for a text by its announced size.
template <class Reader>
void skipField(Reader& reader, TType type) {
    using namespace ::apache::thrift::protocol;
    const InputDepth depth(reader.protocol());
    switch (type) {
    case T_BOOL: return skipValue<bool>(reader);
    case T_BYTE: return skipValue<std::int8_t>(reader);
    case T_I16: return skipValue<std::int16_t>(reader);
    case T_I32: return skipValue<std::int32_t>(reader);
    case T_I64: return skipValue<std::int64_t>(reader);
    case T_DOUBLE: return skipValue<double>(reader);
    case T_UUID: return skipValue<::apache::thrift::TUuid>(reader);
    case T_STRING: {
        std::string bytes;
        return reader.readBytes(bytes);
    }
    case T_STRUCT: {
        const auto outer = reader.beginStruct();
        for (FieldHeader field = reader.beginField(); field.type != T_STOP; field = reader.beginField()) {
            skipField(reader, field.type);
            reader.endField();
        }
        return reader.endStruct(outer);
    }
    case T_MAP: {
        const Pairs pairs = reader.beginMap();
        for (std::uint32_t i = 0; i < pairs.size; ++i) {
            skipField(reader, pairs.keyType);
            skipField(reader, pairs.valueType);
        }
        return reader.endMap();
    }
    case T_SET:
    case T_LIST: {
        const Elements elements = reader.beginElements(type);
        for (std::uint32_t i = 0; i < elements.size; ++i) {
            skipField(reader, elements.type);
        }
        return reader.endElements(type);
    }
    default: throw TProtocolException(TProtocolException::INVALID_DATA, "invalid TType");
    }
}

} // namespace qel::api::wire
