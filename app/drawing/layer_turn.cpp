#include "app/drawing/layer_turn.h"

#include <numbers>

namespace app {

namespace {

double radians(double degrees) { return degrees * std::numbers::pi / 180.0; }

Vec3 turnX(const Vec3& p, double a) {
    const double c = std::cos(a), s = std::sin(a);
    return {p.x, p.y * c - p.z * s, p.y * s + p.z * c};
}

Vec3 turnY(const Vec3& p, double a) {
    const double c = std::cos(a), s = std::sin(a);
    return {p.x * c + p.z * s, p.y, -p.x * s + p.z * c};
}

Vec3 turnZ(const Vec3& p, double a) {
    const double c = std::cos(a), s = std::sin(a);
    return {p.x * c - p.y * s, p.x * s + p.y * c, p.z};
}

}  // namespace

Vec3 turnXYZ(const Vec3& p, const Vec3& degrees) {
    return turnZ(turnY(turnX(p, radians(degrees.x)), radians(degrees.y)), radians(degrees.z));
}

Vec3 turnLayerPoint(const Vec3& p, const Vec3& orientation, const Vec3& rotation) {
    return turnXYZ(turnXYZ(p, orientation), rotation);
}

}  // namespace app
