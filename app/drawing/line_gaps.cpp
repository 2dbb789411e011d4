#include "app/drawing/line_gaps.h"

#include "app/drawing/preview_view.h"

#include <algorithm>
#include <cmath>

namespace app {

std::vector<Segment2> outsideBoxes(Point2 a, Point2 b, std::span<const Box> boxes, double margin) {
    std::vector<std::pair<double, double>> gaps;
    for (const Box& box : boxes) {
        const Area grown{box.left - margin, box.top - margin, box.right + margin, box.bottom + margin};
        if (const auto span = spanInArea(a, b, grown); span && span->first < span->second) {
            gaps.push_back(*span);
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
