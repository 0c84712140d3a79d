// SPDX-License-Identifier: Apache-2.0
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/protocol/TCompactProtocol.h>
#include <thrift/protocol/TJSONProtocol.h>
#include <thrift/protocol/TProtocolException.h>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/api/camera/Fields.h>

#include "AllRecords.h"
#include "EventProtocol.h"
#include "RandomRecords.h"
#include "WireBytes.h"

namespace qel::api {
namespace {

using namespace ::apache::thrift::protocol;
using ::testing::ElementsAre;

using base::ServiceResult;
using camera::Matrix;
using camera::PlanarCameraStateResult;
using camera::ProjectionState;
using camera::ProjectionType;
using camera::Vector;
using camera::Viewport;

/// A host's own protocol, which the records do not know: they use its calls.
struct OwnBinary : TBinaryProtocol {
    using TBinaryProtocol::TBinaryProtocol;
};
struct OwnCompact : TCompactProtocol {
    using TCompactProtocol::TCompactProtocol;
};

template <class Protocol>
class EveryProtocol : public ::testing::Test {};
using Protocols =
    ::testing::Types<TBinaryProtocol, TLEBinaryProtocol, TCompactProtocol, TJSONProtocol, OwnBinary, OwnCompact>;
TYPED_TEST_SUITE(EveryProtocol, Protocols);

template <class Protocol>
RandomRecords randomRecordsFor(std::uint64_t seed) {
    RandomRecords random(seed);
    if constexpr (std::is_same_v<Protocol, TJSONProtocol>) {
        random.noZeroBytesInTexts();
    }
    return random;
}

TEST(RecordCalls, WritesItsFieldsInOrder) {
    EventProtocol protocol;
    ServiceResult r;
    r.mError = 4;
    r.__set_mMessage("m");
    EXPECT_EQ(r.write(&protocol), protocol.returned);
    EXPECT_THAT(protocol.events, ElementsAre("struct ServiceResult", "field mError 8 1", "i32 4", "end field",
                                             "field mMessage 11 2", "string m", "end field", "stop", "end struct"));
}

TEST(RecordCalls, WritesImagesAsBinaryAndTextsAsStrings) {
    EventProtocol protocol;
    camera::SurfaceState s;
    s.mPrivate = "image";
    s.write(&protocol);
    EXPECT_THAT(protocol.events, ::testing::Contains("binary image"));
    base::StringResult t;
    t.mValue = "text";
    t.write(&protocol);
    EXPECT_THAT(protocol.events, ::testing::Contains("string text"));
}

TEST(RecordCalls, WritesEachListWithItsOwnSize) {
    EventProtocol protocol;
    Matrix m;
    m.mData = {{}, {1}};
    EXPECT_EQ(m.write(&protocol), protocol.returned);
    EXPECT_THAT(protocol.events,
                ElementsAre("struct Matrix", "field mData 15 1", "list 15 2", "list 4 0", "end list", "list 4 1",
                            "double 1.000000", "end list", "end list", "end field", "stop", "end struct"));
}

/// The name, wire type and id of each field, written down a second time.
TEST(RecordCalls, EveryFieldOfEveryRecord) {
    std::string all;
    AllRecords::forEach([&]<class Record>() {
        EventProtocol protocol;
        Record record;
        forEachField<Record>([&](const auto& field) { field.markSet(record, true); });
        EXPECT_EQ(record.write(&protocol), protocol.returned);
        int depth = 0;
        for (const std::string& event : protocol.events) {
            depth -= event == "end struct" ? 1 : 0;
            if (event.starts_with("struct ") && depth == 0) {
                all += event.substr(7) + ":";
            } else if (event.starts_with("field ") && depth == 1) {
                all += event.substr(5);
                all += ",";
            }
            depth += event.starts_with("struct ") ? 1 : 0;
        }
        all += "\n";
    });
    EXPECT_EQ(all, "ServiceResult: mError 8 1, mMessage 11 2,\n"
                   "StringResult: mResult 12 1, mValue 11 2,\n"
                   "Vector: mData 15 1,\n"
                   "Quaternion: mData 15 1,\n"
                   "Matrix: mData 15 1,\n"
                   "Frustum: mLeft 4 1, mRight 4 2, mBottom 4 3, mTop 4 4, mNearDist 4 5, mFarDist 4 6,\n"
                   "Viewport: mX 4 1, mY 4 2, mWidth 4 3, mHeight 4 4, mDepthMin 4 5, mDepthMax 4 6,\n"
                   "ViewState: mViewTransformMatrix 12 1, mViewMatrix 12 2, mEye 12 3, mDirection 12 4, "
                   "mOrientation 12 5, mPrivate 11 6,\n"
                   "ProjectionState: mProjectionMatrix 12 1, mProjectionType 8 2, mFrustum 12 3, mPrivate 11 4,\n"
                   "SurfaceState: mViewport 12 1, mResolutionX 4 2, mResolutionY 4 3, mPrivate 11 4,\n"
                   "PlanarCameraState: mViewState 12 1, mProjectionState 12 2, mSurfaceState 12 3, mPrivate 11 4,\n"
                   "VectorResult: mValue 12 1, mResult 12 2,\n"
                   "MatrixResult: mValue 12 1, mResult 12 2,\n"
                   "ViewStateResult: mValue 12 1, mResult 12 2,\n"
                   "ProjectionStateResult: mValue 12 1, mResult 12 2,\n"
                   "SurfaceStateResult: mValue 12 1, mResult 12 2,\n"
                   "PlanarCameraStateResult: mValue 12 1, mResult 12 2,\n"
                   "DoubleResult: mResult 12 1, mValue 4 2,\n");
}

/// Flags lowered or raised, the values come over; on the reader's side the flags of all that came are raised.
TYPED_TEST(EveryProtocol, EveryRecordComesBack) {
    AllRecords::forEach([]<class Record>() {
        auto random = randomRecordsFor<TypeParam>(23);
        for (int i = 0; i < 60; ++i) {
            const auto record = random.template make<Record>();
            const std::string bytes = written<TypeParam>(record);
            auto read = i % 2 == 0 ? Record() : random.template make<Record>(); // also over what is there already
            const auto before = read;
            ASSERT_EQ(readFrom<TypeParam>(bytes, read), bytes.size());
            forEachField<Record>([&](const auto& field) {
                const bool came = field.form != Form::optional || field.isSet(record);
                ASSERT_EQ(field.isSet(read), came || field.isSet(before)) << field.name;
                if constexpr (!std::is_class_v<typename std::remove_cvref_t<decltype(field)>::Value>) {
                    ASSERT_TRUE(identical(read.*field.member, (came ? record : before).*field.member)) << field.name;
                }
            });
            if (i % 2 == 0) {
                ASSERT_TRUE(read == record);
            }
        }
    });
}

TYPED_TEST(EveryProtocol, TheCountsAreTheBytes) {
    auto random = randomRecordsFor<TypeParam>(29);
    for (int i = 0; i < 20; ++i) {
        const auto record = random.template make<PlanarCameraStateResult>();
        auto buffer = std::make_shared<TMemoryBuffer>();
        TypeParam protocol(buffer);
        const std::uint32_t count = record.write(&protocol);
        EXPECT_EQ(count, buffer->available_read());
        PlanarCameraStateResult read;
        EXPECT_EQ(read.read(&protocol), count);
        EXPECT_EQ(buffer->available_read(), 0U);
    }
}

TYPED_TEST(EveryProtocol, RecordsFollowEachOtherInOneBuffer) {
    auto buffer = std::make_shared<TMemoryBuffer>();
    TypeParam protocol(buffer);
    auto random = randomRecordsFor<TypeParam>(31);
    std::vector<PlanarCameraStateResult> records;
    for (int i = 0; i < 20; ++i) {
        records.push_back(random.template make<PlanarCameraStateResult>());
        records.back().write(&protocol);
    }
    for (const auto& record : records) {
        PlanarCameraStateResult read;
        read.read(&protocol);
        EXPECT_TRUE(read == record);
    }
}

TYPED_TEST(EveryProtocol, AVectorOfAMillionNumbersAndALongImage) {
    Vector v;
    auto random = randomRecordsFor<TypeParam>(37);
    v.mData.resize(1000000);
    for (double& value : v.mData) {
        value = static_cast<double>(random.below(1000)) / 8.0;
    }
    Vector readVector;
    readFrom<TypeParam>(written<TypeParam>(v), readVector);
    EXPECT_TRUE(readVector == v);

    camera::ViewState s;
    s.mPrivate.assign(3000000, '\0');
    s.mPrivate[12345] = 'x';
    camera::ViewState readState;
    readFrom<TypeParam>(written<TypeParam>(s), readState);
    EXPECT_TRUE(readState == s);
}

TYPED_TEST(EveryProtocol, AMatrixOfManyRaggedRows) {
    Matrix m;
    for (std::size_t i = 0; i < 20000; ++i) {
        m.mData.emplace_back(i % 17, static_cast<double>(i));
    }
    Matrix read;
    readFrom<TypeParam>(written<TypeParam>(m), read);
    EXPECT_TRUE(read == m);
}

/// A value that the enumeration does not list is stored, and written, as it came.
TYPED_TEST(EveryProtocol, AnUnknownEnumeratorIsKept) {
    ProjectionState p;
    p.mProjectionType = static_cast<ProjectionType::type>(7);
    ProjectionState read;
    readFrom<TypeParam>(written<TypeParam>(p), read);
    EXPECT_EQ(static_cast<int>(read.mProjectionType), 7);
}

TYPED_TEST(EveryProtocol, AMissingFieldKeepsItsValueAndFlag) {
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

template <class Protocol>
void writeNumberField(Protocol& protocol, std::int16_t id, double value) {
    protocol.writeFieldBegin("", T_DOUBLE, id);
    protocol.writeDouble(value);
    protocol.writeFieldEnd();
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

TYPED_TEST(EveryProtocol, UnknownIdsAndOtherTypesAreSkipped) {
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

TYPED_TEST(EveryProtocol, AFieldThatComesTwiceIsReadTwice) {
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
TYPED_TEST(EveryProtocol, AListOfAnotherElementTypeIsReadAsNumbers) {
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

TYPED_TEST(EveryProtocol, AListIsReadOverWhatItHeld) {
    Matrix four;
    four.mData.assign(4, std::vector<double>(4, 4.0));
    Matrix two;
    two.mData = {{1}, {2, 3}};
    Matrix read;
    readFrom<TypeParam>(written<TypeParam>(four), read);
    const double* firstRow = read.mData[0].data();
    readFrom<TypeParam>(written<TypeParam>(two), read);
    EXPECT_TRUE(read == two);
    EXPECT_EQ(read.mData[0].data(), firstRow) << "the row's storage is used again";
    readFrom<TypeParam>(written<TypeParam>(Matrix()), read);
    EXPECT_TRUE(read == Matrix());
}

/// A record inside of a host's own struct: neither side's reading of the fields behind it is disturbed.
TYPED_TEST(EveryProtocol, ARecordInsideOfAHostsOwnStruct) {
    auto buffer = std::make_shared<TMemoryBuffer>();
    TypeParam protocol(buffer);
    const auto camera = randomRecordsFor<TypeParam>(41).template make<PlanarCameraStateResult>();
    protocol.writeStructBegin("Scene");
    protocol.writeFieldBegin("camera", T_STRUCT, 3);
    camera.write(&protocol);
    protocol.writeFieldEnd();
    writeNumberField(protocol, 5, 0.5);
    protocol.writeFieldStop();
    protocol.writeStructEnd();

    std::string name;
    TType type = T_STOP;
    std::int16_t id = 0;
    PlanarCameraStateResult read;
    double value = 0.0;
    protocol.readStructBegin(name);
    protocol.readFieldBegin(name, type, id);
    EXPECT_EQ(id, 3);
    read.read(&protocol);
    protocol.readFieldEnd();
    protocol.readFieldBegin(name, type, id);
    EXPECT_EQ(id, 5);
    protocol.readDouble(value);
    protocol.readFieldEnd();
    protocol.readFieldBegin(name, type, id);
    EXPECT_EQ(type, T_STOP);
    protocol.readStructEnd();
    EXPECT_TRUE(read == camera);
    EXPECT_EQ(value, 0.5);
}

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

TYPED_TEST(EveryProtocol, WritingStopsAtTheDepthLimitAndLeavesTheCounterAsItWas) {
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

TYPED_TEST(EveryProtocol, ReadingStopsAtTheDepthLimitAndLeavesTheCounterAsItWas) {
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
TYPED_TEST(EveryProtocol, SkippingStopsAtTheDepthLimitAndLeavesTheCounterAsItWas) {
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
TYPED_TEST(EveryProtocol, ATruncatedMessageLeavesTheCounterAsItWas) {
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
