// Counts what operator new hands out while a watch is running. The benchmark program replaces the
// global operator new and delete, and the module loaded into the host resolves them to the same
// replacement, so the plug-in's allocations count as well as the host's.
#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>

namespace bench {

struct AllocationStats {
    std::size_t allocations = 0;
    std::size_t bytes = 0;       // all bytes handed out
    std::size_t peak_bytes = 0;  // highest growth of the bytes in use over the start
};

class AllocationWatch {
public:
    AllocationWatch();
    ~AllocationWatch();
    AllocationWatch(const AllocationWatch&) = delete;
    AllocationWatch& operator=(const AllocationWatch&) = delete;

    AllocationStats stats() const;
};

// The counters of one watched run over n layers.
void report_allocations(benchmark::State& state, const AllocationStats& stats, int n);

}  // namespace bench
