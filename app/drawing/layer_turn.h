// How the host turns a 3D layer. Host frame: X right, Y down, Z away from the viewer. A layer's
// visible face has the local normal (0, 0, -1): unrotated, it faces the viewer. Rotations are
// right-handed about the host axes and, for a triple of angles, applied X first, then Y, then Z
// (Rz·Ry·Rx). A layer's point is turned by its Orientation, then by its X, Y and Z Rotation.
#pragma once

#include "app/drawing/vec3.h"

namespace app {

// Turns p by the angles (degrees) about X, then Y, then Z.
Vec3 turnXYZ(const Vec3& p, const Vec3& degrees);

// Turns a point of the layer's own frame (anchor at the origin) into the composition's axes.
Vec3 turnLayerPoint(const Vec3& p, const Vec3& orientation, const Vec3& rotation);

// The direction the layer's visible face looks to.
inline Vec3 faceNormal(const Vec3& orientation, const Vec3& rotation) {
    return turnLayerPoint({0, 0, -1}, orientation, rotation);
}

}  // namespace app
