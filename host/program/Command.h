// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include <CLI/CLI.hpp>

namespace qel::host {

/// How the program ends.
inline constexpr int succeeded = 0;
inline constexpr int failed = 1;
inline constexpr int misused = 2;
inline constexpr int interrupted = 130; ///< what a shell reports of a program that Ctrl-C ended

/// What is left to do once the command line has been read; returns how the program ends. An exception derived from
/// std::exception ends it as failed, its text shown.
using Work = std::function<int()>;

/// Each subcommand has a source of its own with one function, which adds the subcommand and its options to `app`. When
/// the subcommand is the one asked for, its callback checks what CLI11 cannot, with a CLI::ParseError for misuse, and
/// puts what it is to do into `work`. Both outlive the parsing.
void addCallCommand(CLI::App& app, Work& work);
void addOpsCommand(CLI::App& app, Work& work);
void addShowCommand(CLI::App& app, Work& work);
void addTourCommand(CLI::App& app, Work& work);
void addViewCommand(CLI::App& app, Work& work);

/// The option --module with the component's file, by default the one that belongs to the program: where the two were
/// installed or built, or else in the program's own folder.
CLI::Option* addModuleOption(CLI::App& command, std::filesystem::path& module);

/// Writes to standard output. Throws std::runtime_error where that fails, as on a full disk.
void writeOutput(const std::string& text);

} // namespace qel::host
