#include "app/drawing/box_index.h"

#include <algorithm>
#include <cmath>

namespace app {

namespace {

constexpr double kSmallestCell = 40;  // pixels: about a short name at the smallest label size

}  // namespace

BoxIndex::BoxIndex(double width, double height) : width_(width), height_(height) {
    for (double cell = kSmallestCell;; cell *= 2) {
        const int columns = static_cast<int>(std::ceil(width / cell)) + 1;
        const int rows = static_cast<int>(std::ceil(height / cell)) + 1;
        levels_.push_back({cell, columns, rows, std::vector<std::vector<std::uint32_t>>(columns * rows)});
        if (cell >= std::max(width, height)) {
            break;
        }
    }
}

BoxIndex::Span BoxIndex::span(const Box& box, const Level& level) const {
    // Written so that a box with a side that is not a number falls outside too.
    if (!(box.right >= 0 && box.left <= width_ && box.bottom >= 0 && box.top <= height_)) {
        return {};
    }
    auto at = [&](double v, double limit) { return static_cast<int>(std::clamp(v, 0.0, limit) / level.cell); };
    return {at(box.left, width_), at(box.right, width_), at(box.top, height_), at(box.bottom, height_)};
}

void BoxIndex::add(const Box& box, std::uint32_t id) {
    // The first level whose cells are as large as the box: it lies in at most two by two of them.
    const double size = std::max(box.right - box.left, box.bottom - box.top);
    std::size_t level = 0;
    while (level + 1 < levels_.size() && !(size <= levels_[level].cell)) {
        ++level;
    }
    Level& l = levels_[level];
    const Span s = span(box, l);
    if (s.column1 < s.column0) {
        return;
    }
    const auto slot = static_cast<std::uint32_t>(entries_.size());
    entries_.push_back({id, box});
    for (int row = s.row0; row <= s.row1; ++row) {
        for (int column = s.column0; column <= s.column1; ++column) {
            l.cells[static_cast<std::size_t>(row * l.columns + column)].push_back(slot);
        }
    }
}

}  // namespace app
