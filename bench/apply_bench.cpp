// "Apply" end to end: the module in the host, a click on the button, every host call it makes.
#include "bench/bound_reporter.h"
#include "bench/plugin_stand.h"

#include <benchmark/benchmark.h>

namespace bench {

namespace {

void BM_Apply(benchmark::State& state, bool keys)
{
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

}  // namespace

BENCHMARK_CAPTURE(BM_Apply, no_keys, false)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Apply, keys, true)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);

}  // namespace bench
