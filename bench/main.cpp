// Runs every benchmark and prints the table, with each layout's time per layer set against the
// two lower bounds measured first.
#include "bench/bound_reporter.h"
#include "bench/lower_bound.h"

#include <benchmark/benchmark.h>

#include <cstdio>

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    const double bound = bench::lower_bound_ns_per_layer();
    const double arithmetic = bench::arithmetic_ns_per_layer();
    std::printf("Lower bound of a placement: %.2f ns per layer (x_bound = time per layer / this)\n", bound);
    std::printf("Arithmetic of an even placement: %.2f ns per layer (x_arith = time per layer / this)\n", arithmetic);
    bench::BoundReporter reporter(bound, arithmetic);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
