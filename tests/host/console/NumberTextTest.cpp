// SPDX-License-Identifier: Apache-2.0
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

#include "host/console/NumberText.h"

namespace qel::host::test {
namespace {

using ::testing::ElementsAre;

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

} // namespace
} // namespace qel::host::test
