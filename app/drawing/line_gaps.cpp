#include "app/drawing/line_gaps.h"

#include <algorithm>
#include <cmath>

namespace app {

namespace {

// Where along the segment (0 at `a`, 1 at `b`) it runs inside the box: one clip per side.
bool insideSpan(Point2 a, Point2 b, const Box& box, double& t0, double& t1) {
    t0 = 0;
    t1 = 1;
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double p[] = {-dx, dx, -dy, dy};
    const double q[] = {a.x - box.left, box.right - a.x, a.y - box.top, box.bottom - a.y};
    for (int k = 0; k < 4; ++k) {
        if (p[k] == 0) {
            if (q[k] < 0) {
                return false;
            }
            continue;
        }
        const double t = q[k] / p[k];
        if (p[k] < 0) {
            t0 = std::max(t0, t);
        } else {
            t1 = std::min(t1, t);
        }
    }
    return t0 < t1;
}

}  // namespace

std::vector<Segment2> outsideBoxes(Point2 a, Point2 b, std::span<const Box> boxes, double margin) {
    std::vector<std::pair<double, double>> gaps;
    for (const Box& box : boxes) {
        double t0 = 0, t1 = 0;
        const Box grown{box.left - margin, box.top - margin, box.right + margin, box.bottom + margin};
        if (insideSpan(a, b, grown, t0, t1)) {
            gaps.emplace_back(t0, t1);
        }
    }
    std::sort(gaps.begin(), gaps.end());
    const double length = std::hypot(b.x - a.x, b.y - a.y);
    const auto at = [&](double t) { return Point2{a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)}; };
    std::vector<Segment2> parts;
    double from = 0;
    for (const auto& [t0, t1] : gaps) {
        if (t0 > from && (t0 - from) * length >= 1) {
            parts.emplace_back(at(from), at(t0));
        }
        from = std::max(from, t1);
    }
    if (from < 1 && (1 - from) * length >= 1) {
        parts.emplace_back(at(from), b);
    }
    return parts;
}

}  // namespace app
