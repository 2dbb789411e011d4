#include "bench/lower_bound.h"

#include "bench/placement_arithmetic.h"
#include "math/constants.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <ctime>

namespace bench {

void lower_bound_layout(std::vector<AEGP_ThreeDVal>& out, double a, double b, double h) {
    const double dphi = math::Constant_2PI / static_cast<double>(out.size());
    const double ia2 = 1 / (a * a);
    const double ib2 = 1 / (b * b);
    for (std::size_t i = 0; i < out.size(); ++i) {
        const double phi = dphi * static_cast<double>(i);
        const double s = std::sin(phi);
        const double c = std::cos(phi);
        const double k = std::sqrt(1 / (s * s * ia2 + c * c * ib2));
        const double x = s * k;
        const double z = c * k;
        // The outward normal of the ellipse, which the orientation is computed from.
        double nx = x * ia2;
        double nz = z * ib2;
        const double inv = 1 / std::sqrt(nx * nx + nz * nz);
        nx *= inv;
        nz *= inv;
        benchmark::DoNotOptimize(nx);
        benchmark::DoNotOptimize(nz);
        out[i] = AEGP_ThreeDVal{x, h, z};
    }
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
}

namespace {

double thread_cpu_ns() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) * 1e9 + static_cast<double>(t.tv_nsec);
}

// The best of several timed samples of CPU time, per layer, after one run to warm the caches.
template <typename Run>
double best_ns_per_layer(Run run, int layers) {
    constexpr int kRunsPerSample = 20;
    constexpr int kSamples = 15;
    run();
    double best = 1e300;
    for (int sample = 0; sample < kSamples; ++sample) {
        const double start = thread_cpu_ns();
        for (int i = 0; i < kRunsPerSample; ++i) {
            run();
        }
        best = std::min(best, (thread_cpu_ns() - start) / (kRunsPerSample * static_cast<double>(layers)));
    }
    return best;
}

}  // namespace

double lower_bound_ns_per_layer() {
    constexpr int kLayers = 10000;
    static std::vector<AEGP_ThreeDVal> out(kLayers);
    static const double ns = best_ns_per_layer([] { lower_bound_layout(out, 500, 400, -1000); }, kLayers);
    return ns;
}

double arithmetic_ns_per_layer() {
    constexpr int kLayers = 10000;
    static const std::vector<A_LPoint> sizes(kLayers, A_LPoint{100, 80});
    static std::vector<Placed> out;
    static const double ns = best_ns_per_layer(
        [] {
            place_evenly(EvenlySettings{}, sizes, out);
            benchmark::DoNotOptimize(out.data());
            benchmark::ClobberMemory();
        },
        kLayers);
    return ns;
}

}  // namespace bench
