#include "bench/bound_reporter.h"

#include <unistd.h>

#include <cstdio>

namespace bench {

namespace {

constexpr const char* kLayers = "layers";
constexpr const char* kTimes = "x_bound";
constexpr const char* kTimesArithmetic = "x_arith";

// Spread measures of a set of repetitions say nothing about the ratio.
bool is_spread(const benchmark::BenchmarkReporter::Run& run) {
    return run.run_type == benchmark::BenchmarkReporter::Run::RT_Aggregate && run.aggregate_name != "mean" &&
           run.aggregate_name != "median";
}

}  // namespace

BoundReporter::BoundReporter(double bound_ns_per_layer, double arithmetic_ns_per_layer)
    : ConsoleReporter(isatty(fileno(stdout)) != 0 ? OO_ColorTabular : OO_Tabular),
      bound_ns_(bound_ns_per_layer),
      arithmetic_ns_(arithmetic_ns_per_layer) {}

void BoundReporter::ReportRuns(const std::vector<Run>& runs) {
    std::vector<Run> out = runs;
    for (Run& run : out) {
        const auto layers = run.counters.find(kLayers);
        if (layers == run.counters.end() || layers->second.value <= 0 || is_spread(run) || run.error_occurred) {
            continue;
        }
        const double seconds = run.GetAdjustedCPUTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
        const double ns_per_layer = seconds * 1e9 / layers->second.value;
        run.counters[kTimes] = benchmark::Counter(ns_per_layer / bound_ns_);
        run.counters[kTimesArithmetic] = benchmark::Counter(ns_per_layer / arithmetic_ns_);
    }
    ConsoleReporter::ReportRuns(out);
}

void count_layers(benchmark::State& state, double n) {
    state.counters[kLayers] = n;
    state.counters["per_layer"] =
        benchmark::Counter(n, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

}  // namespace bench
