#include "app/drawing/preview_label.h"

#include "app/drawing/box_index.h"
#include "app/drawing/preview_view.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace app {

namespace {

// A sans-serif letter is about this wide per pixel of size, on average; a little more, so that a
// name judged to fit does fit.
constexpr double kLetterWidth = 0.62;
// Faces painted after a name that are looked at before the name is given up as unreadable: piles
// of faces settle at the first, and a name among more than this many is lost in them anyway.
constexpr int kCrowd = 256;

std::size_t letters(std::string_view text) {
    std::size_t n = 0;
    for (const char c : text) {
        n += (static_cast<unsigned char>(c) & 0xC0) != 0x80;  // UTF-8 continuation bytes add none
    }
    return n;
}

double side(Point2 a, Point2 b, Point2 p) { return (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x); }

bool inside(std::span<const Point2> face, Point2 p) {
    bool any_positive = false, any_negative = false;
    for (std::size_t i = 0; i < face.size(); ++i) {
        const double s = side(face[i], face[(i + 1) % face.size()], p);
        any_positive |= s > 0;
        any_negative |= s < 0;
    }
    return !(any_positive && any_negative);
}

// The extent of points along an axis.
std::pair<double, double> extent(std::span<const Point2> points, Point2 axis) {
    double low = 1e300, high = -1e300;
    for (const Point2& p : points) {
        const double d = p.x * axis.x + p.y * axis.y;
        low = std::min(low, d);
        high = std::max(high, d);
    }
    return {low, high};
}

Box boxOf(std::span<const Point2> points) {
    Box box{1e300, 1e300, -1e300, -1e300};
    for (const Point2& p : points) {
        box = {std::min(box.left, p.x), std::min(box.top, p.y), std::max(box.right, p.x), std::max(box.bottom, p.y)};
    }
    return box;
}

bool meet(const Box& a, const Box& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

bool hides(const PaintedFace& face, const Label& label) {
    return face.filled ? covers(face.corners, label) : crosses(face.corners, label);
}

}  // namespace

Box boxOf(const Label& label) { return {label.low.x, label.low.y, label.high.x, label.high.y}; }

bool covers(std::span<const Point2> face, const Label& label) {
    const Point2 box[] = {label.low, {label.high.x, label.low.y}, label.high, {label.low.x, label.high.y}};
    // Two convex shapes are apart exactly when one of their edges' normals separates them.
    const auto apart = [&](Point2 axis) {
        const auto [face_low, face_high] = extent(face, axis);
        const auto [box_low, box_high] = extent(box, axis);
        return face_high <= box_low || box_high <= face_low;
    };
    if (apart({1, 0}) || apart({0, 1})) {
        return false;
    }
    for (std::size_t i = 0; i < face.size(); ++i) {
        const Point2 a = face[i], b = face[(i + 1) % face.size()];
        if (apart({a.y - b.y, b.x - a.x})) {
            return false;
        }
    }
    return true;
}

bool crosses(std::span<const Point2> face, const Label& label) {
    const Area box{label.low.x, label.low.y, label.high.x, label.high.y};
    for (std::size_t i = 0; i < face.size(); ++i) {
        if (clipToArea(face[i], face[(i + 1) % face.size()], box)) {
            return true;
        }
    }
    return false;
}

std::optional<Label> fitLabel(std::span<const Point2> face, Point2 centre, std::string_view name) {
    const std::size_t n = letters(name);
    if (face.size() < 3 || n == 0) {
        return std::nullopt;
    }
    // A face drawn as a point or a line holds no name, though every point of it is on its edge.
    double area = 0;
    for (std::size_t i = 0; i < face.size(); ++i) {
        const Point2 a = face[i], b = face[(i + 1) % face.size()];
        area += a.x * b.y - b.x * a.y;
    }
    for (double size = kLargestLabel; size >= kSmallestLabel; size -= 1) {
        // The letters' box with a little room around it.
        const double half_w = 0.5 * kLetterWidth * size * static_cast<double>(n) + 0.2 * size;
        const double half_h = 0.6 * size;
        const Point2 corners[] = {{centre.x - half_w, centre.y - half_h},
                                  {centre.x + half_w, centre.y - half_h},
                                  {centre.x + half_w, centre.y + half_h},
                                  {centre.x - half_w, centre.y + half_h}};
        bool fits = 0.5 * std::fabs(area) >= 4 * half_w * half_h;
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

std::vector<bool> readableLabels(const std::vector<PaintedFace>& faces, double width, double height) {
    std::vector<bool> kept(faces.size(), false);
    // Nearest first: each name is judged against what is painted after it, already filed.
    BoxIndex painted(width, height), names(width, height);
    for (std::size_t i = faces.size(); i-- > 0;) {
        const PaintedFace& face = faces[i];
        if (face.label != nullptr) {
            const Label& label = *face.label;
            const Box box = boxOf(label);
            int looked = 0;
            bool hidden = false;
            painted.visit(box, [&](std::uint32_t j) {
                hidden = ++looked > kCrowd || hides(faces[j], label);
                return hidden;
            });
            names.visit(box, [&](std::uint32_t j) {
                hidden = hidden || meet(box, boxOf(*faces[j].label));
                return hidden;
            });
            if (!hidden) {
                kept[i] = true;
                names.add(box, static_cast<std::uint32_t>(i));
            }
        }
        painted.add(boxOf(face.corners), static_cast<std::uint32_t>(i));
    }
    return kept;
}

}  // namespace app
