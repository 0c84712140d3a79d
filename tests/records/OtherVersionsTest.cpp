// SPDX-License-Identifier: Apache-2.0
#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thrift/protocol/TJSONProtocol.h>
#include <thrift/protocol/TProtocol.h>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/api/camera/Fields.h>

#include "tests/records/SameBits.h"
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

/// The fields of a newer version of the interface: known ones among unknown ones of every type.
template <class Protocol>
void writeNewerViewport(Protocol& p) {
    writeField(p, T_I32, 1, [&] { p.writeI32(12345); }); // mX with another type
    writeNumberField(p, 2, 2.0);
    writeNumberField(p, 7, 7.0);
    writeField(p, T_BOOL, 8, [&] { p.writeBool(true); });
    writeField(p, T_BOOL, 9, [&] { p.writeBool(false); });
    writeField(p, T_BYTE, 10, [&] { p.writeByte(-3); });
    writeField(p, T_I16, 11, [&] { p.writeI16(-300); });
    writeField(p, T_I64, 12, [&] { p.writeI64(INT64_MIN); });
    writeField(p, T_STRING, 13, [&] { p.writeString(std::string("a text of a newer version")); });
    writeField(p, T_UUID, 14, [&] { p.writeUUID(::apache::thrift::TUuid()); });
    writeField(p, T_LIST, 1000, [&] { // an id far away
        p.writeListBegin(T_BOOL, 2);
        p.writeBool(true);
        p.writeBool(false);
        p.writeListEnd();
    });
    writeNumberField(p, 3, 3.0); // back from it
    // Thrift's JSON protocol writes a negative id, but does not read it.
    writeField(p, T_SET, std::is_same_v<Protocol, TJSONProtocol> ? 20 : -5, [&] {
        p.writeSetBegin(T_I32, 20);
        for (int i = 0; i < 20; ++i) {
            p.writeI32(i * 1000000);
        }
        p.writeSetEnd();
    });
    writeField(p, T_MAP, 21, [&] {
        p.writeMapBegin(T_STRING, T_STRUCT, 2);
        for (const char* key : {"one", "two"}) {
            p.writeString(std::string(key));
            writeStruct(p, [&] { writeNumberField(p, 4, 444.0); }); // the record has the id, but not in this struct
        }
        p.writeMapEnd();
    });
    writeField(p, T_MAP, 22, [&] {
        p.writeMapBegin(T_STRING, T_STRUCT, 0);
        p.writeMapEnd();
    });
    writeField(p, T_LIST, 23, [&] {
        p.writeListBegin(T_LIST, 1);
        p.writeListBegin(T_STRUCT, 1);
        writeStruct(p, [&] { writeField(p, T_BOOL, 5, [&] { p.writeBool(true); }); });
        p.writeListEnd();
        p.writeListEnd();
    });
    writeNumberField(p, 4, 4.0);
}

TYPED_TEST(OtherVersions, UnknownIdsAndOtherTypesAreSkipped) {
    auto buffer = std::make_shared<TMemoryBuffer>();
    TypeParam protocol(buffer);
    writeStruct(protocol, [&] { writeNewerViewport(protocol); });
    const std::uint32_t size = buffer->available_read();
    Viewport v;
    v.mX = 99.0;
    v.mDepthMax = 98.0;
    EXPECT_EQ(v.read(&protocol), size);
    Viewport expected; // as read: 2, 3 and 4 came, the others are as they were
    expected.mX = 99.0;
    expected.__set_mY(2.0);
    expected.__set_mWidth(3.0);
    expected.__set_mHeight(4.0);
    expected.mDepthMax = 98.0;
    EXPECT_TRUE(sameBits(v, expected)) << v;
}

TYPED_TEST(OtherVersions, AFieldThatComesTwiceIsReadTwice) {
    auto buffer = std::make_shared<TMemoryBuffer>();
    TypeParam protocol(buffer);
    writeStruct(protocol, [&] {
        writeNumberField(protocol, 1, 1.0);
        writeNumberField(protocol, 1, 2.0);
    });
    Viewport v;
    v.read(&protocol);
    EXPECT_EQ(v.mX, 2.0);
}

/// The element type that a list announces is not compared with ours.
TYPED_TEST(OtherVersions, AListOfAnotherElementTypeIsReadAsNumbers) {
    if constexpr (!std::is_same_v<TypeParam, TJSONProtocol>) { // which reads numbers by their text
        auto buffer = std::make_shared<TMemoryBuffer>();
        TypeParam protocol(buffer);
        writeStruct(protocol, [&] {
            writeField(protocol, T_LIST, 1, [&] {
                protocol.writeListBegin(T_BYTE, 3);
                for (const double value : {1.0, 2.0, 3.0}) {
                    protocol.writeDouble(value);
                }
                protocol.writeListEnd();
            });
        });
        Vector v;
        v.read(&protocol);
        EXPECT_THAT(v.mData, ElementsAre(1.0, 2.0, 3.0));
    }
}

} // namespace
} // namespace qel::api
