// SPDX-License-Identifier: Apache-2.0
#include <cstdint>
#include <memory>
#include <string>
#include <tuple>
#include <type_traits>

#include <gtest/gtest.h>
#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/protocol/TCompactProtocol.h>
#include <thrift/protocol/TJSONProtocol.h>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/api/camera/Fields.h>

#include "CameraAPI.h"
#include "camera_fields.h"
#include "generated_records.h"
#include "tests/records/AllRecords.h"
#include "tests/records/RandomRecords.h"
#include "tests/records/SameBits.h"
#include "tests/wire/EventProtocol.h"
#include "tests/wire/WireBytes.h"

// The records written by hand beside those that Thrift's compiler generates from the interface description. The field
// table of a generated record is ours with the namespace changed, so the same seed fills both alike.
namespace qel::api {
namespace {

using namespace ::apache::thrift::protocol;
namespace theirs = ::qel::generated;

/// Calls visit.template operator()<Ours, Theirs>() for each.
template <class Visitor>
void forEachPair(const Visitor& visit) {
    const auto visitAll = [&]<class... Ours, class... Theirs>(const std::tuple<Ours...>*,
                                                              const std::tuple<Theirs...>*) {
        (visit.template operator()<Ours, Theirs>(), ...);
    };
    visitAll(static_cast<AllRecords::As<std::tuple>*>(nullptr),
             static_cast<theirs::AllRecords::As<std::tuple>*>(nullptr));
}

template <class Protocol>
class Generated : public ::testing::Test {
protected:
    static RandomRecords random(std::uint64_t seed) {
        RandomRecords random(seed);
        random.allowNaN();
        if (std::is_same_v<Protocol, TJSONProtocol>) {
            random.noZeroBytesInTexts();
        }
        return random;
    }
};
using Protocols = ::testing::Types<TBinaryProtocol, TLEBinaryProtocol, TCompactProtocol, TJSONProtocol>;
TYPED_TEST_SUITE(Generated, Protocols);

constexpr int rounds = 200;

TYPED_TEST(Generated, WritesTheSameBytes) {
    forEachPair([]<class Ours, class Theirs>() {
        auto first = TestFixture::random(301);
        auto second = TestFixture::random(301);
        for (int i = 0; i < rounds; ++i) {
            const auto ours = first.template make<Ours>();
            const auto theirs = second.template make<Theirs>();
            ASSERT_TRUE(sameBits(ours, theirs));
            ASSERT_EQ(toHex(written<TypeParam>(ours)), toHex(written<TypeParam>(theirs)));
        }
    });
}

TYPED_TEST(Generated, EachReadsWhatTheOtherWrote) {
    forEachPair([]<class Ours, class Theirs>() {
        auto first = TestFixture::random(307);
        auto second = TestFixture::random(307);
        auto third = TestFixture::random(311);
        auto fourth = TestFixture::random(311);
        for (int i = 0; i < rounds; ++i) {
            const std::string ourBytes = written<TypeParam>(first.template make<Ours>());
            const std::string theirBytes = written<TypeParam>(second.template make<Theirs>());
            // Into fresh records, and over records that hold something already.
            auto ours = i % 2 == 0 ? Ours() : third.template make<Ours>();
            auto theirs = i % 2 == 0 ? Theirs() : fourth.template make<Theirs>();
            ASSERT_EQ(readFrom<TypeParam>(theirBytes, ours), readFrom<TypeParam>(ourBytes, theirs));
            ASSERT_TRUE(sameBits(ours, theirs));
        }
    });
}

TEST(GeneratedRecords, PrintTheSameText) {
    forEachPair([]<class Ours, class Theirs>() {
        RandomRecords first(313);
        RandomRecords second(313);
        first.allowNaN();
        second.allowNaN();
        for (int i = 0; i < rounds; ++i) {
            ASSERT_EQ(textOf(first.make<Ours>()), textOf(second.make<Theirs>()));
        }
    });
}

/// The names of structs and fields, which Binary and Compact do not carry, and which call writes what.
TEST(GeneratedRecords, MakeTheSameCalls) {
    forEachPair([]<class Ours, class Theirs>() {
        RandomRecords first(331);
        RandomRecords second(331);
        for (int i = 0; i < 20; ++i) {
            EventProtocol ourProtocol;
            EventProtocol theirProtocol;
            const std::uint32_t ourCount = first.make<Ours>().write(&ourProtocol);
            const std::uint32_t theirCount = second.make<Theirs>().write(&theirProtocol);
            ASSERT_EQ(ourProtocol.events, theirProtocol.events);
            ASSERT_EQ(ourCount, theirCount);
        }
    });
}

// The services compile, one derived from the other.
static_assert(std::is_base_of_v<theirs::base::BaseAPIIf, theirs::camera::CameraAPIIf>);

} // namespace
} // namespace qel::api
