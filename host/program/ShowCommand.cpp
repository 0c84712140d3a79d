// SPDX-License-Identifier: Apache-2.0
#include <cstdio>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "host/console/Input.h"
#include "host/program/Command.h"
#include "host/show/Show.h"

namespace qel::host {

namespace {

int show(const std::string& name) {
    std::string text;
    try {
        Input input(std::cin);
        text = reportState(input.read(name)).text();
    } catch (const InputError& error) {
        std::fprintf(stderr, "camera: %s\n", error.what());
        return misused;
    } catch (const JsonError& error) {
        std::fprintf(stderr, "camera: %s: %s\n", name == "-" ? "standard input" : name.c_str(), error.what());
        return misused;
    }
    writeOutput(text);
    return succeeded;
}

constexpr const char* notes =
    R"(Shows eye, look-at, direction and up of a view; kind, field of view, frustum, near and far of a projection; window,
viewport and depths of a surface; and the kind words of their matrices. Lengths are in the units of the world, numbers
have six digits; camera call prints all of them.

What operations read is shown: what mPrivate holds. Lines that begin with 'warning:' tell of parts that do not belong
together, such as after viewSetViewTransformMatrix, projectionSetProjectionMatrix and surfaceSetViewport, of fields that
were changed but not in mPrivate, and of numbers that are not finite.

The exit status is 0, with warnings too; 2 where STATE cannot be read.

Example:
  camera call planarCameraCreateDefault | camera show -)";

} // namespace

void addShowCommand(CLI::App& app, Work& work) {
    const auto state = std::make_shared<std::string>();
    CLI::App* command = app.add_subcommand("show", "Tells in words what a camera, view, projection or surface is");
    command
        ->add_option(
            "STATE", *state,
            "A state or a result that holds one, as JSON, or what camera view saved: a file, or - for standard "
            "input")
        ->required();
    command->footer(notes);
    command->callback([state, &work] { work = [state] { return show(*state); }; });
}

} // namespace qel::host
