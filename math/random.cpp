#include "math/random.h"

namespace math {

std::int32_t IY = 1;

namespace {
constexpr std::uint32_t kMultiplier = 843314861u;
constexpr std::uint32_t kIncrement = 453816693u;
constexpr std::uint32_t kLow31Bits = 0x7FFFFFFFu;
}  // namespace

void SetRand(std::int32_t seed) { IY = seed; }

std::int32_t LRand() {
    // Unsigned arithmetic wraps modulo 2^32, which 2^31 divides: keeping the low 31 bits gives the
    // exact residue for negative states too.
    const std::uint32_t next = (static_cast<std::uint32_t>(IY) * kMultiplier + kIncrement) & kLow31Bits;
    IY = static_cast<std::int32_t>(next);
    return IY;
}

}  // namespace math
