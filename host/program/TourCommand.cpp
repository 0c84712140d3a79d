// SPDX-License-Identifier: Apache-2.0
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <memory>
#include <string>
#include <string_view>

#include <unistd.h>

#include <CLI/CLI.hpp>

#include "host/program/Command.h"
#include "host/tour/Tour.h"

namespace qel::host {

namespace {

volatile std::sig_atomic_t interruption = 0;

class Interrupted : public std::exception {};

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

int tour(const TourOptions& options) {
    std::signal(SIGINT, [](int) { interruption = 1; });
    std::signal(SIGTERM, [](int) { interruption = 1; });
    try {
        const auto shots = runTour(options, showProgress);
        endProgress();
        std::printf("%zu pictures and their page: %s\n", shots.size(), (options.output / "index.html").c_str());
        return succeeded;
    } catch (const Interrupted&) {
        endProgress();
        return interrupted;
    } catch (const std::exception&) {
        endProgress();
        throw;
    }
}

} // namespace

void addTourCommand(CLI::App& app, Work& work) {
    struct Settings {
        TourOptions tour;
        std::string size = "960x640";
    };
    const auto settings = std::make_shared<Settings>();
    settings->tour.output = "out";

    CLI::App* command = app.add_subcommand("tour", "Draws a model through the camera, a picture for each step");
    command->add_option("MODEL", settings->tour.model, "The model: OBJ, PLY, STL or glTF")->required();
    command
        ->add_option("--out", settings->tour.output,
                     "The folder for the pictures and the page index.html; an earlier "
                     "tour in it is replaced")
        ->capture_default_str();
    command->add_option("--size", settings->size, "The window's size in pixels, as WIDTHxHEIGHT")
        ->capture_default_str();
    addModuleOption(*command, settings->tour.module);

    command->callback([settings, &work] {
        parseSize(settings->size, settings->tour.width, settings->tour.height);
        work = [settings] { return tour(settings->tour); };
    });
}

} // namespace qel::host
