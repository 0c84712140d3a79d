// SPDX-License-Identifier: Apache-2.0
// What the console writes and reads: numbers, bytes, and JSON of them.
#include <algorithm>
#include <bit>
#include <cstdint>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "host/console/Base64.h"
#include "host/console/Json.h"
#include "host/console/NumberText.h"
#include "tests/host/ErrorOf.h"

namespace qel::host::test {
namespace {

using namespace std::string_literals;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

std::uint64_t bitsOf(double value) { return std::bit_cast<std::uint64_t>(value); }

TEST(NumberText, IsTheShortestThatReadsBack) {
    EXPECT_EQ(numberText(0.1), "0.1");
    EXPECT_EQ(numberText(1.0), "1");
    EXPECT_EQ(numberText(-2.5), "-2.5");
    EXPECT_EQ(numberText(1.0 / 3.0), "0.3333333333333333");
    EXPECT_EQ(numberText(1e-7), "1e-07");
    EXPECT_EQ(numberText(5e-324), "5e-324");
    EXPECT_EQ(numberText(1.7976931348623157e308), "1.7976931348623157e+308");
}

TEST(NumberText, TellsTheTwoZerosApart) {
    EXPECT_EQ(numberText(0.0), "0");
    EXPECT_EQ(numberText(-0.0), "-0.0");
    EXPECT_EQ(bitsOf(parseNumber("-0").value()), bitsOf(-0.0));
    EXPECT_EQ(bitsOf(parseNumber("+0").value()), bitsOf(0.0));
}

TEST(NumberText, NamesWhatIsNoNumber) {
    EXPECT_EQ(numberText(std::numeric_limits<double>::infinity()), "Infinity");
    EXPECT_EQ(numberText(-std::numeric_limits<double>::infinity()), "-Infinity");
    EXPECT_EQ(numberText(std::bit_cast<double>(0x7ff8000000000000U)), "NaN");
    EXPECT_EQ(numberText(std::bit_cast<double>(0xfff8000000000000U)), "-NaN");
    EXPECT_EQ(numberText(std::bit_cast<double>(0x7ff8000000000001U)), "NaN(0x8000000000001)");
    EXPECT_EQ(numberText(std::bit_cast<double>(0xfff0000000000001U)), "-NaN(0x1)");
}

TEST(NumberText, ReadsBackEveryKindOfDoubleToTheSameBits) {
    std::vector<std::uint64_t> samples{
        0x0000000000000000U, 0x8000000000000000U, 0x0000000000000001U, 0x800fffffffffffffU, 0x0010000000000000U,
        0x7fefffffffffffffU, 0x7ff0000000000000U, 0xfff0000000000000U, 0x7ff8000000000000U, 0xfff8000000000000U,
        0x7ff0000000000001U, 0xffffffffffffffffU, 0x3ff0000000000001U, 0x4340000000000001U};
    std::generate_n(std::back_inserter(samples), 100000, std::mt19937_64(1));
    for (const std::uint64_t bits : samples) {
        const auto number = parseNumber(numberText(std::bit_cast<double>(bits)));
        ASSERT_TRUE(number) << std::hex << bits;
        ASSERT_EQ(bitsOf(*number), bits) << std::hex << bits;
    }
}

TEST(ParseNumber, TakesTheUsualSpellings) {
    EXPECT_EQ(parseNumber("1e3"), 1000.0);
    EXPECT_EQ(parseNumber("+.5"), 0.5);
    EXPECT_EQ(parseNumber("-.5"), -0.5);
    EXPECT_EQ(parseNumber("7."), 7.0);
    EXPECT_EQ(parseNumber("inf"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(parseNumber("-INFINITY"), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(bitsOf(parseNumber("nan").value()), 0x7ff8000000000000U);
}

TEST(ParseNumber, RefusesWhatIsNoneAndWhatNoDoubleHolds) {
    for (const char* text : {"",        "-",       "+",      ".",        "--1",
                             "-+1",     "1x",      "1 ",     " 1",       "0x10",
                             "e5",      "infinit", "nan()",  "nan(0x0)", "nan(0x10000000000000)",
                             "nan(0x1", "nan(0x)", "nan(1)", "1,2",      "1e309",
                             "-1e309"}) {
        EXPECT_FALSE(parseNumber(text)) << text;
    }
}

TEST(ParseNumberList, TakesNumbersBetweenCommasAndNamesThePieceThatIsNone) {
    EXPECT_THAT(parseNumberList("1,-2.5, 3 ,inf").numbers,
                ElementsAre(1.0, -2.5, 3.0, std::numeric_limits<double>::infinity()));
    EXPECT_FALSE(parseNumberList("1,-2.5, 3").wrongPiece);
    EXPECT_EQ(parseNumberList("1,two,3").wrongPiece, "two");
    EXPECT_EQ(parseNumberList("1,,3").wrongPiece, "");
    EXPECT_EQ(parseNumberList("1,2,").wrongPiece, "");
    EXPECT_EQ(parseNumberList("").wrongPiece, "");
}

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

TEST(Json, IsLaidOutInTheOrderOfMembersWithARowOfAMatrixALine) {
    EXPECT_EQ(layOut(parseJson(R"({"rows":[[1,0],[0,1]],"vector":[0.5,-1],"text":"a\"b"})")),
              "{\n"
              "  \"rows\": [\n"
              "    [1, 0],\n"
              "    [0, 1]\n"
              "  ],\n"
              "  \"vector\": [0.5, -1],\n"
              "  \"text\": \"a\\\"b\"\n"
              "}");
}

TEST(Json, IsOnOneLineWhereItFits) {
    EXPECT_EQ(layOut(parseJson(R"({ "a": 1, "b": {"c": [] , "d": null} })")), R"({"a": 1, "b": {"c": [], "d": null}})");
    EXPECT_EQ(layOut(parseJson("{}")), "{}");
}

TEST(Json, IsOnLinesOfAHundredColumnsAtMost) {
    const std::string wide(45, 'x');
    const std::string text = layOut(parseJson(R"({"a":")" + wide + R"(","b":")" + wide + R"("})"));
    EXPECT_EQ(text, "{\n  \"a\": \"" + wide + "\",\n  \"b\": \"" + wide + "\"\n}");
}

TEST(Json, IsWrittenEvenForATextInAForeignEncoding) { EXPECT_EQ(layOut(Json("caf\xe9")), "\"caf\xef\xbf\xbd\""); }

TEST(Json, TellsWhereATextIsNone) {
    EXPECT_THAT(errorOf<JsonError>([] { parseJson("{\"a\": 1,\n oops}"); }),
                AllOf(StartsWith("parse error at line 2, column 2"), Not(HasSubstr("json.exception"))));
    EXPECT_THROW(parseJson(""), JsonError);
    EXPECT_THROW(parseJson("{} {}"), JsonError);
    EXPECT_THROW(parseJson("1e999"), JsonError);
}

TEST(Json, IsDescribedInAFewWords) {
    EXPECT_EQ(describe(parseJson("[1, 2]")), "a list of 2");
    EXPECT_EQ(describe(parseJson("{}")), "an empty object");
    EXPECT_EQ(describe(parseJson(R"({"a": 1, "b": 2})")), "an object of a, b");
    EXPECT_EQ(describe(parseJson("null")), "null");
    EXPECT_EQ(describe(Json(std::string(50, 'x'))), std::string("\"").append(39, 'x').append("..."));
}

} // namespace
} // namespace qel::host::test
