// SPDX-License-Identifier: Apache-2.0
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "host/console/RecordJson.h"
#include "tests/host/ErrorOf.h"
#include "tests/records/AllRecords.h"
#include "tests/records/RandomRecords.h"
#include "tests/records/SameBits.h"

namespace qel::host::test {
namespace {

namespace camera = api::camera;
using ::testing::HasSubstr;

template <class Record>
Record thereAndBack(const Record& record) {
    return fromJson<Record>(parseJson(layOut(toJson(record))));
}

/// What reading the text as such a record says of it.
template <class Record>
std::string errorOfReading(const std::string& text) {
    return errorOf<JsonError>([&] { fromJson<Record>(parseJson(text)); });
}

void raiseFlags(auto& record) {
    api::forEachField<std::remove_cvref_t<decltype(record)>>([&](const auto& field) {
        field.markSet(record, true);
        if constexpr (requires { (record.*field.member).__isset; }) {
            raiseFlags(record.*field.member);
        }
    });
}

template <class Record>
class RecordJson : public ::testing::Test {};

using Records =
    ::testing::Types<camera::Vector, camera::Quaternion, camera::Matrix, camera::Frustum, camera::Viewport,
                     camera::ViewState, camera::ProjectionState, camera::SurfaceState, camera::PlanarCameraState,
                     camera::VectorResult, camera::MatrixResult, camera::DoubleResult, camera::ViewStateResult,
                     camera::ProjectionStateResult, camera::SurfaceStateResult, camera::PlanarCameraStateResult>;
TYPED_TEST_SUITE(RecordJson, Records);

TYPED_TEST(RecordJson, BringsRandomRecordsBackBitForBit) {
    api::RandomRecords random(7);
    random.allowNaN();
    for (int i = 0; i < 200; ++i) {
        auto record = random.make<TypeParam>();
        if constexpr (requires { record.mResult; }) {
            // JSON is Unicode, which random bytes are not.
            record.mResult.mMessage = "Call to \"x\" failed.\n\xc3\xa4";
        }
        raiseFlags(record);
        ASSERT_TRUE(api::sameBits(thereAndBack(record), record)) << layOut(toJson(record));
    }
}

TYPED_TEST(RecordJson, NamesTheFieldsOfTheTableInTheirOrder) {
    TypeParam record;
    raiseFlags(record);
    const Json json = toJson(record);
    auto member = json.begin();
    api::forEachField<TypeParam>([&](const auto& field) {
        ASSERT_NE(member, json.end());
        EXPECT_EQ(member.key(), field.name);
        ++member;
    });
    EXPECT_EQ(member, json.end());
}

TYPED_TEST(RecordJson, TellsWhatItsFieldsAreNot) {
    const std::string name = api::FieldTable<TypeParam>::recordName;
    const Json whole = toJson(TypeParam{});
    api::forEachField<TypeParam>([&](const auto& field) {
        Json json = whole;
        json.erase(field.name);
        EXPECT_EQ(errorOfReading<TypeParam>(layOut(json)),
                  std::string("the field ") + field.name + " of " + name + " is missing");
    });
    Json json = whole;
    json["mEyes"] = 1;
    EXPECT_EQ(errorOfReading<TypeParam>(layOut(json)), "a " + name + " has no field mEyes");
    EXPECT_THAT(errorOfReading<TypeParam>("[1, 2]"), HasSubstr("but a list of 2 came"));
    EXPECT_THAT(errorOfReading<TypeParam>("null"), HasSubstr("but null came"));
}

TEST(RecordJsonNumbers, AreTextsOnlyWhereJsonHasNoSpelling) {
    camera::Vector vector;
    vector.mData = {1, -0.0, std::numeric_limits<double>::infinity(), std::bit_cast<double>(0xfff8000000000000U)};
    EXPECT_EQ(layOut(toJson(vector)), R"({"mData": [1, -0.0, "Infinity", "-NaN"]})");
}

TEST(RecordJsonNumbers, MayBeWrittenInAnyUsualWay) {
    const auto vector = fromJson<camera::Vector>(parseJson(R"({"mData": [1, 1.0, 1e0, "1", -0, 0]})"));
    EXPECT_EQ(vector.mData, (std::vector<double>{1, 1, 1, 1, 0, 0}));
    EXPECT_TRUE(std::signbit(vector.mData[4]));
    EXPECT_FALSE(std::signbit(vector.mData[5]));
}

TEST(RecordJsonNumbers, AreToldByTheirPlaceWhereTheyAreNone) {
    EXPECT_EQ(errorOfReading<camera::Vector>(R"({"mData": [1, "x", 3]})"), R"(mData[1]: wants a number, but "x" came)");
    EXPECT_EQ(errorOfReading<camera::Vector>(R"({"mData": 1})"), "mData: wants a list, but 1 came");
    EXPECT_EQ(errorOfReading<camera::Matrix>(R"({"mData": [[1], [true]]})"),
              "mData[1][0]: wants a number, but true came");
}

TEST(RecordJsonOutcome, LeavesAMessageOutThatIsNotSet) {
    camera::DoubleResult result;
    result.mResult.mMessage = "an older one";
    EXPECT_EQ(layOut(toJson(result)), R"({"mResult": {"mError": 0}, "mValue": 0})");
    EXPECT_FALSE(thereAndBack(result).mResult.__isset.mMessage);
}

TEST(RecordJsonOutcome, HasAnErrorOf32Bits) {
    for (const std::string error : {"2147483648", "-2147483649", "1.0", "\"1\"", "18446744073709551615"}) {
        EXPECT_EQ(errorOfReading<camera::DoubleResult>(R"({"mResult": {"mError": )" + error + R"(}, "mValue": 0})"),
                  "mResult.mError: wants a whole number of 32 bits, but " + describe(parseJson(error)) + " came");
    }
}

TEST(RecordJsonEnumerator, IsItsNameOrItsNumber) {
    camera::ProjectionState state;
    state.mProjectionType = camera::ProjectionType::ORTHOGRAPHIC;
    Json json = toJson(state);
    EXPECT_EQ(json["mProjectionType"], "ORTHOGRAPHIC");
    json["mProjectionType"] = 1;
    EXPECT_EQ(fromJson<camera::ProjectionState>(json).mProjectionType, camera::ProjectionType::ORTHOGRAPHIC);
    json["mProjectionType"] = "perspective";
    EXPECT_EQ(fromJson<camera::ProjectionState>(json).mProjectionType, camera::ProjectionType::PERSPECTIVE);
    json["mProjectionType"] = "FISHEYE";
    EXPECT_EQ(errorOfReading<camera::ProjectionState>(layOut(json)),
              "mProjectionType: wants PERSPECTIVE, ORTHOGRAPHIC or a number, but \"FISHEYE\" came");
    state.mProjectionType = static_cast<camera::ProjectionType::type>(-7); // which has no name
    EXPECT_EQ(toJson(state)["mProjectionType"], -7);
    EXPECT_TRUE(thereAndBack(state) == state);
}

TEST(RecordJsonBlob, IsBase64) {
    camera::PlanarCameraState state;
    state.mViewState.mPrivate = std::string("\0\xff", 2);
    Json json = toJson(state);
    Json& blob = json["mViewState"]["mPrivate"];
    EXPECT_EQ(blob, "AP8=");
    for (const Json& wrong : {Json("AP8"), Json(5)}) {
        blob = wrong;
        EXPECT_EQ(errorOfReading<camera::PlanarCameraState>(layOut(json)),
                  "mViewState.mPrivate: wants bytes in base64, but " + layOut(wrong) + " came");
    }
}

TEST(RecordJsonPayload, IsTakenFromResultsInResultsAndWithinAState) {
    camera::PlanarCameraState state;
    state.mViewState.mEye.mData = {1, 2, 3};
    const auto resultOf = [](const Json& value) { return Json{{"mValue", value}, {"mResult", {{"mError", 0}}}}; };
    Json json = toJson(state);
    json["mViewState"] = resultOf(toJson(state.mViewState));
    EXPECT_TRUE(fromJson<camera::PlanarCameraState>(resultOf(resultOf(json))) == state);
}

TEST(RecordJsonPayload, IsNotTakenFromACallThatFailed) {
    camera::ViewStateResult result;
    result.mResult.mError = -1;
    result.mResult.__set_mMessage("Call to viewYaw() failed.");
    EXPECT_EQ(errorOfReading<camera::ViewState>(layOut(toJson(result))),
              "it is the result of a call that failed with error -1: Call to viewYaw() failed.");
}

TEST(RecordJsonKind, IsToldWhereItIsAnotherOne) {
    EXPECT_EQ(errorOfReading<camera::ViewState>(layOut(toJson(camera::PlanarCameraState{}))),
              "wants a ViewState, but a PlanarCameraState came");
    EXPECT_EQ(errorOfReading<camera::PlanarCameraState>(layOut(toJson(camera::SurfaceStateResult{}))),
              "wants a PlanarCameraState, but a SurfaceState came");
}

} // namespace
} // namespace qel::host::test
