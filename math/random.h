// The process-wide pseudo-random generator: a linear congruential generator modulo 2^31.
#pragma once

#include <cstdint>

namespace math {

// Generator state; 1 until the first seeding.
extern std::int32_t IY;

// Any seed is accepted; seeds that differ by a multiple of 2^31 give the same sequence.
void SetRand(std::int32_t seed);

// Advances the state and returns it, always in [0, 2147483647].
std::int32_t LRand();

}  // namespace math
