// SPDX-License-Identifier: Apache-2.0
#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <qel/host/ComponentLoader.h>

#include "host/console/Call.h"
#include "host/console/CallArguments.h"
#include "host/console/RecordJson.h"
#include "tests/host/ErrorOf.h"
#include "tests/host/TemporaryFolder.h"

namespace qel::host::test {
namespace {

namespace camera = api::camera;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

CallOutcome call(const std::string& operation, const std::vector<std::string>& arguments,
                 const std::string& standardInput = "") {
    static const ComponentLoader component(CAMERA_MODULE);
    std::istringstream stream(standardInput);
    Input input(stream);
    return prepareCall(operation, arguments, input)(component.camera());
}

/// The result's value, which must be one of success.
template <class Result>
auto valueOf(const CallOutcome& outcome) {
    EXPECT_EQ(outcome.status.mError, 0) << outcome.status.mMessage;
    return fromJson<Result>(parseJson(outcome.json)).mValue;
}

/// What is said of a call that cannot be made.
std::string misuse(const std::string& operation, const std::vector<std::string>& arguments,
                   const std::string& standardInput = "") {
    return errorOf<ArgumentError>([&] { call(operation, arguments, standardInput); });
}

using CallOfFiles = FolderTest;
using MisuseOfFiles = FolderTest;

std::string defaultView() { return call("viewCreateDefault", {}).json; }

std::vector<double> eyeSetTo(const std::string& argument) {
    return valueOf<camera::ViewStateResult>(call("viewSetEye", {"-", argument}, defaultView())).mEye.mData;
}

std::vector<std::vector<double>> transposed(const std::string& argument) {
    return valueOf<camera::MatrixResult>(call("utilsConvertMatrixFromRowMajorToColumnMajor", {argument})).mData;
}

TEST(Call, TakesNumbersWithASignAndWhatIsNoNumber) {
    EXPECT_THAT(eyeSetTo("1,-2,3.5"), ElementsAre(1, -2, 3.5));
    const auto eye = eyeSetTo("-0,-Infinity,+1e-3");
    EXPECT_THAT(eye, ElementsAre(0, -std::numeric_limits<double>::infinity(), 0.001));
    EXPECT_TRUE(std::signbit(eye.front()));
}

TEST(Call, TakesAQuaternionAsItsFourNumbers) {
    const auto state = valueOf<camera::ViewStateResult>(call("viewSetOrientation", {"-", "0,0,1,0"}, defaultView()));
    EXPECT_THAT(state.mOrientation.mData, ElementsAre(0, 0, 1, 0));
}

TEST(Call, TakesAMatrixAsSixteenNumbersRowByRowAndOfAnyShapeAsJson) {
    EXPECT_THAT(transposed("1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16"),
                ElementsAre(ElementsAre(1, 5, 9, 13), ElementsAre(2, 6, 10, 14), ElementsAre(3, 7, 11, 15),
                            ElementsAre(4, 8, 12, 16)));
    EXPECT_THAT(transposed(R"({"mData": [[1, 2, 3]]})"), ElementsAre(ElementsAre(1), ElementsAre(2), ElementsAre(3)));
}

TEST(Call, TakesAFrustumAsItsNumbersAndATypeByItsNameOrNumber) {
    for (const char* type : {"ORTHOGRAPHIC", "orthographic", "1"}) {
        const auto state = valueOf<camera::ProjectionStateResult>(call("projectionCreate", {"-4,4,-3,3,1,9", type}));
        EXPECT_EQ(state.mProjectionType, camera::ProjectionType::ORTHOGRAPHIC) << type;
        EXPECT_EQ(layOut(toJson(state.mFrustum)),
                  R"({"mLeft": -4, "mRight": 4, "mBottom": -3, "mTop": 3, "mNearDist": 1, "mFarDist": 9})");
    }
}

TEST(Call, TakesAViewportAsItsNumbers) {
    const auto state = valueOf<camera::SurfaceStateResult>(
        call("surfaceSetViewport", {"-", "0.5,0,0.25,1,0,1"}, call("surfaceCreateDefault", {}).json));
    EXPECT_EQ(state.mViewport.mX, 0.5);
    EXPECT_EQ(state.mViewport.mWidth, 0.25);
}

TEST_F(CallOfFiles, TakesThemThoughANameHasACommaAndTheValueOfAResultInThem) {
    const auto view = folder.write("view.json", defaultView());
    const auto point = folder.write("point,1.json", R"({"mData": [1, 2, 3]})");
    const auto eye = valueOf<camera::ViewStateResult>(call("viewSetEye", {view, point})).mEye;
    EXPECT_THAT(eye.mData, ElementsAre(1, 2, 3));
}

TEST(Call, KeepsWhatTheServiceSaysOfAnError) {
    const CallOutcome outcome = call("viewYaw", {"-", "1"}, layOut(toJson(camera::ViewState{}))); // a blob of no bytes
    EXPECT_EQ(outcome.status.mError, -1);
    EXPECT_EQ(outcome.status.mMessage, "Call to viewYaw() failed.");
    const auto result = fromJson<camera::ViewStateResult>(parseJson(outcome.json));
    EXPECT_EQ(result.mResult.mError, -1);
    EXPECT_EQ(result.mResult.mMessage, "Call to viewYaw() failed.");
}

TEST(Misuse, IsAnOperationThatThereIsNot) {
    EXPECT_EQ(misuse("viewSetEyes", {}), "there is no operation viewSetEyes; did you mean viewSetEye?");
    EXPECT_EQ(misuse("yaw", {}), "there is no operation yaw; try: camera ops yaw"); // which viewYaw contains
    EXPECT_EQ(misuse("fly", {}), "there is no operation fly; camera ops lists them");
}

TEST(Misuse, IsAnotherNumberOfArguments) {
    EXPECT_EQ(misuse("viewYaw", {"-"}),
              "viewYaw takes 2 arguments, but 1 came: viewYaw(state:ViewState, angle:double) -> ViewStateResult");
    EXPECT_THAT(misuse("viewCreateDefault", {"-"}), StartsWith("viewCreateDefault takes 0 arguments, but 1 came: "));
    EXPECT_THAT(misuse("projectionGetHFoV", {}), StartsWith("projectionGetHFoV takes 1 argument, but 0 came: "));
}

TEST(Misuse, IsATextWhereANumberIsWanted) {
    EXPECT_EQ(misuse("viewYaw", {"-", "left"}, defaultView()),
              "viewYaw: the argument angle wants a number, but 'left' came");
}

TEST(Misuse, IsANumberWithAFractionOrTooLargeWhereAWholeOneIsWanted) {
    for (const std::string width : {"1280.0", "2147483648", "-2147483649", "", "1e3", "+-1", "+"}) {
        EXPECT_EQ(
            misuse("planarCameraUpdateWindowSize", {"-", width, "720"}, call("planarCameraCreateDefault", {}).json),
            "planarCameraUpdateWindowSize: the argument width wants a whole number from -2147483648 to "
            "2147483647, but '" +
                width + "' came");
    }
}

TEST(Misuse, IsATypeThatThereIsNot) {
    EXPECT_EQ(misuse("projectionCreate", {"-1,1,-1,1,1,2", "FISHEYE"}),
              "projectionCreate: the argument projectionType wants PERSPECTIVE, ORTHOGRAPHIC or its number, but "
              "'FISHEYE' came");
}

TEST(Misuse, IsAVectorOfAnotherLengthOrWithAPieceThatIsNoNumber) {
    EXPECT_EQ(misuse("viewSetEye", {"-", "1,2"}, defaultView()),
              "viewSetEye: the argument eye wants a Vector: x,y,z, or a JSON file or - for standard input, but '1,2' "
              "has 2 numbers");
    EXPECT_THAT(misuse("viewSetEye", {"-", "5"}, defaultView()), EndsWith("but '5' has 1 number"));
    EXPECT_THAT(misuse("viewSetOrientation", {"-", "1,2,3"}, defaultView()), HasSubstr("a Quaternion: x,y,z,w, or"));
    EXPECT_THAT(misuse("viewSetEye", {"-", "1,two,3"}, defaultView()), EndsWith("but 'two' in '1,two,3' is no number"));
}

TEST_F(MisuseOfFiles, IsOneThatCannotBeRead) {
    EXPECT_EQ(misuse("viewYaw", {"/nowhere/view.json", "1"}),
              "viewYaw: the argument state wants a ViewState: a JSON file or - for standard input, but "
              "/nowhere/view.json: No such file or directory");
    EXPECT_THAT(misuse("viewYaw", {folder.path(), "1"}), EndsWith(folder.path().string() + " cannot be read"));
    const std::string view = folder.write("view.json", "a view");
    EXPECT_THAT(misuse("viewYaw", {view, "1"}),
                StartsWith("viewYaw: the argument state " + view + ": parse error at line 1, column 1"));
}

TEST(Misuse, IsAnotherKindOfState) {
    EXPECT_EQ(misuse("viewYaw", {"-", "1"}, call("surfaceCreateDefault", {}).json),
              "viewYaw: the argument state standard input: wants a ViewState, but a SurfaceState came");
}

TEST(Misuse, IsStandardInputThatIsEmptyOrTaken) {
    EXPECT_THAT(misuse("viewYaw", {"-", "1"}), EndsWith("but standard input is empty"));
    EXPECT_THAT(misuse("planarCameraSetView", {"-", "-"}, call("planarCameraCreateDefault", {}).json),
                EndsWith("but standard input is taken by another argument already"));
}

} // namespace
} // namespace qel::host::test
