// SPDX-License-Identifier: Apache-2.0
// Runs camera call, camera ops and camera show as a person does: through a shell, with pipes and files.
#include <algorithm>
#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <qel/api/camera/Operations.h>
#include <qel/host/ComponentLoader.h>

#include "host/console/RecordJson.h"
#include "host/state/StateFile.h"
#include "tests/host/RunProgram.h"

namespace qel::host::test {
namespace {

namespace camera = api::camera;
using ::testing::HasSubstr;
using ::testing::StartsWith;

using CallProgram = ProgramTest;
using OpsProgram = ProgramTest;
using ShowProgram = ProgramTest;

TEST_F(CallProgram, CarriesACameraThroughPipesAsTheServiceItself) {
    const Outcome piped =
        runInShell("camera call planarCameraCreateDefault | camera call planarCameraUpdateWindowSize - 1280 720 | "
                   "camera call planarCameraFitWorldSpaceBoundingBox - -1 -1 -1 1 1 1");
    ASSERT_EQ(piped.exitCode, 0) << piped.errors;

    const ComponentLoader component(CAMERA_MODULE);
    camera::PlanarCameraStateResult called;
    component.camera().planarCameraCreateDefault(called);
    component.camera().planarCameraUpdateWindowSize(called, called.mValue, 1280, 720);
    component.camera().planarCameraFitWorldSpaceBoundingBox(called, called.mValue, -1, -1, -1, 1, 1, 1);

    EXPECT_EQ(piped.output, layOut(toJson(called)) + "\n");
    EXPECT_TRUE(fromJson<camera::PlanarCameraStateResult>(parseJson(piped.output)) == called);
}

TEST_F(CallProgram, TakesACameraThatTheViewerHasSaved) {
    const ComponentLoader component(CAMERA_MODULE);
    camera::PlanarCameraStateResult saved;
    component.camera().planarCameraCreateDefault(saved);
    component.camera().planarCameraYawPitchRoll(saved, saved.mValue, 0.1, 0.2, 0.3);
    writeState(saved.mValue, folder / "camera.state");
    component.camera().planarCameraUpdateWindowSize(saved, saved.mValue, 200, 100);

    const Outcome outcome = runInShell("camera call planarCameraUpdateWindowSize camera.state 200 100");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_TRUE(fromJson<camera::PlanarCameraStateResult>(parseJson(outcome.output)) == saved);
    EXPECT_EQ(runInShell("camera show camera.state").exitCode, 0);
}

TEST_F(CallProgram, TakesNumbersWithASignForNumbers) {
    const Outcome outcome =
        runInShell("camera call viewCreateDefault | camera call viewYaw - -.5 | camera call viewSetEye - -1,-2,-3 | "
                   "camera call viewYawPitchRoll - -Infinity -NaN -inf");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_THAT(outcome.output, HasSubstr("\"mEye\": {\"mData\": [-1, -2, -3]}"));
    EXPECT_THAT(outcome.output, HasSubstr("NaN"));
}

TEST_F(CallProgram, WritesIntoTheFileThatItsArgumentCameFrom) {
    ASSERT_EQ(run({"call", "viewCreateDefault", "--out", "view.json"}).exitCode, 0);
    const Outcome outcome = run({"call", "viewSetEye", "view.json", "1,2,3", "--out", "view.json"});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.output, "");
    EXPECT_THAT(readText(folder / "view.json"), HasSubstr("\"mEye\": {\"mData\": [1, 2, 3]}"));
    for (const auto& [name, content] : contentOf(folder.path())) {
        EXPECT_THAT(name, ::testing::AnyOf("view.json", "stdout", "stderr"));
    }
}

TEST_F(CallProgram, TellsAnOperationThatFailsAndLeavesTheFileAsItWas) {
    folder.write("matrix.json", R"({"mData": [[1, 2], [3]]})");
    const Outcome outcome =
        run({"call", "utilsConvertMatrixFromRowMajorToColumnMajor", "matrix.json", "--out", "matrix.json"});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.errors, StartsWith("camera: utilsConvertMatrixFromRowMajorToColumnMajor: error 4: "));
    EXPECT_EQ(readText(folder / "matrix.json"), R"({"mData": [[1, 2], [3]]})");
    EXPECT_EQ(fromJson<camera::MatrixResult>(parseJson(outcome.output)).mResult.mError, 4);
}

