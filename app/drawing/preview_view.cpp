#include "app/drawing/preview_view.h"

#include <algorithm>
#include <limits>
#include <numbers>

namespace app {

namespace {

// The near plane sits at this share of the framed radius: nearer points would blow up.
constexpr double kNearShare = 0.05;

}  // namespace

Area Area::grown(double k) const {
    const double dx = k * (right - left);
    const double dy = k * (bottom - top);
    return {left - dx, top - dy, right + dx, bottom + dy};
}

View::View(const std::vector<Vec3>& framed, const Vec3& target, double elevation, const Area& area) {
    double radius = 1;
    for (const Vec3& p : framed) {
        radius = std::max(radius, length(p - target));
    }
    camera_ = raisedCamera(target, radius, elevation);
    near_ = kNearShare * radius;

    double min_x = std::numeric_limits<double>::max(), min_y = min_x;
    double max_x = std::numeric_limits<double>::lowest(), max_y = max_x;
    for (const Vec3& p : framed) {
        const Projected q = project(camera_, p);
        min_x = std::min(min_x, q.x);
        max_x = std::max(max_x, q.x);
        min_y = std::min(min_y, q.y);
        max_y = std::max(max_y, q.y);
    }
    if (framed.empty()) {
        min_x = min_y = -1;
        max_x = max_y = 1;
    }
    const double room_x = area.right - area.left;
    const double room_y = area.bottom - area.top;
    scale_ = std::min(room_x / std::max(max_x - min_x, 1e-9), room_y / std::max(max_y - min_y, 1e-9));
    offset_x_ = area.left + 0.5 * (room_x - scale_ * (max_x - min_x)) - scale_ * min_x;
    offset_y_ = area.top + 0.5 * (room_y - scale_ * (max_y - min_y)) - scale_ * min_y;
}

Point2 View::operator()(const Vec3& p) const {
    const Projected q = project(camera_, p);
    return {offset_x_ + scale_ * q.x, offset_y_ + scale_ * q.y};
}

std::optional<std::pair<Vec3, Vec3>> View::clipNear(const Vec3& a, const Vec3& b) const {
    const double da = depth(a) - near_;
    const double db = depth(b) - near_;
    if (da <= 0 && db <= 0) {
        return std::nullopt;
    }
    if (da > 0 && db > 0) {
        return std::pair{a, b};
    }
    const Vec3 cut = a + (da / (da - db)) * (b - a);
    return da > 0 ? std::pair{a, cut} : std::pair{cut, b};
}

std::optional<std::pair<double, double>> spanInArea(Point2 a, Point2 b, const Area& area) {
    // Liang and Barsky: the segment cut by each side in turn.
    double t0 = 0, t1 = 1;
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {a.x - area.left, area.right - a.x, a.y - area.top, area.bottom - a.y};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0) {
            if (q[i] < 0) {
                return std::nullopt;
            }
            continue;
        }
        const double t = q[i] / p[i];
        if (p[i] < 0) {
            t0 = std::max(t0, t);
        } else {
            t1 = std::min(t1, t);
        }
        if (t0 > t1) {
            return std::nullopt;
        }
    }
    return std::pair{t0, t1};
}

std::optional<std::pair<Point2, Point2>> clipToArea(Point2 a, Point2 b, const Area& area) {
    const auto span = spanInArea(a, b, area);
    if (!span) {
        return std::nullopt;
    }
    const double dx = b.x - a.x, dy = b.y - a.y;
    return std::pair{Point2{a.x + span->first * dx, a.y + span->first * dy},
                     Point2{a.x + span->second * dx, a.y + span->second * dy}};
}

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
