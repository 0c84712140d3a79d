// SPDX-License-Identifier: Apache-2.0
//
// camera_bench MODULE [options of Google Benchmark]

#include <cstdio>
#include <exception>

#include <benchmark/benchmark.h>

#include <qel/host/ComponentLoader.h>

#include "bench/Benchmarks.h"

namespace {

void registerPeers() {
    qel::bench::registerGlm();
    qel::bench::registerEigen();
#ifdef CAMERA_BENCH_VTK
    qel::bench::registerVtk();
#endif
#ifdef CAMERA_BENCH_OPENSCENEGRAPH
    qel::bench::registerOpenSceneGraph();
#endif
}

} // namespace

int main(int argc, char** argv) {
    try {
        benchmark::Initialize(&argc, argv);
        if (argc != 2) {
            std::fprintf(stderr, "usage: %s MODULE [options of Google Benchmark]\n", argv[0]);
            return 2;
        }
        const qel::host::ComponentLoader component(argv[1]);
        const qel::bench::Workload workload(component.camera());
        qel::bench::registerOperations(component.camera(), workload);
        qel::bench::registerControls();
        qel::bench::registerImpl(component.camera(), workload);
        registerPeers();
#ifdef CAMERA_BENCH_WIRE
        qel::bench::registerWire(workload);
#endif
        benchmark::RunSpecifiedBenchmarks();
        benchmark::Shutdown();
        return 0;
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "%s: %s\n", argv[0], exception.what());
        return 1;
    }
}
