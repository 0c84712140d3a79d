// SPDX-License-Identifier: Apache-2.0
#include "host/tour/OutputFolder.h"

#include <map>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/tour/Page.h"
#include "tests/host/ErrorOf.h"
#include "tests/host/TemporaryFolder.h"

namespace qel::host::test {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;
using Content = std::map<std::string, std::string>;

const std::string page = "<head>" + std::string(pageGenerator) + "</head>";
const Content onePage{{"index.html", page}};

class OutputFolderTest : public FolderTest {
protected:
    ~OutputFolderTest() override { std::filesystem::current_path(before); }

    /// A folder as an earlier tour left it.
    void makeEarlierTour() const {
        std::filesystem::create_directory(folder / "out");
        folder.write("out/index.html", page + "earlier");
        folder.write("out/01-earlier.png", "earlier");
    }
    static void publishPage(const std::filesystem::path& target) {
        OutputFolder output(target);
        std::ofstream(output.folder() / "index.html") << page;
        output.publish();
    }
    static std::string errorOfOutput(const std::filesystem::path& target) {
        return errorOf<OutputError>([&] { const OutputFolder output(target); });
    }

    const std::filesystem::path before = std::filesystem::current_path();
};

TEST_F(OutputFolderTest, AppearsWhenItIsPublished) {
    {
        OutputFolder output(folder / "deep/er/out");
        EXPECT_FALSE(std::filesystem::exists(folder / "deep/er/out"));
    }
    publishPage(folder / "deep/er/out");
    EXPECT_EQ(contentOf(folder / "deep/er/out"), onePage);
    EXPECT_EQ(contentOf(folder / "deep/er").size(), 1U);
}

TEST_F(OutputFolderTest, ReplacesAnEarlierTourAsAWhole) {
    makeEarlierTour();
    {
        OutputFolder output((folder / "out").string() + "/");
        std::ofstream(output.folder() / "index.html") << page;
        EXPECT_EQ(contentOf(folder / "out").at("01-earlier.png"), "earlier");
        output.publish();
    }
    EXPECT_EQ(contentOf(folder / "out"), onePage);
    EXPECT_EQ(contentOf(folder.path()).size(), 1U);
}

TEST_F(OutputFolderTest, ReplacesAnEarlierTourFileByFileWhereFoldersCannotBeExchanged) {
    makeEarlierTour();
    {
        OutputFolder output(folder / "out");
        std::ofstream(output.folder() / "index.html") << page;
        std::ofstream(output.folder() / "01-later.png") << "later";
        output.publishFileByFile();
    }
    EXPECT_EQ(contentOf(folder / "out"), (Content{{"index.html", page}, {"01-later.png", "later"}}));
    EXPECT_EQ(contentOf(folder.path()).size(), 1U);
}

TEST_F(OutputFolderTest, FillsTheCurrentFolderWhereItIs) {
    makeEarlierTour();
    std::filesystem::current_path(folder / "out");
    publishPage(".");
    EXPECT_EQ(contentOf("."), onePage);
}

TEST_F(OutputFolderTest, MayBeABareNameInTheCurrentFolder) {
    std::filesystem::current_path(folder.path());
    publishPage("out");
    EXPECT_EQ(contentOf(folder / "out"), onePage);
}

TEST_F(OutputFolderTest, FollowsALinkToAFolder) {
    std::filesystem::create_directory(folder / "real");
    std::filesystem::create_directory_symlink(folder / "real", folder / "link");
    publishPage(folder / "link");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link"));
    EXPECT_EQ(contentOf(folder / "real"), onePage);
}

TEST_F(OutputFolderTest, IsReadableByThoseWhoMayReadFoldersHere) {
    std::filesystem::create_directory(folder / "usual");
    publishPage(folder / "out");
    EXPECT_EQ(std::filesystem::status(folder / "out").permissions(),
              std::filesystem::status(folder / "usual").permissions());
}

TEST_F(OutputFolderTest, RefusesAFolderWithSomethingElse) {
    makeEarlierTour();
    folder.write("out/notes.txt", "mine");
    EXPECT_THAT(errorOfOutput(folder / "out"), HasSubstr("holds what no tour made, such as notes.txt"));
    EXPECT_EQ(contentOf(folder / "out").size(), 3U);
}

TEST_F(OutputFolderTest, RefusesAFolderWithSomebodysPage) {
    folder.write("index.html", "<html>my site</html>");
    EXPECT_THAT(errorOfOutput(folder.path()), HasSubstr("holds what no tour made, such as index.html"));
}

TEST_F(OutputFolderTest, RefusesWhatIsNoFolder) {
    const auto file = folder.write("file", "");
    EXPECT_THAT(errorOfOutput(file), HasSubstr("is a file; the output needs a folder"));
    EXPECT_THAT(errorOfOutput(file / "out"), HasSubstr("cannot be written: "));
}

TEST_F(OutputFolderTest, RefusesTheRoot) { EXPECT_THAT(errorOfOutput("/"), StartsWith("/")); }

} // namespace
} // namespace qel::host::test
