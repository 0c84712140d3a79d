// SPDX-License-Identifier: Apache-2.0
// A host of the camera component: it knows the interface's headers and the module's file, and nothing else of it.
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

#include <unistd.h>

#include <CLI/CLI.hpp>

#include "Tour.h"

namespace {

namespace host = qel::host;

constexpr int failed = 1;
constexpr int misused = 2;
constexpr int interrupted = 130; // what a shell reports of a program that Ctrl-C ended

volatile std::sig_atomic_t interruption = 0;

class Interrupted : public std::exception {};

/// In the folder of libraries beside the program's own, or else in the program's own.
std::filesystem::path defaultModule() {
    std::error_code error;
    const auto folder = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
    const auto installed = folder.parent_path() / "lib" / "CameraLibrary.so";
    return std::filesystem::exists(installed, error) ? installed : folder / "CameraLibrary.so";
}

void parseSize(const std::string& text, std::int32_t& width, std::int32_t& height) {
    char end = '\0';
    if (text.size() > 11 || std::sscanf(text.c_str(), "%dx%d%c", &width, &height, &end) != 2) {
        throw CLI::ValidationError("--size", "wants WIDTHxHEIGHT in pixels, such as 960x640, not " + text);
    }
}

/// One line that is written over on a terminal, a line each elsewhere.
void showProgress(std::size_t number, std::size_t count, std::string_view title) {
    if (interruption != 0) {
        throw Interrupted{};
    }
    static const bool terminal = isatty(STDOUT_FILENO) != 0;
    std::printf("%s%2zu/%zu %.*s%s", terminal ? "\r\033[K" : "", number, count, static_cast<int>(title.size()),
                title.data(), terminal ? "" : "\n");
    std::fflush(stdout);
}

void endProgress() {
    if (isatty(STDOUT_FILENO) != 0) {
        std::printf("\r\033[K");
        std::fflush(stdout);
    }
}

int tour(const host::TourOptions& options) {
    std::signal(SIGINT, [](int) { interruption = 1; });
    std::signal(SIGTERM, [](int) { interruption = 1; });
    try {
        const auto shots = host::runTour(options, showProgress);
        endProgress();
        std::printf("%zu pictures and their page: %s\n", shots.size(), (options.output / "index.html").c_str());
        return EXIT_SUCCESS;
    } catch (const Interrupted&) {
        endProgress();
        return interrupted;
    } catch (const std::exception& error) {
        endProgress();
        std::fprintf(stderr, "camera: %s\n", error.what());
        return failed;
    }
}

int run(int argc, char** argv) {
    CLI::App app("Shows what the camera component does.", "camera");
    app.set_version_flag("--version", std::string("camera ") + CAMERA_VERSION);
    app.require_subcommand(1);

    host::TourOptions options;
    options.output = "out";
    options.module = defaultModule();
    std::string size = "960x640";
    CLI::App* command = app.add_subcommand("tour", "Draws a model through the camera, a picture for each step");
    command->add_option("MODEL", options.model, "The model: OBJ, PLY, STL or glTF")->required();
    command
        ->add_option("--out", options.output,
                     "The folder for the pictures and the page index.html; an earlier "
                     "tour in it is replaced")
        ->capture_default_str();
    command->add_option("--size", size, "The window's size in pixels, as WIDTHxHEIGHT")->capture_default_str();
    command->add_option("--module", options.module, "The component's file")->capture_default_str();

    try {
        app.parse(argc, argv);
        parseSize(size, options.width, options.height);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? EXIT_SUCCESS : misused;
    }
    return tour(options);
}

} // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "camera: %s\n", error.what());
        return failed;
    }
}
