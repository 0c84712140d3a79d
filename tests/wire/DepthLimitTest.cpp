// SPDX-License-Identifier: Apache-2.0
#include <cstdint>
#include <memory>
#include <string>

#include <gtest/gtest.h>
#include <thrift/protocol/TProtocol.h>
#include <thrift/protocol/TProtocolException.h>

#include <qel/api/camera/CameraAPIIf.h>

#include "tests/wire/WireBytes.h"
#include "tests/wire/WireProtocols.h"

namespace qel::api {
namespace {

using namespace ::apache::thrift::protocol;

using camera::PlanarCameraStateResult;
using camera::Viewport;

template <class Protocol>
class DepthLimit : public ::testing::Test {};
TYPED_TEST_SUITE(DepthLimit, WireProtocols);

template <class Call>
int protocolExceptionOf(Call call) {
    try {
        call();
    } catch (const TProtocolException& exception) {
        return exception.getType();
    }
    return -1;
}

// The deepest way through a PlanarCameraStateResult is itself, its state, the view in it, and a matrix: 4 levels.
constexpr std::uint32_t levels = 4;

TYPED_TEST(DepthLimit, WritingStopsAtTheDepthLimitAndLeavesTheCounterAsItWas) {
    const PlanarCameraStateResult record;
    for (std::uint32_t limit = 0; limit < levels; ++limit) {
        auto buffer = std::make_shared<TMemoryBuffer>();
        TypeParam protocol(buffer);
        protocol.setRecurisionLimit(limit);
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(protocolExceptionOf([&] { record.write(&protocol); }), TProtocolException::DEPTH_LIMIT);
        }
        buffer->resetBuffer();
        protocol.setRecurisionLimit(levels);
        EXPECT_NO_THROW(record.write(&protocol)) << "after a limit of " << limit;
    }
}

TYPED_TEST(DepthLimit, ReadingStopsAtTheDepthLimitAndLeavesTheCounterAsItWas) {
    const std::string bytes = written<TypeParam>(PlanarCameraStateResult());
    for (std::uint32_t limit = 0; limit < levels; ++limit) {
        PlanarCameraStateResult read;
        TypeParam protocol(bufferOf(bytes));
        protocol.setRecurisionLimit(limit);
        EXPECT_EQ(protocolExceptionOf([&] { read.read(&protocol); }), TProtocolException::DEPTH_LIMIT);
        // The counter shows in how deep this protocol still goes.
        for (std::uint32_t i = 0; i < limit; ++i) {
            protocol.incrementInputRecursionDepth();
        }
        EXPECT_EQ(protocolExceptionOf([&] { protocol.incrementInputRecursionDepth(); }),
                  TProtocolException::DEPTH_LIMIT);
    }
}

/// Every skipped value is a level of its own.
TYPED_TEST(DepthLimit, SkippingStopsAtTheDepthLimitAndLeavesTheCounterAsItWas) {
    constexpr std::uint32_t nested = 10;
    auto buffer = std::make_shared<TMemoryBuffer>();
    TypeParam writer(buffer);
    writer.writeStructBegin("Viewport");
    writer.writeFieldBegin("", T_LIST, 7);
    for (std::uint32_t i = 1; i < nested; ++i) {
        writer.writeListBegin(T_LIST, 1);
    }
    writer.writeListBegin(T_I32, 1);
    writer.writeI32(5);
    for (std::uint32_t i = 0; i < nested; ++i) {
        writer.writeListEnd();
    }
    writer.writeFieldEnd();
    writer.writeFieldStop();
    writer.writeStructEnd();
    const std::string bytes = buffer->getBufferAsString();
    constexpr std::uint32_t needed = 1 + nested + 1; // the record, the lists, the number

    for (std::uint32_t limit = 1; limit <= needed; ++limit) {
        Viewport v;
        TypeParam protocol(bufferOf(bytes));
        protocol.setRecurisionLimit(limit);
        const int thrown = protocolExceptionOf([&] { v.read(&protocol); });
        EXPECT_EQ(thrown, limit < needed ? static_cast<int>(TProtocolException::DEPTH_LIMIT) : -1) << limit;
        for (std::uint32_t i = 0; i < limit; ++i) {
            EXPECT_NO_THROW(protocol.incrementInputRecursionDepth()) << limit;
        }
        EXPECT_EQ(protocolExceptionOf([&] { protocol.incrementInputRecursionDepth(); }),
                  TProtocolException::DEPTH_LIMIT);
    }
}

/// The counters also stand as before after an exception of the transport.
TYPED_TEST(DepthLimit, ATruncatedMessageLeavesTheCounterAsItWas) {
    const std::string bytes = written<TypeParam>(PlanarCameraStateResult());
    TypeParam protocol(bufferOf(bytes.substr(0, bytes.size() / 3)));
    protocol.setRecurisionLimit(levels);
    PlanarCameraStateResult read;
    EXPECT_ANY_THROW(read.read(&protocol));
    for (std::uint32_t i = 0; i < levels; ++i) {
        EXPECT_NO_THROW(protocol.incrementInputRecursionDepth());
    }
    EXPECT_ANY_THROW(protocol.incrementInputRecursionDepth());
}

} // namespace
} // namespace qel::api
