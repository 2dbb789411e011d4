// The console table with two more columns: how many times the lower bound per layer a run took,
// and how many times the arithmetic an even placement must do. Runs that process layers say how
// many in their "layers" counter.
#pragma once

#include <benchmark/benchmark.h>

#include <vector>

namespace bench {

class BoundReporter : public benchmark::ConsoleReporter {
public:
    // Colours only on a terminal, so that a table sent to a file stays plain text.
    BoundReporter(double bound_ns_per_layer, double arithmetic_ns_per_layer);

    void ReportRuns(const std::vector<Run>& runs) override;

private:
    double bound_ns_;
    double arithmetic_ns_;
};

// The counters of a run over n layers: the count itself and the time per layer.
void count_layers(benchmark::State& state, double n);

}  // namespace bench
