// SPDX-License-Identifier: Apache-2.0
//
// Loops that touch nothing of the component: how much two threads can do on this machine at all, which for the
// threads of a virtual one is not always twice as much.

#include <array>
#include <cstring>

#include <benchmark/benchmark.h>

#include "bench/Benchmarks.h"
#include "bench/OnOneProcessor.h"

namespace qel::bench {

namespace {

/// As many bytes as the blob of a planar camera has.
void copy(benchmark::State& state) {
    const OnOneProcessor pinned(state.thread_index());
    std::array<char, 1080> from{};
    std::array<char, 1080> to{};
    for (auto _ : state) {
        benchmark::DoNotOptimize(from.data());
        std::memcpy(to.data(), from.data(), to.size());
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
}

/// In registers alone.
void calculate(benchmark::State& state) {
    const OnOneProcessor pinned(state.thread_index());
    double value = 0.5;
    for (auto _ : state) {
        for (int i = 0; i < 8; ++i) {
            value = value * value - 0.75; // settles near -0.5: neither overflow nor denormal numbers
        }
    }
    benchmark::DoNotOptimize(value);
    state.SetItemsProcessed(state.iterations());
}

} // namespace

void registerControls() {
    benchmark::RegisterBenchmark("threads/control: copying", copy)->ThreadRange(1, 2)->UseRealTime();
    benchmark::RegisterBenchmark("threads/control: calculating", calculate)->ThreadRange(1, 2)->UseRealTime();
}

} // namespace qel::bench
