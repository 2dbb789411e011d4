// A deliberate second copy of the arithmetic of "Distribute Evenly", written out again rather
// than shared with the layout: the benchmarks set the layout's time against it, and
// tests/bench_equivalence_test.cpp checks that both give the same values bit for bit, which it can
// only do while they are two separate pieces of code.
#include "bench/placement_arithmetic.h"

#include <cmath>
#include <limits>

namespace bench {

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kHalfPi = 1.5707963267948966;
constexpr double kTwoPi = 6.283185307179586;
constexpr double kEps = 1e-12;         // the layout's degenerate length and radius
constexpr double kAlmostZero = 1e-12;  // below this a vector has no direction
constexpr double kTiny = std::numeric_limits<float>::min();

struct V {
    double x, y, z;
};

// Each operation in the association order the layout's vector and matrix code uses.
V cross(V a, V b) { return {a.y * b.z - b.y * a.z, a.z * b.x - b.z * a.x, a.x * b.y - b.x * a.y}; }
double dot(V a, V b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
V scaled(V v, double d) { return {v.x * d, v.y * d, v.z * d}; }
V plus(V a, V b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
V minus(V a, V b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }

double length(V v) {
    const double s = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
    return kAlmostZero < s ? s : 0.0;
}

V normalized(V v, double len) {
    if (len > kAlmostZero) {
        return scaled(v, 1.0 / len);
    }
    return {0, 0, 0};
}

double clamped_acos(double x) { return x <= -1.0 ? kPi : (x >= 1.0 ? 0.0 : std::acos(x)); }

double angle(V a, V b) {
    const double d = std::sqrt((a.x * a.x + a.y * a.y + a.z * a.z) * (b.x * b.x + b.y * b.y + b.z * b.z));
    if (-kTiny <= d && d <= kTiny) {
        return 0;
    }
    const double p = a.x * b.x + a.y * b.y + a.z * b.z;
    if (p * kAlmostZero > d) {
        return 0;
    }
    return clamped_acos(p / d);
}

double signed_angle(V u, V v, V s, V t) {
    const double a = angle(u, v);
    return dot(s, t) > 0 ? a : -a;
}

// The rotation's 3 x 3 block, row-major.
struct Turn {
    double e[9];
};

Turn turn(V axis, double by) {
    const double sn = std::sin(by);
    const double cs = std::cos(by);
    const double t = 1.0 - cs;
    const double len = length(axis);
    const V u = len != 0 ? normalized(axis, len) : V{0, 0, 0};
    const double x = u.x, y = u.y, z = u.z;
    return {{t * x * x + cs, t * x * y - sn * z, t * x * z + sn * y,  //
             t * x * y + sn * z, t * y * y + cs, t * y * z - sn * x,  //
             t * x * z - sn * y, t * y * z + sn * x, t * z * z + cs}};
}

// An exact identity leaves the vector as it is (a -0 stays -0); anything else is applied with
// its zero translation added, as a rigid or general transform is.
V apply(const Turn& m, V p) {
    const double* e = m.e;
    if (e[0] == 1 && e[4] == 1 && e[8] == 1 && e[1] == 0 && e[2] == 0 && e[3] == 0 && e[5] == 0 && e[6] == 0 &&
        e[7] == 0) {
        return p;
    }
    return {e[0] * p.x + e[1] * p.y + e[2] * p.z + 0.0, e[3] * p.x + e[4] * p.y + e[5] * p.z + 0.0,
            e[6] * p.x + e[7] * p.y + e[8] * p.z + 0.0};
}

// Angle and height of a point, as the cylinder coordinates give them.
void cylinder_angle_height(V p, double& phi, double& h) {
    const double r = std::sqrt(p.x * p.x + p.z * p.z);
    if (kEps > r) {
        phi = 0;
        h = 0;
        return;
    }
    phi = clamped_acos(p.z / r);
    if (p.x < 0) {
        phi = kTwoPi - phi;
    }
    h = p.y;
}

V outward_normal(V p, double a, double b) {
    const V side = p.x > 0 ? V{1, 0, 0} : V{-1, 0, 0};
    if (std::fabs(p.z) < kEps) {
        return side;
    }
    const double q = 1 - p.x * p.x / (a * a);
    if (!(q > 0)) {
        return side;
    }
    const double m = (1 / std::sqrt(q)) * (p.x * (-b)) / (a * a);
    const double s = p.z > 0 ? 1 : -1;
    const V n = cross(V{0, -1, 0}, V{s, 0, m});
    return normalized(n, length(n));
}

AEGP_ThreeDVal orientation(V n, bool inward) {
    const V A{0, 0, 1};
    const V B{1, 0, 0};
    double phi = 0;
    double unused = 0;
    cylinder_angle_height(n, phi, unused);
    const V T{std::cos(phi), 0, -std::sin(phi)};
    const V U = cross(n, T);
    const V Vn = cross(n, B);
    double x = 0;
    double y = 0;
    double z = 0;
    if (length(Vn) < kEps) {
        y = signed_angle(T, B, cross(T, B), U);
    } else {
        V W = cross(Vn, n);
        W = normalized(W, length(W));
        z = signed_angle(T, W, cross(T, W), n);
        const V U1 = apply(turn(n, z), U);
        y = signed_angle(B, W, cross(W, B), U1);
        x = angle(A, apply(turn(U1, y), n));
    }
    AEGP_ThreeDVal out{-x * 180 / kPi, y * 180 / kPi, z * 180 / kPi};
    if (inward) {
        out.y += 180;
    }
    return out;
}

SolidAngle footprint(V p, const A_LPoint& size, const Turn& quarter) {
    V t{p.x, 0, p.z};
    if (length(t) > kEps) {
        t = apply(quarter, t);
        t = normalized(t, length(t));
    }
    const V along = scaled(t, 0.5 * size.x);
    const V up = scaled(V{0, 1, 0}, 0.5 * size.y);
    SolidAngle band{};
    double unused = 0;
    cylinder_angle_height(plus(minus(p, along), up), band.phi_begin, band.h_high);
    cylinder_angle_height(minus(minus(p, along), up), unused, band.h_low);
    cylinder_angle_height(plus(plus(p, along), up), band.phi_end, unused);
    return band;
}

}  // namespace

void place_evenly(const EvenlySettings& settings, const std::vector<A_LPoint>& sizes, std::vector<Placed>& out) {
    out.resize(sizes.size());
    const int n = static_cast<int>(sizes.size());
    if (n == 0) {
        return;
    }
    const double a = static_cast<double>(settings.dim_x * 0.5f);
    const double b = static_cast<double>(settings.dim_z * 0.5f);
    const double cx = settings.centre_x;
    const double cy = settings.centre_y;
    const double cz = settings.centre_z;
    const Turn quarter = turn(V{0, 1, 0}, kHalfPi);
    const int rows = static_cast<int>(std::sqrt(static_cast<double>(n)));
    const int base = n / rows;
    const int rem = n - rows * base;
    const float dz = rows > 1 ? settings.dim_y / static_cast<float>(rows - 1) : 0.0f;
    std::size_t k = 0;
    for (int i = 0; i < rows; ++i) {
        const int count = i < rem ? base + 1 : base;
        const double h = static_cast<double>(settings.dim_y) * -0.5 + i * static_cast<double>(dz);
        const double dphi = count > 1 ? kTwoPi / count : 0.0;
        for (int j = 0; j < count; ++j, ++k) {
            const double phi = settings.phi0 + j * dphi;
            const double sn = std::sin(phi);
            const double cs = std::cos(phi);
            const double r = std::sqrt(1 / (sn * sn / (a * a) + cs * cs / (b * b)));
            const V p{sn * r, h, cs * r};
            Placed& placed = out[k];
            placed.orientation = orientation(outward_normal(p, a, b), settings.inward);
            placed.position = AEGP_ThreeDVal{cx + p.x, -cy - p.y, -cz - p.z};
            placed.footprint = footprint(p, sizes[k], quarter);
        }
    }
}

}  // namespace bench
