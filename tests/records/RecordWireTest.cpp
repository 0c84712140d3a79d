// SPDX-License-Identifier: Apache-2.0
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>
#include <thrift/protocol/TProtocol.h>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/api/camera/Fields.h>

#include "tests/records/AllRecords.h"
#include "tests/records/RandomRecords.h"
#include "tests/records/SameBits.h"
#include "tests/wire/WireBytes.h"
#include "tests/wire/WireProtocols.h"

namespace qel::api {
namespace {

using namespace ::apache::thrift::protocol;

using camera::Matrix;
using camera::PlanarCameraStateResult;
using camera::ProjectionState;
using camera::ProjectionType;
using camera::Vector;

template <class Protocol>
class EveryProtocol : public ::testing::Test {};
TYPED_TEST_SUITE(EveryProtocol, WireProtocols);

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
                    ASSERT_TRUE(sameBits(read.*field.member, (came ? record : before).*field.member)) << field.name;
                }
            });
            if (i % 2 == 0) {
                ASSERT_TRUE(read == record);
            }
        }
    });
}

TYPED_TEST(EveryProtocol, RecordsFollowEachOtherInOneBufferAndCountTheirBytes) {
    auto buffer = std::make_shared<TMemoryBuffer>();
    TypeParam protocol(buffer);
    auto random = randomRecordsFor<TypeParam>(31);
    std::vector<PlanarCameraStateResult> records;
    std::vector<std::uint32_t> counts;
    for (int i = 0; i < 20; ++i) {
        const std::uint32_t before = buffer->available_read();
        records.push_back(random.template make<PlanarCameraStateResult>());
        counts.push_back(records.back().write(&protocol));
        EXPECT_EQ(counts.back(), buffer->available_read() - before);
    }
    for (std::size_t i = 0; i < records.size(); ++i) {
        PlanarCameraStateResult read;
        EXPECT_EQ(read.read(&protocol), counts[i]);
        EXPECT_TRUE(read == records[i]);
    }
    EXPECT_EQ(buffer->available_read(), 0U);
}

TYPED_TEST(EveryProtocol, LongListsRaggedRowsAndALongBlobComeBack) {
    const auto comesBack = []<class Record>(const Record& record) {
        Record read;
        readFrom<TypeParam>(written<TypeParam>(record), read);
        EXPECT_TRUE(read == record);
    };
    Vector v;
    Matrix m;
    for (std::size_t i = 0; i < 20000; ++i) {
        m.mData.emplace_back(i % 17, static_cast<double>(i));
        v.mData.insert(v.mData.end(), 50, static_cast<double>(i) / 8.0);
    }
    comesBack(v);
    comesBack(m);
    camera::ViewState s;
    s.mPrivate.assign(3000000, '\0');
    s.mPrivate[12345] = 'x';
    comesBack(s);
}

/// A value that the enumeration does not list is stored, and written, as it came.
TYPED_TEST(EveryProtocol, AnUnknownEnumeratorIsKept) {
    ProjectionState p;
    p.mProjectionType = static_cast<ProjectionType::type>(7);
    ProjectionState read;
    readFrom<TypeParam>(written<TypeParam>(p), read);
    EXPECT_EQ(static_cast<int>(read.mProjectionType), 7);
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
    writeStruct(protocol, [&] {
        writeField(protocol, T_STRUCT, 3, [&] { camera.write(&protocol); });
        writeNumberField(protocol, 5, 0.5);
    });

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

} // namespace
} // namespace qel::api
