#include "app/drawing/hidden_shapes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace app {

namespace {

// Pixels wholly inside an opaque fill painted later, one bit each.
class Cover {
public:
    Cover(int width, int height) : width_(width), height_(height), rows_(static_cast<std::size_t>(height)) {
        for (auto& row : rows_) {
            row.assign(static_cast<std::size_t>(width + 63) / 64, 0);
        }
    }

    // Whether every pixel from column x0 to x1 of row y is covered; pixels off the picture are.
    bool covered(int y, int x0, int x1) const {
        if (y < 0 || y >= height_) {
            return true;
        }
        for (int x = std::max(x0, 0); x <= std::min(x1, width_ - 1); ++x) {
            if ((rows_[static_cast<std::size_t>(y)][static_cast<std::size_t>(x) / 64] >> (x % 64) & 1) == 0) {
                return false;
            }
        }
        return true;
    }

    void cover(int y, int x0, int x1) {
        if (y < 0 || y >= height_) {
            return;
        }
        for (int x = std::max(x0, 0); x <= std::min(x1, width_ - 1); ++x) {
            rows_[static_cast<std::size_t>(y)][static_cast<std::size_t>(x) / 64] |= std::uint64_t{1} << (x % 64);
        }
    }

    int width() const { return width_; }
    int height() const { return height_; }

private:
    int width_, height_;
    std::vector<std::vector<std::uint64_t>> rows_;
};

// A pixel index near the picture: coordinates far off it (a face reaching toward the camera) are
// brought to just beyond its edge before they become whole numbers.
int pixel(double v, int size) { return static_cast<int>(std::clamp(v, -2.0, size + 2.0)); }

bool convex(std::span<const Point2> p) {
    double sign = 0;
    for (std::size_t i = 0; i < p.size(); ++i) {
        const Point2 a = p[i], b = p[(i + 1) % p.size()], c = p[(i + 2) % p.size()];
        const double turn = (b.x - a.x) * (c.y - b.y) - (b.y - a.y) * (c.x - b.x);
        if (turn * sign < 0) {
            return false;
        }
        sign = turn != 0 ? turn : sign;
    }
    return p.size() >= 3;
}

// The x-range of a convex outline's edges crossing the horizontal line y; empty (low > high) when
// the line misses it.
std::pair<double, double> across(std::span<const Point2> p, double y) {
    double low = 1e300, high = -1e300;
    for (std::size_t i = 0; i < p.size(); ++i) {
        const Point2 a = p[i], b = p[(i + 1) % p.size()];
        if ((a.y <= y && y <= b.y) || (b.y <= y && y <= a.y)) {
            const double x = a.y == b.y ? std::min(a.x, b.x) : a.x + (y - a.y) / (b.y - a.y) * (b.x - a.x);
            const double x2 = a.y == b.y ? std::max(a.x, b.x) : x;
            low = std::min(low, x);
            high = std::max(high, x2);
        }
    }
    return {low, high};
}

// The x-range of an outline within the slab of rows from ya to yb: its corners there and its
// edges' crossings of the slab's two sides bound it, whatever its shape.
std::pair<double, double> slab(std::span<const Point2> p, double ya, double yb) {
    double low = 1e300, high = -1e300;
    auto take = [&](double x) { low = std::min(low, x), high = std::max(high, x); };
    for (std::size_t i = 0; i < p.size(); ++i) {
        const Point2 a = p[i], b = p[(i + 1) % p.size()];
        if (ya <= a.y && a.y <= yb) {
            take(a.x);
        }
        for (const double y : {ya, yb}) {
            if ((a.y < y && y < b.y) || (b.y < y && y < a.y)) {
                take(a.x + (y - a.y) / (b.y - a.y) * (b.x - a.x));
            }
        }
    }
    return {low, high};
}

// Whether every pixel the shape may touch is covered: in each row, the outline's span over the
// rows within its reach (its outline's half width and a pixel of blending), grown by that reach.
bool allCovered(const Cover& cover, std::span<const Point2> p, double reach) {
    double top = 1e300, bottom = -1e300;
    for (const Point2& q : p) {
        top = std::min(top, q.y), bottom = std::max(bottom, q.y);
    }
    const int y0 = pixel(std::floor(top - reach), cover.height()),
              y1 = pixel(std::floor(bottom + reach), cover.height());
    for (int y = y0; y <= y1; ++y) {
        const auto [x0, x1] = slab(p, y - reach, y + 1 + reach);
        if (x0 <= x1 && !cover.covered(y, pixel(std::floor(x0 - reach), cover.width()),
                                       pixel(std::floor(x1 + reach), cover.width()))) {
            return false;
        }
    }
    return true;
}

// Marks the pixels wholly inside a convex outline.
void coverInside(Cover& cover, std::span<const Point2> p) {
    double top = 1e300, bottom = -1e300;
    for (const Point2& q : p) {
        top = std::min(top, q.y), bottom = std::max(bottom, q.y);
    }
    for (int y = std::max(0, pixel(std::ceil(top), cover.height())); y + 1 <= bottom && y < cover.height(); ++y) {
        const auto a = across(p, y), b = across(p, y + 1);
        // Convex: the left side's largest x over the row is at one of its ends, the right side's
        // smallest likewise.
        const int x0 = pixel(std::ceil(std::max(a.first, b.first)), cover.width());
        const int x1 = pixel(std::floor(std::min(a.second, b.second)), cover.width()) - 1;
        cover.cover(y, x0, x1);
    }
}

bool opaque(const Style& s) { return s.fill != "none" && s.opacity >= 1; }

}  // namespace

std::vector<bool> hiddenShapes(const Drawing& d) {
    const auto& shapes = d.shapes();
    std::vector<bool> hidden(shapes.size(), false);
    Cover cover(d.width(), d.height());
    for (std::size_t i = shapes.size(); i-- > 0;) {
        const Drawing::Shape& s = shapes[i];
        if (s.kind != Drawing::Kind::polygon && s.kind != Drawing::Kind::polyline && s.kind != Drawing::Kind::band) {
            continue;
        }
        const Style& style = d.styles()[s.style];
        std::span<const Point2> p = d.pointsOf(s);
        if (p.empty()) {
            continue;
        }
        // A band is held by two corners.
        const Point2 band[] = {p.front(), {p.back().x, p.front().y}, p.back(), {p.front().x, p.back().y}};
        if (s.kind == Drawing::Kind::band) {
            p = band;
        }
        const double reach = (style.stroke != "none" ? 0.5 * style.stroke_width : 0) + 1;
        hidden[i] = allCovered(cover, p, reach);
        if (!hidden[i] && s.kind != Drawing::Kind::polyline && opaque(style) && convex(p)) {
            coverInside(cover, p);
        }
    }
    return hidden;
}

}  // namespace app
