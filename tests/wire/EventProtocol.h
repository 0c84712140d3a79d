// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <thrift/protocol/TVirtualProtocol.h>
#include <thrift/transport/TBufferTransports.h>

namespace qel::api {

/// A protocol that encodes nothing: it keeps the calls that a record makes when it writes itself, as lines of text.
/// Each call returns another number, so that their sum tells whether all were counted.
class EventProtocol : public ::apache::thrift::protocol::TVirtualProtocol<EventProtocol> {
public:
    using TType = ::apache::thrift::protocol::TType;

    EventProtocol() : TVirtualProtocol<EventProtocol>(std::make_shared<::apache::thrift::transport::TMemoryBuffer>()) {}

    std::vector<std::string> events;
    std::uint32_t returned = 0;

    std::uint32_t writeStructBegin(const char* name) { return add(std::string("struct ") + name); }
    std::uint32_t writeStructEnd() { return add("end struct"); }
    std::uint32_t writeFieldBegin(const char* name, TType type, std::int16_t id) {
        return add(std::string("field ") + name + " " + std::to_string(type) + " " + std::to_string(id));
    }
    std::uint32_t writeFieldEnd() { return add("end field"); }
    std::uint32_t writeFieldStop() { return add("stop"); }
    std::uint32_t writeListBegin(TType type, std::uint32_t size) {
        return add("list " + std::to_string(type) + " " + std::to_string(size));
    }
    std::uint32_t writeListEnd() { return add("end list"); }
    std::uint32_t writeI32(std::int32_t value) { return add("i32 " + std::to_string(value)); }
    std::uint32_t writeDouble(double value) { return add("double " + std::to_string(value)); }
    std::uint32_t writeString(const std::string& value) { return add("string " + value); }
    std::uint32_t writeBinary(const std::string& value) { return add("binary " + value); }

private:
    std::uint32_t add(const std::string& event) {
        events.push_back(event);
        const auto count = static_cast<std::uint32_t>(1000 + events.size() * events.size());
        returned += count;
        return count;
    }
};

} // namespace qel::api
