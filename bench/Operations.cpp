// SPDX-License-Identifier: Apache-2.0
#include <stdexcept>
#include <string>

#include <benchmark/benchmark.h>

#include "bench/Benchmarks.h"
#include "bench/OnOneProcessor.h"
#include "bench/TypedCalls.h"

namespace qel::bench {

using api::camera::CameraAPIIf;

namespace {

/// One call, so that what is timed is known to work and to leave a warm result.
template <class Call>
void warmUp(CameraAPIIf& camera, typename Call::Result& result, const typename Call::Arguments& arguments) {
    Call::run(camera, result, arguments);
    if (result.mResult.mError != 0) {
        throw std::runtime_error(result.mResult.mMessage);
    }
}

template <class Call>
void callWarm(benchmark::State& state, CameraAPIIf& camera, const Workload& workload) {
    const auto arguments = Call::arguments(workload);
    typename Call::Result result;
    warmUp<Call>(camera, result, arguments);
    for (auto _ : state) {
        Call::run(camera, result, arguments);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
}

template <class Call>
void callInThreads(benchmark::State& state, CameraAPIIf& camera, const Workload& workload) {
    const OnOneProcessor pinned(state.thread_index());
    callWarm<Call>(state, camera, workload);
}

template <class Call>
void callFresh(benchmark::State& state, CameraAPIIf& camera, const Workload& workload) {
    const auto arguments = Call::arguments(workload);
    for (auto _ : state) {
        typename Call::Result result;
        Call::run(camera, result, arguments);
        benchmark::DoNotOptimize(&result);
        benchmark::ClobberMemory();
    }
}

} // namespace

void registerOperations(CameraAPIIf& camera, const Workload& workload) {
    forEachCall([&]<class Call>(Call) {
        const std::string name(Call::operation.name);
        const auto warm = [&](benchmark::State& state) { callWarm<Call>(state, camera, workload); };
        const auto fresh = [&](benchmark::State& state) { callFresh<Call>(state, camera, workload); };
        benchmark::RegisterBenchmark(("operation/" + name).c_str(), warm);
        benchmark::RegisterBenchmark(("fresh/" + name).c_str(), fresh);
        const auto threads = [&](benchmark::State& state) { callInThreads<Call>(state, camera, workload); };
        benchmark::RegisterBenchmark(("threads/" + name).c_str(), threads)->ThreadRange(1, 2)->UseRealTime();
    });
}

} // namespace qel::bench
