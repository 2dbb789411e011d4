#include "app/preview_camera.h"

#include <numbers>

namespace app {

Camera cameraLookingAt(const Vec3& eye, const Vec3& target) {
    Camera camera;
    camera.eye = eye;
    camera.forward = normalized(target - eye);
    // Y points down in the host frame; right = down x forward keeps screen X to the right.
    camera.right = normalized(cross({0, 1, 0}, camera.forward));
    camera.down = cross(camera.forward, camera.right);
    return camera;
}

Camera raisedCamera(const Vec3& centre, double radius, double elevation) {
    const double a = elevation * std::numbers::pi / 180.0;
    // Up is -Y and the viewer's side is -Z.
    const Vec3 back_and_up{0, -std::sin(a), -std::cos(a)};
    const double distance = 2.6 * radius;
    return cameraLookingAt(centre + distance * back_and_up, centre);
}

Projected project(const Camera& camera, const Vec3& point) {
    const Vec3 d = point - camera.eye;
    const double depth = dot(d, camera.forward);
    // Points at or behind the eye do not occur for the cameras made here; keep them finite anyway.
    const double w = depth > 1e-9 ? depth : 1e-9;
    return {dot(d, camera.right) / w, dot(d, camera.down) / w, depth};
}

}  // namespace app
