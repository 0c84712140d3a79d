// SPDX-License-Identifier: Apache-2.0
#include "host/program/Command.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <system_error>

namespace qel::host {

namespace {

std::filesystem::path defaultModule() {
    std::error_code error;
    const auto folder = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
    // As installed, or as built, or wherever both files were copied to.
    for (const char* const place : {CAMERA_INSTALLED_MODULE, "../lib/CameraLibrary.so"}) {
        auto module = (folder / place).lexically_normal();
        if (std::filesystem::exists(module, error)) {
            return module;
        }
    }
    return folder / "CameraLibrary.so";
}

} // namespace

CLI::Option* addModuleOption(CLI::App& command, std::filesystem::path& module) {
    module = defaultModule();
    return command.add_option("--module", module, "The component's file")->type_name("FILE")->capture_default_str();
}

void writeOutput(const std::string& text) {
    errno = 0;
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() || std::fflush(stdout) != 0) {
        throw std::runtime_error(std::string("standard output cannot be written: ") + std::strerror(errno));
    }
}

} // namespace qel::host
