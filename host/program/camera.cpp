// SPDX-License-Identifier: Apache-2.0
// A host of the camera component: it knows the interface's headers and the module's file, and nothing else of it.
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "host/program/Command.h"

namespace {

/// CLI11's words, after the program's name as all that goes wrong is told. Of a command that there is not, CLI11 would
/// say no more than that one is missing.
std::string misuse(const CLI::App* app, const CLI::Error& error) {
    const std::vector<std::string> unknown = app->remaining();
    if (!app->get_subcommands().empty() || unknown.empty()) {
        return "camera: " + CLI::FailureMessage::simple(app, error);
    }
    std::string text = "camera: there is no " + std::string(unknown.front().starts_with('-') ? "option " : "command ") +
                       unknown.front() + "; the commands are";
    const char* separator = " ";
    for (const CLI::App* command : app->get_subcommands([](const CLI::App* /*any*/) { return true; })) {
        text.append(separator).append(command->get_name());
        separator = ", ";
    }
    return text + "\n";
}

int run(int argc, char** argv) {
    CLI::App app("Shows what the camera component does.", "camera");
    app.set_version_flag("--version", std::string("camera ") + CAMERA_VERSION);
    app.require_subcommand(1);
    app.failure_message(misuse);

    qel::host::Work work;
    qel::host::addCallCommand(app, work);
    qel::host::addOpsCommand(app, work);
    qel::host::addShowCommand(app, work);
    qel::host::addTourCommand(app, work);
    qel::host::addViewCommand(app, work);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? qel::host::succeeded : qel::host::misused;
    }
    return work();
}

} // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "camera: %s\n", error.what());
        return qel::host::failed;
    }
}
