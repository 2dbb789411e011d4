// The command-line tool end to end on scenes of 1,000 to 30,000 selected cards: each phase in CPU
// time, and the built tool as a process with its wall time and peak resident memory.
#include "bench/scene_maker.h"
#include "bench/tool_run.h"

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <string>
#include <utility>

namespace bench {

namespace {

enum class Variant { plain, keys, repeats };

SceneShape shapeOf(Variant variant, int layers_after) {
    SceneShape shape;
    shape.keys = variant == Variant::keys;
    shape.repeats = variant == Variant::repeats;
    // With repeats every layer is copied once, so the scene holds half the layers of the run.
    shape.layers = shape.repeats ? layers_after / 2 : layers_after;
    return shape;
}

std::string outputPath() { return "/tmp/orbisett-bench-out-" + std::to_string(getpid()) + ".json"; }

// Milliseconds per run of one phase, and microseconds per layer of the whole run without the
// preview: the figure that has to stay flat as scenes grow.
void BM_ToolPhases(benchmark::State& state, Variant variant) {
    const int n = static_cast<int>(state.range(0));
    const SceneFile scene(shapeOf(variant, n));
    const std::string out = outputPath();
    ToolPhases sum;
    for (auto _ : state) {
        const ToolPhases t = runToolPhases(scene.path(), out);
        sum.read += t.read;
        sum.start += t.start;
        sum.dialog += t.dialog;
        sum.apply += t.apply;
        sum.close += t.close;
        sum.write += t.write;
        sum.report += t.report;
        sum.preview += t.preview;
        sum.layers_after = t.layers_after;
    }
    std::remove(out.c_str());
    const double runs = static_cast<double>(state.iterations());
    auto ms = [&](double seconds) { return seconds * 1e3 / runs; };
    state.counters["read_ms"] = ms(sum.read);
    state.counters["start_ms"] = ms(sum.start);
    state.counters["dialog_ms"] = ms(sum.dialog);
    state.counters["apply_ms"] = ms(sum.apply);
    state.counters["close_ms"] = ms(sum.close);
    state.counters["write_ms"] = ms(sum.write);
    state.counters["report_ms"] = ms(sum.report);
    state.counters["preview_ms"] = ms(sum.preview);
    state.counters["us_per_layer"] = sum.total_without_preview() * 1e6 / runs / sum.layers_after;
    state.counters["layers_after"] = sum.layers_after;
}

// The built tool writing its scene (no pictures): wall and CPU seconds, and the peak resident
// memory per layer of the run.
void BM_ToolProcess(benchmark::State& state, Variant variant) {
    const int n = static_cast<int>(state.range(0));
    const SceneFile scene(shapeOf(variant, n));
    const std::string out = outputPath();
    const ProcessRun last = timeToolProcess(state, {scene.path(), "--out", out});
    std::remove(out.c_str());
    state.counters["rss_per_layer_B"] = static_cast<double>(last.peak_rss_kb) * 1024 / n;
}

struct Size {
    int layers;
    int runs;  // enough to average the noise of a shared machine, few enough for `make bench`
};

const bool registered = [] {
    const std::pair<const char*, Variant> variants[] = {
        {"plain", Variant::plain}, {"keys", Variant::keys}, {"repeats", Variant::repeats}};
    const Size sizes[] = {{1000, 10}, {10000, 3}, {30000, 2}};
    for (const auto& [name, variant] : variants) {
        for (const Size& size : sizes) {
            benchmark::RegisterBenchmark((std::string("BM_ToolPhases/") + name).c_str(), BM_ToolPhases, variant)
                ->Arg(size.layers)
                ->Iterations(size.runs)
                ->Unit(benchmark::kMillisecond);
        }
    }
    for (const auto& [name, variant] : variants) {
        for (const Size& size : sizes) {
            benchmark::RegisterBenchmark((std::string("BM_ToolProcess/") + name).c_str(), BM_ToolProcess, variant)
                ->Arg(size.layers)
                ->Iterations(size.runs)
                ->UseManualTime()
                ->Unit(benchmark::kMillisecond);
        }
    }
    return true;
}();

}  // namespace

}  // namespace bench
