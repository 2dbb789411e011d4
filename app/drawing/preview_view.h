// How the preview looks at the scene: a camera raised above what it frames, and the mapping of
// the camera's image onto the picture, fitted to the points it must show.
#pragma once

#include "app/drawing/drawing.h"
#include "app/drawing/vec3.h"

#include <optional>
#include <utility>
#include <vector>

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

struct Area {
    double left = 0, top = 0, right = 0, bottom = 0;
    bool contains(Point2 p) const { return p.x >= left && p.x <= right && p.y >= top && p.y <= bottom; }
    // The area grown by `k` times its size on every side.
    Area grown(double k) const;
};

class View {
public:
    // A camera raised `elevation` degrees above `target`, far enough back that all of `framed`
    // lies in front of it, and its image of `framed` fitted into `area`, keeping proportions.
    View(const std::vector<Vec3>& framed, const Vec3& target, double elevation, const Area& area);

    const Camera& camera() const { return camera_; }
    double depth(const Vec3& p) const { return project(camera_, p).depth; }
    // Beyond the near plane, where projecting keeps its meaning.
    bool inFront(const Vec3& p) const { return depth(p) > near_; }
    Point2 operator()(const Vec3& p) const;
    // The part of a segment beyond the near plane; nothing when the whole segment is behind it.
    std::optional<std::pair<Vec3, Vec3>> clipNear(const Vec3& a, const Vec3& b) const;

private:
    Camera camera_;
    double near_ = 0;
    double scale_ = 1, offset_x_ = 0, offset_y_ = 0;
};

// Where the segment a + t (b - a), t in [0, 1], runs inside `area`: the span of t, perhaps a single
// point; nothing when it misses it.
std::optional<std::pair<double, double>> spanInArea(Point2 a, Point2 b, const Area& area);

// The part of a segment inside `area`; nothing when it misses it.
std::optional<std::pair<Point2, Point2>> clipToArea(Point2 a, Point2 b, const Area& area);

}  // namespace app
