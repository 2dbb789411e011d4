// Where a layer's name fits on its face as drawn: the largest legible size at which the whole
// name, centred on the layer, lies inside the face's outline; none when even the smallest does not.
// And which of the names that fit stay readable once everything painted after them is painted.
#pragma once

#include "app/drawing/box_index.h"
#include "app/drawing/drawing.h"

#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace app {

// Label sizes in picture pixels: below the smallest a name is not worth drawing.
constexpr double kSmallestLabel = 8;
constexpr double kLargestLabel = 15;

struct Label {
    Point2 baseline;  // where the text's middle baseline goes
    double size = 0;
    Point2 low, high;  // the box the letters take, with a little room around them
};

// The box the label's letters take.
Box boxOf(const Label& label);

// `face` is the outline as drawn (convex, either winding); `centre` the layer's centre on it.
std::optional<Label> fitLabel(std::span<const Point2> face, Point2 centre, std::string_view name);

// Whether a convex outline (either winding) and the label's box share any point.
bool covers(std::span<const Point2> face, const Label& label);

// Whether any edge of the outline crosses the label's box.
bool crosses(std::span<const Point2> face, const Label& label);

// A face as it is painted, with the name that fits on it, if any.
struct PaintedFace {
    std::span<const Point2> corners;
    bool filled = true;  // an outline without a fill crosses a name only where its edges run
    const Label* label = nullptr;
};

// For each face, painted in this order, whether its name stays: a name partly hidden or crossed by
// anything painted after it — another face, or another name — would read as another name, so it
// is left out (the full name stays on hover). A name among more faces painted after it than can
// be told apart is left out too: there it could not be read.
std::vector<bool> readableLabels(const std::vector<PaintedFace>& faces, double width, double height);

}  // namespace app
