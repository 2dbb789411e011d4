#include "app/drawing/preview_label.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace app {

namespace {

// A sans-serif letter is about this wide per pixel of size, on average; a little more, so that a
// name judged to fit does fit.
constexpr double kLetterWidth = 0.62;

std::size_t letters(std::string_view text) {
    std::size_t n = 0;
    for (const char c : text) {
        n += (static_cast<unsigned char>(c) & 0xC0) != 0x80;  // UTF-8 continuation bytes add none
    }
    return n;
}

double side(Point2 a, Point2 b, Point2 p) { return (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x); }

bool inside(const std::vector<Point2>& face, Point2 p) {
    bool any_positive = false, any_negative = false;
    for (std::size_t i = 0; i < face.size(); ++i) {
        const double s = side(face[i], face[(i + 1) % face.size()], p);
        any_positive |= s > 0;
        any_negative |= s < 0;
    }
    return !(any_positive && any_negative);
}

// The extent of points along an axis.
std::pair<double, double> extent(const Point2* points, std::size_t n, Point2 axis) {
    double low = 1e300, high = -1e300;
    for (std::size_t i = 0; i < n; ++i) {
        const double d = points[i].x * axis.x + points[i].y * axis.y;
        low = std::min(low, d);
        high = std::max(high, d);
    }
    return {low, high};
}

}  // namespace

bool covers(const std::vector<Point2>& face, const Label& label) {
    const Point2 box[] = {label.low, {label.high.x, label.low.y}, label.high, {label.low.x, label.high.y}};
    // Two convex shapes are apart exactly when one of their edges' normals separates them.
    std::vector<Point2> axes{{1, 0}, {0, 1}};
    for (std::size_t i = 0; i < face.size(); ++i) {
        const Point2 a = face[i], b = face[(i + 1) % face.size()];
        axes.push_back({a.y - b.y, b.x - a.x});
    }
    for (const Point2 axis : axes) {
        const auto [face_low, face_high] = extent(face.data(), face.size(), axis);
        const auto [box_low, box_high] = extent(box, 4, axis);
        if (face_high <= box_low || box_high <= face_low) {
            return false;
        }
    }
    return true;
}

std::optional<Label> fitLabel(const std::vector<Point2>& face, Point2 centre, std::string_view name) {
    const std::size_t n = letters(name);
    if (face.size() < 3 || n == 0) {
        return std::nullopt;
    }
    for (double size = kLargestLabel; size >= kSmallestLabel; size -= 1) {
        // The letters' box with a little room around it.
        const double half_w = 0.5 * kLetterWidth * size * static_cast<double>(n) + 0.2 * size;
        const double half_h = 0.6 * size;
        const Point2 corners[] = {{centre.x - half_w, centre.y - half_h},
                                  {centre.x + half_w, centre.y - half_h},
                                  {centre.x + half_w, centre.y + half_h},
                                  {centre.x - half_w, centre.y + half_h}};
        bool fits = true;
        for (const Point2& c : corners) {
            fits = fits && inside(face, c);
        }
        if (fits) {
            // Capitals stand about 0.7 of the size above the baseline: this centres them.
            return Label{{centre.x, centre.y + 0.35 * size}, size, corners[0], corners[2]};
        }
    }
    return std::nullopt;
}

}  // namespace app
