// SPDX-License-Identifier: Apache-2.0
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "host/console/Json.h"
#include "tests/host/ErrorOf.h"

namespace qel::host::test {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

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
