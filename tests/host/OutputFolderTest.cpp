// SPDX-License-Identifier: Apache-2.0
#include "host/tour/OutputFolder.h"

#include <optional>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/tour/Page.h"
#include "tests/host/TemporaryFolder.h"

namespace qel::host::test {
namespace {

using ::testing::HasSubstr;

const std::string page = "<head>" + std::string(pageGenerator) + "</head>";

void writeFile(const std::filesystem::path& file, const std::string& content) {
    std::ofstream(file, std::ios::binary) << content;
}

/// A folder as an earlier tour left it.
void makeEarlierTour(const std::filesystem::path& folder) {
    std::filesystem::create_directories(folder);
    writeFile(folder / "index.html", page + "earlier");
    writeFile(folder / "01-earlier.png", "earlier");
}

std::string errorOf(const std::filesystem::path& target) {
    try {
        const OutputFolder output(target);
    } catch (const OutputError& error) {
        return error.what();
    }
    return {};
}

TEST(OutputFolder, AppearsWhenItIsPublished) {
    const TemporaryFolder folder;
    {
        OutputFolder output(folder / "deep/er/out");
        writeFile(output.folder() / "index.html", page);
        EXPECT_FALSE(std::filesystem::exists(folder / "deep/er/out"));
        output.publish();
    }
    EXPECT_EQ(contentOf(folder / "deep/er/out"), (std::map<std::string, std::string>{{"index.html", page}}));
    EXPECT_EQ(contentOf(folder / "deep/er").size(), 1U);
}

TEST(OutputFolder, ReplacesAnEarlierTourAsAWhole) {
    const TemporaryFolder folder;
    makeEarlierTour(folder / "out");
    {
        OutputFolder output((folder / "out").string() + "/");
        writeFile(output.folder() / "index.html", page);
        EXPECT_EQ(contentOf(folder / "out").at("01-earlier.png"), "earlier");
        output.publish();
    }
    EXPECT_EQ(contentOf(folder / "out"), (std::map<std::string, std::string>{{"index.html", page}}));
    EXPECT_EQ(contentOf(folder.path()).size(), 1U);
}

TEST(OutputFolder, ReplacesAnEarlierTourFileByFileWhereFoldersCannotBeExchanged) {
    const TemporaryFolder folder;
    makeEarlierTour(folder / "out");
    {
        OutputFolder output(folder / "out");
        writeFile(output.folder() / "index.html", page);
        writeFile(output.folder() / "01-later.png", "later");
        output.publishFileByFile();
    }
    EXPECT_EQ(contentOf(folder / "out"),
              (std::map<std::string, std::string>{{"index.html", page}, {"01-later.png", "later"}}));
    EXPECT_EQ(contentOf(folder.path()).size(), 1U);
}

TEST(OutputFolder, FillsTheCurrentFolderWhereItIs) {
    const TemporaryFolder folder;
    makeEarlierTour(folder / "out");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder / "out");
    {
        OutputFolder output(".");
        writeFile(output.folder() / "index.html", page);
        output.publish();
    }
    EXPECT_EQ(contentOf("."), (std::map<std::string, std::string>{{"index.html", page}}));
    std::filesystem::current_path(before);
}

TEST(OutputFolder, MayBeABareNameInTheCurrentFolder) {
    const TemporaryFolder folder;
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    {
        OutputFolder output("out");
        writeFile(output.folder() / "index.html", page);
        output.publish();
    }
    std::filesystem::current_path(before);
    EXPECT_EQ(contentOf(folder / "out"), (std::map<std::string, std::string>{{"index.html", page}}));
}

TEST(OutputFolder, FollowsALinkToAFolder) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "real");
    std::filesystem::create_directory_symlink(folder / "real", folder / "link");
    OutputFolder output(folder / "link");
    writeFile(output.folder() / "index.html", page);
    output.publish();
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link"));
    EXPECT_EQ(contentOf(folder / "real").size(), 1U);
}

TEST(OutputFolder, IsReadableByThoseWhoMayReadFoldersHere) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "usual");
    {
        OutputFolder output(folder / "out");
        output.publish();
    }
    EXPECT_EQ(std::filesystem::status(folder / "out").permissions(),
              std::filesystem::status(folder / "usual").permissions());
}

TEST(OutputFolder, RefusesAFolderWithSomethingElse) {
    const TemporaryFolder folder;
    makeEarlierTour(folder / "out");
    writeFile(folder / "out/notes.txt", "mine");
    EXPECT_THAT(errorOf(folder / "out"), HasSubstr("holds what no tour made, such as notes.txt"));
    EXPECT_EQ(contentOf(folder / "out").size(), 3U);
}

TEST(OutputFolder, RefusesAFolderWithSomebodysPage) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "out");
    writeFile(folder / "out/index.html", "<html>my site</html>");
    EXPECT_THAT(errorOf(folder / "out"), HasSubstr("holds what no tour made, such as index.html"));
}

TEST(OutputFolder, RefusesAFile) {
    const TemporaryFolder folder;
    EXPECT_THAT(errorOf(folder.write("out", "")), HasSubstr("is a file; the output needs a folder"));
}

TEST(OutputFolder, RefusesAPlaceBelowAFile) {
    const TemporaryFolder folder;
    folder.write("file", "");
    EXPECT_THAT(errorOf(folder / "file/out"), HasSubstr("cannot be written: "));
}

TEST(OutputFolder, RefusesTheRoot) { EXPECT_NE(errorOf("/"), ""); }

} // namespace
} // namespace qel::host::test
