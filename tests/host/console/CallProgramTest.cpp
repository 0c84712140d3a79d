// SPDX-License-Identifier: Apache-2.0
// Runs camera call and camera ops as a person does: through a shell, with pipes and files.
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

const std::string program = quotedForShell(CAMERA_PROGRAM);

std::string calling(const std::string& operationAndArguments) { return program + " call " + operationAndArguments; }

/// A run of misuse: told after the name of the program, and nothing on standard output.
void expectMisuse(const Outcome& outcome, const std::string& part) {
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_THAT(outcome.errors, StartsWith("camera: "));
    EXPECT_THAT(outcome.errors, HasSubstr(part));
}

TEST(CallProgram, CarriesACameraThroughPipesAsTheServiceItself) {
    const TemporaryFolder folder;
    const Outcome piped = runInShell(folder, calling("planarCameraCreateDefault") + " | " +
                                                 calling("planarCameraUpdateWindowSize - 1280 720") + " | " +
                                                 calling("planarCameraFitWorldSpaceBoundingBox - -1 -1 -1 1 1 1"));
    ASSERT_EQ(piped.exitCode, 0) << piped.errors;

    const ComponentLoader component(CAMERA_MODULE);
    camera::PlanarCameraStateResult called;
    component.camera().planarCameraCreateDefault(called);
    component.camera().planarCameraUpdateWindowSize(called, called.mValue, 1280, 720);
    component.camera().planarCameraFitWorldSpaceBoundingBox(called, called.mValue, -1, -1, -1, 1, 1, 1);

    EXPECT_EQ(piped.output, layOut(toJson(called)) + "\n");
    EXPECT_TRUE(fromJson<camera::PlanarCameraStateResult>(parseJson(piped.output)) == called);
}

TEST(CallProgram, TakesACameraThatTheViewerHasSaved) {
    const TemporaryFolder folder;
    const ComponentLoader component(CAMERA_MODULE);
    camera::PlanarCameraStateResult saved;
    component.camera().planarCameraCreateDefault(saved);
    component.camera().planarCameraYawPitchRoll(saved, saved.mValue, 0.1, 0.2, 0.3);
    writeState(saved.mValue, folder / "camera.state");
    component.camera().planarCameraUpdateWindowSize(saved, saved.mValue, 200, 100);

    const Outcome outcome = runInShell(folder, calling("planarCameraUpdateWindowSize camera.state 200 100"));
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_TRUE(fromJson<camera::PlanarCameraStateResult>(parseJson(outcome.output)) == saved);
    EXPECT_EQ(runInShell(folder, program + " show camera.state").exitCode, 0);
}

TEST(CallProgram, TakesNumbersWithASignForNumbers) {
    const TemporaryFolder folder;
    const Outcome outcome = runInShell(folder, calling("viewCreateDefault") + " | " + calling("viewYaw - -.5") + " | " +
                                                   calling("viewSetEye - -1,-2,-3") + " | " +
                                                   calling("viewYawPitchRoll - -Infinity -NaN -inf"));
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_THAT(outcome.output, HasSubstr("\"mEye\": {\"mData\": [-1, -2, -3]}"));
    EXPECT_THAT(outcome.output, HasSubstr("NaN"));
}

TEST(CallProgram, WritesIntoTheFileThatItsArgumentCameFrom) {
    const TemporaryFolder folder;
    ASSERT_EQ(run(folder, {"call", "viewCreateDefault", "--out", "view.json"}).exitCode, 0);
    const Outcome outcome = run(folder, {"call", "viewSetEye", "view.json", "1,2,3", "--out", "view.json"});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.output, "");
    EXPECT_THAT(readText(folder / "view.json"), HasSubstr("\"mEye\": {\"mData\": [1, 2, 3]}"));
    for (const auto& [name, content] : contentOf(folder.path())) {
        EXPECT_THAT(name, ::testing::AnyOf("view.json", "stdout", "stderr"));
    }
}

