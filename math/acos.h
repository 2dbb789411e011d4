// Arc cosine that tolerates arguments pushed just outside [-1, 1] by rounding.
#pragma once

#include "math/constants.h"

#include <cmath>

namespace math {

// A normalised dot product can come out a few ulps beyond +-1; the standard function would give NaN.
inline double acos(double x) {
    if (x <= -1.0) {
        return Constant_PI;
    }
    if (x >= 1.0) {
        return 0.0;
    }
    return std::acos(x);
}

}  // namespace math
