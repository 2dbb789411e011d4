// Whole pixel counts from products that can leave the integer range: a layer scaled to 1e308 %
// must not turn into a negative width, which a plain conversion (undefined there) would give.
#pragma once

#include <cmath>
#include <limits>

namespace math {

// Truncated toward zero and held within Int's range; NaN gives 0.
template <class Int>
Int saturate(double x) {
    if (std::isnan(x)) {
        return 0;
    }
    constexpr Int lowest = std::numeric_limits<Int>::min();
    constexpr Int highest = std::numeric_limits<Int>::max();
    if (x <= static_cast<double>(lowest)) {
        return lowest;
    }
    if (x >= static_cast<double>(highest)) {
        return highest;
    }
    return static_cast<Int>(x);
}

}  // namespace math
