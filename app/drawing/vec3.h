// Small vector arithmetic on the host's three-component values, for the preview.
#pragma once

#include "host/project.h"

#include <cmath>

namespace app {

using host::Vec3;

inline Vec3 operator+(const Vec3& a, const Vec3& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
inline Vec3 operator-(const Vec3& a, const Vec3& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
inline Vec3 operator*(double k, const Vec3& v) { return {k * v.x, k * v.y, k * v.z}; }
inline double dot(const Vec3& a, const Vec3& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline Vec3 cross(const Vec3& a, const Vec3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double length(const Vec3& v) { return std::sqrt(dot(v, v)); }
// The unit vector along v; v itself when it has no length.
inline Vec3 normalized(const Vec3& v) {
    const double n = length(v);
    return n > 0 ? (1.0 / n) * v : v;
}

}  // namespace app
