// SPDX-License-Identifier: Apache-2.0
#include <cstdio>
#include <memory>
#include <string>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "host/console/OperationList.h"
#include "host/program/Command.h"

namespace qel::host {

namespace {

struct Settings {
    std::string pattern;
    bool json = false;
    bool names = false;
};

int listOperations(const Settings& settings) {
    const auto entries = operationsLike(settings.pattern);
    std::string text;
    if (settings.json) {
        text = layOut(operationJson(entries)) + "\n";
    } else if (settings.names) {
        for (const OperationEntry& entry : entries) {
            text.append(entry.name).append("\n");
        }
    } else {
        text = operationLines(entries);
    }
    writeOutput(text);
    if (entries.empty()) {
        std::fprintf(stderr, "camera: no operation's name contains '%s'\n", settings.pattern.c_str());
        return failed;
    }
    return succeeded;
}

} // namespace

void addOpsCommand(CLI::App& app, Work& work) {
    const auto settings = std::make_shared<Settings>();
    CLI::App* command =
        app.add_subcommand("ops", "Lists the operations of the component with their arguments and results");
    command->add_option("PATTERN", settings->pattern,
                        "Only operations whose names contain this, in upper or lower case; *, ? and [...] as in the "
                        "shell");
    CLI::Option* json = command->add_flag(
        "--json", settings->json, "For programs: a list of objects with number, name, group, arguments and result");
    command->add_flag("--names", settings->names, "The names alone, one a line")->excludes(json);
    command->footer("The exit status is 1 where no operation's name contains PATTERN.");
    command->callback([settings, &work] { work = [settings] { return listOperations(*settings); }; });
}

} // namespace qel::host
