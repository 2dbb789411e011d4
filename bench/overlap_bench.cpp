// "Don't Intersect" in the given-steps mode, and the count of repeated layers that fit at its cap.
#include "bench/bound_reporter.h"
#include "bench/cylinder_stand.h"
#include "bench/layout_settings.h"

#include "controls/control_ids.h"

#include <benchmark/benchmark.h>

namespace bench {

namespace {

void BM_DontIntersect(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    CylinderStand stand;
    choose_dont_intersect(stand, 3000, 4000);
    stand.set_mixed_records(n);
    for (auto _ : state) {
        benchmark::DoNotOptimize(stand.dlg().get_layers_pos());
    }
    count_layers(state, n);
    state.counters["placed"] = placed_count(stand.layers());
}

// Counts, as often as the benchmark asks, the layers that fit at the cap.
void count_at_cap(benchmark::State& state, CylinderStand& stand) {
    int placements = 0;
    for (auto _ : state) {
        placements = stand.dlg().get_layers_number();
    }
    state.counters["placements"] = placements;
}

// Ten records of 100 x 80 on the default cylinder with 1 degree and 5 pixel steps: more than
// 100,000 places, so the count stops at its cap.
void BM_LayersNumberAtCap(benchmark::State& state) {
    CylinderStand stand;
    stand.set_float(EDIT_MIN_LONGITUDE, 1);
    stand.set_float(EDIT_MIN_LATITUDE, 5);
    stand.set_records(10, 100, 80);
    count_at_cap(state, stand);
}

// The same count with "Don't Intersect": 10 x 10 layers on a cylinder 10,000 wide and 6,000 high
// with 1 degree and 20 pixel steps never touch, so every one of the 100,000 places is tested
// against all footprints recorded before it.
void BM_LayersNumberAtCapDontIntersect(benchmark::State& state) {
    CylinderStand stand;
    choose_dont_intersect(stand, 10000, 6000);
    stand.set_records(10, 10, 10);
    count_at_cap(state, stand);
}

}  // namespace

BENCHMARK(BM_DontIntersect)->Arg(100)->Arg(500)->Arg(2000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LayersNumberAtCap)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LayersNumberAtCapDontIntersect)->Unit(benchmark::kMillisecond);

}  // namespace bench
