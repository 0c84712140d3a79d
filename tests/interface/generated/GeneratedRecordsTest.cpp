// SPDX-License-Identifier: Apache-2.0
#include <cstdint>
#include <memory>
#include <sstream>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>
#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/protocol/TCompactProtocol.h>
#include <thrift/protocol/TJSONProtocol.h>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/api/camera/Fields.h>

#include "CameraAPI.h"
#include "camera_fields.h"
#include "tests/records/RandomRecords.h"
#include "tests/wire/EventProtocol.h"
#include "tests/wire/WireBytes.h"

// The records written by hand beside those that Thrift's compiler generates from the interface description. The field
// table of a generated record is ours with the namespace changed, so the same seed fills both alike.
namespace qel::api {
namespace {

using namespace ::apache::thrift::protocol;

template <class Ours, class Theirs>
struct Pair {
    template <class Visitor>
    static void visit(Visitor& visitor) {
        visitor.template operator()<Ours, Theirs>();
    }
};

template <class... Pairs>
struct PairList {
    template <class Visitor>
    static void forEach(Visitor visitor) {
        (Pairs::visit(visitor), ...);
    }
};

namespace theirs = ::qel::generated;
using AllPairs = PairList<
    Pair<base::ServiceResult, theirs::base::ServiceResult>, Pair<base::StringResult, theirs::base::StringResult>,
    Pair<camera::Vector, theirs::camera::Vector>, Pair<camera::Quaternion, theirs::camera::Quaternion>,
    Pair<camera::Matrix, theirs::camera::Matrix>, Pair<camera::Frustum, theirs::camera::Frustum>,
    Pair<camera::Viewport, theirs::camera::Viewport>, Pair<camera::ViewState, theirs::camera::ViewState>,
    Pair<camera::ProjectionState, theirs::camera::ProjectionState>,
    Pair<camera::SurfaceState, theirs::camera::SurfaceState>,
    Pair<camera::PlanarCameraState, theirs::camera::PlanarCameraState>,
    Pair<camera::VectorResult, theirs::camera::VectorResult>, Pair<camera::MatrixResult, theirs::camera::MatrixResult>,
    Pair<camera::ViewStateResult, theirs::camera::ViewStateResult>,
    Pair<camera::ProjectionStateResult, theirs::camera::ProjectionStateResult>,
    Pair<camera::SurfaceStateResult, theirs::camera::SurfaceStateResult>,
    Pair<camera::PlanarCameraStateResult, theirs::camera::PlanarCameraStateResult>,
    Pair<camera::DoubleResult, theirs::camera::DoubleResult>>;

bool alike(double a, double b) { return identical(a, b); }
bool alike(std::int32_t a, std::int32_t b) { return a == b; }
bool alike(const std::string& a, const std::string& b) { return a == b; }

template <class Ours, class Theirs>
requires std::is_enum_v<Ours>
bool alike(Ours a, Theirs b) { return static_cast<int>(a) == static_cast<int>(b); }

template <class Ours, class Theirs>
requires std::is_class_v<Ours>
bool alike(const Ours& ours, const Theirs& theirs);

template <class Ours, class Theirs>
bool alike(const std::vector<Ours>& a, const std::vector<Theirs>& b) {
    bool same = a.size() == b.size();
    for (std::size_t i = 0; same && i < a.size(); ++i) {
        same = alike(a[i], b[i]);
    }
    return same;
}

/// The same to the bit in every field and flag.
template <class Ours, class Theirs>
requires std::is_class_v<Ours>
bool alike(const Ours& ours, const Theirs& theirs) {
    return std::apply(
        [&](const auto&... our) {
            return std::apply(
                [&](const auto&... their) {
                    return ((alike(ours.*our.member, theirs.*their.member) && our.isSet(ours) == their.isSet(theirs)) &&
                            ...);
                },
                FieldTable<Theirs>::fields);
        },
        FieldTable<Ours>::fields);
}

template <class Record>
std::string text(const Record& record) {
    std::ostringstream out;
    out << record;
    return out.str();
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
    AllPairs::forEach([]<class Ours, class Theirs>() {
        auto first = TestFixture::random(301);
        auto second = TestFixture::random(301);
        for (int i = 0; i < rounds; ++i) {
            const auto ours = first.template make<Ours>();
            const auto theirs = second.template make<Theirs>();
            ASSERT_TRUE(alike(ours, theirs));
            ASSERT_EQ(toHex(written<TypeParam>(ours)), toHex(written<TypeParam>(theirs)));
        }
    });
}

TYPED_TEST(Generated, EachReadsWhatTheOtherWrote) {
    AllPairs::forEach([]<class Ours, class Theirs>() {
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
            ASSERT_TRUE(alike(ours, theirs));
        }
    });
}

TEST(GeneratedRecords, PrintTheSameText) {
    AllPairs::forEach([]<class Ours, class Theirs>() {
        RandomRecords first(313);
        RandomRecords second(313);
        first.allowNaN();
        second.allowNaN();
        for (int i = 0; i < rounds; ++i) {
            ASSERT_EQ(text(first.make<Ours>()), text(second.make<Theirs>()));
        }
    });
}

/// The names of structs and fields, which Binary and Compact do not carry, and which call writes what.
TEST(GeneratedRecords, MakeTheSameCalls) {
    AllPairs::forEach([]<class Ours, class Theirs>() {
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
