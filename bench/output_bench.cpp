// Each output of a run on its own, in CPU time per layer of the composition after the run, for
// every placement on scenes of 1,000 to 100,000 cards: the figure that has to stay flat as scenes
// grow. And the built tool writing them, for its wall time and its peak resident memory.
#include "app/drawing/picture_file.h"
#include "app/drawing/png_painter.h"
#include "app/drawing/preview_picture.h"
#include "app/drawing/svg_writer.h"
#include "app/page/html_page.h"
#include "app/page/scene_data.h"
#include "app/report/run_outcome.h"
#include "app/run/session.h"
#include "bench/scene_maker.h"
#include "bench/tool_run.h"
#include "platform/driver.h"

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <ctime>
#include <functional>
#include <map>
#include <ostream>
#include <streambuf>
#include <string>

namespace bench {

namespace {

// A stream that only counts what is written to it.
class CountingBuffer : public std::streambuf {
public:
    std::size_t bytes = 0;

protected:
    std::streamsize xsputn(const char*, std::streamsize n) override {
        bytes += static_cast<std::size_t>(n);
        return n;
    }
    int_type overflow(int_type c) override {
        ++bytes;
        return traits_type::not_eof(c);
    }
};

double cpuSeconds() {
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

enum class Output { scene, preview_svg, preview_png, dialog_png, page };

// One run of the tool's session on a scene, kept while its outputs are measured.
struct Arranged {
    app::SessionResult run;
    app::RunOutcome outcome;
    int layers_after = 0;
};

Arranged arrange(const SceneShape& shape) {
    const SceneFile scene(shape);
    platform::reset();
    app::Options options;
    options.scene = scene.path();
    options.plugin = ORBISETT_MODULE_PATH;
    Arranged a{app::runSession(options), {}, 0};
    a.outcome = app::readRunOutcome(a.run.before(), *a.run.host, a.run.reading);
    a.layers_after = static_cast<int>(a.run.host->project().activeComp()->layers.size());
    return a;
}

// The output made once, as the tool makes it; the bytes it came to.
std::size_t makeOutput(const Arranged& a, Output output) {
    CountingBuffer buffer;
    std::ostream out(&buffer);
    switch (output) {
        case Output::scene:
            host::writeScene(*a.run.host, out, a.run.settings);
            break;
        case Output::preview_svg:
            app::writeSvg(app::makePreview(a.run.host->project(), a.outcome).drawing, out);
            break;
        case Output::preview_png:
            return app::paintPng(app::makePreview(a.run.host->project(), a.outcome).drawing).size();
        case Output::dialog_png:
            return app::renderPng(a.run.dialog_svg).size();
        case Output::page:
            app::writeHtmlPage(out, app::pageSceneData(a.run.before(), a.run.host->project(), a.outcome));
            break;
    }
    return buffer.bytes;
}

void BM_Output(benchmark::State& state, Output output, Placement placement) {
    SceneShape shape;
    shape.layers = static_cast<int>(state.range(0));
    shape.placement = placement;
    const Arranged a = arrange(shape);
    double cpu = 0;
    std::size_t bytes = 0;
    for (auto _ : state) {
        const double start = cpuSeconds();
        bytes = makeOutput(a, output);
        cpu += cpuSeconds() - start;
    }
    const double runs = static_cast<double>(state.iterations());
    state.counters["us_per_layer"] = cpu * 1e6 / runs / a.layers_after;
    state.counters["bytes_per_layer"] = static_cast<double>(bytes) / a.layers_after;
}

// The built tool writing a set of outputs: wall seconds (the Time column), CPU seconds, and the
// peak resident memory per layer.
void BM_OutputProcess(benchmark::State& state, std::vector<std::string> outputs, Placement placement) {
    SceneShape shape;
    shape.layers = static_cast<int>(state.range(0));
    shape.placement = placement;
    const SceneFile scene(shape);
    const std::string folder = "/tmp/orbisett-bench-" + std::to_string(getpid()) + "-";
    std::vector<std::string> arguments{scene.path(), "--quiet"};
    for (std::size_t i = 0; i + 1 < outputs.size(); i += 2) {
        arguments.push_back(outputs[i]);
        arguments.push_back(folder + outputs[i + 1]);
    }
    const ProcessRun last = timeToolProcess(state, arguments);
    for (std::size_t i = 1; i < outputs.size(); i += 2) {
        std::remove((folder + outputs[i]).c_str());
    }
    state.counters["rss_per_layer_B"] = static_cast<double>(last.peak_rss_kb) * 1024 / shape.layers;
}

struct Size {
    int layers;
    int runs;  // enough to average the noise of a shared machine, few enough for `make bench`
};

const Size kSizes[] = {{1000, 5}, {10000, 2}, {30000, 2}, {100000, 1}};
const std::pair<const char*, Placement> kPlacements[] = {{"steps", Placement::given_steps},
                                                         {"steps_far", Placement::given_steps_far},
                                                         {"evenly", Placement::evenly},
                                                         {"ring", Placement::ring}};

const bool registered = [] {
    const std::pair<const char*, Output> outputs[] = {{"scene", Output::scene},
                                                      {"preview_svg", Output::preview_svg},
                                                      {"preview_png", Output::preview_png},
                                                      {"dialog_png", Output::dialog_png},
                                                      {"page", Output::page}};
    for (const auto& [name, output] : outputs) {
        for (const auto& [mode, placement] : kPlacements) {
            for (const Size& size : kSizes) {
                benchmark::RegisterBenchmark((std::string("BM_Output/") + name + "/" + mode).c_str(), BM_Output, output,
                                             placement)
                    ->Arg(size.layers)
                    ->Iterations(size.runs)
                    ->Unit(benchmark::kMillisecond);
            }
        }
    }
    const std::pair<const char*, std::vector<std::string>> sets[] = {
        {"preview_svg", {"--preview", "p.svg"}},
        {"preview_png", {"--preview", "p.png"}},
        {"all", {"--out", "o.json", "--preview", "p.png", "--dialog", "d.png", "--html", "h.html"}}};
    for (const auto& [name, set] : sets) {
        for (const auto& [mode, placement] : kPlacements) {
            for (const Size& size : kSizes) {
                benchmark::RegisterBenchmark((std::string("BM_OutputProcess/") + name + "/" + mode).c_str(),
                                             BM_OutputProcess, set, placement)
                    ->Arg(size.layers)
                    ->Iterations(size.layers >= 30000 ? 1 : 2)
                    ->UseManualTime()
                    ->Unit(benchmark::kMillisecond);
            }
        }
    }
    return true;
}();

}  // namespace

}  // namespace bench
