// --gltf on scenes of 1,000 to 30,000 selected cards: the file made and written after a run, in
// CPU and wall time, with its size per layer; and the built tool writing it as a process.
#include "app/gltf/gltf_file.h"
#include "app/gltf/gltf_scene.h"
#include "app/output/write_outputs.h"
#include "app/report/run_outcome.h"
#include "app/run/session.h"
#include "bench/scene_maker.h"
#include "bench/tool_run.h"
#include "platform/driver.h"

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <string>

namespace bench {

namespace {

std::string outputPath(const char* ending) { return "/tmp/orbisett-bench-" + std::to_string(getpid()) + ending; }

// The glTF scene read off the run, its document and the file written as --gltf writes it: what
// the option adds to a run.
void BM_Gltf(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    const SceneFile scene(SceneShape{n});
    app::Options options;
    options.scene = scene.path();
    options.plugin = ORBISETT_MODULE_PATH;
    platform::reset();
    const app::SessionResult run = app::runSession(options);
    const app::RunOutcome outcome = app::readRunOutcome(run.before(), *run.host, run.reading);
    const std::string out = outputPath(".glb");
    for (auto _ : state) {
        const app::GltfScene gltf = app::gltfScene(run.before(), run.host->project(), outcome);
        app::writeAll(
            {{"--gltf", out, [&gltf](std::ostream& file) { app::writeGltf(gltf, app::GltfFormat::binary, file); }}});
    }
    state.counters["bytes_per_layer"] = static_cast<double>(std::filesystem::file_size(out)) / n;
    std::remove(out.c_str());
    platform::reset();
}

// The built tool with --out and --gltf: wall and CPU seconds, and peak resident memory.
void BM_GltfProcess(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    const SceneFile scene(SceneShape{n});
    const std::string out = outputPath(".json");
    const std::string gltf = outputPath(".glb");
    timeToolProcess(state, {scene.path(), "--out", out, "--gltf", gltf});
    std::remove(out.c_str());
    std::remove(gltf.c_str());
}

BENCHMARK(BM_Gltf)->Arg(1000)->Arg(10000)->Arg(30000)->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GltfProcess)->Arg(30000)->Iterations(2)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace bench
