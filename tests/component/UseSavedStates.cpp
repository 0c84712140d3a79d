// SPDX-License-Identifier: Apache-2.0
// Restores the states in the first file, uses each operation on them and writes the results to the second file.
#include <cstdio>
#include <exception>

#include "tests/component/support/LoadedModule.h"
#include "tests/component/support/SavedStates.h"

int main(int argc, char** argv) {
    using namespace qel::api::camera::test;
    if (argc != 3) {
        std::fputs("usage: component_use_saved_states STATES RESULTS\n", stderr);
        return 2;
    }
    try {
        const LoadedService service;
        save(resultsOf(*service, withImages(load(argv[1]))), argv[2]);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "component_use_saved_states: %s\n", error.what());
        return 1;
    }
}
