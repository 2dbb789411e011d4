// Three-component vector of the layout code. Between two vectors '*' is the cross product and '^'
// the angle; the dot product is the free function dot().
#pragma once

#include "math/acos.h"
#include "math/constants.h"

#include <cmath>
#include <limits>

namespace math {

template <typename T>
class TGeomVector3D {
public:
    T x;
    T y;
    T z;

    TGeomVector3D() : x(0), y(0), z(0) {}
    TGeomVector3D(T x_, T y_, T z_) : x(x_), y(y_), z(z_) {}

    // Lengths not above Constant_Almost_Zero (and NaN) count as exactly zero, so callers can test
    // for a degenerate direction with == 0.
    T Length() const {
        const T s = std::sqrt(x * x + y * y + z * z);
        return Constant_Almost_Zero < s ? s : T(0);
    }

    TGeomVector3D& operator/=(T d) {
        x /= d;
        y /= d;
        z /= d;
        return *this;
    }

    TGeomVector3D& operator*=(T d) {
        x *= d;
        y *= d;
        z *= d;
        return *this;
    }

    // A vector too short to have a direction becomes the zero vector rather than blowing up.
    void Normalize() {
        const T length = Length();
        if (length > Constant_Almost_Zero) {
            const T inverse = T(1) / length;
            x *= inverse;
            y *= inverse;
            z *= inverse;
        } else {
            x = y = z = T(0);
        }
    }

    TGeomVector3D operator*(const TGeomVector3D& b) const {
        return {y * b.z - b.y * z, z * b.x - b.z * x, x * b.y - b.x * y};
    }

    // Unsigned angle in [0, pi]; 0 when either vector is (nearly) zero.
    T operator^(const TGeomVector3D& b) const {
        // Below the smallest normal float the quotient would be meaningless.
        constexpr T tiny = T(std::numeric_limits<float>::min());
        const T d = std::sqrt((x * x + y * y + z * z) * (b.x * b.x + b.y * b.y + b.z * b.z));
        if (-tiny <= d && d <= tiny) {
            return T(0);
        }
        const T p = x * b.x + y * b.y + z * b.z;
        if (p * Constant_Almost_Zero > d) {
            return T(0);
        }
        return math::acos(p / d);
    }

    TGeomVector3D& operator+=(const TGeomVector3D& b) {
        x += b.x;
        y += b.y;
        z += b.z;
        return *this;
    }

    TGeomVector3D& operator-=(const TGeomVector3D& b) {
        x -= b.x;
        y -= b.y;
        z -= b.z;
        return *this;
    }

    TGeomVector3D operator-() const { return {-x, -y, -z}; }

    // Hidden friends: a scalar of another arithmetic type converts to T instead of failing deduction.
    friend TGeomVector3D operator+(TGeomVector3D a, const TGeomVector3D& b) { return a += b; }
    friend TGeomVector3D operator-(TGeomVector3D a, const TGeomVector3D& b) { return a -= b; }
    friend TGeomVector3D operator*(TGeomVector3D v, T d) { return v *= d; }
    friend TGeomVector3D operator*(T d, TGeomVector3D v) { return v *= d; }
    friend TGeomVector3D operator/(TGeomVector3D v, T d) { return v /= d; }

    friend bool operator==(const TGeomVector3D& a, const TGeomVector3D& b) {
        return a.x == b.x && a.y == b.y && a.z == b.z;
    }
    friend bool operator!=(const TGeomVector3D& a, const TGeomVector3D& b) { return !(a == b); }
};

template <typename T>
T dot(const TGeomVector3D<T>& a, const TGeomVector3D<T>& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

}  // namespace math
