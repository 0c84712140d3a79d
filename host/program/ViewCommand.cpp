// SPDX-License-Identifier: Apache-2.0
#include <filesystem>
#include <memory>

#include <CLI/CLI.hpp>

#include "host/program/Command.h"
#include "host/view/Viewer.h"

namespace qel::host {

void addViewCommand(CLI::App& app, Work& work) {
    struct Settings {
        std::filesystem::path model;
        std::filesystem::path module;
        std::filesystem::path state = "camera.state";
    };
    const auto settings = std::make_shared<Settings>();

    CLI::App* command = app.add_subcommand("view", "Opens a window with a model, to be turned, moved and zoomed");
    command->add_option("MODEL", settings->model, "The model: OBJ, PLY, STL or glTF")->required();
    command->add_option("--state", settings->state, "The file to save the camera to and to load it from")
        ->capture_default_str();
    addModuleOption(*command, settings->module);
    command->footer(viewControls());

    command->callback([settings, &work] {
        work = [settings] {
            view(settings->model, settings->module, settings->state);
            return succeeded;
        };
    });
}

} // namespace qel::host
