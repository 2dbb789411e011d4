// libFuzzer's entry for the target chosen at build time: a wrong result counts as a crash, so
// that libFuzzer keeps the input that caused it.
#include "fuzz_targets.h"

#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string wrong = fuzz::ORBISETT_FUZZ_TARGET(data, size);
    if (!wrong.empty()) {
        std::fprintf(stderr, "%s\n", wrong.c_str());
        std::abort();
    }
    return 0;
}
