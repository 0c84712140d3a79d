// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include <thrift/protocol/TProtocol.h>
#include <thrift/protocol/TProtocolException.h>
#include <thrift/transport/TBufferTransports.h>

namespace qel::api {

/// The bytes that hexadecimal digits spell; spaces only group them.
inline std::string fromHex(std::string_view digits) {
    const auto value = [](char c) { return c <= '9' ? c - '0' : c - 'a' + 10; };
    std::string bytes;
    int pending = -1;
    for (const char c : digits) {
        if (c == ' ') {
            continue;
        }
        if (pending < 0) {
            pending = value(c);
        } else {
            bytes += static_cast<char>(pending * 16 + value(c));
            pending = -1;
        }
    }
    return bytes;
}

/// And back, for messages that a person can read.
inline std::string toHex(std::string_view bytes) {
    constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (const char c : bytes) {
        text += digits[static_cast<unsigned char>(c) >> 4];
        text += digits[static_cast<unsigned char>(c) & 15];
    }
    return text;
}

/// What the record prints.
template <class Record>
std::string textOf(const Record& record) {
    std::ostringstream out;
    out << record;
    return out.str();
}

using ::apache::thrift::transport::TMemoryBuffer;

/// A host's own protocol, derived from one of Thrift's, which the records do not know: they make its calls.
template <class Known>
struct Unknown : Known {
    using Known::Known;
};

/// The type of the protocol exception that a call throws; -1 for none.
template <class Call>
int protocolErrorOf(Call call) {
    try {
        call();
    } catch (const ::apache::thrift::protocol::TProtocolException& exception) {
        return exception.getType();
    }
    return -1;
}

inline std::shared_ptr<TMemoryBuffer> bufferOf(
    const std::string& bytes, std::shared_ptr<::apache::thrift::TConfiguration> configuration = nullptr) {
    auto buffer =
        std::make_shared<TMemoryBuffer>(static_cast<std::uint32_t>(bytes.size() + 1), std::move(configuration));
    buffer->write(reinterpret_cast<const std::uint8_t*>(bytes.data()), static_cast<std::uint32_t>(bytes.size()));
    return buffer;
}

template <class Protocol, class Record>
std::string written(const Record& record) {
    auto buffer = std::make_shared<TMemoryBuffer>();
    Protocol protocol(buffer);
    record.write(&protocol);
    return buffer->getBufferAsString();
}

/// Reads into the record; returns the bytes read.
template <class Protocol, class Record>
std::uint32_t readFrom(const std::string& bytes, Record& record) {
    Protocol protocol(bufferOf(bytes));
    return record.read(&protocol);
}

} // namespace qel::api
