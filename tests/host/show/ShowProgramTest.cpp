// SPDX-License-Identifier: Apache-2.0
// Runs camera show as a person does.
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/host/RunProgram.h"

namespace qel::host::test {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

const std::string program = quotedForShell(CAMERA_PROGRAM);

TEST(ShowProgram, TellsOfAStateFromAPipe) {
    const TemporaryFolder folder;
    const Outcome outcome = runInShell(folder, program + " call surfaceCreateDefault | " + program + " show -");
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_THAT(outcome.output, StartsWith("Surface\n  window          640 x 480 pixels\n"));
}

TEST(ShowProgram, TellsOfAStateInAFileAndItsWarnings) {
    const TemporaryFolder folder;
    const Outcome outcome = runInShell(
        folder, program + " call viewCreateDefault | " + program + " call viewYaw - 1 --out view.json && " + program +
                    " call viewSetViewTransformMatrix view.json 1,0,0,0,0,1,0,0,0,0,1,0,0,0,0,1 --out view.json && " +
                    program + " show view.json");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_THAT(outcome.output, StartsWith("View\n  eye             (0, 0, 0)\n"));
    EXPECT_THAT(outcome.output, HasSubstr("\nwarning: view: the view transform matrix looks along (0, 0, -1)"));
}

TEST(ShowProgram, TellsWhatItCannotShow) {
    const TemporaryFolder folder;
    folder.write("vector.json", R"({"mData": [1, 2, 3]})");
    folder.write("text.json", "a view");
    Outcome outcome = run(folder, {"show", "vector.json"});
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors, "camera: vector.json: wants a state of a planar camera, a view, a projection or a "
                              "surface, but an object of mData came\n");
    EXPECT_THAT(run(folder, {"show", "text.json"}).errors, StartsWith("camera: text.json: parse error at line 1"));
    EXPECT_EQ(run(folder, {"show", "none.json"}).errors, "camera: none.json: No such file or directory\n");
    EXPECT_EQ(run(folder, {"show", "-"}).errors, "camera: standard input is empty\n");
    outcome = run(folder, {"show"});
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_THAT(outcome.errors, StartsWith("camera: STATE is required\n"));
}

} // namespace
} // namespace qel::host::test
