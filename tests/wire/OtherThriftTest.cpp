// SPDX-License-Identifier: Apache-2.0
#include <memory>

#include <gtest/gtest.h>
#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/protocol/TCompactProtocol.h>
#include <thrift/transport/TBufferTransports.h>

#include <qel/api/camera/CameraAPIIf.h>

#include "tests/wire/WireBytes.h"
#include "wire/ChooseWire.h"

// From here on Thrift is another version, whose protocols have no members of these names. The library's own copy of the
// source is not linked, since this one defines the same function.
#undef PACKAGE_VERSION
#define PACKAGE_VERSION "0.25.0"
#define string_limit_ noSuchMember
#define container_limit_ noSuchMember
#define ptrans_ noSuchMember
#include "wire/KnownProtocol.cpp" // NOLINT(bugprone-suspicious-include)

namespace qel::api {
namespace {

template <class Protocol>
wire::Encoding encodingOf() {
    Protocol protocol(std::make_shared<TMemoryBuffer>());
    return wire::recognise(protocol).encoding;
}

TEST(OtherThrift, NoProtocolIsRecognised) {
    EXPECT_EQ(encodingOf<wire::TBinaryProtocol>(), wire::Encoding::other);
    EXPECT_EQ(encodingOf<wire::TLEBinaryProtocol>(), wire::Encoding::other);
    EXPECT_EQ(encodingOf<wire::TCompactProtocol>(), wire::Encoding::other);
}

TEST(OtherThrift, RecordsHaveTheSameBytes) {
    camera::Vector v;
    v.mData = {1, 2.5};
    const std::string binary = fromHex("0f 0001 04 00000002 3ff0000000000000 4004000000000000 00");
    const std::string compact = fromHex("19 27 000000000000f03f 0000000000000440 00");
    EXPECT_EQ(toHex(written<wire::TBinaryProtocol>(v)), toHex(binary));
    EXPECT_EQ(toHex(written<wire::TCompactProtocol>(v)), toHex(compact));
    camera::Vector read;
    EXPECT_EQ(readFrom<wire::TBinaryProtocol>(binary, read), binary.size());
    EXPECT_TRUE(read == v);
    camera::Vector other;
    EXPECT_EQ(readFrom<wire::TCompactProtocol>(compact, other), compact.size());
    EXPECT_TRUE(other == v);
}

} // namespace
} // namespace qel::api