TEST(CallProgram, TellsAnOperationThatFailsAndLeavesTheFileAsItWas) {
    const TemporaryFolder folder;
    folder.write("matrix.json", R"({"mData": [[1, 2], [3]]})");
    const Outcome outcome =
        run(folder, {"call", "utilsConvertMatrixFromRowMajorToColumnMajor", "matrix.json", "--out", "matrix.json"});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.errors, StartsWith("camera: utilsConvertMatrixFromRowMajorToColumnMajor: error 4: "));
    EXPECT_EQ(readText(folder / "matrix.json"), R"({"mData": [[1, 2], [3]]})");
    EXPECT_EQ(fromJson<camera::MatrixResult>(parseJson(outcome.output)).mResult.mError, 4);
}

TEST(CallProgram, TellsAFileThatCannotBeWritten) {
    const TemporaryFolder folder;
    const Outcome outcome = run(folder, {"call", "viewCreateDefault", "--out", "nowhere/view.json"});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors, "camera: nowhere/view.json cannot be written\n");
}

TEST(CallProgram, TellsAFullDisk) {
    if (!std::filesystem::exists("/dev/full")) {
        GTEST_SKIP() << "this machine has no /dev/full";
    }
    const TemporaryFolder folder;
    const Outcome outcome = runInShell(folder, calling("viewCreateDefault >/dev/full"));
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.errors, HasSubstr("standard output cannot be written"));
}

TEST(CallProgram, TellsMisuse) {
    const TemporaryFolder folder;
    expectMisuse(run(folder, {"call"}), "OPERATION is required");
    expectMisuse(run(folder, {"call", "viewSetEyes"}), "camera: there is no operation viewSetEyes");
    expectMisuse(run(folder, {"call", "viewYaw", "none.json", "1"}), "none.json: No such file or directory");
    expectMisuse(run(folder, {"call", "viewCreateDefault", "--output", "x"}), "--output");
    expectMisuse(run(folder, {"call", "projectionCreate", "-1,1,-1,1,1,2", "-x"}), "but '-x' came");
}

TEST(CallProgram, TellsAModuleThatCannotBeLoaded) {
    const TemporaryFolder folder;
    const Outcome outcome = run(folder, {"call", "viewCreateDefault", "--module", "none.so"});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors, "camera: none.so: no such file\n");
}

TEST(CallProgram, ExplainsItself) {
    const TemporaryFolder folder;
    const Outcome outcome = run(folder, {"call", "--help"});
    EXPECT_EQ(outcome.exitCode, 0);
    for (const char* part : {"OPERATION ARG...", "--out", "--module", "NaN(0x", "x,y,z,w", "base64", "exit status"}) {
        EXPECT_THAT(outcome.output, HasSubstr(part));
    }
}

TEST(OpsProgram, ListsOperations) {
    const TemporaryFolder folder;
    const Outcome all = run(folder, {"ops"});
    EXPECT_EQ(all.exitCode, 0);
    EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(all.output, '(')), camera::operationCount);
    EXPECT_EQ(run(folder, {"ops", "seteye"}).output,
              "View\n  viewSetEye(state:ViewState, eye:Vector) -> ViewStateResult\n");
    EXPECT_EQ(run(folder, {"ops", "--names", "zoomwith"}).output,
              "planarCameraZoomWithAnchor_Screen\nplanarCameraZoomWithAnchor_World\n");
}

TEST(OpsProgram, TellsThatNothingFits) {
    const TemporaryFolder folder;
    const Outcome outcome = run(folder, {"ops", "fisheye"});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors, "camera: no operation's name contains 'fisheye'\n");
    EXPECT_EQ(run(folder, {"ops", "fisheye", "--json"}).output, "[]\n");
    EXPECT_EQ(run(folder, {"ops", "--json", "--names"}).exitCode, 2);
}

} // namespace
} // namespace qel::host::test
