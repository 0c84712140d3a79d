// SPDX-License-Identifier: Apache-2.0
#include <filesystem>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/state/StateFile.h"
#include "tests/host/ErrorOf.h"
#include "tests/host/TemporaryFolder.h"

namespace qel::host::test {
namespace {

using StateFileTest = FolderTest;

TEST_F(StateFileTest, NamesAFileThatIsMissing) {
    EXPECT_THAT(errorOf<std::runtime_error>([&] { readState(folder / "none"); }),
                ::testing::HasSubstr("none: cannot be read"));
}

TEST_F(StateFileTest, TellsAFileThatBreaksOff) {
    writeState({}, folder / "whole");
    const auto file = folder.write("half", readText(folder / "whole").substr(0, 20));
    EXPECT_THROW(readState(file), std::runtime_error);
}

TEST_F(StateFileTest, LeavesTheOlderFileWhereItCannotWrite) {
    std::filesystem::create_directory(folder / "state.part");
    const auto file = folder.write("state", "older");
    EXPECT_THROW(writeState({}, file), std::runtime_error);
    EXPECT_EQ(readText(file), "older");
}

} // namespace
} // namespace qel::host::test
