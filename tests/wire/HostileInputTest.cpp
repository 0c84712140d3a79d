// SPDX-License-Identifier: Apache-2.0
#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/protocol/TCompactProtocol.h>
#include <thrift/protocol/TJSONProtocol.h>
#include <thrift/transport/TBufferTransports.h>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/api/camera/Fields.h>

#include "tests/records/AllRecords.h"
#include "tests/reliability/Allocations.h"
#include "tests/wire/BrokenMessages.h"
#include "tests/wire/WireBytes.h"

namespace qel::api {
namespace {

using namespace ::apache::thrift::protocol;
using ::apache::thrift::transport::TBufferedTransport;
using ::apache::thrift::transport::TTransportException;

using base::ServiceResult;
using camera::Matrix;
using camera::SurfaceState;
using camera::Vector;
using camera::Viewport;
using qel::test::peakOf;

// What a message may cost that announces much and brings next to nothing: the exception, its text, and the room that
// is made for the first bytes of a text.
constexpr std::size_t nextToNothing = 2048;

/// The test of the test: what it measures is what the records allocate.
TEST(AllocationCount, SeesVectorsAndStrings) {
    EXPECT_EQ(peakOf([] { const std::vector<double> v(1000); }), 8000U);
    EXPECT_GE(peakOf([] { const std::string s(1000, 'x'); }), 1000U);
    EXPECT_EQ(peakOf([] {}), 0U);
}

template <class Protocol, class Record>
std::size_t peakOfReading(const std::string& bytes) {
    Protocol protocol(bufferOf(bytes));
    return peakOf([&] {
        Record record;
        try {
            record.read(&protocol);
        } catch (const ::apache::thrift::TException&) {
        }
    });
}

struct Announcement {
    const char* what;
    const char* binary;
    const char* compact;
    const char* json; ///< nothing where JSON announces no size: texts and structs
};

/// A message that ends too early, as the record must find.
template <class Protocol, class Record>
void expectNextToNothing(const std::string& bytes, const char* what) {
    EXPECT_LT((peakOfReading<Protocol, Record>(bytes)), nextToNothing) << what;
    Record record;
    EXPECT_THROW(readFrom<Protocol>(bytes, record), TTransportException) << what;
}

/// 25000000 is 017d7840, as varint c0f0f50b; 12000000 is 00b71b00, as varint 80b6dc05; 100000000 is 05f5e100, as varint
/// 80c2d72f. All are within the 100 MiB that Thrift allows for a message.
template <class Record>
void expectNextToNothing(std::initializer_list<Announcement> announcements) {
    for (const auto& [what, binary, compact, json] : announcements) {
        expectNextToNothing<TBinaryProtocol, Record>(fromHex(binary), what);
        expectNextToNothing<TCompactProtocol, Record>(fromHex(compact), what);
        if (json != nullptr) {
            expectNextToNothing<TJSONProtocol, Record>(json, what);
        }
    }
}

TEST(HostileInput, AnnouncedListsCostNothing) {
    expectNextToNothing<Vector>({
        {"12000000 numbers, none there", "0f 0001 04 00b71b00", "19 f7 80b6dc05", R"({"1":{"lst":["dbl",12000000)"},
        {"12000000 numbers, one there", "0f 0001 04 00b71b00 3ff0000000000000", "19 f7 80b6dc05 3ff0000000000000",
         R"({"1":{"lst":["dbl",12000000,1)"},
        {"12000000 numbers called bytes", "0f 0001 03 00b71b00", "19 f3 80b6dc05", R"({"1":{"lst":["i8",12000000)"},
    });
    expectNextToNothing<Matrix>({
        {"25000000 rows, none there", "0f 0001 0f 017d7840", "19 f9 c0f0f50b", R"({"1":{"lst":["lst",25000000)"},
        {"25000000 rows, one there", "0f 0001 0f 017d7840 04 00000000", "19 f9 c0f0f50b 07",
         R"({"1":{"lst":["lst",25000000,["dbl",0])"},
        {"a row of 12000000 numbers", "0f 0001 0f 00000001 04 00b71b00", "19 19 f7 80b6dc05",
         R"({"1":{"lst":["lst",1,["dbl",12000000)"},
        {"25000000 rows, the first of 12000000", "0f 0001 0f 017d7840 04 00b71b00", "19 f9 c0f0f50b f7 80b6dc05",
         R"({"1":{"lst":["lst",25000000,["dbl",12000000)"},
    });
}

TEST(HostileInput, AnnouncedTextsAndBlobsCostNothing) {
    expectNextToNothing<ServiceResult>({
        {"a text of 100000000 bytes", "0b 0002 05f5e100", "28 80c2d72f", nullptr},
        {"three bytes of it there", "0b 0002 05f5e100 616263", "28 80c2d72f 616263", R"({"2":{"str":"abc)"},
    });
    expectNextToNothing<SurfaceState>({
        {"a blob of 100000000 bytes", "0b 0004 05f5e100 00", "48 80c2d72f 00", R"({"4":{"str":"AA)"},
    });
}

TEST(HostileInput, AnnouncedUnknownFieldsCostNothing) {
    expectNextToNothing<Viewport>({
        {"a text", "0b 0009 05f5e100 61", "98 80c2d72f 61", R"({"9":{"str":"a)"},
        {"a list of texts", "0f 0009 0b 017d7840 00000001 61 05f5e100", "99 f8 c0f0f50b 01 61 80c2d72f",
         R"({"9":{"lst":["str",25000000,"a")"},
        {"a list of lists", "0f 0009 0f 017d7840 0f 017d7840", "99 f9 c0f0f50b f9 c0f0f50b",
         R"({"9":{"lst":["lst",25000000,["lst",25000000)"},
        {"a set", "0e 0009 08 017d7840 00000001", "9a f5 c0f0f50b 01", R"({"9":{"set":["i32",25000000,1)"},
        {"a map", "0d 0009 0b 08 00b71b00 00000001 61 00000001", "9b 80b6dc05 85 01 61 02",
         R"({"9":{"map":["str","i32",12000000,{"a":1)"},
    });
}

/// A record that is read into again uses the storage that it has, and writing needs none.
TEST(RecordStorage, ReadingTheSameShapeAgainAndWritingAllocateNothing) {
    const auto measure = []<class Protocol>() {
        camera::PlanarCameraStateResult record;
        auto& view = record.mValue.mViewState;
        view.mViewMatrix.mData.assign(4, std::vector<double>(4, 0.5));
        view.mViewTransformMatrix = view.mViewMatrix;
        view.mEye.mData.assign(3, 1.5);
        view.mPrivate.assign(384, 'v');
        record.mValue.mPrivate.assign(1080, 'p');
        record.mResult.__set_mMessage("a message longer than a small string holds in itself");
        auto buffer = bufferOf(std::string(20000, ' '));
        Protocol protocol(buffer);
        buffer->resetBuffer();
        EXPECT_EQ(peakOf([&] { record.write(&protocol); }), 0U);
        camera::PlanarCameraStateResult read;
        EXPECT_GT(peakOf([&] { read.read(&protocol); }), 0U);
        record.write(&protocol);
        EXPECT_EQ(peakOf([&] { read.read(&protocol); }), 0U);
        EXPECT_TRUE(read == record);
    };
    measure.operator()<TBinaryProtocol>();
    measure.operator()<TCompactProtocol>();
}

template <class Protocol>
class HostileTo : public ::testing::Test {};
using Protocols = ::testing::Types<TBinaryProtocol, TLEBinaryProtocol, TCompactProtocol, TJSONProtocol>;
TYPED_TEST_SUITE(HostileTo, Protocols);

/// The smallest element on the wire is an empty row, 1 byte in Compact, which is a std::vector of 24 bytes in memory.
/// Where all rows are at hand, room is made for them once, so that is all; numbers and texts cost what they are.
TYPED_TEST(HostileTo, AWholeMessageCostsWhatItHolds) {
    Vector v;
    v.mData.assign(100000, 0.1);
    const std::string numbers = written<TypeParam>(v);
    Matrix rows;
    rows.mData.resize(100000);
    const std::string emptyRows = written<TypeParam>(rows);
    SurfaceState s;
    s.mPrivate.assign(1000000, 'x');
    const std::string blob = written<TypeParam>(s);

    if (std::is_same_v<TypeParam, TJSONProtocol>) {
        EXPECT_LT((peakOfReading<TypeParam, Vector>(numbers)), 2 * numbers.size());
        EXPECT_LT((peakOfReading<TypeParam, Matrix>(emptyRows)), 8 * emptyRows.size());
        EXPECT_LT((peakOfReading<TypeParam, SurfaceState>(blob)), 4 * blob.size());
    } else {
        EXPECT_LT((peakOfReading<TypeParam, Vector>(numbers)), numbers.size() + nextToNothing);
        EXPECT_LT((peakOfReading<TypeParam, Matrix>(emptyRows)), 24 * 100000 + nextToNothing);
        EXPECT_LT((peakOfReading<TypeParam, SurfaceState>(blob)), blob.size() + nextToNothing);
    }
}

/// Only a part of the message lies in the transport's buffer, so lists and texts grow by doubling: at most the old
/// storage and twice as much new.
TYPED_TEST(HostileTo, AMessageThatIsCutCostsASmallMultipleOfWhatCame) {
    const auto peakThroughASmallBuffer = []<class Record>(const std::string& bytes) {
        TypeParam protocol(std::make_shared<TBufferedTransport>(bufferOf(bytes), 512));
        return peakOf([&] {
            Record record;
            EXPECT_ANY_THROW(record.read(&protocol));
        });
    };
    Vector v;
    v.mData.assign(100000, 0.1);
    const std::string numbers = written<TypeParam>(v);
    SurfaceState s;
    s.mPrivate.assign(1000000, 'x');
    const std::string blob = written<TypeParam>(s);
    for (const std::size_t parts : {2U, 3U, 10U, 100U}) {
        const std::size_t came = blob.size() / parts;
        EXPECT_LT(peakThroughASmallBuffer.template operator()<SurfaceState>(blob.substr(0, came)),
                  4 * came + nextToNothing);
        const std::size_t numbersCame = numbers.size() / parts;
        EXPECT_LT(peakThroughASmallBuffer.template operator()<Vector>(numbers.substr(0, numbersCame)),
                  4 * numbersCame + nextToNothing);
    }
}

TYPED_TEST(HostileTo, BrokenMessagesCostLittleAndCutOnesThrow) {
    AllRecords::forEach([]<class Record>() {
        forEachBrokenMessage<TypeParam, Record>(211, [](const std::string& bytes, bool isCut) {
            ASSERT_LT((peakOfReading<TypeParam, Record>(bytes)), 24 * bytes.size() + nextToNothing) << toHex(bytes);
            if (isCut) {
                Record record;
                ASSERT_ANY_THROW(readFrom<TypeParam>(bytes, record)) << toHex(bytes);
            }
        });
    });
}

template <class Protocol, class Record>
int readError(const std::string& bytes) {
    Record record;
    return protocolErrorOf([&] { readFrom<Protocol>(bytes, record); });
}

/// The error of reading the message, spelled in hexadecimal digits.
template <class Protocol, class Record>
int errorOf(const char* digits) {
    return readError<Protocol, Record>(fromHex(digits));
}

TEST(HostileInput, NegativeSizes) {
    constexpr int negative = TProtocolException::NEGATIVE_SIZE;
    EXPECT_EQ((errorOf<TBinaryProtocol, Vector>("0f 0001 04 ffffffff 00")), negative);
    EXPECT_EQ((errorOf<TBinaryProtocol, Matrix>("0f 0001 0f 80000000 00")), negative);
    EXPECT_EQ((errorOf<TBinaryProtocol, Matrix>("0f 0001 0f 00000001 04 80000000 00")), negative);
    EXPECT_EQ((errorOf<TBinaryProtocol, ServiceResult>("0b 0002 ffffffff 00")), negative);
    EXPECT_EQ((errorOf<TBinaryProtocol, SurfaceState>("0b 0004 ffffffff 00")), negative);
    EXPECT_EQ((errorOf<TBinaryProtocol, Viewport>("0d 0009 08 08 ffffffff 00")), negative);
    EXPECT_EQ((errorOf<TCompactProtocol, Vector>("19 f7 ffffffff0f 00")), negative);
    EXPECT_EQ((errorOf<TCompactProtocol, Matrix>("19 19 f7 ffffffff0f 00")), negative);
    EXPECT_EQ((errorOf<TCompactProtocol, ServiceResult>("28 ffffffff0f 00")), negative);
    EXPECT_EQ((errorOf<TCompactProtocol, SurfaceState>("48 8080808008 00")), negative);
    EXPECT_EQ((errorOf<TCompactProtocol, Viewport>("9b ffffffff0f 55 00")), negative);
}

/// Thrift's JSON reader takes a size for an unsigned number of 64 bits, so a negative one is one that is too large.
TEST(HostileInput, SizesOutOfRangeInJson) {
    for (const std::string size : {"-1", "-2147483648", "4294967296", "18446744073709551615", "99999999999999999999"}) {
        const std::string lists = R"({"1":{"lst":[)";
        EXPECT_EQ((readError<TJSONProtocol, Vector>(lists + R"("dbl",)" + size + ",1]}}")),
                  TProtocolException::SIZE_LIMIT);
        EXPECT_EQ((readError<TJSONProtocol, Matrix>(lists + R"("lst",1,["dbl",)" + size + "]]}}")),
                  TProtocolException::SIZE_LIMIT);
        EXPECT_EQ((readError<TJSONProtocol, Viewport>(R"({"9":{"map":["i32","i32",)" + size + ",{}]}}")),
                  TProtocolException::SIZE_LIMIT);
    }
    EXPECT_EQ((readError<TJSONProtocol, Vector>(R"({"1":{"lst":["dbl",1e9]}})")), TProtocolException::INVALID_DATA);
}

TEST(HostileInput, BytesThatMeanNothing) {
    EXPECT_EQ((errorOf<TBinaryProtocol, Viewport>("7f 0009 00")), TProtocolException::INVALID_DATA);
    EXPECT_EQ((errorOf<TBinaryProtocol, Viewport>("0f 0009 7f 00000001 00")), TProtocolException::UNKNOWN);
    EXPECT_EQ((errorOf<TCompactProtocol, ServiceResult>("15 80808080808080808080 00 00")),
              TProtocolException::INVALID_DATA);
    Viewport v;
    EXPECT_THROW(readFrom<TCompactProtocol>(fromHex("1e 00"), v), ::apache::thrift::TException);
}

/// Whether a Vector can be read from 32 bytes: an unknown field of two types and then zeros. Read by the record itself,
/// since a byte above 31 is not even a value that Thrift's enumeration of types can hold.
template <class Protocol>
bool readsTypes(int type, int elementType) {
    std::string bytes(32, '\0');
    bytes[0] = static_cast<char>(type);
    bytes[2] = 9; // the field's id
    bytes[3] = static_cast<char>(elementType);
    Vector vector;
    try {
        readFrom<Protocol>(bytes, vector);
        return true;
    } catch (const ::apache::thrift::TException&) { // no such type, or it ends too early
        return false;
    }
}

TEST(HostileInput, TypesThatAreNoneAreRefused) {
    // bool, byte, double, i16, i32, i64, string, struct, map, set, list and uuid
    const std::set<int> types{2, 3, 4, 6, 8, 10, 11, 12, 13, 14, 15, 16};
    const auto check = [&]<class Protocol>() {
        for (int type = 0; type < 256; ++type) {
            if (type != T_MAP && type != T_SET && type != T_LIST) { // which have elements
                EXPECT_EQ(readsTypes<Protocol>(type, 0), types.contains(type) || type == T_STOP) << type;
            }
            if (type > 1) {
                EXPECT_EQ(readsTypes<Protocol>(T_LIST, type), types.contains(type)) << type;
            }
        }
    };
    check.operator()<TBinaryProtocolT<TMemoryBuffer>>();
    check.operator()<TBinaryProtocolT<TMemoryBuffer, TNetworkLittleEndian>>();
}

/// The innermost level of a deep nesting is never reached: the depth limit, 64 where the host sets none, comes first.
TEST(HostileInput, DeepNesting) {
    constexpr int limit = TProtocolException::DEPTH_LIMIT;
    std::string structs;
    std::string lists = fromHex("0f 0009");
    std::string compactStructs = fromHex("9c");
    std::string compactLists = fromHex("99");
    for (int i = 0; i < 200000; ++i) {
        structs += fromHex("0c 0009");
        lists += fromHex("0f 00000001");
        compactStructs += fromHex("1c");
        compactLists += fromHex("19");
    }
    EXPECT_EQ((readError<TBinaryProtocol, Viewport>(structs)), limit);
    EXPECT_EQ((readError<TBinaryProtocol, Viewport>(lists)), limit);
    EXPECT_EQ((readError<TCompactProtocol, Viewport>(compactStructs)), limit);
    EXPECT_EQ((readError<TCompactProtocol, Viewport>(compactLists)), limit);
    std::string json = "{\"9\":{\"rec\":";
    for (int i = 0; i < 1000; ++i) {
        json += "{\"9\":{\"rec\":";
    }
    EXPECT_EQ((readError<TJSONProtocol, Viewport>(json)), limit);
    EXPECT_LT((peakOfReading<TBinaryProtocol, Viewport>(structs)), nextToNothing);
    EXPECT_LT((peakOfReading<TCompactProtocol, Viewport>(compactLists)), nextToNothing);
}

/// A record half read keeps what was read: whole fields with their flags, and the elements of a list that came.
TEST(HostileInput, WhatWasReadBeforeTheEndIsKept) {
    Viewport v;
    v.mY = 9.0;
    EXPECT_THROW(readFrom<TBinaryProtocol>(fromHex("04 0001 3ff0000000000000 04 0002 3ff0"), v), TTransportException);
    EXPECT_EQ(v.mX, 1.0);
    EXPECT_TRUE(v.__isset.mX);
    EXPECT_EQ(v.mY, 9.0);
    EXPECT_FALSE(v.__isset.mY);

    Vector w;
    w.mData = {7, 8, 9, 10};
    EXPECT_THROW(readFrom<TBinaryProtocol>(fromHex("0f 0001 04 00000003 3ff0000000000000 4000000000000000 40"), w),
                 TTransportException);
    EXPECT_EQ(w.mData, (std::vector<double>{1, 2}));
    EXPECT_FALSE(w.__isset.mData);
    EXPECT_THROW(readFrom<TBinaryProtocol>(fromHex("0f 0001 04 ffffffff"), w), TProtocolException);
    EXPECT_TRUE(w.mData.empty()) << "a list is emptied before it is read";

    Matrix m;
    m.mData.assign(4, {7, 8, 9, 10});
    EXPECT_THROW(readFrom<TCompactProtocol>(fromHex("19 49 17 000000000000f03f 27 000000000000f03f 00"), m),
                 TTransportException);
    EXPECT_EQ(m.mData, (std::vector<std::vector<double>>{{1}, {1}}));
}

} // namespace
} // namespace qel::api
