// The layout of each mode for 10 to 10,000 records, per layer and against the lower bounds.
#include "bench/bound_reporter.h"
#include "bench/cylinder_stand.h"
#include "bench/layout_settings.h"
#include "bench/lower_bound.h"
#include "bench/placement_arithmetic.h"

#include <benchmark/benchmark.h>

#include <list>

namespace bench {

namespace {

void BM_LowerBound(benchmark::State& state) {
    const auto n = static_cast<std::size_t>(state.range(0));
    std::vector<AEGP_ThreeDVal> out(n);
    for (auto _ : state) {
        lower_bound_layout(out, 500, 500, -1000);
    }
    count_layers(state, static_cast<double>(n));
}

void BM_PlacementArithmetic(benchmark::State& state) {
    const std::vector<A_LPoint> sizes(static_cast<std::size_t>(state.range(0)), A_LPoint{100, 80});
    std::vector<Placed> out;
    for (auto _ : state) {
        place_evenly(EvenlySettings{}, sizes, out);
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
    count_layers(state, static_cast<double>(sizes.size()));
}

void BM_Layout(benchmark::State& state, Mode mode) {
    const int n = static_cast<int>(state.range(0));
    CylinderStand stand;
    choose_mode(stand, mode);
    stand.set_records(n, 100, 80);
    // The ring resizes its last layer, so every run starts again from the same records.
    const bool restore = mode == Mode::ring;
    const std::list<LayerInfo> records = stand.layers();
    for (auto _ : state) {
        if (restore) {
            state.PauseTiming();
            stand.layers() = records;
            state.ResumeTiming();
        }
        benchmark::DoNotOptimize(stand.dlg().get_layers_pos());
    }
    count_layers(state, n);
    state.counters["placed"] = placed_count(stand.layers());
}

}  // namespace

// 10, 100, 1,000 and 10,000 records.
void records(benchmark::internal::Benchmark* b) { b->RangeMultiplier(10)->Range(10, 10000); }

BENCHMARK(BM_LowerBound)->Apply(records);
BENCHMARK(BM_PlacementArithmetic)->Apply(records)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_Layout, evenly, Mode::evenly)->Apply(records)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_Layout, given_steps, Mode::given_steps)->Apply(records)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_Layout, equator, Mode::equator)->Apply(records)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_Layout, radius_by_first, Mode::radius)->Apply(records)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_Layout, ring, Mode::ring)->Apply(records)->Unit(benchmark::kMicrosecond);

}  // namespace bench
