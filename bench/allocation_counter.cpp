#include "bench/allocation_counter.h"

#include <malloc.h>

#include <cstdlib>
#include <new>

namespace {

// One watch at a time, on one thread: the benchmarks run sequentially.
bool g_watching = false;
long long g_in_use = 0;  // relative to the start of the watch: blocks older than it may be freed
long long g_peak = 0;
std::size_t g_allocations = 0;
std::size_t g_bytes = 0;

void note_allocation(void* p) {
    if (!g_watching) {
        return;
    }
    const auto size = static_cast<long long>(malloc_usable_size(p));
    ++g_allocations;
    g_bytes += static_cast<std::size_t>(size);
    g_in_use += size;
    if (g_in_use > g_peak) {
        g_peak = g_in_use;
    }
}

void note_release(void* p) {
    if (g_watching && p != nullptr) {
        g_in_use -= static_cast<long long>(malloc_usable_size(p));
    }
}

void* allocate(std::size_t size) {
    void* p = std::malloc(size == 0 ? 1 : size);
    if (p == nullptr) {
        throw std::bad_alloc();
    }
    note_allocation(p);
    return p;
}

void* allocate_aligned(std::size_t size, std::align_val_t alignment) {
    const auto a = static_cast<std::size_t>(alignment);
    // aligned_alloc wants a size that is a multiple of the alignment.
    const std::size_t rounded = ((size == 0 ? 1 : size) + a - 1) / a * a;
    void* p = std::aligned_alloc(a, rounded);
    if (p == nullptr) {
        throw std::bad_alloc();
    }
    note_allocation(p);
    return p;
}

void release(void* p) noexcept {
    note_release(p);
    std::free(p);
}

}  // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return allocate(size);
    } catch (...) {
        return nullptr;
    }
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return allocate(size);
    } catch (...) {
        return nullptr;
    }
}
void* operator new(std::size_t size, std::align_val_t a) { return allocate_aligned(size, a); }
void* operator new[](std::size_t size, std::align_val_t a) { return allocate_aligned(size, a); }

void operator delete(void* p) noexcept { release(p); }
void operator delete[](void* p) noexcept { release(p); }
void operator delete(void* p, std::size_t) noexcept { release(p); }
void operator delete[](void* p, std::size_t) noexcept { release(p); }
void operator delete(void* p, const std::nothrow_t&) noexcept { release(p); }
void operator delete[](void* p, const std::nothrow_t&) noexcept { release(p); }
void operator delete(void* p, std::align_val_t) noexcept { release(p); }
void operator delete[](void* p, std::align_val_t) noexcept { release(p); }
void operator delete(void* p, std::size_t, std::align_val_t) noexcept { release(p); }
void operator delete[](void* p, std::size_t, std::align_val_t) noexcept { release(p); }

namespace bench {

AllocationWatch::AllocationWatch() {
    g_in_use = 0;
    g_peak = 0;
    g_allocations = 0;
    g_bytes = 0;
    g_watching = true;
}

AllocationWatch::~AllocationWatch() { g_watching = false; }

AllocationStats AllocationWatch::stats() const {
    return AllocationStats{g_allocations, g_bytes, static_cast<std::size_t>(g_peak)};
}

void report_allocations(benchmark::State& state, const AllocationStats& stats, int n) {
    state.counters["peak_bytes"] = static_cast<double>(stats.peak_bytes);
    state.counters["peak_per_layer"] = static_cast<double>(stats.peak_bytes) / n;
    state.counters["bytes"] = static_cast<double>(stats.bytes);
    state.counters["allocations"] = static_cast<double>(stats.allocations);
}

}  // namespace bench
