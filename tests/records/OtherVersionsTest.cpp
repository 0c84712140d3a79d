// SPDX-License-Identifier: Apache-2.0
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thrift/protocol/TJSONProtocol.h>
#include <thrift/protocol/TProtocol.h>

#include <qel/api/camera/CameraAPIIf.h>

#include "tests/wire/WireBytes.h"
#include "tests/wire/WireProtocols.h"

namespace qel::api {
namespace {

using namespace ::apache::thrift::protocol;
using ::testing::ElementsAre;

using base::ServiceResult;
using camera::Vector;
using camera::Viewport;

template <class Protocol>
class OtherVersions : public ::testing::Test {};
TYPED_TEST_SUITE(OtherVersions, WireProtocols);

TYPED_TEST(OtherVersions, AMissingFieldKeepsItsValueAndFlag) {
    ServiceResult unset;
    unset.mError = 4;
    const std::string bytes = written<TypeParam>(unset);
    ServiceResult read;
    read.mMessage = "before";
    readFrom<TypeParam>(bytes, read);
    EXPECT_EQ(read.mError, 4);
    EXPECT_TRUE(read.__isset.mError);
    EXPECT_EQ(read.mMessage, "before");
    EXPECT_FALSE(read.__isset.mMessage);
    read.__isset.mMessage = true;
    readFrom<TypeParam>(bytes, read);
    EXPECT_TRUE(read.__isset.mMessage);
}

/// A struct as a newer version of the interface might write it: known fields among unknown ones of every type.
template <class Protocol>
void writeNewerViewport(Protocol& protocol) {
    protocol.writeStructBegin("Viewport");
    protocol.writeFieldBegin("", T_I32, 1); // mX with another type
    protocol.writeI32(12345);
    protocol.writeFieldEnd();
    writeNumberField(protocol, 2, 2.0);
    writeNumberField(protocol, 7, 7.0);
    protocol.writeFieldBegin("", T_BOOL, 8);
    protocol.writeBool(true);
    protocol.writeFieldEnd();
    protocol.writeFieldBegin("", T_BOOL, 9);
    protocol.writeBool(false);
    protocol.writeFieldEnd();
    protocol.writeFieldBegin("", T_BYTE, 10);
    protocol.writeByte(-3);
    protocol.writeFieldEnd();
    protocol.writeFieldBegin("", T_I16, 11);
    protocol.writeI16(-300);
    protocol.writeFieldEnd();
    protocol.writeFieldBegin("", T_I64, 12);
    protocol.writeI64(std::numeric_limits<std::int64_t>::min());
    protocol.writeFieldEnd();
    protocol.writeFieldBegin("", T_STRING, 13);
    protocol.writeString(std::string("a text of a newer version"));
    protocol.writeFieldEnd();
    protocol.writeFieldBegin("", T_UUID, 14);
    protocol.writeUUID(::apache::thrift::TUuid());
    protocol.writeFieldEnd();
    protocol.writeFieldBegin("", T_LIST, 1000); // an id far away
    protocol.writeListBegin(T_BOOL, 3);
    protocol.writeBool(true);
    protocol.writeBool(false);
    protocol.writeBool(true);
    protocol.writeListEnd();
    protocol.writeFieldEnd();
    writeNumberField(protocol, 3, 3.0); // back from it
    // Thrift's JSON protocol writes a negative id, but does not read it.
    protocol.writeFieldBegin("", T_SET, std::is_same_v<Protocol, TJSONProtocol> ? 20 : -5);
    protocol.writeSetBegin(T_I32, 20);
    for (int i = 0; i < 20; ++i) {
        protocol.writeI32(i * 1000000);
    }
    protocol.writeSetEnd();
    protocol.writeFieldEnd();
    protocol.writeFieldBegin("", T_MAP, 21);
    protocol.writeMapBegin(T_STRING, T_STRUCT, 2);
    for (const char* key : {"one", "two"}) {
        protocol.writeString(std::string(key));
        protocol.writeStructBegin("");
        writeNumberField(protocol, 4, 444.0); // an id that the record has, but in another struct
        protocol.writeFieldStop();
        protocol.writeStructEnd();
    }
    protocol.writeMapEnd();
    protocol.writeFieldEnd();
    protocol.writeFieldBegin("", T_MAP, 22);
    protocol.writeMapBegin(T_STRING, T_STRUCT, 0);
    protocol.writeMapEnd();
    protocol.writeFieldEnd();
    protocol.writeFieldBegin("", T_LIST, 23);
    protocol.writeListBegin(T_LIST, 1);
    protocol.writeListBegin(T_STRUCT, 1);
    protocol.writeStructBegin("");
    protocol.writeFieldBegin("", T_BOOL, 5);
    protocol.writeBool(true);
    protocol.writeFieldEnd();
    protocol.writeFieldStop();
    protocol.writeStructEnd();
    protocol.writeListEnd();
    protocol.writeListEnd();
    protocol.writeFieldEnd();
    writeNumberField(protocol, 4, 4.0);
    protocol.writeFieldStop();
    protocol.writeStructEnd();
}

TYPED_TEST(OtherVersions, UnknownIdsAndOtherTypesAreSkipped) {
    auto buffer = std::make_shared<TMemoryBuffer>();
    TypeParam protocol(buffer);
    writeNewerViewport(protocol);
    const std::uint32_t size = buffer->available_read();
    Viewport v;
    v.mX = 99.0;
    v.mDepthMax = 98.0;
    EXPECT_EQ(v.read(&protocol), size);
    EXPECT_EQ(v.mX, 99.0);
    EXPECT_EQ(v.mY, 2.0);
    EXPECT_EQ(v.mWidth, 3.0);
    EXPECT_EQ(v.mHeight, 4.0);
    EXPECT_EQ(v.mDepthMax, 98.0);
    EXPECT_FALSE(v.__isset.mX);
    EXPECT_TRUE(v.__isset.mY);
    EXPECT_TRUE(v.__isset.mWidth);
    EXPECT_TRUE(v.__isset.mHeight);
    EXPECT_FALSE(v.__isset.mDepthMin);
    EXPECT_FALSE(v.__isset.mDepthMax);
}

TYPED_TEST(OtherVersions, AFieldThatComesTwiceIsReadTwice) {
    auto buffer = std::make_shared<TMemoryBuffer>();
    TypeParam protocol(buffer);
    protocol.writeStructBegin("Viewport");
    writeNumberField(protocol, 1, 1.0);
    writeNumberField(protocol, 1, 2.0);
    protocol.writeFieldStop();
    protocol.writeStructEnd();
    Viewport v;
    v.read(&protocol);
    EXPECT_EQ(v.mX, 2.0);
}

/// The element type that a list announces is not compared with ours.
TYPED_TEST(OtherVersions, AListOfAnotherElementTypeIsReadAsNumbers) {
    if constexpr (!std::is_same_v<TypeParam, TJSONProtocol>) { // which reads numbers by their text
        auto buffer = std::make_shared<TMemoryBuffer>();
        TypeParam protocol(buffer);
        protocol.writeStructBegin("Vector");
        protocol.writeFieldBegin("", T_LIST, 1);
        protocol.writeListBegin(T_BYTE, 5);
        for (const double value : {1.0, 2.0, 3.0, 4.0, 5.0}) {
            protocol.writeDouble(value);
        }
        protocol.writeListEnd();
        protocol.writeFieldEnd();
        protocol.writeFieldStop();
        protocol.writeStructEnd();
        Vector v;
        v.read(&protocol);
        EXPECT_THAT(v.mData, ElementsAre(1.0, 2.0, 3.0, 4.0, 5.0));
    }
}

} // namespace
} // namespace qel::api
