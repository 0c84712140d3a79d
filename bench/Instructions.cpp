// SPDX-License-Identifier: Apache-2.0
//
// camera_instructions MODULE
//
// Under callgrind with --collect-atstart=no: calls each operation a number of times with a warm result and dumps the
// cost of that under the operation's name; first an empty loop under the name "nothing". Prints the numbers of
// operations and of calls to each.

#include <cstdio>
#include <exception>
#include <string>

#include <valgrind/callgrind.h>

#include <qel/host/ComponentLoader.h>

#include "bench/TypedCalls.h"
#include "bench/Workload.h"

namespace {

constexpr int calls = 100;

template <class Work>
void count(const std::string& name, const Work& work) {
    CALLGRIND_ZERO_STATS;
    CALLGRIND_TOGGLE_COLLECT;
    for (int i = 0; i < calls; ++i) {
        work();
        asm volatile("" ::: "memory");
    }
    CALLGRIND_TOGGLE_COLLECT;
    CALLGRIND_DUMP_STATS_AT(name.c_str());
}

} // namespace

int main(int argc, char** argv) {
    try {
        if (argc != 2) {
            std::fprintf(stderr, "usage: %s MODULE\n", argv[0]);
            return 2;
        }
        const qel::host::ComponentLoader component(argv[1]);
        const qel::bench::Workload workload(component.camera());
        count("nothing", [] {});
        int operations = 0;
        qel::bench::forEachCall([&]<class Call>(Call) {
            ++operations;
            const auto arguments = Call::arguments(workload);
            typename Call::Result result;
            Call::run(component.camera(), result, arguments);
            count(std::string(Call::operation.name), [&] { Call::run(component.camera(), result, arguments); });
        });
        std::printf("%d %d\n", operations, calls);
        return 0;
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "%s: %s\n", argv[0], exception.what());
        return 1;
    }
}
