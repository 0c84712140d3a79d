// SPDX-License-Identifier: Apache-2.0
#include <string>

#include <gtest/gtest.h>

#include "host/console/Base64.h"

namespace qel::host::test {
namespace {

using namespace std::string_literals;

// The test vectors of RFC 4648, section 10.
TEST(Base64, IsThatOfTheStandard) {
    EXPECT_EQ(toBase64(""), "");
    EXPECT_EQ(toBase64("f"), "Zg==");
    EXPECT_EQ(toBase64("fo"), "Zm8=");
    EXPECT_EQ(toBase64("foo"), "Zm9v");
    EXPECT_EQ(toBase64("foob"), "Zm9vYg==");
    EXPECT_EQ(toBase64("fooba"), "Zm9vYmE=");
    EXPECT_EQ(toBase64("foobar"), "Zm9vYmFy");
    EXPECT_EQ(toBase64("\xfb\xff\xfe"), "+//+");
}

TEST(Base64, BringsAllBytesBack) {
    std::string bytes;
    for (int i = 0; i < 256; ++i) {
        bytes.push_back(static_cast<char>(i));
    }
    for (std::size_t size = 0; size <= bytes.size(); ++size) {
        EXPECT_EQ(fromBase64(toBase64(bytes.substr(0, size))), bytes.substr(0, size)) << size;
    }
    EXPECT_EQ(fromBase64("AAA="), "\0\0"s);
}

TEST(Base64, RefusesWhatIsNotExactlyIt) {
    for (const char* text : {"Z", "Zg", "Zg=", "Zg===", "=Zg=", "Z===", "====", "Zg==Zg==", "Zm9v\n", "Zm9 ", "Zm9-",
                             "Zm9_", "Zh==", "Zm9=", "Z\xc3\xa4=="}) {
        EXPECT_FALSE(fromBase64(text)) << text;
    }
}

} // namespace
} // namespace qel::host::test
