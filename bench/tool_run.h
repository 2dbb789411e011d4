// The command-line tool's run taken apart: the same library calls orbisett-host makes, one phase at
// a time, each timed in CPU seconds; and the built tool run as a process of its own, for its wall
// time, its CPU time and its peak resident memory.
#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace bench {

struct ToolPhases {
    double read = 0;     // the scene file read into a project
    double start = 0;    // the host made, the scene applied, the module loaded and started
    double dialog = 0;   // the menu command, idle, the controls set as a user would
    double apply = 0;    // "Apply" pressed and idle after it
    double close = 0;    // the controls read back, the dialog's picture, the module unloaded
    double write = 0;    // the scene written to its file
    double report = 0;   // the table of layers printed after a run
    double preview = 0;  // the perspective picture
    int layers_after = 0;

    double total_without_preview() const { return read + start + dialog + apply + close + write + report; }
};

// One run over the scene at `scene_path`, writing the scene to `out_path`.
ToolPhases runToolPhases(const std::string& scene_path, const std::string& out_path);

struct ProcessRun {
    int status = -1;
    double wall = 0;        // seconds
    double cpu = 0;         // user and system seconds
    long peak_rss_kb = -1;  // the tool's high-water mark of resident memory; -1 when unknown
};

// Runs the built tool with these arguments, its standard output and error sent to /dev/null.
ProcessRun runToolProcess(const std::vector<std::string>& arguments);

// Runs the tool once per iteration of the benchmark, timed by its wall time, and sets the
// counters "cpu_s" (per run) and "peak_rss_MB"; a run that fails ends the benchmark with an
// error. The last run.
ProcessRun timeToolProcess(benchmark::State& state, const std::vector<std::string>& arguments);

}  // namespace bench
