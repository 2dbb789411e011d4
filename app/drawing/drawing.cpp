#include "app/drawing/drawing.h"

#include <algorithm>
#include <cmath>

namespace app {

namespace {

// A picture has a handful of styles: a short search beats a map.
template <class T>
std::uint32_t indexIn(std::vector<T>& table, const T& value) {
    const auto at = std::find(table.begin(), table.end(), value);
    if (at != table.end()) {
        return static_cast<std::uint32_t>(at - table.begin());
    }
    table.push_back(value);
    return static_cast<std::uint32_t>(table.size() - 1);
}

}  // namespace

Drawing::Drawing(int width, int height, std::string background)
    : width_(width), height_(height), background_(std::move(background)) {}

std::uint32_t Drawing::styleIndex(const Style& style) { return indexIn(styles_, style); }

std::uint32_t Drawing::textStyleIndex(const TextStyle& style) { return indexIn(text_styles_, style); }

bool Drawing::add(Kind kind, std::span<const Point2> points, std::uint32_t style, std::string_view text) {
    for (const Point2& p : points) {
        if (!std::isfinite(p.x) || !std::isfinite(p.y)) {
            ++left_out_;
            return false;
        }
    }
    shapes_.push_back({kind, style, static_cast<std::uint32_t>(points_.size()),
                       static_cast<std::uint32_t>(points.size()), static_cast<std::uint32_t>(texts_.size()),
                       static_cast<std::uint32_t>(text.size())});
    points_.insert(points_.end(), points.begin(), points.end());
    texts_ += text;
    return true;
}

void Drawing::compact() {
    shapes_.shrink_to_fit();
    points_.shrink_to_fit();
    texts_.shrink_to_fit();
}

void Drawing::polygon(std::span<const Point2> points, const Style& style, std::string_view face) {
    add(Kind::polygon, points, styleIndex(style), face);
}

void Drawing::polyline(std::span<const Point2> points, const Style& style) {
    add(Kind::polyline, points, styleIndex(style), {});
}

void Drawing::text(Point2 at, std::string_view text, const TextStyle& style) {
    if (!std::isfinite(style.size)) {
        ++left_out_;
        return;
    }
    add(Kind::text, std::span<const Point2>(&at, 1), textStyleIndex(style), text);
}

void Drawing::band(double top, double bottom, const Style& style) {
    const Point2 corners[] = {{0, top}, {static_cast<double>(width_), bottom}};
    add(Kind::band, corners, styleIndex(style), {});
}

void Drawing::title(std::string_view text) { add(Kind::title, {}, 0, text); }

void Drawing::beginGroup(std::string_view name, std::string_view attributes) {
    const std::uint32_t index = attributes.empty() ? 0 : indexIn(attributes_, std::string(attributes));
    add(Kind::group, {}, index, name);
}

void Drawing::endGroup() { add(Kind::group_end, {}, 0, {}); }

}  // namespace app
