// SPDX-License-Identifier: Apache-2.0
#include <cstdint>
#include <memory>
#include <string>

#include <gtest/gtest.h>
#include <thrift/protocol/TProtocol.h>

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

/// The counter shows in how deep the protocol still goes.
template <class Protocol>
void expectDepthLeft(Protocol& protocol, std::uint32_t depth) {
    for (std::uint32_t i = 0; i < depth; ++i) {
        EXPECT_NO_THROW(protocol.incrementInputRecursionDepth()) << depth;
    }
    EXPECT_EQ(protocolErrorOf([&] { protocol.incrementInputRecursionDepth(); }), TProtocolException::DEPTH_LIMIT);
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
            EXPECT_EQ(protocolErrorOf([&] { record.write(&protocol); }), TProtocolException::DEPTH_LIMIT);
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
        EXPECT_EQ(protocolErrorOf([&] { read.read(&protocol); }), TProtocolException::DEPTH_LIMIT);
        expectDepthLeft(protocol, limit);
    }
}

/// Every skipped value is a level of its own.
TYPED_TEST(DepthLimit, SkippingStopsAtTheDepthLimitAndLeavesTheCounterAsItWas) {
    constexpr std::uint32_t nested = 10;
    auto buffer = std::make_shared<TMemoryBuffer>();
    TypeParam writer(buffer);
    writeStruct(writer, [&] {
        writeField(writer, T_LIST, 7, [&] {
            for (std::uint32_t i = 0; i < nested; ++i) {
                writer.writeListBegin(i + 1 < nested ? T_LIST : T_I32, 1);
            }
            writer.writeI32(5);
            for (std::uint32_t i = 0; i < nested; ++i) {
                writer.writeListEnd();
            }
        });
    });
    const std::string bytes = buffer->getBufferAsString();
    constexpr std::uint32_t needed = 1 + nested + 1; // the record, the lists, the number

    for (std::uint32_t limit = 1; limit <= needed; ++limit) {
        Viewport v;
        TypeParam protocol(bufferOf(bytes));
        protocol.setRecurisionLimit(limit);
        const int thrown = protocolErrorOf([&] { v.read(&protocol); });
        EXPECT_EQ(thrown, limit < needed ? static_cast<int>(TProtocolException::DEPTH_LIMIT) : -1) << limit;
        expectDepthLeft(protocol, limit);
    }
}

/// The counters also stand as before after an exception of the transport.
TYPED_TEST(DepthLimit, ATruncatedMessageLeavesTheCounterAsItWas) {
    const std::string bytes = written<TypeParam>(PlanarCameraStateResult());
    TypeParam protocol(bufferOf(bytes.substr(0, bytes.size() / 3)));
    protocol.setRecurisionLimit(levels);
    PlanarCameraStateResult read;
    EXPECT_ANY_THROW(read.read(&protocol));
    expectDepthLeft(protocol, levels);
}

} // namespace
} // namespace qel::api
