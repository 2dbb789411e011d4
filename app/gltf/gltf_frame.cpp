#include "app/gltf/gltf_frame.h"

#include "app/drawing/layer_turn.h"

#include <cmath>

namespace app {

namespace {

// The unit quaternion of a rotation matrix given by its columns, taking the largest of the four
// candidate terms for accuracy.
Quaternion quaternionOfColumns(const Vec3& c0, const Vec3& c1, const Vec3& c2) {
    const double m00 = c0.x, m11 = c1.y, m22 = c2.z;
    const double trace = m00 + m11 + m22;
    Quaternion q;
    if (trace > 0) {
        const double s = 2.0 * std::sqrt(1.0 + trace);
        q = {(c1.z - c2.y) / s, (c2.x - c0.z) / s, (c0.y - c1.x) / s, 0.25 * s};
    } else if (m00 > m11 && m00 > m22) {
        const double s = 2.0 * std::sqrt(1.0 + m00 - m11 - m22);
        q = {0.25 * s, (c1.x + c0.y) / s, (c2.x + c0.z) / s, (c1.z - c2.y) / s};
    } else if (m11 > m22) {
        const double s = 2.0 * std::sqrt(1.0 + m11 - m00 - m22);
        q = {(c1.x + c0.y) / s, 0.25 * s, (c2.y + c1.z) / s, (c2.x - c0.z) / s};
    } else {
        const double s = 2.0 * std::sqrt(1.0 + m22 - m00 - m11);
        q = {(c2.x + c0.z) / s, (c2.y + c1.z) / s, 0.25 * s, (c0.y - c1.x) / s};
    }
    const double n = std::sqrt(q.x * q.x + q.y * q.y + q.z * q.z + q.w * q.w);
    return {q.x / n, q.y / n, q.z / n, q.w / n};
}

}  // namespace

Vec3 gltfPoint(const Vec3& host) {
    return {host.x / kPixelsPerMetre, -host.y / kPixelsPerMetre, -host.z / kPixelsPerMetre};
}

Vec3 gltfScale(const Vec3& percent) { return (1.0 / 100.0) * percent; }

Quaternion gltfRotation(const Vec3& orientation, const Vec3& rotation) {
    return gltfRotationOfAxes(turnLayerPoint({1, 0, 0}, orientation, rotation),
                              turnLayerPoint({0, 1, 0}, orientation, rotation),
                              turnLayerPoint({0, 0, 1}, orientation, rotation));
}

Quaternion gltfRotationOfAxes(const Vec3& x_axis, const Vec3& y_axis, const Vec3& z_axis) {
    // With F the half turn about X, the glTF rotation is F R F: its columns are F R F e_x = F(R e_x),
    // F R F e_y = -F(R e_y) and F R F e_z = -F(R e_z), where F(x, y, z) = (x, -y, -z).
    const Vec3 c0{x_axis.x, -x_axis.y, -x_axis.z};
    const Vec3 c1{-y_axis.x, y_axis.y, y_axis.z};
    const Vec3 c2{-z_axis.x, z_axis.y, z_axis.z};
    return quaternionOfColumns(c0, c1, c2);
}

}  // namespace app
