// SPDX-License-Identifier: Apache-2.0
// A host of the camera component: it knows the interface's headers and the module's file, and nothing else of it.
#include <cstdio>
#include <exception>
#include <string>

#include <CLI/CLI.hpp>

#include "Command.h"

namespace {

int run(int argc, char** argv) {
    CLI::App app("Shows what the camera component does.", "camera");
    app.set_version_flag("--version", std::string("camera ") + CAMERA_VERSION);
    app.require_subcommand(1);

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
