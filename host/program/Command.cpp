// SPDX-License-Identifier: Apache-2.0
#include "Command.h"

#include <system_error>

namespace qel::host {

namespace {

std::filesystem::path defaultModule() {
    std::error_code error;
    const auto folder = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
    const auto installed = folder.parent_path() / "lib" / "CameraLibrary.so";
    return std::filesystem::exists(installed, error) ? installed : folder / "CameraLibrary.so";
}

} // namespace

CLI::Option* addModuleOption(CLI::App& command, std::filesystem::path& module) {
    module = defaultModule();
    return command.add_option("--module", module, "The component's file")->capture_default_str();
}

} // namespace qel::host
