// SPDX-License-Identifier: Apache-2.0
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <unistd.h>

#include <CLI/CLI.hpp>

#include <qel/host/ComponentLoader.h>

#include "host/console/Call.h"
#include "host/console/CallArguments.h"
#include "host/program/Command.h"

namespace qel::host {

namespace {

struct Settings {
    std::string operation;
    std::vector<std::string> arguments;
    std::filesystem::path output;
    std::filesystem::path module;
};

/// In one piece, so that a file which is also an argument is never left half written.
void writeFile(const std::filesystem::path& path, const std::string& text) {
    std::filesystem::path part = path;
    part += "." + std::to_string(getpid()) + ".part";
    std::ofstream file(part, std::ios::binary);
    file << text;
    file.close();
    std::error_code error;
    if (file) {
        std::filesystem::rename(part, path, error);
    }
    if (!file || error) {
        std::error_code ignored;
        std::filesystem::remove(part, ignored);
        throw std::runtime_error(path.string() + " cannot be written" + (error ? ": " + error.message() : ""));
    }
}

int callOperation(const Settings& settings) {
    Call call;
    try {
        Input input(std::cin);
        call = prepareCall(settings.operation, settings.arguments, input);
    } catch (const ArgumentError& error) {
        std::fprintf(stderr, "camera: %s\n", error.what());
        return misused;
    }
    const ComponentLoader component(settings.module);
    const CallOutcome outcome = call(component.camera());
    const std::string text = outcome.json + "\n";
    if (outcome.status.mError != 0) {
        // Never into the file, which may hold the state that the call was given.
        writeOutput(text);
        std::fprintf(stderr, "camera: %s: error %d: %s\n", settings.operation.c_str(), outcome.status.mError,
                     outcome.status.mMessage.c_str());
        return failed;
    }
    if (settings.output.empty()) {
        writeOutput(text);
    } else {
        writeFile(settings.output, text);
    }
    return succeeded;
}

/// CLI11 knows nothing of the arguments after the operation, see below.
class CallFormatter : public CLI::Formatter {
public:
    std::string make_usage(const CLI::App* /*app*/, std::string /*name*/) const override {
        return "Usage: camera call [OPTIONS] OPERATION ARG...\n";
    }
};

constexpr const char* notes = R"(Each ARG is one argument of the operation, in the order that 'camera ops' shows:
  double          a number; also Infinity, -Infinity, NaN, -NaN, and NaN(0x...) for a NaN of other bits
  int32           a whole number
  ProjectionType  PERSPECTIVE, ORTHOGRAPHIC, or a number
  Vector          x,y,z
  Quaternion      x,y,z,w
  Matrix          16 numbers with commas between them, row by row
  Frustum         left,right,bottom,top,near,far
  Viewport        x,y,width,height,depthMin,depthMax
  any record      a JSON file, - for standard input, or the JSON itself where it begins with {; a file
                  of a camera that camera view has saved serves too
  any state       the same; a result that holds such a state serves as well

The result is printed as JSON. Numbers have the fewest digits that read back to the same bits; those that JSON has no
spelling for are texts, spelled as above. An mPrivate is base64.

The exit status is 0 where the operation succeeded; 1 where it returned an error, which is told on standard error
while the result is printed all the same, or where the component cannot be loaded; 2 where the command line is wrong
and nothing was called.

Examples:
  camera call planarCameraCreateDefault |
    camera call planarCameraUpdateWindowSize - 1280 720 |
    camera call planarCameraFitWorldSpaceBoundingBox - -1 -1 -1 1 1 1 --out camera.json
  camera call planarCameraYaw camera.json 0.1 --out camera.json
  camera call transformWorldPointToScreenPoint camera.json 1,1,1)";

} // namespace

void addCallCommand(CLI::App& app, Work& work) {
    const auto settings = std::make_shared<Settings>();
    CLI::App* command =
        app.add_subcommand("call", "Calls one operation of the component and prints its result as JSON");
    command->formatter(std::make_shared<CallFormatter>());
    command->add_option("OPERATION", settings->operation, "The operation's name; camera ops lists them")->required();
    command
        ->add_option("--out", settings->output,
                     "Writes the result of a call that succeeds into this file, which may be that of an argument")
        ->type_name("FILE");
    addModuleOption(*command, settings->module);
    command->footer(notes);
    // The arguments are what CLI11 does not know: it would take -Infinity and -.5 for options.
    command->allow_extras();
    command->callback([settings, command, &work] {
        settings->arguments = command->remaining();
        for (const std::string& argument : settings->arguments) {
            if (argument.starts_with("--")) {
                throw CLI::ExtrasError("call", {argument});
            }
        }
        work = [settings] { return callOperation(*settings); };
    });
}

} // namespace qel::host
