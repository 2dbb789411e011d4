// The console table with one more column: how many times the lower bound per layer a run took.
// Runs that process layers say how many in their "layers" counter.
#pragma once

#include <benchmark/benchmark.h>

#include <vector>

namespace bench {

class BoundReporter : public benchmark::ConsoleReporter {
public:
    // Colours only on a terminal, so that a table sent to a file stays plain text.
    explicit BoundReporter(double bound_ns_per_layer);

    void ReportRuns(const std::vector<Run>& runs) override;

private:
    double bound_ns_;
};

// The counters of a run over n layers: the count itself and the time per layer.
void count_layers(benchmark::State& state, double n);

}  // namespace bench
