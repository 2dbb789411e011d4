// Boxes on a picture filed by where they lie, so that a question about one part of the picture
// meets only the boxes there: each box goes to the level of cells about its own size, where it
// takes at most four cells, however many boxes crowd one spot and however large they are.
#pragma once

#include <cstdint>
#include <vector>

namespace app {

struct Box {
    double left = 0, top = 0, right = 0, bottom = 0;
};

class BoxIndex {
public:
    BoxIndex(double width, double height);

    // Boxes wholly outside the picture are not filed.
    void add(const Box& box, std::uint32_t id);

    // Calls `visit(id)` for filed boxes that meet `box` (a box may come more than once), the
    // latest filed first within each cell, until `visit` returns true.
    template <class Visit>
    void visit(const Box& box, Visit&& visit) const {
        for (std::size_t level = 0; level < levels_.size(); ++level) {
            const Level& l = levels_[level];
            const Span s = span(box, l);
            for (int row = s.row0; row <= s.row1; ++row) {
                for (int column = s.column0; column <= s.column1; ++column) {
                    const std::vector<std::uint32_t>& cell =
                        l.cells[static_cast<std::size_t>(row * l.columns + column)];
                    for (auto slot = cell.rbegin(); slot != cell.rend(); ++slot) {
                        const Entry& e = entries_[*slot];
                        if (meets(e.box, box) && visit(e.id)) {
                            return;
                        }
                    }
                }
            }
        }
    }

private:
    struct Entry {
        std::uint32_t id;
        Box box;
    };
    struct Level {
        double cell;
        int columns, rows;
        std::vector<std::vector<std::uint32_t>> cells;  // slots in `entries_`
    };
    struct Span {
        int column0 = 0, column1 = -1, row0 = 0, row1 = -1;  // empty by default
    };

    static bool meets(const Box& a, const Box& b) {
        return a.left <= b.right && b.left <= a.right && a.top <= b.bottom && b.top <= a.bottom;
    }
    Span span(const Box& box, const Level& level) const;

    double width_, height_;
    std::vector<Level> levels_;
    std::vector<Entry> entries_;
};

}  // namespace app
