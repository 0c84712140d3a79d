// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

#include <sys/wait.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/host/TemporaryFolder.h"

namespace qel::host::test {

/// How a run of the program went.
struct Outcome {
    int exitCode;
    std::string output;
    std::string errors;
};

inline std::string quotedForShell(const std::string& text) {
    std::string quoted = "'";
    for (const char letter : text) {
        quoted += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
    }
    return quoted + "'";
}

/// A test that runs the program `camera` in a folder of its own.
class ProgramTest : public FolderTest {
protected:
    /// A command in the shell, which knows the program as camera, in the folder, which keeps what it says.
    [[nodiscard]] Outcome runInShell(const std::string& command) const {
        const std::string inFolder = "camera() { " + quotedForShell(CAMERA_PROGRAM) + " \"$@\"; }; cd " +
                                     quotedForShell(folder.path()) + " && { " + command + "; } >" +
                                     quotedForShell(folder / "stdout") + " 2>" + quotedForShell(folder / "stderr") +
                                     " </dev/null";
        const int status = std::system(inFolder.c_str());
        if (!WIFEXITED(status)) {
            throw std::runtime_error("the program ended by a signal: " + readText(folder / "stderr"));
        }
        return {WEXITSTATUS(status), readText(folder / "stdout"), readText(folder / "stderr")};
    }

    /// The program with these arguments.
    [[nodiscard]] Outcome run(const std::vector<std::string>& arguments, const std::string& environment = "") const {
        std::string command = environment + " " + quotedForShell(CAMERA_PROGRAM);
        for (const std::string& argument : arguments) {
            command.append(" ").append(quotedForShell(argument));
        }
        return runInShell(command);
    }

    /// One line of errors that names the program first; nothing else was said.
    static void expectOneLine(const Outcome& outcome, const std::string& part) {
        expectErrors(outcome, part, 1);
        EXPECT_EQ(outcome.errors.find('\n'), outcome.errors.size() - 1) << outcome.errors;
    }
    static void expectMisuse(const Outcome& outcome, const std::string& part) { expectErrors(outcome, part, 2); }

private:
    static void expectErrors(const Outcome& outcome, const std::string& part, int exitCode) {
        EXPECT_EQ(outcome.exitCode, exitCode);
        EXPECT_EQ(outcome.output, "");
        EXPECT_THAT(outcome.errors, ::testing::StartsWith("camera: "));
        EXPECT_THAT(outcome.errors, ::testing::HasSubstr(part));
    }
};

} // namespace qel::host::test
