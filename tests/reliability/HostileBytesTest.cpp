// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <set>
#include <vector>

#include <thrift/Thrift.h>
#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/protocol/TProtocolException.h>
#include <thrift/transport/TBufferTransports.h>

#include <qel/api/camera/Values.h>

namespace qel::api::camera::test {

namespace {

using apache::thrift::protocol::TBinaryProtocolT;
using apache::thrift::protocol::TNetworkBigEndian;
using apache::thrift::protocol::TNetworkLittleEndian;
using apache::thrift::protocol::TProtocolException;
using apache::thrift::transport::TMemoryBuffer;

// What fuzzing found, one test each; the inputs themselves are kept beside the fuzz targets.

/// Reads a Vector from bytes; whether that works.
template <class Protocol>
bool reads(std::vector<std::uint8_t> bytes) {
    const auto buffer = std::make_shared<TMemoryBuffer>(bytes.data(), static_cast<std::uint32_t>(bytes.size()));
    Protocol protocol(buffer);
    Vector vector;
    try {
        vector.read(&protocol);
        return true;
    } catch (const TProtocolException&) {
        return false;
    } catch (const apache::thrift::transport::TTransportException&) {
        return false; // it ends too early
    }
}

template <class Protocol>
class WireType : public ::testing::Test {};
using Protocols =
    ::testing::Types<TBinaryProtocolT<TMemoryBuffer>, TBinaryProtocolT<TMemoryBuffer, TNetworkLittleEndian>>;
TYPED_TEST_SUITE(WireType, Protocols);

/// A byte above 31 is not even a value that Thrift's enumeration can hold, so it must not be put into one.
TYPED_TEST(WireType, OfAnUnknownFieldIsRefusedUnlessItIsKnown) {
    // bool, byte, double, i16, i32, i64, struct, map, set, list, uuid and string have values that 32 zero bytes hold.
    const std::set<int> known{0, 2, 3, 4, 6, 8, 10, 11, 12, 13, 14, 15, 16};
    for (int type = 0; type < 256; ++type) {
        std::vector<std::uint8_t> bytes(32, 0);
        bytes[0] = static_cast<std::uint8_t>(type);
        bytes[2] = 9;
        const bool isContainer = type == 13 || type == 14 || type == 15;
        if (!isContainer) { // a container of no type is refused for that
            EXPECT_EQ(reads<TypeParam>(bytes), known.contains(type)) << type;
        }
    }
}

TYPED_TEST(WireType, OfAListsElementsMayBeAnyByteWithoutHarm) {
    for (int type = 0; type < 256; ++type) {
        std::vector<std::uint8_t> bytes(32, 0);
        bytes[0] = 15; // a list
        bytes[2] = 9;
        bytes[3] = static_cast<std::uint8_t>(type);
        const bool known = (type >= 2 && type <= 16 && type != 5 && type != 7 && type != 9);
        if (type > 16) {
            EXPECT_FALSE(reads<TypeParam>(bytes)) << type;
        } else if (known) {
            EXPECT_TRUE(reads<TypeParam>(bytes)) << type;
        }
    }
}

} // namespace

} // namespace qel::api::camera::test
