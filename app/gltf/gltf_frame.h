// The host's frame in glTF's. The host: X right, Y down, Z away from the viewer, in pixels. glTF:
// Y up and right-handed, so with X right Z comes toward the viewer; in metres. One is the other
// turned half a turn about X and scaled: glTF (x, y, z) = (X, -Y, -Z) / kPixelsPerMetre. A layer's
// own frame is converted the same way, so its visible face, which looks along host -Z, looks
// along glTF +Z, the way a glTF asset's front faces.
#pragma once

#include "app/drawing/vec3.h"

namespace app {

inline constexpr double kPixelsPerMetre = 100.0;

// A unit quaternion in glTF's order.
struct Quaternion {
    double x = 0, y = 0, z = 0, w = 1;
    friend bool operator==(const Quaternion&, const Quaternion&) = default;
};

// A point or offset of the host's frame in glTF's.
Vec3 gltfPoint(const Vec3& host);

// A layer's Scale (percent) as a node's scale.
Vec3 gltfScale(const Vec3& percent);

// A layer's turn (its Orientation, then its X, Y and Z Rotation, in degrees) as a node's rotation.
Quaternion gltfRotation(const Vec3& orientation, const Vec3& rotation);

// The rotation that takes the host's X, Y and Z axes to `x_axis`, `y_axis` and `z_axis` (unit and
// at right angles, in the host's frame), as a node's rotation.
Quaternion gltfRotationOfAxes(const Vec3& x_axis, const Vec3& y_axis, const Vec3& z_axis);

}  // namespace app
