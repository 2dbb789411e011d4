// Heap used by the layout alone, for 10,000 records and for 2,000 with "Don't Intersect".
#include "bench/allocation_counter.h"
#include "bench/cylinder_stand.h"
#include "bench/layout_settings.h"

#include <benchmark/benchmark.h>

#include <optional>

namespace bench {

namespace {

void BM_LayoutMemory(benchmark::State& state, bool dont_intersect) {
    const int n = static_cast<int>(state.range(0));
    CylinderStand stand;
    if (dont_intersect) {
        choose_dont_intersect(stand, 3000, 4000);
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
    report_allocations(state, *stats, n);
}

}  // namespace

BENCHMARK_CAPTURE(BM_LayoutMemory, given_steps, false)->Arg(10000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_LayoutMemory, given_steps_dont_intersect, true)
    ->Arg(2000)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

}  // namespace bench
