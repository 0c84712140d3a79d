// SPDX-License-Identifier: Apache-2.0
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/protocol/TCompactProtocol.h>
#include <thrift/protocol/TJSONProtocol.h>

#include <qel/api/camera/CameraAPIIf.h>

#include "tests/wire/WireBytes.h"

// The bytes stand here as the protocols' own descriptions give them, worked out by hand.
//
// Binary: a field is its type (1 byte) and id (2), a list the type of its elements (1) and its size (4), a text its
// size (4) and bytes, all numbers big-endian; 0 ends a struct. Types: 04 double, 08 i32, 0b string, 0c struct, 0f list.
// Compact: a field is one byte, the step from the last id and the type; a list one byte, size and type, where it has
// fewer than 15 elements; i32 and sizes are varints (i32 zigzag); doubles are little-endian. Types: 5 i32, 7 double,
// 8 string, 9 list, c struct.
// Where Thrift's compiler is there, generated_records_test compares the bytes of every record with the generated code.
namespace qel::api {
namespace {

using Binary = ::apache::thrift::protocol::TBinaryProtocol;
using LittleEndianBinary = ::apache::thrift::protocol::TLEBinaryProtocol;
using Compact = ::apache::thrift::protocol::TCompactProtocol;
using Json = ::apache::thrift::protocol::TJSONProtocol;

using base::ServiceResult;
using camera::Matrix;
using camera::ProjectionState;
using camera::ProjectionType;
using camera::Vector;
using camera::VectorResult;

template <class Protocol, class Record>
void expectBytes(const Record& record, const std::string& bytes) {
    EXPECT_EQ(toHex(written<Protocol>(record)), toHex(bytes));
    Record read;
    EXPECT_EQ(readFrom<Protocol>(bytes, read), bytes.size());
    EXPECT_TRUE(read == record);
}

TEST(WireBytes, Vector) {
    Vector v;
    v.mData = {1, 2.5, -3};
    expectBytes<Binary>(v, fromHex("0f 0001 04 00000003 3ff0000000000000 4004000000000000 c008000000000000 00"));
    expectBytes<LittleEndianBinary>(
        v, fromHex("0f 0100 04 03000000 000000000000f03f 0000000000000440 00000000000008c0 00"));
    expectBytes<Compact>(v, fromHex("19 37 000000000000f03f 0000000000000440 00000000000008c0 00"));
    expectBytes<Json>(v, R"({"1":{"lst":["dbl",3,1,2.5,-3]}})");
}

TEST(WireBytes, RaggedMatrix) {
    Matrix m;
    m.mData = {{1}, {}, {2, 3}};
    expectBytes<Binary>(m, fromHex("0f 0001 0f 00000003"
                                   " 04 00000001 3ff0000000000000"
                                   " 04 00000000"
                                   " 04 00000002 4000000000000000 4008000000000000"
                                   " 00"));
    expectBytes<Compact>(m, fromHex("19 39 17 000000000000f03f 07 27 0000000000000040 0000000000000840 00"));
    expectBytes<Json>(m, R"({"1":{"lst":["lst",3,["dbl",1,1],["dbl",0],["dbl",2,2,3]]}})");
}

TEST(WireBytes, ALongListInCompactHasItsSizeBehindTheType) {
    Vector v;
    v.mData.assign(200, 0.0);
    expectBytes<Compact>(v, fromHex("19 f7 c801") + std::string(200 * 8 + 1, '\0'));
    v.mData.assign(15, 0.0);
    expectBytes<Compact>(v, fromHex("19 f7 0f") + std::string(15 * 8 + 1, '\0'));
    v.mData.assign(14, 0.0);
    expectBytes<Compact>(v, fromHex("19 e7") + std::string(14 * 8 + 1, '\0'));
}

TEST(WireBytes, ServiceResultWithoutAMessage) {
    ServiceResult r;
    r.mMessage = "not set, so not written";
    EXPECT_EQ(toHex(written<Binary>(r)), toHex(fromHex("08 0001 00000000 00")));
    EXPECT_EQ(toHex(written<Compact>(r)), toHex(fromHex("15 00 00")));
    EXPECT_EQ(written<Json>(r), R"({"1":{"i32":0}})");
}

TEST(WireBytes, ServiceResultWithAMessage) {
    ServiceResult r;
    r.__set_mError(-1);
    r.__set_mMessage("no");
    expectBytes<Binary>(r, fromHex("08 0001 ffffffff 0b 0002 00000002 6e6f 00"));
    expectBytes<Compact>(r, fromHex("15 01 18 02 6e6f 00"));
    expectBytes<Json>(r, R"({"1":{"i32":-1},"2":{"str":"no"}})");
}

TEST(WireBytes, NumbersInCompactAreZigzagVarints) {
    const auto bytesOf = [](std::int32_t error) {
        ServiceResult r;
        r.mError = error;
        const std::string bytes = written<Compact>(r);
        return toHex(bytes.substr(1, bytes.size() - 2));
    };
    EXPECT_EQ(bytesOf(4), "08");
    EXPECT_EQ(bytesOf(63), "7e");
    EXPECT_EQ(bytesOf(64), "8001");
    EXPECT_EQ(bytesOf(-65), "8101");
    EXPECT_EQ(bytesOf(2147483647), "feffffff0f");
    EXPECT_EQ(bytesOf(-2147483647 - 1), "ffffffff0f");
}

TEST(WireBytes, VectorResultHasItsValueFirst) {
    VectorResult r;
    r.mValue.mData = {1};
    r.mResult.__set_mMessage("");
    expectBytes<Binary>(
        r, fromHex("0c 0001 0f 0001 04 00000001 3ff0000000000000 00 0c 0002 08 0001 00000000 0b 0002 00000000 00 00"));
    expectBytes<Compact>(r, fromHex("1c 19 17 000000000000f03f 00 1c 15 00 18 00 00 00"));
    expectBytes<Json>(r, R"({"1":{"rec":{"1":{"lst":["dbl",1,1]}}},"2":{"rec":{"1":{"i32":0},"2":{"str":""}}}})");
}

TEST(WireBytes, DoubleResultHasItsResultFirst) {
    camera::DoubleResult r;
    r.mValue = 0.5;
    expectBytes<Binary>(r, fromHex("0c 0001 08 0001 00000000 00 04 0002 3fe0000000000000 00"));
    expectBytes<Compact>(r, fromHex("1c 15 00 00 17 000000000000e03f 00"));
    expectBytes<Json>(r, R"({"1":{"rec":{"1":{"i32":0}}},"2":{"dbl":0.5}})");
}

TEST(WireBytes, ProjectionStateWithZeroBytesInItsBlob) {
    ProjectionState p;
    p.mProjectionMatrix.mData = {{2}};
    p.mProjectionType = ProjectionType::ORTHOGRAPHIC;
    p.mFrustum.mRight = 1;
    p.mPrivate = fromHex("00 ff 01");
    expectBytes<Binary>(p, fromHex("0c 0001 0f 0001 0f 00000001 04 00000001 4000000000000000 00"
                                   " 08 0002 00000001"
                                   " 0c 0003"
                                   " 04 0001 0000000000000000 04 0002 3ff0000000000000 04 0003 0000000000000000"
                                   " 04 0004 0000000000000000 04 0005 0000000000000000 04 0006 0000000000000000 00"
                                   " 0b 0004 00000003 00ff01"
                                   " 00"));
    expectBytes<Compact>(p, fromHex("1c 19 19 17 0000000000000040 00"
                                    " 15 02"
                                    " 1c"
                                    " 17 0000000000000000 17 000000000000f03f 17 0000000000000000"
                                    " 17 0000000000000000 17 0000000000000000 17 0000000000000000 00"
                                    " 18 03 00ff01"
                                    " 00"));
    // The protocol carries binary as base64: 00 ff 01 is AP8B.
    expectBytes<Json>(p, R"({"1":{"rec":{"1":{"lst":["lst",1,["dbl",1,2]]}}},"2":{"i32":1},)"
                         R"("3":{"rec":{"1":{"dbl":0},"2":{"dbl":1},"3":{"dbl":0},"4":{"dbl":0},"5":{"dbl":0},)"
                         R"("6":{"dbl":0}}},"4":{"str":"AP8B"}})");
}

} // namespace
} // namespace qel::api
