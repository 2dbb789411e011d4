// Where a layer's name fits on its face as drawn: the largest legible size at which the whole
// name, centred on the layer, lies inside the face's outline; none when even the smallest does not.
#pragma once

#include "app/drawing/svg_writer.h"

#include <optional>
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

// `face` is the outline as drawn (convex, either winding); `centre` the layer's centre on it.
std::optional<Label> fitLabel(const std::vector<Point2>& face, Point2 centre, std::string_view name);

// Whether a convex outline (either winding) and the label's box share any point.
bool covers(const std::vector<Point2>& face, const Label& label);

}  // namespace app
