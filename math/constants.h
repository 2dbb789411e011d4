// Named constants shared by the geometry and the layout code.
#pragma once

namespace math {

inline constexpr double Constant_PI = 3.141592653589793;
inline constexpr double Constant_Half_PI = 1.5707963267948966;
inline constexpr double Constant_2PI = 6.283185307179586;

// Lengths at or below this count as zero.
inline constexpr double Constant_Almost_Zero = 1e-12;

// Far enough from any composition to mean "no place".
inline constexpr double Constant_Nowhere = 1e20;

}  // namespace math