TEST_F(CallProgram, TellsAFullDisk) {
    if (!std::filesystem::exists("/dev/full")) {
        GTEST_SKIP() << "this machine has no /dev/full";
    }
    const Outcome outcome = runInShell("camera call viewCreateDefault >/dev/full");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.errors, HasSubstr("standard output cannot be written"));
}

TEST_F(CallProgram, TellsMisuse) {
    expectMisuse(run({"call"}), "OPERATION is required");
    expectMisuse(run({"call", "viewSetEyes"}), "camera: there is no operation viewSetEyes");
    expectMisuse(run({"call", "viewYaw", "none.json", "1"}), "none.json: No such file or directory");
    expectMisuse(run({"call", "viewCreateDefault", "--output", "x"}), "--output");
    expectMisuse(run({"call", "projectionCreate", "-1,1,-1,1,1,2", "-x"}), "but '-x' came");
}

TEST_F(CallProgram, TellsAFileThatCannotBeWrittenAndAModuleThatCannotBeLoaded) {
    expectOneLine(run({"call", "viewCreateDefault", "--out", "nowhere/view.json"}),
                  "camera: nowhere/view.json cannot be written\n");
    expectOneLine(run({"call", "viewCreateDefault", "--module", "none.so"}), "camera: none.so: no such file\n");
}

TEST_F(CallProgram, ExplainsItself) {
    const Outcome outcome = run({"call", "--help"});
    EXPECT_EQ(outcome.exitCode, 0);
    for (const char* part : {"OPERATION ARG...", "--out", "--module", "NaN(0x", "x,y,z,w", "base64", "exit status"}) {
        EXPECT_THAT(outcome.output, HasSubstr(part));
    }
}

TEST_F(OpsProgram, ListsOperations) {
    const Outcome all = run({"ops"});
    EXPECT_EQ(all.exitCode, 0);
    EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(all.output, '(')), camera::operationCount);
    EXPECT_EQ(run({"ops", "seteye"}).output, "View\n  viewSetEye(state:ViewState, eye:Vector) -> ViewStateResult\n");
    EXPECT_EQ(run({"ops", "--names", "zoomwith"}).output,
              "planarCameraZoomWithAnchor_Screen\nplanarCameraZoomWithAnchor_World\n");
}

TEST_F(OpsProgram, TellsThatNothingFits) {
    expectOneLine(run({"ops", "fisheye"}), "camera: no operation's name contains 'fisheye'\n");
    EXPECT_EQ(run({"ops", "fisheye", "--json"}).output, "[]\n");
    EXPECT_EQ(run({"ops", "--json", "--names"}).exitCode, 2);
}

TEST_F(ShowProgram, TellsOfAStateFromAPipe) {
    const Outcome outcome = runInShell("camera call surfaceCreateDefault | camera show -");
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_THAT(outcome.output, StartsWith("Surface\n  window          640 x 480 pixels\n"));
}

TEST_F(ShowProgram, TellsOfAStateInAFileAndItsWarnings) {
    const Outcome outcome = runInShell(
        "camera call viewCreateDefault | camera call viewYaw - 1 --out view.json && "
        "camera call viewSetViewTransformMatrix view.json 1,0,0,0,0,1,0,0,0,0,1,0,0,0,0,1 --out view.json && "
        "camera show view.json");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_THAT(outcome.output, StartsWith("View\n  eye             (0, 0, 0)\n"));
    EXPECT_THAT(outcome.output, HasSubstr("\nwarning: view: the view transform matrix looks along (0, 0, -1)"));
}

TEST_F(ShowProgram, TellsWhatItCannotShow) {
    folder.write("vector.json", R"({"mData": [1, 2, 3]})");
    folder.write("text.json", "a view");
    expectMisuse(run({"show", "vector.json"}),
                 "camera: vector.json: wants a state of a planar camera, a view, a projection or a surface, but an "
                 "object of mData came\n");
    expectMisuse(run({"show", "text.json"}), "camera: text.json: parse error at line 1");
    expectMisuse(run({"show", "none.json"}), "camera: none.json: No such file or directory\n");
    expectMisuse(run({"show", "-"}), "camera: standard input is empty\n");
    expectMisuse(run({"show"}), "camera: STATE is required\n");
}

} // namespace
} // namespace qel::host::test
