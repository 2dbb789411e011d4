// A perspective camera in the host frame (X right, Y down, Z away): screen X right, screen Y down.
#pragma once

#include "app/vec3.h"

namespace app {

struct Camera {
    Vec3 eye;
    Vec3 right, down, forward;  // unit axes of the camera
};

// A camera at `eye` looking at `target`, kept level (its right axis horizontal).
Camera cameraLookingAt(const Vec3& eye, const Vec3& target);

// A camera raised above `centre` and pulled back toward the viewer, far enough that a sphere of
// `radius` around the centre lies in front of it; `elevation` in degrees.
Camera raisedCamera(const Vec3& centre, double radius, double elevation);

struct Projected {
    double x = 0, y = 0;  // on the image plane at distance 1
    double depth = 0;     // along the camera's forward axis
};

Projected project(const Camera& camera, const Vec3& point);

}  // namespace app
