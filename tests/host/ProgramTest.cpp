// SPDX-License-Identifier: Apache-2.0
// Runs the program itself, as a person does.
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/tour/Tour.h"
#include "tests/host/ModelFiles.h"
#include "tests/host/RunProgram.h"
#include "tests/host/SeenPicture.h"

namespace qel::host::test {
namespace {

using Program = ProgramTest;
using ::testing::HasSubstr;
using ::testing::StartsWith;

const std::string teapot = CAMERA_MODELS "/teapot.obj";

TEST_F(Program, DrawsATourWithTheModuleItFindsByItself) {
    const Outcome outcome = run({"tour", teapot, "--out", folder / "out", "--size", "240x160"});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_THAT(outcome.output, StartsWith(" 1/36 The default camera\n 2/36 The window gets its size\n"));
    EXPECT_THAT(outcome.output, HasSubstr("36 pictures and their page: " + (folder / "out/index.html").string()));
    EXPECT_EQ(contentOf(folder / "out").size(), 37U);
    EXPECT_EQ(SeenPicture(folder / "out/08-isometric.png").width(), 240);
}

TEST_F(Program, DrawsAModelWithoutNormals) {
    const auto file = folder.write("model.stl", goodModels()[2].content);
    ASSERT_EQ(run({"tour", file, "--out", folder / "out", "--size", "96x64"}).exitCode, 0);
    EXPECT_GT(SeenPicture(folder / "out/05-from-x.png").countModel(), 1000);
}

TEST_F(Program, TellsABrokenModelInOneLineAndLeavesEarlierOutput) {
    std::filesystem::create_directory(folder / "out");
    folder.write("out/01-earlier.png", "earlier");
    const auto file = folder.write("nan.obj", "v nan 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n");
    expectOneLine(run({"tour", file, "--out", folder / "out"}), file.string() + ": ");
    EXPECT_EQ(contentOf(folder / "out"), (std::map<std::string, std::string>{{"01-earlier.png", "earlier"}}));
}

TEST_F(Program, TellsAMissingModelAndMakesNoFolder) {
    expectOneLine(run({"tour", folder / "none.obj", "--out", folder / "new/out"}), "none.obj: no such file");
    EXPECT_FALSE(std::filesystem::exists(folder / "new"));
}

TEST_F(Program, TellsAWindowThatCannotBeDrawn) {
    for (const char* size : {"0x640", "960x100000", "-5x640"}) {
        expectOneLine(run({"tour", teapot, "--out", folder / "out", "--size", size}),
                      "a window has sides of 64 to 4096 pixels");
    }
}

// An EGL that finds no driver of any maker.
TEST_F(Program, TellsThatThereIsNoDriver) {
    expectOneLine(run({"tour", teapot, "--out", folder / "out"}, "__EGL_VENDOR_LIBRARY_DIRS=/nowhere"),
                  "no OpenGL driver: ");
    EXPECT_FALSE(std::filesystem::exists(folder / "out"));
}

TEST_F(Program, TellsItsUsage) {
    const Outcome outcome = run({"tour", "--help"});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_THAT(outcome.output, HasSubstr("MODEL"));
    EXPECT_THAT(outcome.output, HasSubstr("--module"));
}

TEST_F(Program, TellsWhatItDoesNotTake) {
    struct Misuse {
        std::vector<std::string> arguments;
        std::string told;
    };
    for (const auto& [arguments, told] :
         {Misuse{{}, "A subcommand is required\n"},
          {{"shw", "camera.json", "--verbose"},
           "there is no command shw; the commands are call, ops, show, tour, view\n"},
          {{"--colour"}, "there is no option --colour; the commands are call, ops, show, tour, view\n"},
          {{"ops", "--colour"}, "The following argument was not expected: --colour\n"},
          {{"show", "--colour", "camera.json"}, "The following argument was not expected: --colour\n"},
          {{"tour", teapot, "--size", "large"}, "--size: wants WIDTHxHEIGHT in pixels"},
          {{"tour"}, ""}}) {
        expectMisuse(run(arguments), "camera: " + told);
    }
}

TEST_F(Program, TellsItsVersion) { EXPECT_EQ(run({"--version"}).output, "camera " CAMERA_VERSION "\n"); }

// A tour that ends half-way, as by Ctrl-C or a full disk.
TEST_F(Program, LeavesEarlierOutputAndNothingElseWhereATourIsInterrupted) {
    TourOptions options;
    options.model = teapot;
    options.output = folder / "out";
    options.module = CAMERA_MODULE;
    options.width = 96;
    options.height = 64;
    runTour(options, [](std::size_t, std::size_t, std::string_view) {});
    const auto before = contentOf(folder / "out");
    options.model = CAMERA_MODELS "/bunny.obj";
    const Progress stopAtTen = [](std::size_t number, std::size_t, std::string_view) {
        if (number == 10) {
            throw std::runtime_error("enough");
        }
    };
    EXPECT_THROW(runTour(options, stopAtTen), std::runtime_error);
    EXPECT_TRUE(contentOf(folder / "out") == before);
    EXPECT_EQ(contentOf(folder.path()).size(), 1U);
}

} // namespace
} // namespace qel::host::test
