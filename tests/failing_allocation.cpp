#include "failing_allocation.h"

#include <dlfcn.h>

#include <cstdlib>
#include <cstring>
#include <new>

namespace {

const char* g_path = nullptr;  // the shared object watched, or null
long g_left = -1;              // its allocations let through before the failure; negative: no failure
long g_count = 0;
bool g_failed = false;

bool watched(const void* caller) {
    Dl_info info{};
    return g_path != nullptr && dladdr(caller, &info) != 0 && info.dli_fname != nullptr &&
           std::strcmp(info.dli_fname, g_path) == 0;
}

void* allocate(std::size_t size, const void* caller) {
    if (g_path != nullptr && watched(caller)) {
        ++g_count;
        if (g_left == 0) {
            g_left = -1;
            g_failed = true;
            throw std::bad_alloc();
        }
        if (g_left > 0) {
            --g_left;
        }
    }
    if (void* p = std::malloc(size == 0 ? 1 : size)) {
        return p;
    }
    throw std::bad_alloc();
}

}  // namespace

namespace failing_allocation {

void watch(const char* path, long n) {
    g_path = path;
    g_left = n;
    g_count = 0;
    g_failed = false;
}

void stop() { g_path = nullptr; }
long count() { return g_count; }
bool failed() { return g_failed; }

}  // namespace failing_allocation

void* operator new(std::size_t size) { return allocate(size, __builtin_return_address(0)); }
void* operator new[](std::size_t size) { return allocate(size, __builtin_return_address(0)); }
// The forms that cannot throw are never failed; they pair with the deletes below.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return std::malloc(size == 0 ? 1 : size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return std::malloc(size == 0 ? 1 : size); }
void operator delete(void* p) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t) noexcept { std::free(p); }
void operator delete(void* p, const std::nothrow_t&) noexcept { std::free(p); }
void operator delete[](void* p, const std::nothrow_t&) noexcept { std::free(p); }
