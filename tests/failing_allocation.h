// The program's own operator new, which a test can make fail once for the code of one shared
// object: the plug-in module loaded into the program allocates through it too. Allocations of the
// host and window-system stand-ins are never failed: their C functions cannot throw.
#pragma once

namespace failing_allocation {

// Counts the allocations made directly by the code of the shared object at `path` from now on;
// the one after the next `n` of them throws std::bad_alloc (n < 0: none does).
void watch(const char* path, long n = -1);
// Stops watching.
void stop();
// Allocations counted since `watch`, and whether the armed failure happened.
long count();
bool failed();

}  // namespace failing_allocation
