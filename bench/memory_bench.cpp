// Heap used by an "Apply" of 10,000 records end to end (plug-in and host together), and by the
// layout alone.
#include "bench/allocation_counter.h"
#include "bench/cylinder_stand.h"
#include "bench/layout_settings.h"
#include "bench/plugin_stand.h"

#include <benchmark/benchmark.h>

#include <optional>

namespace bench {

namespace {

void report(benchmark::State& state, const AllocationStats& s, int n)
{
    state.counters["peak_bytes"] = static_cast<double>(s.peak_bytes);
    state.counters["peak_per_layer"] = static_cast<double>(s.peak_bytes) / n;
    state.counters["bytes"] = static_cast<double>(s.bytes);
    state.counters["allocations"] = static_cast<double>(s.allocations);
}

void BM_ApplyMemory(benchmark::State& state)
{
    const int n = static_cast<int>(state.range(0));
    PluginStand stand(n, true);
    std::optional<AllocationStats> stats;
    for (auto _ : state) {
        AllocationWatch watch;
        stand.apply();
        stats = watch.stats();
    }
    report(state, *stats, n);
}

void BM_LayoutMemory(benchmark::State& state, bool dont_intersect)
{
    const int n = static_cast<int>(state.range(0));
    CylinderStand stand;
    if (dont_intersect) {
        choose_dont_intersect(stand);
        stand.set_mixed_records(n);
    } else {
        choose_mode(stand, Mode::given_steps);
        stand.set_records(n, 100, 80);
    }
    std::optional<AllocationStats> stats;
    for (auto _ : state) {
        AllocationWatch watch;
        stand.dlg().get_layers_pos();
        stats = watch.stats();
    }
    report(state, *stats, n);
}

}  // namespace

// One "Apply" is what is measured; repeating it would only pile up undo steps in the host.
BENCHMARK(BM_ApplyMemory)->Arg(10000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_LayoutMemory, given_steps, false)->Arg(10000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_LayoutMemory, given_steps_dont_intersect, true)
    ->Arg(2000)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

}  // namespace bench
