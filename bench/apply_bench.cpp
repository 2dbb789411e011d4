// "Apply" end to end: the module in the host, a click on the button, every host call it makes, and
// the heap an "Apply" of 10,000 layers uses (plug-in and host together).
#include "bench/allocation_counter.h"
#include "bench/bound_reporter.h"
#include "bench/plugin_stand.h"

#include <benchmark/benchmark.h>

#include <optional>

namespace bench {

namespace {

void BM_Apply(benchmark::State& state, bool keys) {
    const int n = static_cast<int>(state.range(0));
    PluginStand stand(n, keys);
    HostCounts made;
    int moved = 0;
    HostCounts before = stand.counts();
    for (auto _ : state) {
        stand.apply();
        state.PauseTiming();
        const HostCounts after = stand.counts();
        made.calls += after.calls - before.calls;
        made.acquisitions += after.acquisitions - before.acquisitions;
        moved = stand.moved_layers();
        stand.undo();
        before = stand.counts();
        state.ResumeTiming();
    }
    count_layers(state, n);
    const double per_layer = static_cast<double>(state.iterations()) * n;
    state.counters["host_calls"] = static_cast<double>(made.calls) / per_layer;
    state.counters["acquires"] = static_cast<double>(made.acquisitions) / per_layer;
    state.counters["moved"] = moved;
}

void BM_ApplyMemory(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    PluginStand stand(n, true);
    std::optional<AllocationStats> stats;
    for (auto _ : state) {
        AllocationWatch watch;
        stand.apply();
        stats = watch.stats();
    }
    report_allocations(state, *stats, n);
}

}  // namespace

BENCHMARK_CAPTURE(BM_Apply, no_keys, false)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Apply, keys, true)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
// One "Apply" is what is measured; repeating it would only pile up undo steps in the host.
BENCHMARK(BM_ApplyMemory)->Arg(10000)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace bench
