#include "app/drawing/preview_frame.h"

#include <algorithm>
#include <numbers>
#include <unordered_set>

namespace app {

namespace {

constexpr int kOutlineSegments = 96;
// The composition's frame is taken into the framing when the layers keep at least this share of
// the size they have without it; beyond, it is cut at the scene's edge.
constexpr double kFrameShrink = 0.6;

std::vector<Vec3> ellipse(const Surface& s, double y) {
    std::vector<Vec3> ring;
    for (int i = 0; i <= kOutlineSegments; ++i) {
        const double a = 2 * std::numbers::pi * i / kOutlineSegments;
        ring.push_back({s.centre.x + s.half_x * std::sin(a), y, s.centre.z + s.half_z * std::cos(a)});
    }
    return ring;
}

// Whether the rim around host angle `a` (as `ellipse` draws it) lies in a half the sector
// admits; the layout measures its angles from the front (host -Z) toward +X.
bool admitted(const Surface& s, double a) {
    return !s.sector || controls::sectorAdmitsAngle(*s.sector, 180.0 - a * 180.0 / std::numbers::pi);
}

// A straight line as pieces, so that each is painted at its own depth.
void addLine(std::vector<std::pair<Vec3, Vec3>>& pieces, const Vec3& from, const Vec3& to) {
    constexpr int kLinePieces = 8;
    for (int i = 0; i < kLinePieces; ++i) {
        pieces.emplace_back(from + (static_cast<double>(i) / kLinePieces) * (to - from),
                            from + (static_cast<double>(i + 1) / kLinePieces) * (to - from));
    }
}

// The layers the run arranged and the surface where they are (a tall cylinder with a few rows at
// its foot would leave them tiny); the layers the command takes and the whole surface when none
// was arranged; the composition's frame when there is nothing else.
std::vector<Vec3> framedPoints(const std::vector<const PlacedLayer*>& layers, const RunOutcome& o,
                               const host::Comp& comp) {
    std::vector<Vec3> points;
    const std::unordered_set<host::Id> arranged(o.arranged.begin(), o.arranged.end());
    const std::unordered_set<host::Id> taken(o.taken.begin(), o.taken.end());
    const std::unordered_set<host::Id>& chosen = arranged.empty() ? taken : arranged;
    double low = o.surface.top, high = o.surface.bottom;  // host Y: low is up
    if (!arranged.empty()) {
        low = 1e300, high = -1e300;
    }
    for (const PlacedLayer* layer : layers) {
        if (chosen.contains(layer->id)) {
            for (const Vec3& c : layer->corners) {
                points.push_back(c);
                if (!arranged.empty()) {
                    low = std::min(low, c.y);
                    high = std::max(high, c.y);
                }
            }
        }
    }
    if (low > high) {  // no arranged layer could be drawn
        low = o.surface.top, high = o.surface.bottom;
    }
    if (o.surface.known) {
        for (const double y : {std::clamp(o.surface.top, low, high), std::clamp(o.surface.bottom, low, high)}) {
            const std::vector<Vec3> rim = ellipse(o.surface, y);
            points.insert(points.end(), rim.begin(), rim.end());
        }
    }
    if (points.empty()) {
        points = compFrame(comp);
    }
    return points;
}

// The camera looks at the middle of what it frames, on the surface's axis when there is one.
Vec3 frameTarget(const std::vector<Vec3>& points, const Surface& s) {
    Vec3 low = points.front(), high = points.front();
    for (const Vec3& p : points) {
        low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
    }
    const Vec3 middle = 0.5 * (low + high);
    return s.known ? Vec3{s.centre.x, middle.y, s.centre.z} : middle;
}

// The diagonal of the points' box on the picture.
double drawnSize(const View& view, const std::vector<Vec3>& points) {
    Point2 low{1e300, 1e300}, high{-1e300, -1e300};
    for (const Vec3& p : points) {
        const Point2 q = view(p);
        low = {std::min(low.x, q.x), std::min(low.y, q.y)};
        high = {std::max(high.x, q.x), std::max(high.y, q.y)};
    }
    return std::hypot(high.x - low.x, high.y - low.y);
}

}  // namespace

std::vector<Vec3> compFrame(const host::Comp& comp) {
    const double w = comp.width, h = comp.height;
    return {{0, 0, 0}, {w, 0, 0}, {w, h, 0}, {0, h, 0}};
}

std::vector<std::pair<Vec3, Vec3>> outlinePieces(const Surface& s) {
    std::vector<std::pair<Vec3, Vec3>> pieces;
    if (!s.known) {
        return pieces;
    }
    const std::vector<double> rims =
        s.top == s.bottom ? std::vector<double>{s.top} : std::vector<double>{s.top, s.bottom};
    const double step = 2 * std::numbers::pi / kOutlineSegments;
    for (const double y : rims) {
        const std::vector<Vec3> ring = ellipse(s, y);
        for (std::size_t i = 0; i + 1 < ring.size(); ++i) {
            if (admitted(s, step * (static_cast<double>(i) + 0.5))) {
                pieces.emplace_back(ring[i], ring[i + 1]);
            }
        }
    }
    const std::vector<Vec3> top_rim = ellipse(s, s.top);
    const std::vector<Vec3> bottom_rim = ellipse(s, s.bottom);
    for (std::size_t i = 0; s.sector && s.top != s.bottom && i + 1 < top_rim.size(); ++i) {
        const double a = step * static_cast<double>(i);
        if (admitted(s, a - 0.5 * step) != admitted(s, a + 0.5 * step)) {
            addLine(pieces, top_rim[i], bottom_rim[i]);
        }
    }
    if (s.top != s.bottom) {
        addLine(pieces, {s.centre.x, s.top, s.centre.z}, {s.centre.x, s.bottom, s.centre.z});
    }
    return pieces;
}

View previewView(const std::vector<const PlacedLayer*>& layers, const RunOutcome& outcome, const host::Comp& comp,
                 const Area& area) {
    const std::vector<Vec3> framed = framedPoints(layers, outcome, comp);
    const Vec3 target = frameTarget(framed, outcome.surface);
    const View view(framed, target, kElevation, area);
    const std::vector<Vec3> frame = compFrame(comp);
    const bool whole = std::all_of(frame.begin(), frame.end(),
                                   [&](const Vec3& c) { return view.inFront(c) && area.contains(view(c)); });
    if (whole) {
        return view;
    }
    std::vector<Vec3> with_frame = framed;
    with_frame.insert(with_frame.end(), frame.begin(), frame.end());
    const View wider(with_frame, target, kElevation, area);
    const bool frame_in_front =
        std::all_of(frame.begin(), frame.end(), [&](const Vec3& c) { return wider.inFront(c); });
    return frame_in_front && drawnSize(wider, framed) >= kFrameShrink * drawnSize(view, framed) ? wider : view;
}

}  // namespace app
