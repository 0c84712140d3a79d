// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <set>
#include <vector>

#include <thrift/Thrift.h>
#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/transport/TBufferTransports.h>

#include <qel/api/camera/Values.h>

namespace qel::api::camera::test {

namespace {

using namespace apache::thrift::protocol;
using apache::thrift::transport::TMemoryBuffer;

// A byte above 31 is not even a value that Thrift's enumeration of types can hold, so it must not be put into one.

/// bool, byte, double, i16, i32, i64, string, struct, map, set, list and uuid.
const std::set<int> types{2, 3, 4, 6, 8, 10, 11, 12, 13, 14, 15, 16};

/// Reads a Vector from 32 bytes, an unknown field of two types and then zeros; whether that works.
template <class Protocol>
bool reads(const int type, const int elementType) {
    std::vector<std::uint8_t> bytes(32, 0);
    bytes[0] = static_cast<std::uint8_t>(type);
    bytes[2] = 9; // the field's id
    bytes[3] = static_cast<std::uint8_t>(elementType);
    Protocol protocol(std::make_shared<TMemoryBuffer>(bytes.data(), static_cast<std::uint32_t>(bytes.size())));
    Vector vector;
    try {
        vector.read(&protocol);
        return true;
    } catch (const apache::thrift::TException&) { // no such type, or it ends too early
        return false;
    }
}

template <class Protocol>
class WireType : public ::testing::Test {};
using Protocols =
    ::testing::Types<TBinaryProtocolT<TMemoryBuffer>, TBinaryProtocolT<TMemoryBuffer, TNetworkLittleEndian>>;
TYPED_TEST_SUITE(WireType, Protocols);

TYPED_TEST(WireType, OfAnUnknownFieldIsRefusedUnlessItIsKnown) {
    for (int type = 0; type < 256; ++type) {
        if (type != T_MAP && type != T_SET && type != T_LIST) { // which have elements: see below
            EXPECT_EQ((reads<TypeParam>(type, 0)), types.contains(type) || type == T_STOP) << type;
        }
    }
}

TYPED_TEST(WireType, OfAListsElementsIsRefusedUnlessItIsKnown) {
    for (int type = 2; type < 256; ++type) {
        EXPECT_EQ((reads<TypeParam>(T_LIST, type)), types.contains(type)) << type;
    }
}

} // namespace

} // namespace qel::api::camera::test
